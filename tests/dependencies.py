#!/usr/bin/env python3
"""dependencies.py BUILD-FOLDER: checks the dependency rules of src against the includes that the compiler reads, and refuses
circles among the modules of the web app, the npm package and the Python package.

A source may include the headers of its own library and of those that its library links by name; the rules are the link
lines of src/**/CMakeLists.txt, and docs/architecture.md shows the same. No files of src may include each other in a
circle; a source and the header of its name count as one, but for the screens, which open one another from their sources.
The includes are those that the preprocessor reports, in any form, also indirect ones."""
import ast
import collections
import concurrent.futures
import json
import os
import pathlib
import re
import shlex
import subprocess
import sys
import tempfile

root = pathlib.Path(__file__).resolve().parent.parent
src = root / "src"


class Libraries:
    """The library of each file of src, and the libraries that each library links."""

    def __init__(self):
        self.of_file = {}    # a source or header that a CMakeLists.txt names: its library or program
        self.of_folder = {}  # the library of files that no CMakeLists.txt names
        self.links = collections.defaultdict(set)
        self.programs = set()
        for file in sorted(src.rglob("CMakeLists.txt")):
            self.read(file.parent.relative_to(src).as_posix(), re.sub(r"#.*", "", file.read_text()))

    def read(self, folder, text):
        for kind, target, sources in re.findall(r"(add_library|add_executable|target_sources)\((\w[\w-]*)([^)]*)\)", text):
            if "IMPORTED" in sources or folder == ".":
                continue
            if kind == "add_executable":
                self.programs.add(target)
            else:
                self.of_folder[folder] = target
            for source in re.findall(r"[\w/]+\.(?:cpp|h)\b", sources):
                self.of_file[f"{folder}/{source}"] = target
        for name, source, names in re.findall(r"^tallyfin_module\((\w+) (\S+) ([^)]*)\)", text, re.M):
            target = f"module {name}"
            self.programs.add(target)
            self.of_file[f"{folder}/{source}"] = target
            self.links[target] |= set(names.split())
        for target, names in re.findall(r"target_link_libraries\((\w[\w-]*)\s+((?:PUBLIC|PRIVATE|INTERFACE)[^)]*)\)", text):
            if "LINK_ONLY" not in names:
                self.links[target] |= set(names.split())

    def library(self, path):
        """The library or program that a file belongs to; a header to that of the source of its name."""
        path = pathlib.PurePosixPath(path)
        for name in (path, path.with_suffix(".cpp")):
            if str(name) in self.of_file:
                return self.of_file[str(name)]
        folder = path.parent
        while folder.name and str(folder) not in self.of_folder:
            folder = folder.parent
        return self.of_folder.get(str(folder))

    def allows(self, includer, included):
        own, other = self.library(includer), self.library(included)
        return other is not None and other in {own, *self.links[own]}

    def picture(self):
        """The rules as docs/architecture.md shows them."""
        names = set(self.of_folder.values()) | {library for library in self.of_file.values()} - self.programs
        linked = {name: sorted(self.links[name] & names) for name in names}
        width = max(map(len, names)) + 2
        return "\n".join(f"    {name:{width}}{', '.join(linked[name])}".rstrip()
                         for name in sorted(names, key=lambda name: (len(linked[name]), name)))


def includes_read(command, source_root):
    """The includes of project files that the preprocessor meets in one translation unit, as pairs (includer, included)."""
    words = shlex.split(command)
    if os.path.basename(words[0]) == "ccache":
        words = words[1:]
    drop = words.index("-o")
    words = words[:drop] + words[drop + 2:]
    words.remove("-c")
    output = subprocess.run([*words, "-E", "-dI", "-w"], capture_output=True, text=True, check=True).stdout
    pairs, file, wanted = set(), None, False
    for line in output.splitlines():
        marker = re.match(r'# \d+ "([^"]+)"', line)
        if marker:
            path = os.path.realpath(marker[1])
            file = os.path.relpath(path, source_root) if path.startswith(f"{source_root}/") else None
            continue
        directive = re.match(r'#include(?:_next)? ["<]([^">]+)[">]', line) if file else None
        if directive:
            beside = os.path.normpath(f"{source_root}/{os.path.dirname(file)}/{directive[1]}")
            below = os.path.normpath(f"{source_root}/{directive[1]}")
            found = next((path for path in (beside, below) if os.path.isfile(path)), None)
            if found and found.startswith(f"{source_root}/"):
                pairs.add((file, os.path.relpath(found, source_root)))
    return pairs


def includes_of_modules():
    """The includes of the WebAssembly modules, which no build of this machine's compiler has."""
    with tempfile.TemporaryDirectory() as folder:
        pathlib.Path(f"{folder}/emscripten.h").touch()
        return set().union(*(includes_read(f"c++ -std=c++20 -I{src} -I{folder} -c {source} -o x.o", str(src))
                             for source in sorted((src / "web").glob("*.cpp"))))


def imports_of_scripts(text):
    """The files beside it that a JavaScript module imports, or starts as a worker."""
    code = re.sub(r"/\*.*?\*/|^\s*//[^\n]*", "", text, flags=re.S | re.M)
    return set(re.findall(r"\b(?:from|import)\s*\(?\s*['\"](?:\./)?([^'\"]+\.js)['\"]", code) +
               re.findall(r"\bWorker\(\s*['\"](?:\./)?([^'\"]+)['\"]", code))


