"""Protects the checks of the source tree: each fault planted in a small tree is found, and a sound tree passes."""

import pathlib
import subprocess
import sys
import tempfile
import unittest

TOOLS = pathlib.Path(__file__).resolve().parents[2] / "tools"


def header(folders, name, body=""):
    guard = f"ORV_{folders}_{name}_H".upper().replace("/", "_")
    return f"#ifndef {guard}\n#define {guard}\n{body}#endif\n"


class Tools(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = pathlib.Path(folder.name)
        self.write("src/CMakeLists.txt", 'orv_layers(\n    low # lowest\n    "left right"\n    high)\n')
        self.write("src/low/low_A.h", header("low", "low_A"))
        self.write("src/low/low_A.cpp", "#include <low/low_A.h>\n")
        self.write("src/left/left_B.h", header("left", "left_B", "#include <low/low_A.h>\n"))
        self.write("src/right/right_C.h", header("right", "right_C", "#include <right/detail/right_D.h>\n"))
        self.write("src/right/detail/right_D.h", header("right/detail", "right_D"))
        self.write("src/right/detail/right_E.h", header("right/detail", "right_E"))
        self.run_tool("module_table", "--write")

    def write(self, name, text):
        path = self.root / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text, encoding="utf-8")

    def run_tool(self, tool, *options):
        command = [sys.executable, TOOLS / tool, "--root", self.root, *options]
        result = subprocess.run(command, capture_output=True, text=True, check=False)
        return result.returncode, result.stdout + result.stderr

    def expect_fault(self, tool, text, *options):
        code, output = self.run_tool(tool, *options)
        self.assertEqual(code, 1, output)
        self.assertIn(text, output)

    def test_a_sound_tree_passes(self):
        for command in (("module_table", "--check"), ("check_layers",), ("check_text",)):
            self.assertEqual(self.run_tool(*command), (0, ""), command)

    def test_tables_follow_the_folder(self):
        table = (self.root / "src/left/CMakeLists.txt").read_text(encoding="utf-8")
        self.assertEqual(table, "orv_module(left\n    USES low\n    PUBLIC_HEADERS\n        left_B.h)\n")

        self.assertEqual(
            (self.root / "src/right/CMakeLists.txt").read_text(encoding="utf-8"),
            "orv_module(right\n    PUBLIC_HEADERS\n        detail/right_D.h\n        right_C.h\n"
            "    PRIVATE_HEADERS\n        detail/right_E.h)\n",
        )

        changes = {
            "a file that no table names": lambda: self.write("src/low/low_New.cpp", ""),
            "a file that is gone": lambda: (self.root / "src/left/left_B.h").unlink(),
        }
        for title, change in changes.items():
            with self.subTest(title):
                change()
                self.expect_fault("module_table", "tools/module_table --write", "--check")
                self.run_tool("module_table", "--write")
                self.assertEqual(self.run_tool("module_table", "--check"), (0, ""))

    def test_layers_hold(self):
        faults = {
            "upward": ("src/low/low_A.cpp", "#include <high/high_X.h>\n", "low_A.cpp:1: low may not include"),
            "sideways": ("src/left/left_B.cpp", "\n#include <right/right_C.h>\n", "left_B.cpp:2: left may not include"),
            "quoted": ("src/low/low_A.cpp", '#include "low_A.h"\n', "write includes of the project as"),
            "unknown module": ("src/odd/odd_A.cpp", "\n", "src/odd: no layer"),
            "cycle": (
                "src/low/low_A.h",
                header("low", "low_A", "#include <low/low_A.h>\n"),
                "cycle: low/low_A.h -> low/low_A.h",
            ),
        }
        for title, (name, text, message) in faults.items():
            with self.subTest(title):
                self.write(name, text)
                self.expect_fault("check_layers", message)

    def test_a_cycle_over_several_headers(self):
        self.write("src/low/low_B.h", header("low", "low_B", "#include <low/low_C.h>\n"))
        self.write("src/low/low_C.h", header("low", "low_C", "#include <low/low_B.h>\n"))
        self.expect_fault("check_layers", "low/low_B.h -> low/low_C.h -> low/low_B.h")

    def test_text_rules(self):
        faults = {
            "guard": ("src/low/low_A.h", header("high", "low_A"), "the guard should be ORV_LOW_LOW_A_H"),
            "ascii": ("tests/low/low_A_test.cpp", "\n// \u00fc\n", "low_A_test.cpp:2: a character beyond ASCII"),
            "tab": ("bench/low_bench.cpp", "\tint i;\n", "low_bench.cpp:1: a tab"),
        }
        for title, (name, text, message) in faults.items():
            with self.subTest(title):
                self.write(name, text)
                self.expect_fault("check_text", message)


if __name__ == "__main__":
    unittest.main()
