"""Protects readers of the documents: every C++ block compiles against the library, runs and prints what the text block
right behind it says; presets and files of shell blocks exist; links lead somewhere.

A C++ block with a `main` is a program. Others are joined to one program, a namespace for each document, with all
umbrella headers included and the library started: ```cpp is statements, ```cpp declarations stands outside of functions
and is seen by the blocks below it.

snippets_test.py LIBRARY COMPILER [FLAG...]"""

import json
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
DOCUMENTS = sorted([*ROOT.glob("*.md"), *ROOT.glob("docs/**/*.md"), *ROOT.glob("src/*/README.md")])
LIBRARY, COMPILER, *FLAGS = sys.argv[1:]
MARK = "-- end of block"


def blocks():
    """(document, line, info string, text, info string and text of a block right behind) of each block."""
    fence = re.compile(r"^```([^\n`]*)\n(.*?)^```$", re.S | re.M)
    for path in DOCUMENTS:
        text = path.read_text(encoding="utf-8")
        found = list(fence.finditer(text))
        for this, after in zip(found, found[1:] + [None]):
            line = text.count("\n", 0, this.start()) + 2
            printed = after[2] if after and after[1] == "text" else None
            yield path.relative_to(ROOT).as_posix(), line, this[1], this[2], printed


def compiled(folder, name, source):
    """The program of a source, linked with the library."""
    path = pathlib.Path(folder, name)
    path.with_suffix(".cpp").write_text(source, encoding="utf-8")
    command = [COMPILER, "-std=c++20", *FLAGS, f"-I{ROOT}/src", "-Wall", "-Wextra", "-Werror", "-ffp-contract=off"]
    command += [f"{path}.cpp", LIBRARY, f"-Wl,-rpath,{pathlib.Path(LIBRARY).parent}", "-o", path]
    result = subprocess.run(command, capture_output=True, text=True, check=False)
    if result.returncode:
        raise AssertionError(result.stderr)
    return path


def joined(fragments):
    """One source of all fragments."""
    modules = sorted(path.parent.name for path in ROOT.glob("src/*/README.md"))
    lines = [f"#include <{module}/{module}.h>" for module in modules] + ["#include <iostream>"]
    calls = []
    for number, (document, line, info, text, _) in enumerate(fragments):
        space = "in_" + re.sub(r"\W", "_", document)
        if info == "cpp":
            text = f"inline void Block{number}() {{\n#line {line} \"{document}\"\n{text}}}\n"
            calls.append(f'    {space}::Block{number}();\n    std::cout << "{MARK}" << std::endl;')
        lines += [f"namespace {space} {{", f'#line {line} "{document}"', text + "}"]
    return "\n".join(
        lines + ["int main() {", "    int started = 0;", "    OrvLumGeom_initialize(started);"]
        + calls + ["    OrvLumGeom_finalize(started);", "}", ""])


class Snippets(unittest.TestCase):
    def run_program(self, path):
        result = subprocess.run([path], cwd=path.parent, capture_output=True, text=True, timeout=60, check=False)
        self.assertEqual(result.returncode, 0, f"{path.name}: {result.stdout}{result.stderr}")
        return result.stdout

    def test_programs_and_fragments(self):
        cpp = [block for block in blocks() if block[2].split(" ")[0] == "cpp"]
        programs = [block for block in cpp if re.search(r"^int main\(", block[3], re.M)]
        fragments = [block for block in cpp if block not in programs]
        with tempfile.TemporaryDirectory() as folder:
            for number, (document, line, _, text, printed) in enumerate(programs):
                with self.subTest(document):
                    source = f'#line {line} "{document}"\n{text}'
                    output = self.run_program(compiled(folder, f"program{number}", source))
                    if printed is not None:
                        self.assertEqual(output, printed)
            outputs = self.run_program(compiled(folder, "fragments", joined(fragments))).split(f"{MARK}\n")
            statements = [block for block in fragments if block[2] == "cpp"]
            self.assertEqual(len(outputs), len(statements) + 1)
            for (document, line, _, _, printed), output in zip(statements, outputs):
                with self.subTest(f"{document}:{line}"):
                    self.assertEqual(output, printed if printed is not None else output)

    def test_shell_blocks_name_what_there_is(self):
        presets = {p["name"] for p in json.loads((ROOT / "CMakePresets.json").read_text())["configurePresets"]}
        for document, line, _, text, _ in (block for block in blocks() if block[2] == "sh"):
            code = re.sub(r"#.*", "", text)
            with self.subTest(f"{document}:{line}"):
                self.assertLessEqual(set(re.findall(r"--preset[ =](\w+)", code)), presets)
                paths = r"(?<![\w/-])(?:\./)?((?:\.ci|tools|tests|examples|docs|src)/[\w./-]+|(?<=\./)\w+)"
                for name in re.findall(paths, code):
                    self.assertTrue((ROOT / name).exists(), name)

    def test_links_lead_somewhere(self):
        for path in DOCUMENTS:
            text = re.sub(r"^```.*?^```$", "", path.read_text(encoding="utf-8"), flags=re.S | re.M)
            for target in re.findall(r"\]\(([^)#\s]+)[^)]*\)", text):
                with self.subTest(f"{path.relative_to(ROOT)}: {target}"):
                    self.assertTrue("://" in target or (path.parent / target).exists())


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
