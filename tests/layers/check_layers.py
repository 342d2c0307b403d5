#!/usr/bin/env python3
"""Checks the architecture by the include lines of src/, include/ and examples/.

    check_layers.py ROOT        lists every violation under ROOT, and fails when there is one

Paths that the documents for developers name have to be there, too.

The rules: includes point down the layers only; the core includes its own headers and the standard library
alone, and of that nothing with threads or files, nor what g++ 12 lacks; the collaborators behind the control do
not know the control; no product includes the machine without a window; every public header says first what it
is for.
"""

import pathlib
import posixpath
import re
import sys

# The layers from the ground up. A layer may include itself and the layers before it; neighbours in one row that
# stand apart (APART) may not include each other.
ROWS = [
    ["support"],
    ["suggest"],
    ["cellgrid"],
    ["changes"],
    ["platform"],
    ["columns"],
    ["host", "totals"],
    ["dialogs"],
    ["editing"],
    ["rows"],
    ["clerk"],
    ["grid", "grid/input"],
    ["sheet"],
    ["headless", "qt"],
    ["qt/designer"],
    ["examples"],
]
APART = {"host", "totals", "headless", "qt"}
OUTSIDE_THE_CORE = {"qt", "qt/designer", "examples"}

# A public header counts with the folder that implements it.
PUBLIC_HEADERS = {
    "support": "DateTime Enumerations Event Form Geometry Members MemoryBag Menu PropertyBag TextBag Variant VsNode cResize mbasTxt",
    "suggest": "Suggestions",
    "cellgrid": "CellGrid CellMark CellRange ChangeListener Frame RowId",
    "changes": "Changes Draft",
    "platform": "Clipboard Command PasteReport Platform",
    "columns": "ColumnLayout ColumnOptions cVsControl",
    "host": "GridEvents Options",
    "dialogs": "ControlPage HelpExchange HelpTable",
    "clerk": "Commands Filters Find",
    "grid": "GridColumns StoredKeys kxGrid",
    "headless": "kxVsGrid",  # the umbrella stands above all that it includes
}
LAYER_OF_PUBLIC_HEADER = {name: layer for layer, names in PUBLIC_HEADERS.items() for name in names.split()}

STANDARD_LIBRARY = set(
    """algorithm any array atomic barrier bit bitset cassert cctype cerrno cfenv cfloat charconv chrono cinttypes
    climits clocale cmath codecvt compare complex concepts condition_variable coroutine csetjmp csignal cstdarg
    cstddef cstdint cstdio cstdlib cstring ctime cuchar cwchar cwctype deque exception execution filesystem format
    forward_list fstream functional future initializer_list iomanip ios iosfwd iostream istream iterator latch
    limits list locale map memory memory_resource mutex new numbers numeric optional ostream queue random ranges
    ratio regex scoped_allocator semaphore set shared_mutex source_location span sstream stack stdexcept
    stop_token streambuf string string_view syncstream system_error thread tuple type_traits typeindex typeinfo
    unordered_map unordered_set utility valarray variant vector version""".split()
)
KEPT_OUT_OF_THE_CORE = {
    "format": "g++ 12 lacks it",
    "ranges": "clang 14 cannot compile it",
    "filesystem": "the core has no file access",
    "fstream": "the core has no file access",
}
for thread_header in (
    "barrier condition_variable execution future latch mutex semaphore shared_mutex stop_token thread".split()
):
    KEPT_OUT_OF_THE_CORE[thread_header] = "the core has no threads"

# They get references to what stands below them; only grid/ itself wires them to the control.
COLLABORATORS = {"grid/input"}

# The machine without a window: no product stands on it.
FOR_TESTS = ("include/kxVsGrid/headless/", "src/headless/")

INCLUDE = re.compile(r'^\s*#\s*include\s*(?:<([^>]+)>|"([^"]+)")')
ROW_OF_LAYER = {layer: row for row, layers in enumerate(ROWS) for layer in layers}


