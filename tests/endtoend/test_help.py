#!/usr/bin/env python3
"""A clerk keys an order of twenty lines with help at a real display: every code by F2 and a few letters, units from
the list, dates and times from the calendar, warehouses from the host's own list, one good that he enters first. The
database must hold what was chosen; the key presses of each line are counted and printed.

    test_help.py PROGRAM KEEP
"""

import dataclasses
import datetime
import sys

from desktop import Desktop, Failure, wait_for
from order_window import NOW, OrderWindow

UNITS = "个 百个 件 只 套 台 把 副 盒 箱 桶 卷 根 片 张 米 平方米 千克 吨".split()
WAREHOUSES = "主仓库 五金仓 钢材仓 电气仓 化工仓 退货仓".split()
NEW_GOOD = ("A-900", "Valve 9", "", "台", 1250)


@dataclasses.dataclass
class Line:
    """What the clerk chooses: the letters that find the good, and steps from what the cell proposes."""

    search: str
    quantity: int
    unit: int  # where it stands in the list
    days: int  # the delivery date moves
    entered_days: int = -1  # the time of entry moves
    warehouse: int = 0  # steps down the list from the preset one; 0 keeps it
    afternoon: bool = False
    hours: int = 0  # the time of entry moves


LINES = [
    Line("wfgg", 3, unit=13, days=1, warehouse=1),
    Line("bxgljls", 12, unit=1, days=0),
    Line("100017", 5, unit=2, days=-1),
    Line("htqf", 8, unit=6, days=3),
    Line("LED", 40, unit=4, days=1, afternoon=True),
    Line("sdz", 2, unit=6, days=0),
    Line("kqkg", 60, unit=4, days=7, hours=1),
    Line("104", 1, unit=1, days=1),
    Line("lbst", 24, unit=3, days=-2, warehouse=2),
    Line("txdx", 100, unit=16, days=1),
    Line("dxgg", 15, unit=13, days=0, entered_days=-7),
    Line("PVC", 6, unit=16, days=1),
    Line("jg", 9, unit=19, days=2),
    Line("A-900", 4, unit=6, days=1),  # the new good
    Line("aqm", 30, unit=4, days=0),
    Line("sgb", 11, unit=15, days=1, hours=-2),
    Line("102222", 7, unit=9, days=14),
    Line("fxjd", 18, unit=12, days=0),
    Line("yjzmd", 2, unit=5, days=-1, warehouse=1),
    Line("tcz", 50, unit=17, days=1),
]


class Clerk:
    """Hands at the window that count the keys they press."""

    def __init__(self, window):
        self.window = window
        self.presses = 0
        self.helped = set()

    def keys(self, *names):
        self.presses += len(names)
        self.window.keys(*names)

    def type(self, text):
        self.presses += len(text)
        self.window.type(text)

    def help(self, name, *names):
        """Opens the help of the open editor, keeps a picture of the first of its kind, and presses keys in it."""
        self.keys("F2")
        self.await_box()
        self.presses += len(names)
        if len(names) > 1:
            self.window.keys(*names[:-1])
        self.picture(name)
        self.window.keys(names[-1])
        wait_for("the end of the help", self.window.is_active)

    def await_box(self):
        wait_for("a box", lambda: not self.window.is_active())
        self.window.desktop.settle()

    def picture(self, name):
        if name in self.helped:
            return
        self.helped.add(name)
        self.window.desktop.settle()
        self.window.desktop.picture(name)


def steps(count, forwards, backwards):
    return [forwards if count > 0 else backwards] * abs(count)


def choose_good(clerk, line):
    clerk.type(line.search)
    clerk.help("help-lookup", "Return")
    clerk.keys("Return")  # takes it; on to the quantity


