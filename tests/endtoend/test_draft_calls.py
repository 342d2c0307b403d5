#!/usr/bin/env python3
"""The order entry example is killed at the calls that change its drafts: just before one, just after it, and in the midst
of what it writes, so that a part of the line stands. That is done while a clerk keys and saves, while what such an end
has left behind is recovered and the clerk goes on, and when the disk was full for a moment. Started
anew, the program must show what it showed after the last step that it had reported, or after the one behind it; what
it shows is saved once, and not offered again.

    test_draft_calls.py PROGRAM KEEP KX_KILL_AT_CALL

A few calls of every kind are taken by chance; KX_EVERY_CALL=1 in the environment takes every call, KX_KILLS_SEED says
which few it shall be.
"""

import collections
import concurrent.futures
import itertools
import os
import pathlib
import random
import shutil
import signal
import sqlite3
import sys
import tempfile

from draft_program import LINES, PATIENCE, Failure, Program, check, check_same, go_to, possible, reports, script

EVERY = os.environ.get("KX_EVERY_CALL", "") not in ("", "0")
KINDS = "mkdir openat fchmod flock write ftruncate fdatasync fsync renameat unlinkat".split()
FEW = {"keying": 8}  # kinds that are taken, where it is more than one
FULL = 20  # the write that finds the disk full
LINE = (
    "SELECT goods_code, goods_name, spec, unit, quantity_milli, price_cents, amount_cents, warehouse, delivery_date,"
    " delivery_slot, is_gift, remark, entered_at FROM order_line ORDER BY order_id, line_no"
)
LINE_NAMES = "code name spec unit quantity price amount warehouse delivery slot gift remark entered".split()


def query(database, statement):
    connection = sqlite3.connect(f"file:{database}?mode=ro", uri=True, timeout=10)
    try:
        return connection.execute(statement).fetchall()
    finally:
        connection.close()


def saved(database):
    """How many orders there are, and the lines of all as a report has them."""
    lines = [dict(zip(LINE_NAMES, line)) for line in query(database, LINE)]
    return len(query(database, "SELECT id FROM sales_order")), [line | {"gift": bool(line["gift"])} for line in lines]


class Calls:
    """The example with the library that counts its calls and kills it."""

    def __init__(self, program, library):
        self.program = program
        self.library = os.path.abspath(library)
        others = os.environ.get("ASAN_OPTIONS", "")
        self.sanitizer = (others + ":" if others else "") + "verify_asan_link_order=0"

    def run(self, drafts, report, keys, database=None, **settings):
        """True when it was killed, False when it ended by itself."""
        environment = {"LD_PRELOAD": self.library, "ASAN_OPTIONS": self.sanitizer, "KX_CALLS_FOLDER": str(drafts)}
        process = self.program.start(drafts, report, keys, database, **environment, **settings)
        code = process.wait(PATIENCE)
        if code not in (0, -signal.SIGKILL):
            raise Failure(f"the program ended with {code}:\n{(self.program.folder / 'output.log').read_text()}")
        return code != 0


