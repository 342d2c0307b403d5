#!/usr/bin/env python3
"""The plugin in the real Qt Designer: a form is opened, a column changed through its page by keys and mouse, the form
saved. In the saved form nothing but the changed keys may differ, also after undoing and saving again.

    test_designer.py DESIGNER PREFIX FORM KEEP SAVED      PREFIX is where the plugin is installed; the pictures stay in
                                                          KEEP, the changed form in the file SAVED
"""

import pathlib
import shutil
import subprocess
import sys
import xml.etree.ElementTree

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "endtoend"))
from desktop import Desktop, Failure, wait_for  # noqa: E402

BEYOND_THE_CELLS = 0xC8E6DC  # the form's BackColorBkg, which nothing else on the screen has; blue is the high byte
CHANGES = {
    "SetVsControl2sHelp_Code": "cstring:goods|A",
    "SetVsControl2b是否提供帮助": "bool:true",
    "SetVsControl2iType": "number:5",
}


def properties(text):
    """Every property of every widget of a form: its name to its value."""
    found = {}
    for widget in xml.etree.ElementTree.fromstring(text).iter("widget"):
        for entry in widget.findall("property"):
            value = entry[0]
            content = ",".join(part.text or "" for part in value) if len(value) else value.text or ""
            found[widget.get("name"), entry.get("name")] = f"{value.tag}:{content}"
    return found


class Designer:
    def __init__(self, desktop, program, prefix, form):
        plugins = list(pathlib.Path(prefix).rglob("designer/kxVsGrid_designer.so"))
        if len(plugins) != 1:
            raise Failure(f"one plugin expected under {prefix}: {plugins}")
        desktop.environment["QT_PLUGIN_PATH"] = str(plugins[0].resolve().parent.parent)
        self.desktop = desktop
        self.form = desktop.folder / "order.ui"
        shutil.copy(form, self.form)
        self.window = desktop.open([program, str(self.form)], title="^Qt Designer$")

    def text(self):
        return self.form.read_text(encoding="utf-8")

    def grid(self):
        """A place on the grid of the form: the middle of the first line of its colour."""
        screen = self.desktop.folder / "screen.rgb"
        subprocess.run(
            ["import", "-window", "root", "-depth", "8", "rgb:" + str(screen)],
            env=self.desktop.environment,
            check=True,
        )
        width = int(self.desktop.SIZE.split("x")[0])
        colour = bytes((BEYOND_THE_CELLS >> shift) & 0xFF for shift in (0, 8, 16)) * 50
        at = screen.read_bytes().find(colour)
        return at >= 0 and at % 3 == 0 and (at // 3 % width + 25, at // 3 // width + 5)

    def click(self, *how):
        x, y = wait_for("the grid on the form", self.grid)
        result = self.desktop.xdotool("mousemove", str(x), str(y), "click", *how)
        if result.returncode != 0 or result.stderr:
            raise Failure(f"click: {result.stderr}")

    def save(self):
        before = self.form.stat().st_mtime_ns
        self.window.keys("ctrl+s")
        wait_for("the saved form", lambda: self.form.stat().st_mtime_ns != before)
        self.desktop.settle()
        return self.text()


def title(desktop):
    return desktop.xdotool("getactivewindow", "getwindowname").stdout.strip()


def change_column(designer):
    """Opens the page by the context menu, and changes the third column."""
    desktop, keys = designer.desktop, designer.window.keys
    designer.click("1")
    designer.click("3")
    desktop.settle()
    desktop.picture("designer-menu")
    keys("Down", "Return")
    wait_for("the column page", lambda: title(desktop).startswith("列设置"))
    keys("Home", "Down", "Down")  # the third column
    keys("Tab", "Tab", "Tab", "Home", "Down", "Down")  # a column of numbers
    keys("Tab")
    designer.window.type("goods|A")
    keys(*["Tab"] * 11, "space")
    desktop.settle()
    desktop.picture("designer-page")
    keys("Return")
    wait_for("the designer's window", lambda: title(desktop) == "Qt Designer")


def check(before, after):
    old, new = properties(before), properties(after)
    expected = dict(old)
    expected.update({("grid", key): value for key, value in CHANGES.items()})
    wrong = {key: (new.get(key), expected.get(key)) for key in old.keys() | new.keys() if new.get(key) != expected.get(key)}
    if wrong:
        raise Failure(f"in the saved form, found and expected: {wrong}")


def main(program, prefix, form, keep, saved):
    with Desktop(keep) as desktop:
        designer = Designer(desktop, program, prefix, form)
        before = designer.text()
        wait_for("the grid on the form", designer.grid)
        desktop.settle()
        desktop.picture("designer-form")
        change_column(designer)
        desktop.settle()
        desktop.picture("designer-changed")
        after = designer.save()
        check(before, after)
        shutil.copy(designer.form, saved)
        designer.window.keys("ctrl+z")
        if designer.save() != before:
            raise Failure("undone and saved, the form is not what it was")
        designer.window.close()
    print(f"{len(CHANGES)} of {len(properties(before))} properties changed, and changed back")


if __name__ == "__main__":
    main(*sys.argv[1:])
