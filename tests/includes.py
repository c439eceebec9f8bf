#!/usr/bin/env python3
"""Holds the arrows of the house: which folder of src may include which. Prints every include that breaks them."""
import pathlib
import re
import sys

SCREENS = {"stateoptions", "w4", "whatif", "ui"}  # reach each other through the desk
MAY_INCLUDE = {
    "engine": {"engine"},
    "states": {"engine", "states"},
    "batch": {"batch", "engine", "states"},
    "controls": {"controls", "engine"},
    "store": {"store", "engine"},
    "explain": {"engine", "explain"},
    **{folder: SCREENS | {"controls", "engine", "states"} for folder in SCREENS},
    "ui/qt": SCREENS | {"controls", "engine", "explain", "states", "ui/qt"},
    "script": SCREENS | {"controls", "engine", "explain", "states", "script"},
    "web": {"controls", "engine", "explain", "script", "web"},
}
THE_STORE = "store/store.h"  # what a program opens; the rest knows the interface alone

src = pathlib.Path(__file__).resolve().parent.parent / "src"


def folder_of(path):
    return "ui/qt" if path.startswith("ui/qt/") else path.split("/")[0]


wrong = []
for source in sorted(src.rglob("*.[ch]*")):
    here = source.relative_to(src).as_posix()
    for included in re.findall(r'^#include "([^"]+)"', source.read_text(), re.M):
        allowed = folder_of(included) in MAY_INCLUDE[folder_of(here)]
        if not allowed and not (here in ("script/main.cpp", "ui/qt/main.cpp") and included == THE_STORE):
            wrong.append(f"{here} includes {included}")
print("\n".join(wrong) or f"{len(list(src.rglob('*.[ch]*')))} files keep to the arrows")
sys.exit(bool(wrong))
