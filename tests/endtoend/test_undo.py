#!/usr/bin/env python3
"""A clerk keys ten lines, fills a column, copies a row and deletes another one at a real display; takes all of it back
and brings all of it back by key; then saves, and saves again after a single act has been undone and redone. The screen
must be that of an empty order in between, and the database must hold what the acts are for.

    test_undo.py PROGRAM KEEP
"""

import sys

from desktop import Desktop, Failure
from order_window import NOW, WAREHOUSES, OrderWindow, expect_lines, expect_same_pictures

LINES = 10
WAREHOUSE = "C02"
DELIVERY = "2026-11-27"
ACTS_AT_MOST = 60  # a line is three: code, quantity, the default texts of the next row

# Where the items stand in the menu, without separators.
COPY_INSERT, DELETE, FILL = 4, 7, 8
COPIED, DELETED = 2, 5  # rows


def work(order, goods):
    """Leaves the lines that expected_rows() names."""
    for row, good in enumerate(goods, 1):
        order.key_line(row, good[0], str(row))
    order.select(1, "仓库")
    order.window.type(WAREHOUSE)
    order.window.keys("Return")
    order.open_menu(1, "仓库")
    order.window.keys(*["Down"] * FILL, "Right", "c")
    order.window.await_popups(0)
    order.choose(COPIED, "货号", COPY_INSERT)
    order.choose(DELETED, "货号", DELETE)
    order.window.answer_box("alt+d")


def expected_rows(goods, deleted=True):
    rows = []
    for quantity, (code, name, spec, unit, price) in enumerate(goods, 1):
        rows.append(
            (code, name, spec, unit, quantity * 1000, price, quantity * price, WAREHOUSES[WAREHOUSE], DELIVERY, 0, "")
            + (f"{DELIVERY} 上午", NOW)
        )
    rows.insert(COPIED - 1, rows[COPIED - 1])
    if deleted:
        del rows[DELETED - 1]
    return rows


def expect_numbered(order):
    numbers = [number for (number,) in order.query("SELECT line_no FROM order_line ORDER BY line_no")]
    if numbers != list(range(1, len(numbers) + 1)):
        raise Failure(f"lines are numbered {numbers}")


def main(program, keep):
    with Desktop(keep) as desktop:
        order = OrderWindow(desktop, program, "orders.sqlite")
        goods = order.goods(LINES)
        order.choose_customer()
        empty = order.grid_picture("undo-before")
        work(order, goods)
        full = order.grid_picture("undo-worked")
        order.window.keys(*["ctrl+z"] * ACTS_AT_MOST)
        expect_same_pictures(empty, order.grid_picture("undo-undone"))
        order.window.keys("F6", "ctrl+y", "ctrl+shift+z")  # the customer's own keys
        expect_same_pictures(empty, order.grid_picture("undo-head"))
        order.window.keys(*["ctrl+y"] * ACTS_AT_MOST)
        expect_same_pictures(full, order.grid_picture("undo-redone"))
        expect_lines(expected_rows(goods), order.save())
        ids = order.query("SELECT id FROM order_line ORDER BY line_no")
        order.window.keys("ctrl+z")
        expect_lines(expected_rows(goods, deleted=False), order.save())
        expect_numbered(order)
        order.window.keys("ctrl+shift+z")
        expect_lines(expected_rows(goods), order.save())
        expect_numbered(order)
        if order.query("SELECT id FROM order_line ORDER BY line_no") != ids:
            raise Failure("lines that nobody touched were written anew")
        order.window.close()  # nothing is unsaved: no question
    print(f"{LINES} lines worked on, undone and redone")


if __name__ == "__main__":
    main(*sys.argv[1:])
