#!/usr/bin/env python3
"""Holds who may include whom: a source the headers of its own library and of those that its library links by name.

The law is the link lines of src/**/CMakeLists.txt. One line comes on top: the controls, and so every screen's vocabulary,
know nothing of the record. docs/architecture.md shows the same law, and includes that break it are refused."""
import pathlib
import re
import sys

root = pathlib.Path(__file__).resolve().parent.parent
src = root / "src"
OUT_OF_SIGHT = {"controls": {"engine/paydata.h"}}

libraries = {}  # folder: the library of its sources
programs = {}   # source: the program that it is the main of
links = {}      # (folder, target): the targets that it links
for file in src.rglob("CMakeLists.txt"):
    folder = file.parent.relative_to(src).as_posix()
    text = re.sub(r"#.*", "", file.read_text())
    for kind, target, sources in re.findall(r"(add_library|add_executable|target_sources)\((\w[\w-]*)([^)]*)\)", text):
        if kind == "add_executable":
            programs |= {f"{folder}/{source}": (folder, target) for source in re.findall(r"\S+\.cpp", sources)}
        elif "IMPORTED" not in sources and folder != ".":
            libraries[folder] = target
    for target, names in re.findall(r"target_link_libraries\((\w[\w-]*)\s+((?:PUBLIC|PRIVATE)[^)]*)\)", text):
        links.setdefault((folder, target), set()).update(names.split())
linked = {target: names for (_, target), names in links.items()}


def folder_of(path):
    """The innermost folder of the path that has a library."""
    folder = path.rpartition("/")[0]
    while folder and folder not in libraries and folder != "web":
        folder = folder.rpartition("/")[0]
    return folder


def breaks(path, text):
    """The includes of a source that the law refuses."""
    folder = folder_of(path)
    own = libraries.get(folder)
    seen = links[programs[path]] if path in programs else linked.get(own, set())
    for included in re.findall(r'^#include "([^"]+)"', text, re.M):
        library = libraries.get(folder_of(included))
        if library not in {own, *seen} or included in OUT_OF_SIGHT.get(own, ()):
            yield f"{path} includes {included}"


def picture():
    """The law as docs/architecture.md shows it."""
    rooms = sorted(set(libraries.values()), key=lambda room: (len(linked.get(room, set()) & set(libraries.values())), room))
    width = max(map(len, rooms)) + 2
    return "\n".join((f"    {room:{width}}" + ", ".join(sorted(linked.get(room, set()) & set(libraries.values())))).rstrip()
                     for room in rooms)


wrong = [line for file in sorted(src.rglob("*.[ch]*")) if file.suffix in (".cpp", ".h")
         for line in breaks(file.relative_to(src).as_posix(), file.read_text())]

# A law that refuses nothing would pass too.
for path, included in [("engine/fedtax.cpp", "states/statebase.h"), ("states/newyork.cpp", "ui/frmMain.h"),
                       ("controls/desk.cpp", "platform/platform.h"), ("controls/desk.h", "engine/paydata.h"),
                       ("ui/frmMain.cpp", "ui/qt/views/view.h"), ("batch/run.cpp", "script/session.h"),
                       ("script/session.cpp", "store/store.h")]:
    if not list(breaks(path, f'#include "{included}"\n')):
        wrong.append(f"{path} could include {included}")
if picture() not in (root / "docs/architecture.md").read_text():
    wrong.append("docs/architecture.md shows another law than\n" + picture())
print("\n".join(wrong) or f"{len(list(src.rglob('*.[ch]*')))} files keep to the law")
sys.exit(bool(wrong))