class Scenario:
    """What is keyed and killed again and again. `left` is a folder with what an earlier end has left behind, in which
    case the database stays as it is."""

    def __init__(self, calls, name, keys, left=None, database=None, full=0):
        self.calls = calls
        self.program = calls.program
        self.name = name
        self.keys = keys
        self.left = left
        self.database = database or self.program.database
        self.full = full
        self.lost = 1 if full else 0  # steps that the disk had no room for
        self.settings = {"KX_FULL_AT": str(full)} if full else {}
        self.save = self.program.keys("save", "key Ctrl+S\n")

    def prepare(self):
        """Runs it unkilled: what it reports, and the calls it makes."""
        folder, drafts, database = self.place("whole")
        log = folder / "calls"
        self.calls.run(drafts, folder / "report", self.keys, database, KX_CALLS_LOG=str(log), **self.settings)
        self.reference = reports(folder / "report")
        self.made = log.read_text().split() if log.exists() else []
        return self

    def place(self, name):
        """A new folder, with a folder for drafts and a database."""
        folder = self.program.folder / f"{self.name}-{name}"
        folder.mkdir()
        if self.left:
            shutil.copytree(self.left, folder / "drafts")
            return folder, folder / "drafts", self.database
        shutil.copy(self.database, folder)
        return folder, folder / "drafts", folder / self.database.name

    def cases(self):
        """All that there is: (kind, number, how)."""
        for kind, count in collections.Counter(self.made).items():
            hows = ["before", "after"] + (["half", "most"] if kind == "write" else [])
            yield from itertools.product([kind], self.numbers(kind, count), hows)

    def numbers(self, kind, count):
        """Of the calls of a kind; where the disk was full only once, that is known of those long before and after it."""
        if kind == "write" and self.full:
            return range(self.full, min(self.full + 6, count) + 1)
        return range(1, count + 1)

    def some_cases(self, kinds):
        """One of each kind, of so many kinds."""
        by_kind = collections.defaultdict(list)
        for case in self.cases():
            by_kind[case[0]].append(case)
        chosen = random.sample(sorted(by_kind), min(kinds, len(by_kind)))
        return [random.choice(by_kind[kind]) for kind in chosen]

    def kill(self, case):
        """True when it was killed there."""
        kind, number, how = case
        folder, drafts, database = self.place(f"{kind}-{number}-{how}")
        try:
            killed = self.calls.run(
                drafts, folder / "report", self.keys, database,
                KX_KILL_AT=f"{kind}:{number}", KX_KILL_HOW=how, **self.settings
            )
            told = reports(folder / "report")
            check_same(self.reference, told)
            if self.left:
                self.expect_kept(folder, drafts, database, len(told))
            else:
                self.expect_saved_once(folder, drafts, database, len(told))
        except BaseException as error:
            raise Failure(f"{self.name}, killed {how} {kind} {number} ({folder}): {error}") from error
        shutil.rmtree(folder)
        return killed

    def expected(self, seen):
        return possible(self.reference, seen, self.lost)

    def expect_kept(self, folder, drafts, database, seen):
        self.program.run(drafts, folder / "back", self.program.nothing, database)
        check(reports(folder / "back"), self.expected(seen))
        check_drafts(drafts)

    def expect_saved_once(self, folder, drafts, database, seen):
        """What comes back is on the screen, or it has been saved; then it is saved, and the next start is a new one."""
        before = saved(database)
        self.program.run(drafts, folder / "back", self.save, database)
        back = reports(folder / "back")
        after = saved(database)
        if after[0] > 1:
            raise Failure(f"there are {after[0]} orders: {after}")
        if back[0]["lines"] or not after[0]:
            check(back, self.expected(seen))
        if back[0]["lines"] and ready(back[0]) and after[1] != back[0]["lines"]:
            raise Failure(f"saved was {after}, not {back[0]}")
        if not back[0]["lines"] and (after != before or after[0] and after[1] not in lines_of(self.expected(seen))):
            raise Failure(f"saved is {after}, was {before}, not one of {self.expected(seen)}")
        if not after[0] or back[0]["lines"] and not ready(back[0]):
            return
        self.program.run(drafts, folder / "again", self.program.nothing, database)
        check(reports(folder / "again"), self.reference[:1])
        check_drafts(drafts)


def ready(report):
    """It can be saved."""
    return report["customer"] and all(line["code"] and line["quantity"] for line in report["lines"])


def lines_of(expected):
    return [report["lines"] for report in expected]


def check_drafts(folder):
    """That of the document on the screen alone, and nothing half done."""
    names = sorted(file.name for file in folder.iterdir())
    if [name for name in names if name.endswith(".new")] or sum(name.endswith(".draft") for name in names) != 1:
        raise Failure(f"there are the files {names}")


# --- What an end leaves behind