def enter_new_good(clerk):
    """Through the list's edit button; the list is there again afterwards, and gives up."""
    code, name, _, unit, _ = NEW_GOOD
    assert unit == "台"
    clerk.keys("space", "F2")
    clerk.await_box()
    box = clerk.window.desktop.active_window()
    clerk.keys("Tab", "Tab", "space")
    wait_for("the goods editor", lambda: clerk.window.desktop.active_window() != box)
    clerk.window.desktop.settle()
    clerk.type(code)
    clerk.keys("Tab")
    clerk.type(name)
    clerk.keys("Tab", "Tab", "Tab", "Down", "Down", "Down", "Tab")
    clerk.type("12.5")
    clerk.picture("help-goods-editor")
    clerk.keys("Return")
    wait_for("the list", lambda: clerk.window.desktop.active_window() == box)
    clerk.window.keys("Escape")
    wait_for("the end of the help", clerk.window.is_active)
    clerk.window.keys("Escape")


def key_line(clerk, line, unit):
    """From the empty code cell of a row to the code cell of the next one; returns the number of key presses. The list
    of units opens on the unit that the good brings."""
    before = clerk.presses
    choose_good(clerk, line)
    clerk.keys("Left", "space")  # back to the unit
    clerk.help("help-constants", *steps(line.unit - 1 - UNITS.index(unit), "Down", "Up"), "Return")
    clerk.keys("Return")
    clerk.type(str(line.quantity))
    clerk.keys("Tab", "Tab")  # the price stays
    if line.warehouse:
        clerk.keys("space")
        clerk.help("help-warehouses", *["Down"] * line.warehouse, "Return")
    clerk.keys("Tab", "space")
    clerk.help("help-calendar", *steps(line.days, "Right", "Left"), "Return")
    clerk.keys("Tab")
    if line.afternoon:
        clerk.keys("space")
        clerk.help("help-half-day", "Tab", "Down", "Return")
    clerk.keys("Tab", "Tab", "Tab", "space")  # gift and remark stay empty
    hours = ["Tab", *steps(line.hours, "Up", "Down")] if line.hours else []
    clerk.help("help-time", *steps(line.entered_days, "Right", "Left"), *hours, "Return")
    clerk.keys("Return")
    return clerk.presses - before


def found(goods, text):
    """The lowest record of the list whose code, name or initials start with the text."""
    return next(good for good in goods if any(field.startswith(text) for field in (good[0], good[1], good[5])))


def expected_rows(goods):
    rows = []
    for line in LINES:
        code, name, spec, _, price, _ = found(goods, line.search)
        delivery = datetime.date(2026, 11, 27) + datetime.timedelta(line.days)
        half = "下午" if line.afternoon else "上午"
        entered = datetime.datetime.fromisoformat(NOW) + datetime.timedelta(line.entered_days, hours=line.hours)
        rows.append(
            (code, name, spec, UNITS[line.unit - 1], line.quantity * 1000, price, line.quantity * price)
            + (WAREHOUSES[line.warehouse], delivery.isoformat(), 0, "", f"{delivery.isoformat()} {half}")
            + (entered.isoformat(" "),)
        )
    return rows


def check(rows, expected):
    for number, (want, have) in enumerate(zip(expected, rows), 1):
        if want != have:
            raise Failure(f"line {number}: chosen {want}, saved {have}")
    if len(rows) != len(expected):
        raise Failure(f"chosen {len(expected)} lines, saved {len(rows)}: {rows}")


def main(program, keep):
    with Desktop(keep) as desktop:
        order = OrderWindow(desktop, program, "orders.sqlite")
        order.choose_customer()
        clerk = Clerk(order.window)
        presses = []
        goods = order.query("SELECT code, name, spec, unit, price_cents, pinyin FROM goods ORDER BY code")
        units = {line.search: (NEW_GOOD if line.search == NEW_GOOD[0] else found(goods, line.search))[3] for line in LINES}
        for line in LINES:
            if line.search == NEW_GOOD[0]:
                enter_new_good(clerk)
            presses.append(key_line(clerk, line, units[line.search]))
        rows = order.save()
        desktop.picture("help-order")
        goods = order.query("SELECT code, name, spec, unit, price_cents, pinyin FROM goods ORDER BY code")
        check(rows, expected_rows(goods))
        order.window.close()
    print("key presses per line:", *presses)
    print(f"{len(rows)} lines, {sum(presses)} key presses, {sum(presses) / len(rows):.1f} per line")


if __name__ == "__main__":
    main(*sys.argv[1:])
