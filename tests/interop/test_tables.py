#!/usr/bin/env python3
"""Tables as text are read as Python's csv module reads them (dialect excel-tab), and what is written is read by it.

    test_tables.py TABLE_ECHO

Half of the texts are tables that csv.writer wrote, the others are hostile letters in no order. All of them are
compared, by these rules, in which the reader differs from csv.reader by design:

  - An empty line is a row of one empty cell, to csv.reader one of no cells.
  - Line ends inside cells are line feeds, whichever they were.
  - A byte order mark at the start and NULs at the end are taken off, other NULs left out of their cells; each byte that
    is no valid UTF-8 is one U+FFFD. csv.reader is given text and cannot see such bytes.
  - The quote at the start of a cell that never ends is an ordinary character. csv.reader takes all that follows for
    that cell; it is given the text with another letter in place of that quote, which is put back into what it read.

KX_TABLES in the environment says how many texts there are; KX_SEED which.
"""

import codecs
import csv
import io
import os
import random
import subprocess
import sys

TABLES = int(os.environ.get("KX_TABLES", "2000"))
BATCH = 2000
HOSTILE = ["\t", "\r", "\n", '"', " ", "a", "b", "汉"]
# More rarely: what is no text, or looks like something else.
RARE = ["\r\n", '""', "\0", "\ufeff", "\ufffd", "𠮷", "\v", "\x85", "\u2028", "'", ",", "\\"]
RARE += ["\udcff", "\udce6", "\udcb1"]  # bytes by themselves
STAND_IN = "\ue000"  # for a quote that never ends; in no text

codecs.register_error("each byte", lambda error: ("\ufffd", error.start + 1))
csv.field_size_limit(1 << 30)


class Failure(Exception):
    """What the test must report; the text is for people."""


# ------------------------------------------------------------------------------------------------- texts to be read


def letters(most):
    return "".join(
        random.choice(RARE if random.random() < 0.05 else HOSTILE) for _ in range(random.randint(0, most))
    )


def written_by_python():
    """A table, and its text."""
    cols = random.randint(1, 5)
    same = random.random() < 0.7
    table = []
    for _ in range(random.randint(0, 6)):
        table.append([letters(random.choice([0, 2, 6, 12])) for _ in range(cols if same else random.randint(1, 5))])
    text = io.StringIO(newline="")
    end = random.choice(["\n", "\r\n", "\r"])
    quoting = random.choice([csv.QUOTE_MINIMAL, csv.QUOTE_ALL])
    csv.writer(text, dialect="excel-tab", lineterminator=end, quoting=quoting).writerows(table)
    # It quotes the line ends that it writes itself, and leaves others in cells without quotes.
    return table if end == "\r\n" or quoting == csv.QUOTE_ALL else None, text.getvalue()


def some_text():
    """The table it was written from, where there is one; and its bytes."""
    table, text = written_by_python() if random.random() < 0.5 else (None, letters(random.choice([4, 10, 30, 100])))
    # As some programs put it there.
    text = random.choice(["", "\ufeff"] + [""] * 20) + text + random.choice(["\0", "\0\0"] + [""] * 20)
    return table, text.encode("utf-8", "surrogateescape")


# -------------------------------------------------------------------------------------------- what it has to be read as


def as_read(text):
    """With its line ends as line feeds, and without NULs; one between a carriage return and a line feed leaves both."""
    return text.replace("\r\n", "\n").replace("\r", "\n").replace("\0", "")


def rows_of(text):
    return list(csv.reader(io.StringIO(text, newline=""), dialect="excel-tab"))


def is_closed(text):
    """True unless the text ends within quotes."""
    return rows_of(text + "\nend")[-1] == ["end"]


def quote_that_never_ends(text):
    """Where it stands: the last one that begins a cell."""
    for at in reversed(range(len(text))):
        if text[at] == '"' and (at == 0 or text[at - 1] in "\t\r\n") and is_closed(text[:at]):
            return at
    raise Failure(f"no quote to begin with in {text!r}")


def expected(text):
    text = text.decode("utf-8", "each byte").removeprefix("\ufeff").rstrip("\0")
    if not is_closed(text):
        at = quote_that_never_ends(text)
        text = text[:at] + STAND_IN + text[at + 1 :]
    return [[as_read(cell.replace(STAND_IN, '"')) for cell in row] or [""] for row in rows_of(text)]


def expected_of(table):
    """The same from the table that it was written from."""
    cells = [[cell.encode("utf-8", "surrogateescape").decode("utf-8", "each byte") for cell in row] for row in table]
    return [[as_read(cell) for cell in row] for row in cells]


def begins_with_a_mark(table):
    return bool(table) and table[0][0].startswith("\ufeff")


# --------------------------------------------------------------------------------------------------- what was read


class Answer:
    def __init__(self, data):
        self.data = data
        self.at = 0

    def until(self, end):
        start = self.at
        self.at = self.data.index(end, start) + 1
        return self.data[start : self.at - 1]

    def text(self):
        size = int(self.until(b":"))
        self.at += size
        return self.data[self.at - size : self.at].decode("utf-8")

    def table(self):
        """The cells, the shape, and the table as it was written again."""
        rows, row = [], []
        while True:
            letter = self.data[self.at : self.at + 1]
            self.at += 1
            if letter == b"c":
                row.append(self.text())
            elif letter == b"r":
                rows.append(row)
                row = []
            elif letter == b"s" and not row:
                shape = int(self.until(b" ")), int(self.until(b" "))
                if self.data[self.at : self.at + 1] != b"w":
                    raise Failure(f"no table behind the shape at byte {self.at}")
                self.at += 1
                return rows, shape, self.text()
            else:
                raise Failure(f"{letter!r} at byte {self.at}")


def check(text, table, answer):
    want = expected(text)
    have, shape, again = answer.table()
    if have != want:
        raise Failure(f"{text!r}\nwas read as  {have!r}\ninstead of   {want!r}")
    if table is not None and not begins_with_a_mark(table) and have != expected_of(table):
        raise Failure(f"{text!r}\nwas read as  {have!r}\nwritten from {table!r}")
    if shape != (len(want), max(map(len, want), default=0)):
        raise Failure(f"{text!r} has the shape {shape}")
    if [row or [""] for row in rows_of(again)] != want:
        raise Failure(f"{want!r}\nwas written as {again!r}")


def main(program):
    seed = int(os.environ.get("KX_SEED", str(random.randrange(1 << 30))))
    random.seed(seed)
    try:
        for start in range(0, TABLES, BATCH):
            texts = [some_text() for _ in range(min(BATCH, TABLES - start))]
            question = b"".join(b"%d:%s" % (len(text), text) for _, text in texts)
            run = subprocess.run([program], input=question, capture_output=True, check=False)
            if run.returncode != 0:
                raise Failure(f"the program ended with {run.returncode}:\n{run.stderr.decode(errors='replace')}")
            answer = Answer(run.stdout)
            for table, text in texts:
                check(text, table, answer)
            if answer.at != len(answer.data):
                raise Failure("the program told more than it was asked")
    except BaseException:
        print(f"the tables are those of KX_SEED={seed} KX_TABLES={TABLES}", file=sys.stderr)
        raise
    print(f"{TABLES} tables were read and written as Python does")


if __name__ == "__main__":
    main(*sys.argv[1:])
