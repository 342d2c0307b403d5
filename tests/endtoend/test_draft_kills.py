#!/usr/bin/env python3
"""The order entry example keys a script and is killed at a random moment, again and again. Started anew, it must show
what it showed after the last step that it had reported, or after the one behind it: nothing lost, nothing twice, and
the total row must agree with the lines. Some of them are killed a second time, while they go on with what came back.

    test_draft_kills.py PROGRAM KEEP

KX_KILLS in the environment says how many are killed, about one and a half seconds each; KX_KILLS_SEED which moments it
shall be.
"""

import os
import pathlib
import random
import shutil
import signal
import sys
import tempfile
import time

from draft_program import PATIENCE, Failure, Program, check, check_same, check_total, possible, reports

KILLS = int(os.environ.get("KX_KILLS", "30"))


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
    check_same(reference, told)
    if random.random() < 0.25:
        kill_at(program.start(drafts, folder / "between", program.nothing), folder / "between", random.uniform(0, 0.05))
    program.run(drafts, back, program.nothing)
    check(reports(back), possible(reference, len(told)))
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