def layer_of(path):
    """The layer of a file by its path under the root; None for files that no rule covers (the build's own)."""
    if path.startswith("include/kxVsGrid/"):
        rest = path[len("include/kxVsGrid/") :]
        folder = posixpath.dirname(rest)
        return folder if folder else LAYER_OF_PUBLIC_HEADER.get(posixpath.splitext(rest)[0])
    if path.startswith("examples/"):
        return "examples"
    folder = posixpath.dirname(path[len("src/") :])
    while folder and folder not in ROW_OF_LAYER:
        folder = posixpath.dirname(folder)
    return folder or None


def may_include(upper, lower):
    if upper == lower:
        return True
    if ROW_OF_LAYER[upper] == ROW_OF_LAYER[lower]:
        return upper not in APART
    return ROW_OF_LAYER[upper] > ROW_OF_LAYER[lower]


class Tree:
    """The sources under a root, by their paths relative to it."""

    def __init__(self, root):
        root = pathlib.Path(root)
        self.texts = {}
        for top in ("src", "include", "examples"):
            for file in sorted((root / top).rglob("*")):
                if file.suffix in (".h", ".cpp"):
                    self.texts[file.relative_to(root).as_posix()] = file.read_text(encoding="utf-8")

    def resolve(self, includer, name):
        """The file of ours that an include line means, or None."""
        for folder in (posixpath.dirname(includer), "src", "include"):
            path = posixpath.normpath(posixpath.join(folder, name))
            if path in self.texts:
                return path
        return None


def violations_of_line(tree, path, layer, name, quoted):
    target = tree.resolve(path, name) if quoted or name.startswith("kxVsGrid/") else None
    if target is None:
        if layer in OUTSIDE_THE_CORE:
            return
        if quoted or name not in STANDARD_LIBRARY:
            yield f"the core includes {name}, which is neither its own nor the standard library's"
        elif name in KEPT_OUT_OF_THE_CORE:
            yield f"the core includes {name}: {KEPT_OUT_OF_THE_CORE[name]}"
        return
    target_layer = layer_of(target)
    if target_layer in ROW_OF_LAYER and not may_include(layer, target_layer):
        yield f"{layer} includes {name} of {target_layer}, against the arrow"
    elif layer != "headless" and target.startswith(FOR_TESTS):
        yield f"{layer} includes {name}, which is there for tests"
    if layer in COLLABORATORS and target in ("include/kxVsGrid/kxGrid.h", "include/kxVsGrid/kxVsGrid.h"):
        yield f"a collaborator includes {name}"
    if path.startswith("include/") and target.startswith("src/"):
        yield f"a public header includes {name}, which is not installed"


def violations(tree):
    """Every violation as (path, line number, what is wrong)."""
    for path, text in tree.texts.items():
        layer = layer_of(path)
        if layer not in ROW_OF_LAYER:
            yield path, 1, "belongs to no layer: name it in tests/layers/check_layers.py"
            continue
        if path.startswith("include/") and not text.startswith("//"):
            yield path, 1, "does not open with what it is for"
        for number, line in enumerate(text.splitlines(), 1):
            match = INCLUDE.match(line)
            if match:
                name = match.group(1) or match.group(2)
                for what in violations_of_line(tree, path, layer, name, match.group(2) is not None):
                    yield path, number, what


NAMED_PATH = re.compile(r"`((?:src|include|tests|examples|fuzz|bench|docs)/[^`*{} ]+)`")


def lost_paths(root):
    """What the documents for developers name and the tree does not have."""
    root = pathlib.Path(root)
    for document in ("ARCHITECTURE.md", "CONTRIBUTING.md"):
        if not (root / document).exists():
            continue
        for number, line in enumerate((root / document).read_text(encoding="utf-8").splitlines(), 1):
            for name in NAMED_PATH.findall(line):
                if not (root / name).exists():
                    yield document, number, f"names {name}, which is not there"


def main(root):
    tree = Tree(root)
    found = list(violations(tree)) + list(lost_paths(root))
    for path, number, what in found:
        print(f"{path}:{number}: {what}")
    print(f"{len(tree.texts)} files, {len(found)} violations")
    return 1 if found or not tree.texts else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))
