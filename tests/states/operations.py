#!/usr/bin/env python3
"""Finds code in the rules whose operation wouldn't be recorded: std::min, std::max, std::clamp and ?:
in the sources of the rules, which are compiled for each kind of figures, and numbers of the plain kinds.

    operations.py"""
import pathlib
import re
import sys

src = pathlib.Path(__file__).resolve().parent.parent.parent / "src"
FORBIDDEN = re.compile(r"std::(min|max|clamp)\b|\?|\b(Money|Int16)\s+\w+\s*[;={]|\bdouble\s+\w+\s*=")


def rules():
    """The sources that are compiled for each kind of figures."""
    for file in sorted([*src.glob("engine/*.cpp"), *src.glob("states/*.cpp"), *src.glob("states/*.h")]):
        text = file.read_text()
        if "namespace TALLYFIN_FIGURES" in text and file.name != "incomesearch.cpp":  # not a rule
            yield file.relative_to(src).as_posix(), text


def losses(text):
    code = re.sub(r'//.*|"(\\.|[^"\\])*"', "", text)
    return [match.group(0) for match in FORBIDDEN.finditer(code)]


# A search that finds nothing would pass too.
for lost in ("std::min(a, b)", "std::max(a, b)", "std::clamp(a, b, c)", "below ? a : b", "Money wage;", "double rate = 1;"):
    assert losses(f"step([&] {{ return {lost}; }});"), lost
assert not losses('Amount wage = named("why?", 1); // std::min')

found = dict(rules())
assert len(found) > 30, found.keys()
wrong = [f"{path}: {loss}" for path, text in found.items() for loss in losses(text)]
print("\n".join(wrong) or f"{len(found)} sources of rules lose no operation")
sys.exit(bool(wrong))
