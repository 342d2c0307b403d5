#!/usr/bin/env python3
"""A clerk keys lines at a real display, and the program is killed. Started anew it shows them; the clerk goes on and
saves, and the database holds every line once. Killed again over a change of the saved order, which somebody else saves
meanwhile, it shows both, and the change is saved as another order.

    test_draft.py PROGRAM KEEP
"""

import sqlite3
import sys

from desktop import Desktop, Failure, wait_for
from order_window import NOW, PRESET_WAREHOUSE, OrderWindow, expect_lines

LINES = 8
BEFORE = 5  # lines that are keyed before the program is killed
DELIVERY = "2026-11-27"
CHANGED = 77  # the quantity that is in the draft as somebody else saves the order


def kill(order):
    order.window.process.kill()
    order.window.process.wait()


def drafts(desktop):
    return list(desktop.folder.glob(".local/share/**/drafts/*.draft"))


def wait_until_draft_holds(desktop, text):
    wait_for(f"{text} in the draft", lambda: any(text in file.read_text(encoding="utf-8") for file in drafts(desktop)))


def is_draft_of_change(file):
    text = file.read_text(encoding="utf-8")
    return f"\t{CHANGED}" in text and "order 1" in text


def key_until_killed(desktop, program, goods_of):
    order = OrderWindow(desktop, program, "orders.sqlite")
    goods = goods_of(order)
    order.choose_customer()
    for row, good in enumerate(goods[:BEFORE], 1):
        order.key_line(row, good[0], str(row))
    order.window.type(goods[BEFORE][0])  # stands in the editor, for longer than five seconds
    wait_until_draft_holds(desktop, f'"text":"{goods[BEFORE][0]}"')
    kill(order)
    return goods


def go_on_and_save(desktop, program, goods):
    order = OrderWindow(desktop, program, "orders.sqlite")
    desktop.settle()
    desktop.picture("draft-recovered")
    order.window.keys("alt+j")
    desktop.settle()  # the bar has gone, and the rows are where they always are
    desktop.picture("draft-goes-on")
    order.window.keys("Return")
    order.window.type(str(BEFORE + 1))
    order.window.keys("Return")
    for row, good in enumerate(goods[BEFORE + 1 :], BEFORE + 2):
        order.key_line(row, good[0], str(row))
    expect_lines(expected_rows(goods), order.save())
    return order


def expected_rows(goods):
    return [
        (code, name, spec, unit, row * 1000, price, row * price, PRESET_WAREHOUSE, DELIVERY, 0, "")
        + (f"{DELIVERY} 上午", NOW)
        for row, (code, name, spec, unit, price) in enumerate(goods, 1)
    ]


def change_until_killed(order):
    order.select(1, "数量")
    order.window.type(str(CHANGED))
    order.window.keys("Return")
    wait_until_draft_holds(order.window.desktop, f"\t{CHANGED}")
    kill(order)


def save_elsewhere(database):
    connection = sqlite3.connect(database)
    with connection:
        connection.execute("UPDATE sales_order SET version = version + 1")
        connection.execute("UPDATE order_line SET remark = 'other' WHERE line_no = 2")
    connection.close()


def expect_saved_beside(desktop, program):
    order = OrderWindow(desktop, program, "orders.sqlite", title="保存冲突")
    desktop.settle()
    desktop.picture("draft-conflict")
    titles = desktop.xdotool("search", "--onlyvisible", "--name", "销售订单录入").stdout.split()
    if len(titles) != 2:
        raise Failure(f"there are {len(titles)} windows, not one for the order and one for the draft")
    order.window.keys("ctrl+s")
    wait_for("two orders", lambda: order.query("SELECT COUNT(*) FROM sales_order") == [(2,)])
    kept = order.query("SELECT quantity_milli, remark FROM order_line WHERE line_no < 3 ORDER BY order_id, line_no")
    if kept != [(1000, ""), (2000, "other"), (CHANGED * 1000, ""), (2000, "")]:
        raise Failure(f"the orders hold {kept}")
    # Until then a crash would offer it again: the order is there, and so is the draft, which is one of the first order.
    wait_for("the end of the draft", lambda: not any(is_draft_of_change(file) for file in drafts(desktop)))
    kill(order)


def main(program, keep):
    with Desktop(keep) as desktop:
        goods = key_until_killed(desktop, program, lambda order: order.goods(LINES))
        order = go_on_and_save(desktop, program, goods)
        change_until_killed(order)
        save_elsewhere(order.database)
        expect_saved_beside(desktop, program)
        order = OrderWindow(desktop, program, "orders.sqlite")
        order.window.close()  # nothing is unsaved: no question
        if drafts(desktop):
            raise Failure(f"there are drafts of nothing: {drafts(desktop)}")
    print(f"{LINES} lines across three crashes, and a draft beside what somebody else had saved")


if __name__ == "__main__":
    main(*sys.argv[1:])
