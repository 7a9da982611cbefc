"""Protects those who debug: gdb shows what is in the library's values, in a program and with the printers of this tree.

gdb_test.py LIBRARY COMPILER [FLAG...]"""

import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
LIBRARY, COMPILER, *FLAGS = sys.argv[1:]
SHOWN = {
    "text": '"a \\"name\\""',
    "empty": '""',
    "list": "cow_List<int> of 3 = {3, 1, 2}",
    "texts": 'cow_List<cow_String> of 2 = {"x", "yz"}',
    "none": "cow_List<double> of 0",
    "map": 'cow_Map<cow_String, int> of 2 = {["one"] = 1, ["two"] = 2}',
    "point": "(1.0, 2.5, -3.0)",
    "vector": "(0.0, 0.1, 1e+100)",
    "seen": "(0.100000001, 2, 3, 1)",
    "matrix": "((1.0, 0.0, 0.0, 0.0), (0.0, 1.0, 0.0, 0.1), (0.0, 0.0, 1.0, 1e+100), (0.0, 0.0, 0.0, 1.0))",
    "points": "cow_List<gsl_Point> of 1 = {(1.0, 2.5, -3.0)}",
    "tensor": "3D full, engineering shears (1.0, 2.0, 3.0, 12.0, 13.0, 23.0)",
    "wrapping": "3D surface, wraps (1.0, 2.0, 3.0)",
    "turn": "quaternion 3D (0, 0, 0, 1)",
    "integer": "INT 7",
    "real": "DOUBLE 2.5",
    "large": "UINT 4000000000",
    "word": '"word"',
    "name": '"ROUND"',
    "yes": "True",
    "unset": "None",
    "handle": "DOUBLE 2.5",
    "nothing": "null",
    "held": '"held"',
    "tuple": 'omu_PrimTuple of 2 = {INT 1, "b"}',
    "dictionary": 'omu_PrimDictionary<cow_String> of 1 = {["key"] = INT 1}',
}


class Printers(unittest.TestCase):
    def test_values_are_shown(self):
        with tempfile.TemporaryDirectory() as folder:
            program = pathlib.Path(folder, "values")
            flags = ["-std=c++20", "-O0", "-g", f"-I{ROOT}/src", f"-Wl,-rpath,{pathlib.Path(LIBRARY).parent}"]
            flags += ["-fstandalone-debug" if "clang" in COMPILER else "-femit-class-debug-always"]
            subprocess.run([COMPILER, *flags, ROOT / "tests/gdb/main.cpp", LIBRARY, "-o", program], check=True)
            commands = ["set debuginfod enabled off", f"source {ROOT}/tools/gdb/orvlumgeom_gdb.py"]
            commands += ["break -qualified Stop", "run", "up"]
            commands += [f"print {name}" for name in SHOWN]
            options = [option for command in commands for option in ("-ex", command)]
            command = ["gdb", "-nx", "-batch", *options, program]
            run = subprocess.run(command, capture_output=True, text=True, check=False)
        shown = re.findall(r"^\$\d+ = (.*)$", run.stdout, re.M)
        self.assertEqual(len(shown), len(SHOWN), run.stdout + run.stderr)
        for (name, expected), found in zip(SHOWN.items(), shown):
            with self.subTest(name):
                self.assertEqual(found, expected)


if __name__ == "__main__":
    sanitized = any("-fsanitize" in flag for flag in FLAGS)
    if sanitized or shutil.which("gdb") is None:
        print("skipped: the sanitizers stop under a debugger" if sanitized else "skipped: there is no gdb")
        sys.exit(77)
    unittest.main(argv=sys.argv[:1])
