#!/usr/bin/env python3
"""What the check of the architecture must find, and what it must leave alone."""

import pathlib
import tempfile
import unittest

import check_layers


class CheckLayers(unittest.TestCase):
    def violations(self, files):
        with tempfile.TemporaryDirectory() as folder:
            for path, text in files.items():
                file = pathlib.Path(folder, path)
                file.parent.mkdir(parents=True, exist_ok=True)
                file.write_text(text, encoding="utf-8")
            return [f"{path}:{line}: {what}" for path, line, what in check_layers.violations(check_layers.Tree(folder))]

    def refuses(self, files, expected):
        found = self.violations(files)
        self.assertEqual(len(found), 1, found)
        self.assertIn(expected, found[0])

    def accepts(self, files):
        self.assertEqual(self.violations(files), [])

    def test_accepts_arrows_that_point_down_and_the_standard_library(self):
        self.accepts(
            {
                "include/kxVsGrid/Variant.h": "// A value.\n#include <string>\n",
                "src/support/Text.h": "#include <string_view>\n",
                "src/editing/EditSession.h": '#include "kxVsGrid/Variant.h"\n#include "support/Text.h"\n',
                "src/editing/EditSession.cpp": '#include "EditSession.h"\n',
                "src/grid/kxGrid.cpp": '#include "editing/EditSession.h"\n',
            }
        )

    def test_refuses_a_reversed_arrow(self):
        self.refuses(
            {"src/editing/EditSession.h": "", "src/support/Text.cpp": '\n#include "editing/EditSession.h"\n'},
            "src/support/Text.cpp:2: support includes editing/EditSession.h of editing, against the arrow",
        )

    def test_refuses_a_reversed_arrow_written_as_a_path_through_the_parent_folder(self):
        self.refuses(
            {"src/grid/Parts.h": "", "src/editing/EditSession.cpp": '  #  include "../grid/Parts.h"\n'}, "against the arrow"
        )

    def test_counts_a_public_header_with_the_folder_that_implements_it(self):
        self.refuses(
            {
                "include/kxVsGrid/cVsControl.h": "// A column.\n",
                "src/cellgrid/Axis.cpp": '#include "kxVsGrid/cVsControl.h"\n',
            },
            "cellgrid includes kxVsGrid/cVsControl.h of columns",
        )

    def test_sees_an_own_header_in_angle_brackets(self):
        self.refuses(
            {"include/kxVsGrid/Frame.h": "// A frame.\n", "src/support/Text.cpp": "#include <kxVsGrid/Frame.h>\n"},
            "against the arrow",
        )

    def test_refuses_a_public_header_of_no_known_layer(self):
        self.refuses({"include/kxVsGrid/Fresh.h": "// New.\n"}, "belongs to no layer")

    def test_refuses_a_folder_of_no_known_layer(self):
        self.refuses({"src/fresh/New.cpp": ""}, "belongs to no layer")

    def test_refuses_a_public_header_that_includes_a_private_one(self):
        self.refuses(
            {"include/kxVsGrid/kxGrid.h": '// The control.\n#include "support/Text.h"\n', "src/support/Text.h": ""},
            "which is not installed",
        )

    def test_refuses_a_public_header_without_its_purpose(self):
        self.refuses({"include/kxVsGrid/VsNode.h": "#pragma once\n"}, "does not open with what it is for")

    def test_refuses_a_toolkit_header_in_the_core(self):
        self.refuses({"src/dialogs/Lookup.cpp": "#include <QString>\n"}, "neither its own nor the standard library's")

    def test_refuses_an_operating_system_header_in_the_core(self):
        self.refuses({"src/headless/Desk.cpp": "#include <unistd.h>\n"}, "neither its own nor the standard library's")

    def test_refuses_a_quoted_header_in_the_core_that_does_not_exist(self):
        self.refuses({"src/support/Text.cpp": '#include "Missing.h"\n'}, "neither its own nor the standard library's")

    def test_accepts_a_toolkit_header_in_the_window_layer_and_in_examples(self):
        self.accepts({"src/qt/View.cpp": "#include <QWidget>\n", "examples/small/main.cpp": "#include <QApplication>\n"})

    def test_refuses_threads_files_and_what_the_compilers_lack_in_the_core(self):
        for name in ("format", "thread", "mutex", "fstream", "filesystem", "ranges"):
            with self.subTest(name):
                self.refuses({"src/support/Text.cpp": f"#include <{name}>\n"}, f"the core includes {name}: ")

    def test_refuses_a_collaborator_that_includes_the_control(self):
        control = {"include/kxVsGrid/kxGrid.h": "// The control.\n"}
        self.refuses(
            control | {"src/grid/input/Keys.cpp": '#include "kxVsGrid/kxGrid.h"\n'},
            "a collaborator includes kxVsGrid/kxGrid.h",
        )
        self.accepts(control | {"src/grid/SetUp.cpp": '#include "kxVsGrid/kxGrid.h"\n'})

    def test_keeps_the_two_machines_apart(self):
        self.refuses(
            {"src/headless/Desk.h": "", "src/qt/View.cpp": '#include "headless/Desk.h"\n'}, "against the arrow"
        )

    def test_keeps_the_machine_for_tests_out_of_products(self):
        self.refuses(
            {"src/headless/Desk.h": "", "src/qt/designer/Sample.cpp": '#include "headless/Desk.h"\n'}, "is there for tests"
        )

    def test_fails_as_a_program_when_there_is_a_violation_or_nothing_to_check(self):
        with tempfile.TemporaryDirectory() as folder:
            self.assertEqual(check_layers.main(folder), 1)
            pathlib.Path(folder, "src/support").mkdir(parents=True)
            pathlib.Path(folder, "src/support/Text.cpp").write_text("#include <string>\n", encoding="utf-8")
            self.assertEqual(check_layers.main(folder), 0)
            pathlib.Path(folder, "src/support/Bad.cpp").write_text("#include <QString>\n", encoding="utf-8")
            self.assertEqual(check_layers.main(folder), 1)

    def test_finds_paths_of_the_documents_that_are_not_there(self):
        with tempfile.TemporaryDirectory() as folder:
            pathlib.Path(folder, "src").mkdir()
            pathlib.Path(folder, "ARCHITECTURE.md").write_text("`src` and `src/Gone.h`\n`src/Lost.h`\n", encoding="utf-8")
            found = [(number, what) for _, number, what in check_layers.lost_paths(folder)]
            self.assertEqual([number for number, _ in found], [1, 2])
            self.assertIn("src/Gone.h", found[0][1])


if __name__ == "__main__":
    unittest.main()
