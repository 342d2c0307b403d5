"""The order entry example under test: its window, and the database that it writes."""

import os
import sqlite3

from desktop import wait_for

NOW = "2026-11-20 09:30:00"
LINE_COLUMNS = (
    "goods_code, goods_name, spec, unit, quantity_milli, price_cents, amount_cents, warehouse, delivery_date, is_gift,"
    " remark, delivery_slot, entered_at"
)


class OrderWindow:
    """The example with a database file of its own, opened on a desktop."""

    def __init__(self, desktop, program, database):
        self.database = desktop.folder / database
        self.window = desktop.open(
            [os.path.abspath(program), "--db", str(self.database), "--now", NOW], title="销售订单录入"
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
        return self.query(f"SELECT {LINE_COLUMNS} FROM order_line ORDER BY order_id, line_no")

    def saves(self):
        """How often the one order was saved."""
        return self.query("SELECT COALESCE(MAX(version), 0) FROM sales_order")[0][0]
