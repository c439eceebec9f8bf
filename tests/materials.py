#!/usr/bin/env python3
"""materials.py [--all] FOLDER...: holds the bill of materials (SPDX 2.3) of each unpacked package or archive against what its
files contain and against the third-party notices; --all that each notice has its entry in one of the bills."""
import json
import pathlib
import re
import sys

# What a compiled file holds of each part, if it holds anything of it.
marks = {"JSON for Modern C++": rb"nlohmann", "pybind11": rb"pybind11"}
# What every WebAssembly module holds.
runtime = {"Emscripten", "musl", "libc++", "libc++abi", "libunwind", "compiler-rt", "dlmalloc"}
complaints = []


def demand(holds, *words):
    if not holds:
        complaints.append(" ".join(map(str, words)))


def only(folder, pattern):
    found = list(folder.rglob(pattern))
    demand(len(found) == 1, folder, "has", len(found), "files", pattern)
    return found[0].read_text() if found else ""


def check_form(folder, bill):
    """The fields that SPDX 2.3 requires, and ids that lead somewhere."""
    demand(bill["spdxVersion"] == "SPDX-2.3" and bill["dataLicense"] == "CC0-1.0", folder, "the version and license of a bill")
    demand(bill["SPDXID"] == "SPDXRef-DOCUMENT" and bill["name"], folder, "the name of a bill")
    demand(re.fullmatch(r"[a-z]+:[^#\s]+", bill["documentNamespace"]), folder, "a namespace")
    demand(re.fullmatch(r"\d{4}-\d\d-\d\dT\d\d:\d\d:\d\dZ", bill["creationInfo"]["created"]), folder, "a date")
    demand(all(re.match("(Person|Organization|Tool): ", name) for name in bill["creationInfo"]["creators"]), folder, "creators")
    ids = [package["SPDXID"] for package in bill["packages"]]
    demand(len(set(ids)) == len(ids) and all(re.fullmatch(r"SPDXRef-[A-Za-z0-9.-]+", one) for one in ids), folder, "ids", ids)
    for package in bill["packages"]:
        for field in "name", "downloadLocation", "licenseConcluded", "licenseDeclared", "copyrightText", "supplier":
            demand(package.get(field), folder, package["SPDXID"], "lacks", field)
        demand(re.match(r"\d+\.\d+", package["versionInfo"]), folder, package["name"], "has the version", package["versionInfo"])
    described = [one["relatedSpdxElement"] for one in bill["relationships"] if one["relationshipType"] == "DESCRIBES"]
    demand(described == ids[:1], folder, "describes", described)
    held = [one["relatedSpdxElement"] for one in bill["relationships"]
            if one["relationshipType"] == "CONTAINS" and one["spdxElementId"] == ids[0]]
    demand(held == ids[1:], folder, "contains", held)


def contained(folder):
    """The parts that the files of a folder hold, as far as they can be seen."""
    held = set()
    for path in folder.rglob("*"):
        if not path.is_file() or path.is_symlink():
            continue
        contents = path.read_bytes()
        if contents.startswith((b"\x7fELF", b"\0asm")):
            held |= {name for name, mark in marks.items() if re.search(mark, contents)}
        if contents.startswith(b"\0asm"):
            held |= runtime
    return held


def notices(text):
    """The names of the parts that the notices tell of: the paragraphs before the licenses begin with them."""
    beginning = re.split(r"\n\n[^\n]+\n-+\n", text)[0]
    headings = re.findall(r"^(\S.*?): ", beginning, re.M)
    return {re.sub(r" \(.*\)", "", name) for heading in headings for name in heading.split(", ")}


def main():
    told, noticed = set(), set()
    every = sys.argv[1] == "--all"
    folders = [pathlib.Path(name) for name in sys.argv[1 + every:]]
    for folder in folders:
        bill = json.loads(only(folder, "bill.spdx.json"))
        check_form(folder, bill)
        names = {package["name"] for package in bill["packages"][1:]}
        demand(names == contained(folder), folder, "tells", sorted(names), "and contains", sorted(contained(folder)))
        text = only(folder, "third-party-notices*")
        demand(names <= notices(text), folder, "has no notice for", sorted(names - notices(text)))
        told |= names
        noticed |= notices(text)
    demand(told == noticed or not every, "notices for", sorted(noticed), "and bills of", sorted(told))
    print("\n".join(complaints) or f"{len(folders)} bills of materials with {', '.join(sorted(told))}")
    return bool(complaints)


sys.exit(main())
