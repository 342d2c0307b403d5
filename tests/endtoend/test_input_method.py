#!/usr/bin/env python3
"""A clerk writes Chinese remarks with a real input method (pinyin) at a real display.

    test_input_method.py PROGRAM KEEP

Every case has a row of its own: the clerk keys its number as the quantity, goes on to the remark, does what the case
says, and ends with Enter. The next case begins where that Enter left the cursor, so a cursor that moved twice, or a
key that reached two places, shows in the saved rows.

Then goods are found in the list of suggestions by what the input method writes: while it composes, the list hears no
key, so an Enter that ends the composition leaves the text, and the next one takes from the list.
"""

import dataclasses
import sys

from desktop import Desktop, Failure
from order_window import OrderWindow

NIHAO = ["n", "i", "h", "a", "o", "space"]  # the blank takes the first candidate
HALF = ["n", "i", "h"]
STEEL = ["b", "u", "x", "i", "u", "g", "a", "n", "g"]  # 不锈钢, which many goods begin with
FULL_WIDTH_TWELVE = ["UFF11", "UFF12"]


@dataclasses.dataclass
class Case:
    """The keys come in groups: a clerk types on while the input method works, but waits for what it shows."""

    name: str
    keys: list
    remark: str
    before: str = ""  # the remark that the cell has when the keys begin


CASES = [
    Case("on the closed cell", [[*NIHAO, "Return"]], "你好"),
    Case("on the closed cell, key by key", [[key] for key in [*NIHAO, "Return"]], "你好"),
    Case("in the open editor", [["1", *NIHAO, "Return"]], "1你好"),
    Case("twice in a row", [NIHAO, NIHAO, ["Return"]], "你好你好"),
    Case("and then a plain character", [NIHAO, ["5", "Return"]], "你好5"),
    Case("over the text of a closed cell", [[*NIHAO, "Return"]], "你好", before="7"),
    Case("in the middle of the open editor", [["1", "2", "Left", *NIHAO, "Return"]], "1你好2"),
    Case("dropped in the open editor", [["1", "2", *HALF, "Escape"], ["Return"]], "12"),
    Case("dropped and begun anew", [["1", *HALF, "Escape"], [*NIHAO, "Return"]], "1你好"),
    Case("dropped on a closed cell with a text", [[*HALF, "Escape"], ["Return"]], "7", before="7"),
    Case("dropped on a closed cell, then replaced", [[*HALF, "Escape"], ["5", "Return"]], "5", before="7"),
    Case("dropped on an empty closed cell", [[*HALF, "Escape"], ["5", "Return"]], "5"),
    Case("dropped, the editor closed by another Esc", [[*HALF, "Escape"], ["Escape"], ["Return"]], "7", before="7"),
    Case("corrected while composing", [["n", "i", "m", "BackSpace", "h", "a", "o", "space", "Return"]], "你好"),
]


def key_case(window, number, case):
    """From the code cell of a row to the code cell of the next one."""

    def go_to_remark():
        window.keys(*["Right"] * 4)
        window.type(str(number))
        window.keys("Tab", *["Right"] * 6)

    go_to_remark()
    if case.before:
        window.type(case.before)
        window.keys("Return", "Up")
        go_to_remark()
    window.desktop.settle()
    for group in case.keys:
        window.keys(*group, delay=40)  # no clerk is faster, and an input method loses keys that come at once
        window.desktop.settle()


def check(rows):
    wanted = [("", number * 1000, case.remark) for number, case in enumerate(CASES, 1)]
    for case, want, have in zip(CASES, wanted, rows):
        if want != have:
            raise Failure(f"{case.name}: expected code, quantity and remark {want}, saved {have}; all: {rows}")
    if len(rows) != len(wanted):
        raise Failure(f"expected {len(wanted)} rows, saved {rows}")


def key_suggested(order):
    """Two lines from the code cell on, and what is to be saved of them: code, quantity in thousandths."""
    window = order.window

    def press(*keys):
        window.keys(*keys, delay=40)
        window.desktop.settle()

    found = order.query("SELECT code FROM goods WHERE name LIKE '不锈钢%' ORDER BY rowid")
    press(*STEEL, "space")
    window.desktop.picture("suggestions")
    press("Down", "Down", "Return")
    press(*FULL_WIDTH_TWELVE, "Return")
    # Enter in a composition writes the letters as they are: the list does not move, the cell stays open.
    press(*STEEL, "Return")
    press("Escape", "Escape")
    press(*STEEL, "space", "Down", "Return")
    press("3", "Return")
    return [(found[1][0], 12_000), (found[0][0], 3_000)]


def main(program, keep):
    with Desktop(keep) as desktop:
        desktop.start_input_method("xkb:us::eng")
        order = OrderWindow(desktop, program, "orders.sqlite")
        order.choose_customer()
        desktop.choose_input_method("libpinyin")
        for number, case in enumerate(CASES, 1):
            key_case(order.window, number, case)
        suggested = key_suggested(order)
        rows = [(row[0], row[4], row[10]) for row in order.save()]
        desktop.picture("input-method")
        check(rows[: len(CASES)])
        if [row[:2] for row in rows[len(CASES) :]] != suggested:
            raise Failure(f"suggested: expected {suggested}, saved {rows[len(CASES):]}")
        order.window.close()
    print(f"{len(CASES)} cases, {len(suggested)} suggested lines")


if __name__ == "__main__":
    main(*sys.argv[1:])
