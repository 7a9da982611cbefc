"""What the source tree says about itself: layers, modules, files and includes. Shared by the tools beside it."""

import argparse
import pathlib
import re
import sys

INCLUDE = re.compile(r'^[ \t]*#[ \t]*include[ \t]*([<"])([^>"\n]+)[>"]', re.MULTILINE)


class Tree:
    def __init__(self, root):
        self.root = pathlib.Path(root)
        self.src = self.root / "src"
        text = re.sub(r"#.*", "", (self.src / "CMakeLists.txt").read_text(encoding="utf-8"))
        layers = re.search(r"orv_layers\((.*?)\)", text, re.DOTALL).group(1)
        self.layers = [(quoted or plain).split() for quoted, plain in re.findall(r'"([^"]*)"|(\S+)', layers)]

    def level(self, module):
        """Index of the module's layer, 0 for the lowest; None for a folder that no layer names."""
        return next((i for i, layer in enumerate(self.layers) if module in layer), None)

    def modules(self):
        """The folders of src/ that hold sources, lowest first; a folder that no layer names comes last."""
        found = [d.name for d in self.src.iterdir() if d.is_dir() and self.files(d.name)]
        order = [module for layer in self.layers for module in layer]
        return sorted(found, key=lambda m: (order.index(m) if m in order else len(order), m))

    def files(self, module):
        """Headers and sources of a module, relative to its folder, sorted by name."""
        folder = self.src / module
        found = [p for p in folder.rglob("*") if p.suffix in (".h", ".cpp")]
        return sorted((p.relative_to(folder).as_posix() for p in found), key=lambda f: (f.lower(), f))

    def includes(self, path):
        """(line, opening character, name) of each #include of the file."""
        text = path.read_text(encoding="utf-8", errors="replace")
        return [(text.count("\n", 0, m.start()) + 1, m.group(1), m.group(2)) for m in INCLUDE.finditer(text)]

    def uses(self, module):
        """The other modules that the files of this one include."""
        known = self.modules()
        names = {name.split("/")[0] for f in self.files(module) for _, _, name in self.includes(self.src / module / f)}
        return [m for m in known if m in names and m != module]

    def installed(self):
        """The headers a host needs ("gsl/gsl_Point.h"): all but those in detail/ that no installed header includes."""
        needed, found = [f"{m}/{f}" for m in self.modules() for f in self.files(m) if is_public(f)], set()
        while needed:
            header = needed.pop()
            if header not in found and (self.src / header).exists():
                found.add(header)
                needed += [name for _, _, name in self.includes(self.src / header)]
        return found


def is_public(file):
    """The headers outside detail/ are for hosts; file is relative to its module."""
    return file.endswith(".h") and not file.startswith("detail/")


def main(description, check):
    """Runs check(tree), which gives the faults as lines; any fault fails the program."""
    parser = argparse.ArgumentParser(description=description)
    parser.add_argument("--root", default=pathlib.Path(__file__).resolve().parent.parent, help="root of the repository")
    faults = check(Tree(parser.parse_args().root))
    for fault in faults:
        print(fault)
    sys.exit(1 if faults else 0)
