#!/usr/bin/env python3
"""A clerk keys an order of twenty lines at a real display; the database must hold what was keyed, to the cent.

    test_order.py PROGRAM KEEP
"""

import dataclasses
import decimal
import sys

from desktop import Desktop, Failure
from order_window import NOW, PRESET_WAREHOUSE, WAREHOUSES, OrderWindow


@dataclasses.dataclass
class Line:
    """What the clerk keys into a line, beside the goods' code: the key strokes of the quantity and the number that
    they mean; then what is left empty to keep the proposal."""

    keys: list
    quantity: str
    price_keys: str = ""
    price: str = ""
    warehouse: str = ""
    gift: bool = False
    remark: str = ""


def plain(text):
    return [("type", text)]


LINES = [
    Line(plain("12*3+4.5"), "40.5", warehouse="C02"),
    Line(plain("(2+3)4"), "20"),
    Line(plain("1"), "1", price_keys="19.99", price="19.99", remark="urgent"),
    # A wrong number, given up with Esc and keyed anew.
    Line([("type", "999"), ("keys", "Escape"), ("type", "7")], "7"),
    # The last digit removed with an arrow and Delete.
    Line([("type", "125"), ("keys", "Left", "Delete")], "12"),
    Line([("type", "34"), ("keys", "BackSpace"), ("type", "6")], "36", gift=True),
    # A digit put in front, by Home.
    Line([("type", "50"), ("keys", "Home"), ("type", "2")], "250"),
    Line(plain("0.125"), "0.125"),
    Line(plain("-2"), "-2", remark="returned"),
    Line(plain("100/8"), "12.5", price_keys="3*1.1", price="3.3"),
    Line(plain("10-3-2"), "5"),
    Line(plain("2^5"), "32"),
    Line(plain("1000000"), "1000000", price_keys="0.01", price="0.01"),
    Line([("type", "1.5"), ("keys", "Escape"), ("type", "8"), ("keys", "Escape"), ("type", "3.75")], "3.75"),
    Line(plain("0.1+0.2"), "0.3", price_keys="10", price="10"),
    Line(plain("1.005"), "1.005", price_keys="100", price="100", gift=True, remark="x y"),
    Line(plain("6"), "6", warehouse="C03"),
    Line(plain("17"), "17"),
    Line(plain("3"), "3", price_keys="0.005*2", price="0.01"),
    Line(plain("250*4"), "1000", remark="last"),
]
# Lines that the clerk puts right afterwards, going there with the arrows: by index.
CORRECTED = {3: "70", 12: "1234567.5"}


def cents(number):
    """Half a cent counts as one, away from zero."""
    return int(decimal.Decimal(number).quantize(decimal.Decimal("0.01"), decimal.ROUND_HALF_UP) * 100)


def expected_rows(goods):
    rows = []
    for index, (line, (code, name, spec, unit, catalogue_price)) in enumerate(zip(LINES, goods)):
        quantity = decimal.Decimal(CORRECTED.get(index, line.quantity))
        price = decimal.Decimal(line.price) if line.price else decimal.Decimal(catalogue_price) / 100
        warehouse = WAREHOUSES.get(line.warehouse, PRESET_WAREHOUSE)
        delivery = "2026-11-27"
        rows.append(
            (code, name, spec, unit, int(quantity * 1000), int(price * 100), cents(quantity * price), warehouse)
            + (delivery, int(line.gift), line.remark, delivery + " 上午", NOW)
        )
    return rows


def key_line(window, code, line):
    """From the empty code cell of a row to the code cell of the next one."""
    window.type(code)
    window.keys("Return")  # on to the quantity: the code brings all that stands between
    for how, *what in line.keys:
        getattr(window, how)(*what)
    window.keys("Tab")
    if line.price_keys:
        window.type(line.price_keys)
    window.keys("Tab")
    if line.warehouse:
        window.type(line.warehouse)
    window.keys("Tab")
    window.keys("Tab", "Tab")  # delivery date and half day stay
    if line.gift:
        window.keys("space")
    window.keys("Tab")
    if line.remark:
        window.type(line.remark)
    window.keys("Tab", "Return")  # and so does the time of entry


def key_wrong_line_and_delete_it(window, code):
    window.type(code)
    window.keys("Return")
    window.type("5")
    window.keys("Tab", "Delete")
    window.answer_box("alt+d")  # yes, the row goes
    window.keys("Home")


def correct(window):
    """From the code cell below the last line, up to each line to correct, and back."""
    for index, quantity in CORRECTED.items():
        steps = len(LINES) - index
        window.keys(*["Up"] * steps, *["Right"] * 4)
        window.type(quantity)
        window.keys("Return", *["Down"] * (steps - 1))  # Enter leads to the next line


def check(rows, goods):
    expected = expected_rows(goods)
    for number, (want, have) in enumerate(zip(expected, rows), 1):
        if want != have:
            raise Failure(f"line {number}: keyed {want}, saved {have}")
    if len(rows) != len(expected):
        raise Failure(f"keyed {len(expected)} lines, saved {len(rows)}: {rows}")


def run(program, keep, name):
    with Desktop(keep) as desktop:
        order = OrderWindow(desktop, program, "orders.sqlite")
        goods = order.goods(len(LINES) + 1)
        order.choose_customer()
        for index, line in enumerate(LINES):
            if index == 10:
                key_wrong_line_and_delete_it(order.window, goods[-1][0])
            key_line(order.window, goods[index][0], line)
        correct(order.window)
        rows = order.save()
        desktop.picture(name)
        check(rows, goods)
        order.window.close()
        return rows


def main(program, keep):
    first = run(program, keep, "order-first")
    second = run(program, keep, "order-second")
    if first != second:
        raise Failure("the second run saved something else than the first")
    print(f"{len(first)} lines, twice the same, {sum(row[6] for row in first) / 100:.2f} in all")


if __name__ == "__main__":
    main(*sys.argv[1:])
