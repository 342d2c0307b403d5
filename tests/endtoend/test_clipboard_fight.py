#!/usr/bin/env python3
"""Two programs fight for the clipboard: while one takes it away again and again, a clerk copies and pastes in a grid.
Nothing hangs, nothing ends, and what is pasted is one of both contents, whole.

    test_clipboard_fight.py PROGRAM KEEP
"""

import os
import sys

from clipboard_window import ClipboardWindow
from desktop import Desktop, Failure

ROUNDS = 40
PATIENT_PRESSES = 50
BLOCK = [[f"code {row}", f"品名 {row}", str(row * 1000.5), "2026-11-20", f"mine {row}"] for row in range(1, 9)]
# Of the same shape, so that a mixture of both would be noticed.
OTHER = [[f"other {row}", f"其他 {row}", str(row * 7), "2025-01-02", f"theirs {row}"] for row in range(1, 9)]


def main(program, keep):
    with Desktop(keep) as desktop:
        grid = ClipboardWindow(desktop, program, BLOCK)
        text = "\n".join("\t".join(row) for row in OTHER)
        taker = desktop.start("taker", [os.path.abspath(program), "--take", text])
        seen = {"mine": 0, "theirs": 0}
        rounds = 0
        while rounds < ROUNDS or (0 in seen.values() and rounds < 10 * ROUNDS):
            rounds += 1
            before = grid.acts()
            # what is copied is what stands there: it is the own content again before each round
            grid.keys_done("ctrl+z", "ctrl+a", "ctrl+c", "ctrl+Home", "ctrl+v", delay=rounds % 9)
            # a clipboard that changes hands as it is asked for may hold nothing: nothing is pasted then
            for _ in range(PATIENT_PRESSES):
                if taker.poll() is not None:
                    raise Failure("the other program has ended: " + desktop.log("taker"))
                if grid.acts() > before:
                    break
                grid.keys_done("ctrl+v")
            else:
                raise Failure(f"round {rounds}: nothing was pasted by {PATIENT_PRESSES} presses")
            cells = grid.cells()
            if cells == BLOCK:
                seen["mine"] += 1
            elif cells == OTHER:
                seen["theirs"] += 1
            else:
                raise Failure(f"round {rounds}: what was pasted is neither content: {cells}")
        desktop.picture("clipboard-fight")
        taker.terminate()
        grid.window.close()
    print(f"{rounds} rounds: {seen['mine']} times the grid's own, {seen['theirs']} times the other's")


if __name__ == "__main__":
    main(*sys.argv[1:])
