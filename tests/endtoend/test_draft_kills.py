#!/usr/bin/env python3
"""The order entry example keys a script and is killed at a random moment, again and again. Started anew, it must show
what it showed after the last step that it had reported, or after the one behind it: nothing lost, nothing twice, and
the total row must agree with the lines. Some of them are killed a second time, while they go on with what came back.

    test_draft_kills.py PROGRAM KEEP

KX_KILLS in the environment says how many are killed, about one and a half seconds each; KX_KILLS_SEED which moments it
shall be.
"""

import json
import os
import pathlib
import random
import shutil
import signal
import subprocess
import sys
import tempfile
import time

NOW = "2026-11-20 09:30:00"
KILLS = int(os.environ.get("KX_KILLS", "30"))
PATIENCE = 120  # seconds; a slow machine is not an error
LINES = 9


class Failure(Exception):
    """What the test must report; the text is for people."""


def go_to(row):
    return ["key Ctrl+Home", "key Home", *["key Down"] * row]


def script():
    """Lines with quantities and prices; acts that are undone and redone, a row that is added and one that goes, an
    older line put right."""
    keys = ["type K0002", "key Enter"]
    for line in range(LINES):
        keys += [*go_to(line), f"type {100001 + 37 * line}", "key Enter", f"type {line + 1}*3"]
        keys += ["key Tab", f"type {line}.25", "key Enter"] if line % 3 == 1 else ["key Enter"]
        if line % 4 == 2:
            keys += ["key Ctrl+Z", "key Ctrl+Z", "key Ctrl+Y", "key Ctrl+Y", "key Ctrl+Z"]
    keys += [*go_to(3), "key Delete", "key Left", "key Space", "key Insert"]
    keys += [*go_to(1), "key Right", "key Right", "key Right", "key Right", "type 7", "key Enter", "key Ctrl+Z"]
    return "\n".join(keys) + "\n"


class Program:
    """The example with a database, drafts and reports in a folder of its own."""

    def __init__(self, program, folder):
        self.program = os.path.abspath(program)
        self.folder = folder
        self.environment = os.environ | {"QT_QPA_PLATFORM": "offscreen", "HOME": str(folder)}
        self.database = folder / "orders.sqlite"
        self.script = folder / "clerk.keys"
        self.script.write_text(script(), encoding="utf-8")
        subprocess.run(
            [self.program, "--seed-only", "--db", str(self.database)], env=self.environment, check=True, timeout=PATIENCE
        )

    def start(self, drafts, report, keys):
        command = [self.program, "--db", str(self.database), "--now", NOW, "--keys", str(keys)]
        command += ["--drafts", str(drafts), "--report", str(report)]
        with open(self.folder / "output.log", "ab") as log:
            return subprocess.Popen(command, env=self.environment, stdout=log, stderr=log, cwd=self.folder)

    def run(self, drafts, report, keys):
        process = self.start(drafts, report, keys)
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


def check(recovered, seen, reference, customers):
    """`seen` steps were reported before the end."""
    if len(recovered) != 1:
        raise Failure(f"{len(recovered)} windows after {seen} reports")
    report = recovered[0]
    check_total(report)
    possible = reference[max(seen - 1, 0) : seen + 1]
    if content(report) not in [content(one) for one in possible]:
        raise Failure(f"after {seen} reports came back {report}, expected one of {possible}")
    if report["customer"] not in customers if seen <= 1 else report["customer"] != reference[-1]["customer"]:
        raise Failure(f"after {seen} reports the customer is {report['customer']}")


def kill_at(process, report, moment):
    """Kills so many seconds after the window has been reported, or when the program has ended by itself."""
    end = time.monotonic() + PATIENCE
    while not report.exists() or not report.stat().st_size:
        if process.poll() is not None or time.monotonic() > end:
            raise Failure(f"no window; the program ended with {process.returncode}")
        time.sleep(0.005)
    time.sleep(moment)
    process.send_signal(signal.SIGKILL)
    process.wait()


def one_kill(program, folder, reference, duration):
    """How many reports there were."""
    folder.mkdir()
    drafts, report, back = folder / "drafts", folder / "report", folder / "back"
    kill_at(program.start(drafts, report, program.script), report, random.uniform(0, duration))
    told = reports(report)
    for number, (want, have) in enumerate(zip(reference, told)):
        if content(want) != content(have):
            raise Failure(f"report {number} differs from that of the first run: {have}, not {want}")
    nothing = program.folder / "nothing.keys"
    nothing.write_text("")
    customers = {0, reference[-1]["customer"]}
    if random.random() < 0.25:
        kill_at(program.start(drafts, folder / "between", nothing), folder / "between", random.uniform(0, 0.05))
    program.run(drafts, back, nothing)
    check(reports(back), len(told), reference, customers)
    return len(told)


def main(program, keep):
    seed = int(os.environ.get("KX_KILLS_SEED", str(random.randrange(1 << 30))))
    random.seed(seed)
    keep = pathlib.Path(keep)
    keep.mkdir(parents=True, exist_ok=True)
    folder = pathlib.Path(tempfile.mkdtemp(prefix="kx-kills-"))
    try:
        example = Program(program, folder)
        began = time.monotonic()
        example.run(folder / "whole-drafts", folder / "whole", example.script)
        duration = time.monotonic() - began
        reference = reports(folder / "whole")
        for report in reference:
            check_total(report)
        steps = []
        for kill in range(KILLS):
            steps.append(one_kill(example, folder / str(kill), reference, duration))
            shutil.rmtree(folder / str(kill))
    except BaseException:
        shutil.copytree(folder, keep / "failure", dirs_exist_ok=True)
        print(f"the moments are those of KX_KILLS_SEED={seed}", file=sys.stderr)
        raise
    finally:
        shutil.rmtree(folder, ignore_errors=True)
    print(f"killed {KILLS} times, after {min(steps)} to {max(steps)} of {len(reference)} reports; all of it came back")


if __name__ == "__main__":
    main(*sys.argv[1:])
