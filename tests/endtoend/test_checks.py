#!/usr/bin/env python3
"""A clerk keys an order with mistakes at a real display: each is refused at once, corrected, and the order saved.

    test_checks.py PROGRAM KEEP

Two codes that nobody knows, a day that the calendar does not have, a half day and a time that are none, a quantity of
zero, a warehouse that there is not, no customer. The database must hold what the clerk has put in their place. Pictures
of the refused texts with their reasons and of the saved order stay in KEEP.
"""

import sys

from desktop import Desktop, Failure
from order_window import NOW, PRESET_WAREHOUSE, WAREHOUSES, OrderWindow


class Clerk:
    def __init__(self, order):
        self.order = order
        self.window = order.window

    def key(self, *names):
        self.window.keys(*names)

    def type(self, text, *keys):
        self.window.type(text)
        self.window.keys(*keys)

    def is_refused(self, picture):
        """No box: the reason stands at the text, which stays; another Enter leaves it there."""
        self.window.desktop.settle()
        self.window.check_undisturbed()
        self.window.desktop.picture(picture)
        self.key("Return")
        self.window.desktop.settle()
        self.window.check_undisturbed()


def key_first_line(clerk, code):
    clerk.type("999999", "Return")
    clerk.is_refused("code")
    clerk.type(code, "Return")
    clerk.type("3", "Tab", "Tab")
    clerk.type("X9", "Return")
    clerk.is_refused("warehouse")
    clerk.type("C02", "Tab")
    clerk.type("2011-02-30", "Return")
    clerk.is_refused("date")
    clerk.type("2011/2/28", "Tab")
    clerk.type("2011-2-28 noon", "Return")
    clerk.is_refused("half-day")
    clerk.key("Escape", "Return")  # it stays the morning
    clerk.key("Return")  # no gift
    clerk.type("first", "Tab")
    clerk.type("2026-11-19 24:00:00", "Return")
    clerk.is_refused("time")
    clerk.type("2026-11-19 8:5:9", "Return")


def key_second_line(clerk, code):
    clerk.type("12345x", "Down")  # an arrow checks as Enter does
    clerk.is_refused("second-code")
    clerk.type(code, "Return")
    clerk.type("0", "Return")


def save_with_corrections(clerk, customer):
    """The customer is still missing, and the second line moves nothing."""
    order, window = clerk.order, clerk.window
    clerk.key("ctrl+s")
    window.answer_box("Return", picture="no-customer")
    clerk.type(customer, "Return")
    clerk.key("ctrl+s")
    window.desktop.settle()
    window.check_undisturbed()
    window.desktop.picture("zero-cell")
    if order.saves() != 0:
        raise Failure("the order was saved with a quantity of zero")
    clerk.type("7", "Return")
    return order.save()


def expected_rows(goods):
    (code, name, spec, unit, price), (code2, name2, spec2, unit2, price2) = goods
    day, half_day = "2011-02-28", "2011-02-28 上午"
    preset, preset_half = "2026-11-27", "2026-11-27 上午"
    return [
        (code, name, spec, unit, 3000, price, 3 * price, WAREHOUSES["C02"], day, 0, "first", half_day)
        + ("2026-11-19 08:05:09",),
        (code2, name2, spec2, unit2, 7000, price2, 7 * price2, PRESET_WAREHOUSE, preset, 0, "")
        + (preset_half, NOW),
    ]


def main(program, keep):
    with Desktop(keep) as desktop:
        order = OrderWindow(desktop, program, "orders.sqlite")
        clerk = Clerk(order)
        goods = order.goods(2)
        clerk.key("F7")
        key_first_line(clerk, goods[0][0])
        key_second_line(clerk, goods[1][0])
        (customer,) = order.query("SELECT id, code, name FROM customer ORDER BY code LIMIT 1")
        rows = save_with_corrections(clerk, customer[1])
        desktop.settle()
        desktop.picture("saved")
        if rows != expected_rows(goods):
            raise Failure(f"expected {expected_rows(goods)}, saved {rows}")
        saved = order.query("SELECT number, order_date, customer_id, version FROM sales_order")
        if saved != [("XS-20261120-001", "2026-11-20", customer[0], 1)]:
            raise Failure(f"saved the head {saved}")
        order.window.close()
    print(f"{len(rows)} lines saved after eight refusals")


if __name__ == "__main__":
    main(*sys.argv[1:])
