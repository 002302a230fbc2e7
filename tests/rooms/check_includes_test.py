"""Tests of check_includes.py."""

import contextlib
import io
import pathlib
import tempfile
import unittest

import check_includes

DECLARATIONS = "garden: tools/Spade.hpp plants\nplants:\n"


class CheckIncludesTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = pathlib.Path(folder.name)
        self.write("rooms.txt", DECLARATIONS)
        self.write("garden/Bed.hpp", "#pragma once\n")
        self.write("plants/Tree.hpp", "#pragma once\n")

    def write(self, name, text):
        file = self.root / name
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_text(text, encoding="utf-8")

    def check(self):
        output = io.StringIO()
        with contextlib.redirect_stdout(output):
            status = check_includes.main(self.root, self.root / "rooms.txt")
        return status, output.getvalue()

    def test_accepts_what_is_declared(self):
        self.write(
            "garden/Bed.cpp",
            '#include "garden/Bed.hpp"\n#include "tools/Spade.hpp"\n#  include "plants/x/Leaf.hpp"\n'
            "#include <vector>\n",
        )
        self.assertEqual(self.check(), (0, ""))

    def test_reports_each_forbidden_include_with_file_and_line(self):
        self.write("plants/Tree.cpp", '\n#include "plants/Tree.hpp"\n#include "garden/Bed.hpp"\n')
        self.write(
            "garden/Bed.cpp",
            '#include "tools/Spade.hpp.in"\n#include <unistd.h>\n#include "plantsmen/Ann.hpp"\n',
        )
        self.assertEqual(
            self.check(),
            (
                1,
                'garden/Bed.cpp:1: error: garden must not include "tools/Spade.hpp.in"\n'
                'garden/Bed.cpp:2: error: garden must not include "unistd.h"\n'
                'garden/Bed.cpp:3: error: garden must not include "plantsmen/Ann.hpp"\n'
                'plants/Tree.cpp:3: error: plants must not include "garden/Bed.hpp"\n',
            ),
        )

    def test_reports_a_folder_that_is_not_declared(self):
        self.write("garden/shed/Door.hpp", "#pragma once\n")
        self.write("garden/notes/README.md", "#include nothing\n")
        self.assertEqual(
            self.check(),
            (1, "garden/shed: error: the folder does not declare what it may include\n"),
        )


if __name__ == "__main__":
    unittest.main()
