"""Protects hosts that load the library at run time: it needs nothing but the C++ runtime and can be unloaded again."""

import _ctypes
import ctypes
import re
import subprocess
import sys
import unittest

LIBRARY = sys.argv.pop()
RUNTIME = {"libstdc++", "libm", "libgcc_s", "libc", "ld-linux-x86-64", "ld-linux-aarch64"}


def readelf(*options):
    return subprocess.run(["readelf", "--wide", *options, LIBRARY], check=True, capture_output=True, text=True).stdout


def mapped():
    with open("/proc/self/maps", encoding="utf-8") as maps:
        return "libOrvLumGeom" in maps.read()


class Library(unittest.TestCase):
    def test_needs_only_the_runtime(self):
        needed = re.findall(r"\(NEEDED\).*\[([^\]]+?)\.so", readelf("--dynamic"))
        self.assertIn("libstdc++", needed)
        self.assertLessEqual(set(needed), RUNTIME)

    def test_can_be_unloaded(self):
        handle = ctypes.CDLL(LIBRARY)._handle
        self.assertTrue(mapped())
        _ctypes.dlclose(handle)
        self.assertFalse(mapped(), "the loader keeps the library")

    def test_holds_nothing_that_pins_it(self):
        self.assertNotIn("NODELETE", readelf("--dynamic"))
        self.assertNotRegex(readelf("--dyn-syms"), r"\bUNIQUE\b.* [0-9]+ ")


if __name__ == "__main__":
    unittest.main()
