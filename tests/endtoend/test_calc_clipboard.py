#!/usr/bin/env python3
"""Blocks go between a grid and LibreOffice Calc over the clipboard of a real display, both ways, by Ctrl+C and Ctrl+V.

    test_calc_clipboard.py PROGRAM KEEP

Calc runs in English, with its presets, and is looked into over UNO; it offers and takes what any clerk's Calc does.
"""

import os
import sys

try:
    import uno
except ImportError:  # the module is of the system's interpreter alone
    if sys.executable == "/usr/bin/python3":
        raise
    os.execv("/usr/bin/python3", ["/usr/bin/python3", "-B", *sys.argv])

from clipboard_window import COLS, ClipboardWindow
from desktop import Desktop, Failure, wait_for

# What Calc is given: its formula, as a clerk types it, and its number format. Texts begin with an apostrophe.
GIVEN = [
    (["'A001", "苹果汁 🍎", "1234.5", "2026-11-20", "'plain"], "#,##0.00", "YYYY-MM-DD"),
    (["'007", "'quo\"ted\"", "-1234567.891", "2026-01-02", "'two\nlines"], "#,##0.00", "YYYY-MM-DD"),
    (["'\"begins", "'tab\there", "0.5", "2024-02-29", "'a b\nc, d;"], "General", "YYYY-MM-DD"),
    (["'<b>&amp;", "'  blanks  ", "12", "2026-12-31", "'=1+1"], "0", "YYYY-MM-DD"),
    (["", "'矿泉水", "", "", "'last"], "0", "YYYY-MM-DD"),
]
# The same in the grid, where numbers are stored plainly, as far as they were shown, and texts without blanks around them.
# In the text that Calc offers, line ends and tabs inside of cells are blanks.
WANTED = [
    ["A001", "苹果汁 🍎", "1234.5", "2026-11-20", "plain"],
    ["007", 'quo"ted"', "-1234567.89", "2026-01-02", "two lines"],
    ['"begins', "tab here", "0.5", "2024-02-29", 'a b c, d;'],
    ["<b>&amp;", "blanks", "12", "2026-12-31", "=1+1"],
    ["", "矿泉水", "", "", "last"],
]

# What the grid is given, and what Calc shows then. It takes the table in HTML, asks for the language of its numbers, and
# reads each cell as if it had been typed, but for those that are marked as texts. Dates stay texts unless the clerk ticks the box for them in what Calc asks. Tabs inside of cells are blanks there.
ROWS = [
    ["A001", "苹果汁 🍎", "1234.5", "2026-11-20", "plain"],
    ["007", 'quo"ted"', "-1234567.89", "2026-01-02", "two\nlines"],
    ['"all"', "tab\there", "0.5", "2024-02-29", 'a "b"\nc\td\n\nend'],
    ["<b>&amp;", "a  b", "12", "2026-12-31", "=1+1"],
    ["", "矿泉水", "", "", "last"],
]
SHOWN = [
    ["A001", "苹果汁 🍎", "1234.5", "2026-11-20", "plain"],
    ["007", 'quo"ted"', "-1234567.89", "2026-01-02", "two\nlines"],
    ['"all"', "tab here", "0.5", "2024-02-29", 'a "b"\nc d\n\nend'],
    ["<b>&amp;", "a b", "12", "2026-12-31", "=1+1"],
    ["", "矿泉水", "", "", "last"],
]
KINDS = ["TTVTT", "TTVTT", "TTVTT", "TTVTT", "ETEET"]
NUMBERS = [1234.5, -1234567.89, 0.5, 12, 0]
PASTED_AT = 10  # row

