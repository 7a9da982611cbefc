"""Protects the reference: each public item without words is a fault, wherever it stands, and comments hold as the house
writes them."""

import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
GOOD = """#ifndef ORV_LOW_LOW_A_H
#define ORV_LOW_LOW_A_H

#include <map>

class low_Other;

/// What it is.
class ORV_EXPORT low_A {
public:
    low_A(const low_A&) = default;

    /// Where it is, for both.
    [[nodiscard]] double X() const noexcept { return _xy.at(0); }
    [[nodiscard]] double Y() const noexcept {
        return _xy.at(1);
    }
    bool operator!=(const low_A& other) const;

    /// Its colour is #RRGGBB.
    template <class T>
    void Paint(const T& brush = {});

    static void InitializeMetadata(cls_ClassRegistrar& registrar);
    explicit low_A(const cls_ReadVisitor& visitor);

protected:
    void ForWhoeverDerives();

private:
    std::map<int, double> _xy{{0, 0.0}, {1, 0.0}};
    friend class low_Other;
};

/// An order.
enum class low_Order : int { First, Last };

/// Free functions.
void low_Do(int i);
void low_Do(double d);

template <>
struct std::hash<low_A> {
    int operator()(const low_A&) const;
};

#endif
"""
FAULTS = {
    "X": ("    /// Where it is, for both.\n", ""),
    "low_A": ("/// What it is.\n", ""),
    "low_Order": ("/// An order.\n", ""),
    "low_Do": ("/// Free functions.\n", ""),
    "Paint": ("    /// Its colour is #RRGGBB.\n", ""),
    "Late": ("    bool operator!=", "\n    void Late();\n    bool operator!="),
}


@unittest.skipIf(shutil.which("doxygen") is None, "there is no doxygen")
class Reference(unittest.TestCase):
    def check(self, header):
        with tempfile.TemporaryDirectory() as folder:
            root = pathlib.Path(folder)
            (root / "src/low").mkdir(parents=True)
            (root / "src/low/low_A.h").write_text(header, encoding="utf-8")
            shutil.copytree(ROOT / "docs", root / "docs", ignore=shutil.ignore_patterns("images"))
            command = [sys.executable, ROOT / "tools/doxygen", "--check", "--root", root]
            result = subprocess.run(command, capture_output=True, text=True, check=False)
            return result.returncode, result.stdout + result.stderr

    def test_the_ways_of_the_house_pass(self):
        self.assertEqual(self.check(GOOD), (0, ""))

    def test_missing_words_are_told(self):
        for name, (old, new) in FAULTS.items():
            with self.subTest(name):
                self.assertEqual(GOOD.count(old), 1)
                code, output = self.check(GOOD.replace(old, new))
                self.assertNotEqual(code, 0)
                self.assertRegex(output, rf"src/low/low_A\.h:\d+: .*\b{name}\b.* is not documented")

    def test_this_tree(self):
        command = [sys.executable, ROOT / "tools/doxygen", "--check"]
        result = subprocess.run(command, capture_output=True, text=True, check=False)
        self.assertEqual((result.returncode, result.stdout + result.stderr), (0, ""))


if __name__ == "__main__":
    unittest.main()
