"""Mutants of the engine, the states, the store, the batch, the script and the explanations: one number with another last
digit, one comparison that takes or leaves its bound (or means the opposite), one step that isn't run, one value that is
kept from its first use. Of a main.cpp also one statement that isn't run."""
import re

from mutation.place import (HERE, NUMBER, code_of, end_of, mutant, names, number, opposite, other_number, root,
                            statements, switched_comparison)

folders = ["engine", "explain", "states", "store", "library", "batch", "script"]
programs = ["engine_test", "states_test", "explain_test", "store_test", "library_test", "batch_test", "screens_test", "tallyfin99-script"]

comparison = re.compile(r"<=>|<<|>>|->|(?<=\s)(?:<=|>=|==|!=|<|>)(?=\s)|(?<=\{)(?:atMost|below|above|atLeast)(?=,)")
step = re.compile(r"\b(?:step|part)\((?=\s*,)")  # behind it stands the title, which isn't code
# A constant of a block that is worked out anew each time; a list in braces or a function isn't. What can't be copied can't be
# kept either.
kept = re.compile(r"^  +const (?!Running|Statement)[\w:]+(?:<[^=;]*>)?(?: ?\*(?: ?const)?)? (?:\w+|\[[\w, ]+\]) =\s(?=[^{\[;])", re.M)
ways = {**opposite, "atMost": "below", "below": "atMost", "above": "atLeast", "atLeast": "above"}

limit = re.compile(r"\s*if \((\S+) (?:<|<=|>|>=) (\S+)\) \1 = \2;$")

# The names for the numbers of cases.
choices = "src/engine/choices.h"

# What has the type std::size_t may be the length of an array: it stays a constant.
constant = re.compile(r"^(\s*(?:inline )?)constexpr (?!std::size_t )(?=(?:[\w:<>]+|std::array<[\w:]+, \w+>) \w+(?:\[\])? ?[={])", re.M)


def changes_nothing(mutant):
    """At its limit a value that is brought to the limit stays the same."""
    return bool(mutant.before in names and limit.match(mutant.text))


def needed_by_compiler(file, before):
    """Whether the language wants to know it while it compiles, by what stands before it in its line: the number of a case,
    the length of an array, a constant of a class."""
    return file == choices or bool(re.search(r"\bcase $|std::array<.*, $|^\s*static constexpr |^\s*(?:inline )?constexpr std::size_t ",
                                             before))


def switched(before, after):
    """The text in the mutant's place that is one or the other."""
    if before in names:
        return switched_comparison(before)
    if before in ("step(", "part("):
        return f"if (!tallyfin_mutated({NUMBER})) {HERE}"
    return f"(tallyfin_mutated({NUMBER}) ? {after} : {HERE})"


def mutants_of(path):
    source = path.read_text()
    code = code_of(source)
    lines = source.splitlines()
    found = []
    for pattern, change in ((number, other_number), (comparison, ways.get), (step, lambda text: "if (false) " + text)):
        for match in pattern.finditer(code):
            before, after = match.group(), change(match.group())
            line = code.count("\n", 0, match.start())
            if after is None or re.match(r"\s*(enum class|case Test::|using|template|static_assert|virtual)", lines[line]):
                continue
            built = needed_by_compiler(str(path.relative_to(root)), source[source.rfind("\n", 0, match.start()) + 1:match.start()])
            edit = (match.start(), match.end(), after if built else switched(before, after))
            made = mutant(path, source, match.start(), before, after, [edit], built)
            if not changes_nothing(made):
                found.append(made)
    if path.name == "main.cpp":  # whose functions run once: a value kept from its first use is the same
        return [*found, *statements(path, source, code)]
    return [*found, *values(path, source, code)]


def values(path, source, code):
    """Mutants that keep a value from its first use on. A literal, or a copy of a name, is left alone: there `static` is the
    same word, or a number of its own changes it."""
    for match in kept.finditer(code):
        end = end_of(code, match.end(), ";")
        if end is None or "(" not in code[match.end():end] or "make_unique" in code[match.end():end]:
            continue
        edit = (match.end(), end - 1, f"tallyfin_kept<{NUMBER}>([&] {{ return {HERE}; }})")
        yield mutant(path, source, match.start() + len(match.group()) - len(match.group().lstrip()), "const", "static const", [edit])


def mutants():
    files = [path for folder in folders for path in sorted((root / "src" / folder).iterdir())
             if path.suffix in (".cpp", ".h")]
    return sorted(mutant for path in files for mutant in mutants_of(path))


def has(name):
    """Whether a file belongs to the rules: it may hold a constant that is made of others."""
    return bool(re.match(rf"src/({'|'.join(folders)})/.*[.](cpp|h)$", name))


def switchable(file, text):
    """A file's text in which constants are made when the program starts, so that they may hold a choice."""
    return text if file == choices else constant.sub(r"\1const ", text).replace("consteval", "constexpr").replace("constinit ", "")
