#!/usr/bin/env python3
"""A clerk works with the row commands at a real display, by mouse and keyboard: rows inserted, copied and deleted,
columns filled, the order saved and approved. The database must hold what the commands are for, and another program that
reads it must show, pixel by pixel, what the screen showed before the order was saved.

    test_rows.py PROGRAM KEEP
"""

import datetime
import sys

from desktop import Desktop
from order_window import (
    NOW,
    PRESET_WAREHOUSE,
    WAREHOUSES,
    OrderWindow,
    expect_lines,
    expect_same_pictures,
)

WAREHOUSE = "C02"
DELIVERY = datetime.date(2026, 11, 27)
SHEET_ROWS = 12
IN_FIRST_OR_LAST_ITEM = 12  # pixels from the menu's edge

# Where the items stand in the menu, without separators.
COPY_INSERT, DELETE, FILL = 4, 7, 8
INSERT_SEVERAL = 4  # with Ctrl


def add_row_by_mouse(order):
    order.open_menu(2, "数量")
    order.window.desktop.picture("rows-menu")
    order.window.click_item(from_top=IN_FIRST_OR_LAST_ITEM)
    order.window.await_popups(0)


def insert_rows(order, count):
    order.open_menu(2, "货号", held="ctrl")
    order.window.desktop.picture("rows-menu-ctrl")
    order.window.keys(*["Down"] * INSERT_SEVERAL, "Return")
    order.window.answer_box(str(count), "Return", title="新增行", picture="rows-box")


def key_last_line(order, code):
    """In the sheet's last row: fills go down to it, through the empty rows before it."""
    order.window.keys("ctrl+End", "Home")
    order.window.type(code)
    order.window.keys("Return", "ctrl+Home")


def fill_by_mouse(order, row, column):
    """Copies of the cell: the last item of what the menu's fill leads to. Below it stand the host's own items."""
    order.open_menu(row, column)
    order.window.keys(*["Down"] * FILL, "Right")
    order.window.await_popups(2)
    order.window.desktop.picture("rows-fill")
    order.window.click_item(from_bottom=IN_FIRST_OR_LAST_ITEM)
    order.window.await_popups(0)


def fill_by_keys(order, row, column, letter):
    order.open_menu(row, column)
    order.window.keys(*["Down"] * FILL, "Right", letter)
    order.window.await_popups(0)


def work(order, goods):
    """Leaves the lines that expected_rows() names."""
    window = order.window
    order.key_line(1, goods[0][0], "10")
    order.key_line(2, goods[1][0], "13")
    for row in (1, 2):
        order.select(row, "仓库")
        window.type(WAREHOUSE)
        window.keys("Return")
    add_row_by_mouse(order)
    order.choose(2, "货号", COPY_INSERT)
    insert_rows(order, 2)  # between the first line and the copy
    order.key_line(2, goods[2][0], "1")
    order.choose(3, "货号", DELETE)  # empty: no question
    order.choose(4, "数量", DELETE)  # what was copied
    window.answer_box("alt+d")
    key_last_line(order, goods[1][0])
    fill_by_mouse(order, 3, "货号")
    fill_by_keys(order, 3, "数量", "s")
    fill_by_keys(order, 3, "仓库", "c")
    fill_by_keys(order, 3, "交货日期", "d")


def line(good, quantity, delivery, half_day=None, entered=None, warehouse=WAREHOUSES[WAREHOUSE]):
    """Half day and time of entry are where the clerk has been."""
    code, name, spec, unit, price = good
    slot = half_day and f"{delivery} {half_day}"
    return (
        (code, name, spec, unit, quantity * 1000, price, quantity * price, warehouse, str(delivery), 0, "")
        + (slot, entered)
    )


def expected_rows(goods):
    filled = WAREHOUSES[WAREHOUSE]
    keyed = ((goods[0], 10, filled), (goods[2], 1, PRESET_WAREHOUSE), (goods[1], 13, filled))
    rows = [line(good, quantity, DELIVERY, "上午", NOW, warehouse) for good, quantity, warehouse in keyed]
    # One added at the end, one copied, two inserted, two deleted.
    last = SHEET_ROWS + 2
    for row in range(4, last + 1):
        # Enter has led to the fourth, the last was keyed: both were given a half day.
        keyed_there = {4: ("上午",), last: ("上午", NOW)}.get(row, ())
        rows.append(line(goods[1], 13 + 12 * (row - 3), DELIVERY + datetime.timedelta(row - 3), *keyed_there))
    return rows


def approve(order):
    """Afterwards neither keys nor the right button change anything."""
    order.window.keys("F9")
    order.window.answer_box("alt+a")
    order.open_menu(1, "数量")
    order.window.desktop.picture("rows-approved")
    order.window.keys("Down", "Return")
    order.window.await_popups(0)
    order.window.keys("Insert", "Delete", "9", "Return", "ctrl+s")
    order.window.desktop.settle()
    order.window.check_undisturbed()


def main(program, keep):
    with Desktop(keep) as desktop:
        order = OrderWindow(desktop, program, "orders.sqlite")
        goods = order.goods(3)
        order.choose_customer()
        work(order, goods)
        rows = order.save()
        expect_lines(expected_rows(goods), rows)
        approve(order)
        before = order.grid_picture("rows-before")
        order.window.close()
        again = OrderWindow(desktop, program, "orders.sqlite")
        again.window.keys("ctrl+o")
        again.window.answer_box("Return", title="订单列表")
        expect_same_pictures(before, again.grid_picture("rows-after"))
        expect_lines(rows, again.lines())
        again.window.close()
    print(f"{len(rows)} lines, shown as they were saved")


if __name__ == "__main__":
    main(*sys.argv[1:])
