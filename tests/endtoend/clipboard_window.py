"""The grid of clipboard_grid.cpp on a desktop: filled from rows of texts, driven by keys, read back."""

import json
import os

from desktop import wait_for

COLS = 5


class ClipboardWindow:
    """A window with a grid of code, name, quantity, date and remark."""

    def __init__(self, desktop, program, rows, name="grid"):
        given, self.told = desktop.folder / f"{name}-in.json", desktop.folder / f"{name}-out.json"
        given.write_text(json.dumps(rows), encoding="utf-8")
        self.window = desktop.open([os.path.abspath(program), str(given), str(self.told)], title="clipboard grid")

    def activate(self):
        self.window.desktop.xdotool("windowactivate", "--sync", self.window.id)
        wait_for("the grid in front", self.window.is_active)
        self.window.desktop.settle()

    def copy_everything(self):
        self.window.keys("ctrl+a", "ctrl+c")
        self.window.desktop.settle()

    def acts(self):
        """How many blocks have been written."""
        return self._told()["count"]

    def cells(self):
        """The rows down to the last one that holds something."""
        rows = self._told()["cells"]
        while rows and not any(rows[-1]):
            rows.pop()
        return rows

    def paste(self):
        """Pastes from the first cell on, and returns the cells then."""
        before = self.acts()
        self.window.keys("ctrl+Home", "ctrl+v")
        wait_for("the paste", lambda: self.acts() > before)
        return self.cells()

    def keys_done(self, *keys, delay=0):
        """Presses keys, and waits until the grid has worked them off."""
        looks = self._told()["looks"]
        self.window.keys(*keys, "F12", delay=delay)
        wait_for("the keys to be worked off", lambda: self._told()["looks"] > looks)

    def _told(self):
        if not self.told.exists():
            return {"count": 0, "looks": 0, "cells": []}
        return json.loads(self.told.read_text(encoding="utf-8"))