def imports_of_python(text):
    """The modules of its own package that a Python module imports."""
    found = set()
    for node in ast.walk(ast.parse(text)):
        if isinstance(node, ast.Import):
            found |= {alias.name for alias in node.names}
        elif isinstance(node, ast.ImportFrom):
            module = ".".join(filter(None, ["tallyfin99" if node.level or not node.module else "", node.module]))
            found |= {module, *(f"{module}.{alias.name}" for alias in node.names)}
    names = (name.split(".") for name in found if name.split(".")[0] == "tallyfin99")
    return {(name[1] if len(name) > 1 else "__init__") + ".py" for name in names}


def imports_among(folder, pattern, imports):
    """The imports among the files of a folder, as pairs."""
    files = {file.name: file for file in (src / folder).glob(pattern)}
    return {(name, other) for name, file in files.items() for other in imports(file.read_text()) & files.keys() - {name}}


def circles(pairs, is_screen):
    """The groups of files that include each other, each a sorted list."""
    following = collections.defaultdict(set)
    for pair in pairs:
        a, b = (file if is_screen(file) else os.path.splitext(file)[0] for file in pair)
        if a != b:
            following[a].add(b)
    order, low, stack, found = {}, {}, [], []

    def visit(file):
        order[file] = low[file] = len(order)
        stack.append(file)
        for other in sorted(following[file]):
            if other not in order:
                visit(other)
            if other in stack:
                low[file] = min(low[file], low[other])
        if low[file] == order[file]:
            group = stack[stack.index(file):]
            del stack[stack.index(file):]
            if len(group) > 1:
                found.append(sorted(group))

    for file in sorted(following):
        if file not in order:
            visit(file)
    return found


def forms_that_slip_through():
    """The unusual forms of an include that includes_read doesn't find."""
    forms = ['#include "engine/a.h"', "#include <engine/a.h>", '#  include "engine/a.h"', ' #include   "engine/a.h"',
             '/**/ #include "engine/a.h"', '#include "controls/../engine/a.h"', '#include "../engine/a.h"',
             '#define A "engine/a.h"\n#include A', '#include "controls/detour.inc"']
    with tempfile.TemporaryDirectory() as folder:
        folder = os.path.realpath(folder)
        for name in ("engine", "controls"):
            os.mkdir(f"{folder}/{name}")
        pathlib.Path(f"{folder}/engine/a.h").write_text("#pragma once\n")
        pathlib.Path(f"{folder}/controls/detour.inc").write_text('#include "engine/a.h"\n')
        for form in forms:
            source = pathlib.Path(f"{folder}/controls/b.cpp")
            source.write_text(form + "\n")
            pairs = includes_read(f"c++ -I{folder} -c {source} -o b.o", folder)
            if "engine/a.h" not in {included for _, included in pairs}:
                yield form


def main(build):
    commands = [entry["command"] for entry in json.loads((pathlib.Path(build) / "compile_commands.json").read_text())
                if os.path.realpath(entry["file"]).startswith(f"{src}/")]
    os.chdir(build)
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        pairs = set().union(*pool.map(lambda command: includes_read(command, str(src)), commands), includes_of_modules())

    libraries = Libraries()
    wrong = [f"{a} includes {b}" for a, b in sorted(pairs) if not libraries.allows(a, b)]
    wrong += ["a circle: " + ", ".join(group) for group in circles(pairs, lambda file: libraries.library(file) == "screens")]
    for folder, pattern, imports, least in [("web/page", "*.js", imports_of_scripts, 20), ("web/package", "*.js", imports_of_scripts, 1),
                                            ("python/tallyfin99", "*.py", imports_of_python, 1)]:
        among = imports_among(folder, pattern, imports)
        wrong += [f"a circle in {folder}: " + ", ".join(group) for group in circles(among, lambda file: True)]
        if len(among) < least:
            wrong.append(f"{folder}: only {len(among)} imports seen")

    # Rules that forbid nothing would pass too.
    for a, b in [("engine/fedtax.cpp", "states/statebase.h"), ("states/newyork.cpp", "ui/frmMain.h"),
                 ("controls/desk.cpp", "platform/platform.h"), ("controls/desk.cpp", "engine/settingsstore.h"),
                 ("engine/money.cpp", "engine/paydata.h"), ("ui/frmMain.cpp", "ui/qt/views/view.h"),
                 ("batch/run.cpp", "script/session.h"), ("stateoptions/shapes.cpp", "stateoptions/frmState.h"),
                 ("script/session.cpp", "store/store.h"), ("web/module.cpp", "store/store.h"), ("web/paychecks.cpp", "ui/frmMain.h"), ("engine/fedtax.cpp", "elsewhere.inc")]:
        if libraries.allows(a, b):
            wrong.append(f"{a} could include {b}")
    if circles({("a.h", "b.h"), ("b.cpp", "c.h"), ("c.h", "a.h"), ("d.h", "a.h")}, lambda file: False) != [["a", "b", "c"]]:
        wrong.append("a circle goes unnoticed")
    wrong += [f"not seen: {form}" for form in forms_that_slip_through()]
    for form in ["import './a.js';", "import { a,\n b } from \"./a.js\";", "export * from './a.js';", "await import('./a.js')", "new Worker('a.js', {})"]:
        if imports_of_scripts(form) != {"a.js"}:
            wrong.append(f"not seen: {form}")
    for form in ["import tallyfin99.a", "from . import a", "from .a import b", "from tallyfin99 import a", "from tallyfin99.a import b"]:
        if "a.py" not in imports_of_python(form):
            wrong.append(f"not seen: {form}")
    if libraries.picture() not in (root / "docs/architecture.md").read_text():
        wrong.append("docs/architecture.md shows other rules than\n" + libraries.picture())
    print("\n".join(wrong) or f"{len(pairs)} includes follow the rules")
    return bool(wrong)


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))
