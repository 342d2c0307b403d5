"""The order entry example under test: its window, and the database that it writes."""

import os
import sqlite3
import subprocess

from desktop import Failure, wait_for

NOW = "2026-11-20 09:30:00"
WAREHOUSES = {"C01": "主仓库", "C02": "五金仓", "C03": "钢材仓"}
PRESET_WAREHOUSE = WAREHOUSES["C01"]
LINE_COLUMNS = (
    "goods_code, goods_name, spec, unit, quantity_milli, price_cents, amount_cents, warehouse, delivery_date, is_gift,"
    " remark, delivery_slot, entered_at"
)

COLUMNS = "行号 货号 品名 规格 单位 数量 单价 金额 仓库 交货日期 时段 赠品 备注 录入时间".split()
# Of the grid in the inside of the window, in pixels: its corner, a row's height, where the columns up to 交货日期 end.
LEFT, TOP, ROW = 13, 125, 20
WIDTH, HEIGHT = 1215, 544
COLUMN_ENDS = dict(zip(COLUMNS, (33, 100, 233, 353, 397, 487, 567, 667, 733, 817)))


class OrderWindow:
    """The example with a database file of its own, opened on a desktop."""

    def __init__(self, desktop, program, database, title="销售订单录入"):
        self.database = desktop.folder / database
        self.window = desktop.open(
            [os.path.abspath(program), "--db", str(self.database), "--now", NOW], title=title
        )

    def query(self, statement, *values):
        connection = sqlite3.connect(f"file:{self.database}?mode=ro", uri=True, timeout=10)
        try:
            return connection.execute(statement, values).fetchall()
        finally:
            connection.close()

    def goods(self, count):
        """The first goods of the catalogue as (code, name, spec, unit, price in cents)."""
        return self.query("SELECT code, name, spec, unit, price_cents FROM goods ORDER BY code LIMIT ?", count)

    def choose_customer(self):
        """Keys the first customer's code into the head, and goes on to the lines."""
        self.window.keys("F6")
        self.window.type(self.query("SELECT code FROM customer ORDER BY code LIMIT 1")[0][0])
        self.window.keys("Return", "F7")

    def save(self):
        """Saves by key, and returns the lines of the one order as the database then has them."""
        before = self.saves()
        self.window.keys("ctrl+s")
        wait_for("the saved order", lambda: self.saves() > before or self.window.check_undisturbed())
        return self.lines()

    def lines(self):
        """The lines of the one order as the database has them."""
        return self.query(f"SELECT {LINE_COLUMNS} FROM order_line ORDER BY order_id, line_no")

    def saves(self):
        """How often the one order was saved."""
        return self.query("SELECT COALESCE(MAX(version), 0) FROM sales_order")[0][0]

    def cell(self, row, column):
        """A place inside a cell that stands in view, in the inside of the window."""
        return LEFT + COLUMN_ENDS[column] - 8, TOP + row * ROW + ROW // 2

    def grid_on_screen(self):
        """x, y, width and height of the grid with its total row, without the scroll bar."""
        x, y = self.window.corner()
        return x + LEFT, y + TOP, WIDTH, HEIGHT

    def grid_picture(self, name):
        """The grid with the first code as current cell, without its scroll bar: the sheets differ in empty rows."""
        self.select(1, "货号")
        self.window.desktop.settle()
        x, y, width, height = self.grid_on_screen()
        file = self.window.desktop.picture(name)
        subprocess.run(["convert", file, "-crop", f"{width}x{height}+{x}+{y}", "+repage", file], check=True)
        return file

    def key_line(self, row, code, quantity):
        self.select(row, "货号")
        self.window.type(code)
        self.window.keys("Return")
        self.window.type(quantity)
        self.window.keys("Return")

    def select(self, row, column):
        self.window.click(*self.cell(row, column))

    def open_menu(self, row, column, held=""):
        """Makes a cell the current one, and opens the menu there with the right button."""
        self.select(row, column)
        self.window.click(*self.cell(row, column), button="right", held=held)
        self.window.await_popups(1)

    def choose(self, row, column, item, held=""):
        """Chooses the item at a position of the menu, counted from 1 without separators, by keyboard."""
        self.open_menu(row, column, held)
        self.window.keys(*["Down"] * item, "Return")
        self.window.await_popups(0)


def expect_same_pictures(before, after):
    result = subprocess.run(
        ["compare", "-metric", "AE", before, after, "null:"], capture_output=True, text=True, check=False
    )
    if result.stderr.strip() != "0":
        raise Failure(f"{before} and {after} differ in {result.stderr} pixels")


def expect_lines(expected, rows):
    for number, (want, have) in enumerate(zip(expected, rows), 1):
        if want != have:
            raise Failure(f"line {number}: expected {want}, saved {have}")
    if len(rows) != len(expected):
        raise Failure(f"expected {len(expected)} lines, saved {len(rows)}: {rows}")