class Calc:
    """A spreadsheet in a window of its own."""

    def __init__(self, desktop):
        self.desktop = desktop
        profile = (desktop.folder / "office").as_uri()
        pipe = f"kx{os.getpid()}"
        self.window = desktop.open(
            ["soffice", f"-env:UserInstallation={profile}", "--calc", "--norestore", "--nologo", "--nofirststartwizard"]
            + [f"--accept=pipe,name={pipe};urp;"],
            title="LibreOffice Calc",
        )
        local = uno.getComponentContext()
        resolver = local.ServiceManager.createInstanceWithContext("com.sun.star.bridge.UnoUrlResolver", local)
        self.context = wait_for("an answer of the office", lambda: self._connect(resolver, pipe))
        office = self.context.ServiceManager.createInstanceWithContext("com.sun.star.frame.Desktop", self.context)
        self.document = wait_for("the document", office.getCurrentComponent)
        self.sheet = self.document.Sheets.getByIndex(0)
        desktop.settle()

    @staticmethod
    def _connect(resolver, pipe):
        try:
            return resolver.resolve(f"uno:pipe,name={pipe};urp;StarOffice.ComponentContext")
        except Exception:  # pylint: disable=broad-except  # of a type of the office's own, until it listens
            return None

    def put(self, rows):
        formats = self.document.NumberFormats
        locale = uno.createUnoStruct("com.sun.star.lang.Locale", "en", "US", "")

        def key(code):
            found = formats.queryKey(code, locale, False)
            return found if found >= 0 else formats.addNew(code, locale)

        for row, (cells, number, date) in enumerate(rows):
            for col, code in ((2, number), (3, date)):
                self.sheet.getCellByPosition(col, row).NumberFormat = key(code)
            for col, text in enumerate(cells):
                cell = self.sheet.getCellByPosition(col, row)
                if text.startswith("'"):
                    cell.setString(text[1:])
                else:
                    cell.setFormula(text)

    def copy(self, cols, rows):
        self._select(cols, rows)
        self.window.keys("ctrl+c")
        self.desktop.settle()

    def paste(self, row):
        """Pastes a block from the start of a row on with Ctrl+V. Where Calc asks something, it is told to do as it
        proposes, and the title of the box is returned."""
        self._select(1, 1, row)
        self.window.keys("ctrl+v")
        wait_for("a paste or a question", lambda: not self.window.is_active() or self._filled(row))
        asked = None
        if not self.window.is_active():
            asked = self.desktop.xdotool("getactivewindow", "getwindowname").stdout.strip()
            self.desktop.settle()
            self.desktop.picture("calc-asks")
            self.window.keys("Return")
        wait_for("the paste", lambda: self._filled(row))
        wait_for("Calc in front", self.window.is_active)
        self.desktop.settle()
        return asked

    def _filled(self, row):
        return self.sheet.getCellByPosition(0, row).String != ""

    def _select(self, cols, rows, row=0):
        self.desktop.xdotool("windowactivate", "--sync", self.window.id)
        wait_for("Calc in front", self.window.is_active)
        controller = self.document.CurrentController
        controller.select(self.sheet.getCellRangeByPosition(0, row, cols - 1, row + rows - 1))
        controller.Frame.ComponentWindow.setFocus()
        self.desktop.settle()

    def texts(self, row, rows):
        """As they are shown."""
        cell = self.sheet.getCellByPosition
        return [[cell(col, row + at).String for col in range(COLS)] for at in range(rows)]

    def kinds(self, row, rows):
        """V for numbers and dates, T for texts, F for formulas, E for nothing."""
        cell = self.sheet.getCellByPosition
        return ["".join(cell(col, row + at).Type.value[0] for col in range(COLS)) for at in range(rows)]

    def value(self, col, row):
        return self.sheet.getCellByPosition(col, row).Value


def expect(what, want, have):
    if want == have:
        return
    for number, (one, other) in enumerate(zip(want, have)):
        if one != other:
            raise Failure(f"{what}, {number}: expected {one}, got {other}; all: {have}")
    raise Failure(f"{what}: expected {want}, got {have}")


def from_grid_to_calc(grid, calc):
    grid.copy_everything()
    asked = calc.paste(PASTED_AT)
    calc.desktop.picture("grid-to-calc")
    count = len(ROWS)
    expect("shown in Calc", SHOWN, calc.texts(PASTED_AT, count))
    expect("kinds in Calc", KINDS, calc.kinds(PASTED_AT, count))
    expect("numbers in Calc", NUMBERS, [calc.value(2, PASTED_AT + row) for row in range(count)])
    expect("beyond the block", ["E" * COLS], calc.kinds(PASTED_AT + count, 1))
    return asked


def from_calc_to_grid(calc, grid):
    calc.put(GIVEN)
    calc.copy(COLS, len(GIVEN))
    grid.activate()
    pasted = grid.paste()
    calc.desktop.picture("calc-to-grid")
    expect("pasted in the grid", WANTED, pasted)


def main(program, keep):
    with Desktop(keep) as desktop:
        calc = Calc(desktop)
        grid = ClipboardWindow(desktop, program, ROWS)
        asked = from_grid_to_calc(grid, calc)
        from_calc_to_grid(calc, grid)
        grid.window.close()
    print(f"{len(ROWS)} rows to Calc, which asked {asked!r}, and {len(WANTED)} rows back")


if __name__ == "__main__":
    main(*sys.argv[1:])
