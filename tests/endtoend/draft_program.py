"""The order entry example under a test that kills it: a script that it keys, and what has to come back after it."""

import json
import os
import subprocess

NOW = "2026-11-20 09:30:00"
PATIENCE = 120  # seconds; a slow machine is not an error
LINES = 9


class Failure(Exception):
    """What the test must report; the text is for people."""


def go_to(row):
    return ["key Ctrl+Home", "key Home", *["key Down"] * row]


def script(*more):
    """Lines with quantities and prices; acts that are undone and redone, a row that is added and one that goes, an
    older line put right; then `more`."""
    keys = ["type K0002", "key Enter"]
    for line in range(LINES):
        keys += [*go_to(line), f"type {100001 + 37 * line}", "key Enter", f"type {line + 1}*3"]
        keys += ["key Tab", f"type {line}.25", "key Enter"] if line % 3 == 1 else ["key Enter"]
        if line % 4 == 2:
            keys += ["key Ctrl+Z", "key Ctrl+Z", "key Ctrl+Y", "key Ctrl+Y", "key Ctrl+Z"]
    keys += [*go_to(3), "key Delete", "key Left", "key Space", "key Insert"]
    keys += [*go_to(1), "key Right", "key Right", "key Right", "key Right", "type 7", "key Enter", "key Ctrl+Z"]
    return "\n".join([*keys, *more]) + "\n"


class Program:
    """The example with a database, drafts and reports in a folder of its own."""

    def __init__(self, program, folder):
        self.program = os.path.abspath(program)
        self.folder = folder
        self.environment = os.environ | {"QT_QPA_PLATFORM": "offscreen", "HOME": str(folder)}
        self.database = folder / "orders.sqlite"
        self.script = self.keys("clerk", script())
        self.nothing = self.keys("nothing", "")
        subprocess.run(
            [self.program, "--seed-only", "--db", str(self.database)], env=self.environment, check=True, timeout=PATIENCE
        )

    def keys(self, name, text):
        """A file of keys."""
        file = self.folder / (name + ".keys")
        file.write_text(text, encoding="utf-8")
        return file

    def start(self, drafts, report, keys, database=None, **environment):
        command = [self.program, "--db", str(database or self.database), "--now", NOW, "--keys", str(keys)]
        command += ["--drafts", str(drafts), "--report", str(report)]
        with open(self.folder / "output.log", "ab") as log:
            return subprocess.Popen(
                command, env=self.environment | environment, stdout=log, stderr=log, cwd=self.folder
            )

    def run(self, *arguments, **options):
        process = self.start(*arguments, **options)
        if process.wait(PATIENCE) != 0:
            raise Failure(f"the program ended with {process.returncode}:\n{(self.folder / 'output.log').read_text()}")


def reports(file):
    """The lines that were written whole."""
    text = file.read_text(encoding="utf-8") if file.exists() else ""
    return [json.loads(line) for line in text.split("\n")[:-1]]


def content(report):
    return report["lines"], report["total"]


def check_total(report):
    total = sum(line["amount"] or 0 for line in report["lines"])
    shown = report["total"].replace(",", "")
    if shown != f"{total // 100}.{total % 100:02}" and not (total == 0 and shown in ("", "0", "0.00")):
        raise Failure(f"the lines make {total} cents, the total row shows {report['total']}")


def check_same(reference, told):
    """A run that was killed showed what the first one showed."""
    for number, (want, have) in enumerate(zip(reference, told)):
        if content(want) != content(have):
            raise Failure(f"report {number} differs from that of the first run: {have}, not {want}")


def possible(reference, seen, lost=0):
    """What may come back when `seen` steps were reported before the end: the last of them, or the one behind it."""
    return reference[max(seen - 1 - lost, 0) : seen + 1]


def check(recovered, expected):
    if len(recovered) != 1:
        raise Failure(f"{len(recovered)} windows came back, not one of {expected}")
    report = recovered[0]
    check_total(report)
    if content(report) not in [content(one) for one in expected]:
        raise Failure(f"came back {report}, not one of {expected}")
    if report["customer"] not in [one["customer"] for one in expected]:
        raise Failure(f"came back with the customer {report['customer']}, not with that of {expected}")
