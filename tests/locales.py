#!/usr/bin/env python3
"""locales.py [SOURCE_FOLDER]: no source reads a number, or compares letters of a caption, by a function of the C library
that depends on the locale."""
import pathlib
import re
import sys

root = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else pathlib.Path(__file__).resolve().parent.parent / "src")
asking = re.compile(
    r"\b(v?(s|sn|f|d|as|vas)?w?printf|w?cs?to(d|f|ld|l|ul|ll|ull)|strto(d|f|ld|l|ul|ll|ull|imax|umax)"
    r"|sto(i|l|ll|ul|ull|f|d|ld)|ato(f|i|l|ll)|isw?(alpha|alnum|digit|xdigit|space|upper|lower|punct|print|graph|cntrl|blank)"
    r"|tow?(upper|lower)|strftime|strcoll|strxfrm|put_time|get_time|[io]?stringstream|sscanf)\s*[({]"
    r"|\bstd::[io]?stringstream\b|\bQLocale(\(\)|::system\b)")
# This header sets the locale "C" for the C library.
kept = {"engine/doubletext.h"}

wrong = []
for path in sorted(root.rglob("*")):
    name = path.relative_to(root).as_posix()
    if path.suffix not in {".cpp", ".h"} or name in kept:
        continue
    for number, line in enumerate(path.read_text().splitlines(), 1):
        if asking.search(line.split("//")[0]):
            wrong.append(f"{name}:{number}: {line.strip()}")
print("\n".join(wrong) or "no source asks the locale")
sys.exit(bool(wrong))
