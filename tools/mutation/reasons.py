"""The reasons that stand in the sources why a change is none that a test could notice.

    // mutation: 0 -> 1: written before it is read

at the end of a line, or in lines of its own that end above it. With * for any characters; several changes are joined by "and". What
no change fits is reported: it is left over from a line that has changed."""
import collections
import fnmatch
import re

from mutation.place import root

marked = re.compile(r"^(.*?)\s*// mutation: (.*)$")
comment = re.compile(r"\s*// (.*)")
change = re.compile(r"(\S.*?) -> (\S.*)")

Reason = collections.namedtuple("Reason", "file line before after")


def reasons_of(file, lines):
    """The reasons of a file, each with the number of the line that it is about."""
    for number, line in enumerate(lines, 1):
        found = marked.match(line)
        if not found:
            continue
        about, text = number, found[2]
        while not found[1] and lines[about - 1].lstrip().startswith("//"):
            about += 1
            more = comment.match(lines[about - 1])
            if more and not marked.match(lines[about - 1]):
                text += " " + more[1]
        changes, parted, why = text.partition(": ")
        if not parted or not why:
            raise SystemExit(f"{file}:{number}: a mutation without its reason")
        for part in changes.split(" and "):
            both = change.fullmatch(part)
            if not both:
                raise SystemExit(f"{file}:{number}: no mutation: {part}")
            yield Reason(file, about, both[1], both[2])


def fits(pattern, text):
    return fnmatch.fnmatchcase(text, pattern.replace("[", "[[]"))


class Reasons:
    """All reasons of these files; of a mutant they tell whether it is one that nothing could notice."""

    def __init__(self, files):
        self.places = collections.defaultdict(list)
        for file in sorted(files):
            for reason in reasons_of(file, (root / file).read_text().splitlines()):
                self.places[file, reason.line].append(reason)
        self.unused = {reason for place in self.places.values() for reason in place}

    def accept(self, mutant):
        fitting = [reason for reason in self.places[mutant.file, mutant.line]
                   if fits(reason.before, mutant.before) and fits(reason.after, mutant.after)]
        self.unused.difference_update(fitting)
        return bool(fitting)