class Remains:
    """Folders of drafts as different ends leave them behind."""

    def __init__(self, calls, keys, made):
        self.calls = calls
        self.program = calls.program
        self.keys = keys
        creates = [place for place, kind in enumerate(made) if kind == "openat"]
        self.first_beside = made[: creates[1]].count("write") + 1

    def left(self, name, at, how, keys=None, database=None):
        folder = self.program.folder / name
        report = self.program.folder / (name + "-report")
        if not self.calls.run(folder, report, keys or self.program.script, database, KX_KILL_AT=at, KX_KILL_HOW=how):
            raise Failure(f"{name}: there is no {at}")
        return folder

    def torn(self):
        return self.left("torn", f"write:{self.first_beside + 12}", "half")

    def both(self):
        """The long one, and the short one that was to replace it."""
        return self.left("both", "renameat:1", "before")

    def torn_beside(self):
        return self.left("torn-beside", f"write:{self.first_beside}", "half")

    def damaged(self):
        folder = self.left("damaged", f"write:{self.first_beside - 2}", "before")
        (file,) = folder.glob("*.draft")
        lines = file.read_bytes().split(b"\n")
        lines[-5] = lines[-5][:-1] + bytes([lines[-5][-1] ^ 1])
        file.write_bytes(b"\n".join(lines))
        return folder

    def open_to_others(self):
        folder = self.left("open-to-others", f"write:{self.first_beside + 12}", "after")
        folder.chmod(0o755)
        return folder

    def saved(self):
        """The order is in the database, and its draft is still there beside the new one."""
        return self.left("saved", "unlinkat:1", "before", self.keys, self.saved_database())

    def saved_database(self):
        file = self.program.folder / "saved.sqlite"
        return file if file.exists() else shutil.copy(self.program.database, file)


def scenarios(calls, pool):
    program = calls.program
    row = ["key Right"] * 4
    more = ["key Ctrl+S", *go_to(1), *row, "type 8", "key Enter", "key Ctrl+S", *go_to(2), *row, "type 9", "key Enter"]
    keys = program.keys("save-and-go-on", script(*more))
    keying = Scenario(calls, "keying", keys).prepare()
    remains = Remains(calls, keys, keying.made)
    full = [
        Scenario(calls, "full", program.script, full=FULL),
        Scenario(calls, "full-beside", program.script, full=remains.first_beside),
    ]
    on = program.keys("go-on", "\n".join([*go_to(LINES), "type 100001", "key Enter", "type 5", "key Enter"]) + "\n")
    again = [
        Scenario(calls, "go-on", on, remains.torn()),
        Scenario(calls, "both", program.nothing, remains.both()),
        Scenario(calls, "torn-beside", program.nothing, remains.torn_beside()),
        Scenario(calls, "damaged", on, remains.damaged()),
        Scenario(calls, "open-to-others", program.nothing, remains.open_to_others()),
        Scenario(calls, "saved", program.nothing, remains.saved(), remains.saved_database()),
    ]
    return [keying, *pool.map(Scenario.prepare, [*full, *again])]


def chosen(all_of_them):
    for scenario in all_of_them:
        for case in scenario.cases() if EVERY else scenario.some_cases(FEW.get(scenario.name, 1)):
            yield scenario, case


def sweep(calls, pool):
    all_of_them = scenarios(calls, pool)
    missing = set(KINDS) - {kind for scenario in all_of_them for kind in scenario.made}
    if missing:
        raise Failure(f"nothing calls {missing}: they have other names now, or the script does not get there")
    cases = list(chosen(all_of_them))
    killed = collections.Counter()
    failures = []
    for (scenario, _), done in zip(cases, [pool.submit(scenario.kill, case) for scenario, case in cases]):
        try:
            killed[scenario.name] += done.result()
        except Failure as failure:
            failures.append(str(failure))
    if failures:
        raise Failure("\n".join([f"{len(failures)} of {len(cases)} failed", *failures]))
    told = ", ".join(f"{scenario.name} {killed[scenario.name]}" for scenario in all_of_them)
    print(f"killed {sum(killed.values())} times ({told}), {len(cases) - sum(killed.values())} ended before; all came back")


def main(program, keep, library):
    seed = int(os.environ.get("KX_KILLS_SEED", str(random.randrange(1 << 30))))
    random.seed(seed)
    keep = pathlib.Path(keep)
    keep.mkdir(parents=True, exist_ok=True)
    folder = pathlib.Path(tempfile.mkdtemp(prefix="kx-calls-")).resolve()
    pool = concurrent.futures.ThreadPoolExecutor(2 * (os.cpu_count() or 1))
    try:
        sweep(Calls(Program(program, folder), library), pool)
    except BaseException:
        pool.shutdown(cancel_futures=True)
        shutil.copytree(folder, keep / "failure", dirs_exist_ok=True)
        print(f"the calls are those of KX_KILLS_SEED={seed}", file=sys.stderr)
        raise
    finally:
        shutil.rmtree(folder, ignore_errors=True)


if __name__ == "__main__":
    main(*sys.argv[1:])
