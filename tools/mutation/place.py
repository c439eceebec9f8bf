"""What a mutant is, and how it is written into a source."""
import collections
import pathlib
import re

root = pathlib.Path(__file__).resolve().parent.parent.parent

# One change: where it stands (the column from 0), what is there and what is there instead, and the line. `edits` are the
# places of the source that take part: from, to and what stands there when all mutants are built at once, in which
# NUMBER is the mutant's and HERE what stood there. A mutant that the compiler wants to know is `built` for itself: its edits
# are the plain change.
Mutant = collections.namedtuple("Mutant", "file line column before after text edits built")

NUMBER, HERE = "\1", "\2"

comment = re.compile(r'//[^\n]*|/\*.*?\*/|("(?:\\.|[^"\\\n])*"|(?<!\d)\'(?:\\.|[^\'\\\n])+\')|^[ \t]*#[^\n]*', re.S | re.M)
number = re.compile(r"(?<![\w.])(?<!\d[eE][-+])(?:\d[\d']*\.?\d*|\.\d+)(?![\w.])")
names = {"<": "Less", "<=": "LessEqual", ">": "Greater", ">=": "GreaterEqual", "==": "Equal", "!=": "NotEqual"}
statement = re.compile(r"^[ \t]+(?=[A-Za-z_])", re.M)
call = re.compile(r"(?!(?:return|if|for|while|switch|delete|case|break|const|auto|else|new|do|using|static|friend)\b)"
                  r"(?:static_cast<[^>]*>|[A-Za-z_][\w:]*)(?:\(|->|\.|\[|(?: [-+|]?= )|(?: << )).*", re.S)
opposite = {"<": "<=", "<=": "<", ">": ">=", ">=": ">", "==": "!=", "!=": "=="}


def blanks(text):
    return re.sub(r"[^\n]", " ", text)


def code_of(source, texts=False):
    """The source with blanks for comments and includes, and for texts and characters unless they are wanted."""
    return comment.sub(lambda match: match.group() if texts and match[1] else blanks(match.group()), source)


def other_number(text):
    """The number with its last decimal one higher: 124 is 125, 118.35 is 118.36, 0.0249 is 0.0250."""
    plain = text.replace("'", "")
    decimals = len(plain.partition(".")[2])
    units = int(plain.replace(".", "")) + 1
    if decimals == 0:
        return str(units) + ("." if plain.endswith(".") else "")
    digits = str(units).rjust(decimals + 1, "0")
    return digits[:-decimals] + "." + digits[-decimals:]


def switched_comparison(before):
    """The text in a comparison's place that is one or the other."""
    around = "==" if before in ("==", "!=") else "<"
    end = "==" if around == "==" else ">"
    return f"{around}tallyfin_mutants::{names[before]}{{{NUMBER}}}{end}"


def mutant(path, source, start, before, after, edits, built=False):
    line = source.count("\n", 0, start)
    begin = source.rfind("\n", 0, start) + 1
    text = source[begin:source.index("\n", start)]
    return Mutant(str(path.relative_to(root)), line + 1, start - begin, before, after, text, tuple(edits), built)


def place(mutant):
    return f"{mutant.file}:{mutant.line}:{mutant.column + 1}: {mutant.before} -> {mutant.after}: {mutant.text.strip()}"


def numbered(mutants):
    """Each mutant with its number. Those of a file keep theirs when another file changes, so that it isn't built again."""
    numbers, files, last = {}, [], None
    for mutant in mutants:
        if mutant.file != last:
            files.append(mutant.file)
            last, count = mutant.file, 0
        count += 1
        numbers[mutant] = 10000 * len(files) + count
    return numbers


def written(source, edits):
    """The source with all these edits (from, to, text) in it. One may lie within another, never half."""
    def inner(begin, end, within):
        done, at = "", begin
        while within:
            (start, stop, text), within = within[0], within[1:]
            inside = [edit for edit in within if edit[0] < stop]
            within = within[len(inside):]
            done += source[at:start] + text.replace(HERE, inner(start, stop, inside))
            at = stop
        return done + source[at:end]

    return inner(0, len(source), sorted(edits, key=lambda edit: (edit[0], -edit[1])))


def end_of(code, start, closing):
    """Behind the first of these characters that stands outside all brackets."""
    depth = 0
    for at in range(start, len(code)):
        if depth == 0 and code[at] in closing:
            return at + 1
        depth += (code[at] in "([{") - (code[at] in ")]}")
        if depth < 0:
            return None
    return None


def statements(path, source, code):
    for match in statement.finditer(code):
        start = match.end()
        before = code[:start].rstrip()[-1:]
        end = end_of(code, start, ";")
        if before not in (";", "{", "}") or end is None or not call.fullmatch(code, start, end - 1):
            continue
        if path.suffix == ".h" and len(match.group()) < 4:
            continue  # a declaration
        if re.match(r"\s*[:{]", code[end_of(code, code.index("(", start) + 1, ")"):end]):
            continue  # a constructor
        first = source[start:end].split("\n")[0].strip()
        yield mutant(path, source, start, first, "nothing", [(start, end, f"if (tallyfin_mutated({NUMBER})) {{}} else {HERE}")])
