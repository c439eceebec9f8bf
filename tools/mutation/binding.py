"""Mutants of the desktop binding: another number, comparison, enumerator, letter of a text or key, a condition that means
the opposite, a statement that isn't run, and two neighbouring controls of a screen that have changed places."""
import re

from mutation.place import (HERE, NUMBER, blanks, code_of, end_of, mutant, number, opposite, other_number, root,
                            statements, switched_comparison)

programs = ["snapshot_test", "desktop_test", "w4views_test", "paperviews_test", "consistency_test", "smallscreen_test",
            "placement_test", "printing_test"]

# An enumerator, or another word of a kind, is replaced by the next one of its line.
kinds = """
true false
Qt::AlignLeft Qt::AlignRight Qt::AlignHCenter
Qt::AlignTop Qt::AlignBottom Qt::AlignVCenter
Qt::AlignCenter Qt::AlignLeft
Qt::StrongFocus Qt::TabFocus Qt::NoFocus Qt::StrongFocus
Qt::ClickFocus Qt::TabFocus
Qt::TabFocusReason Qt::BacktabFocusReason Qt::TabFocusReason
Qt::ScrollBarAlwaysOff Qt::ScrollBarAlwaysOn
Qt::Horizontal Qt::Vertical
Qt::LeftButton Qt::RightButton
Qt::CTRL Qt::ALT Qt::CTRL
Qt::WidgetShortcut Qt::WindowShortcut
Qt::ApplicationShortcut Qt::WidgetShortcut
Qt::white Qt::black Qt::white
Qt::PlainText Qt::RichText
Qt::TextSelectableByMouse Qt::TextSelectableByKeyboard
Qt::CaseInsensitive Qt::CaseSensitive
Qt::ActionsContextMenu Qt::NoContextMenu
Qt::ElideMiddle Qt::ElideRight
Qt::Monday Qt::Tuesday
Qt::Saturday Qt::Friday
Qt::Sunday Qt::Saturday
Qt::Key_Return Qt::Key_Enter Qt::Key_Return
Qt::Key_PageUp Qt::Key_PageDown Qt::Key_PageUp
Qt::Key_Home Qt::Key_End Qt::Key_Home
Qt::Key_Left Qt::Key_Right Qt::Key_Left
Qt::Key_Space Qt::Key_Enter
Qt::Key_Escape Qt::Key_Enter
QKeySequence::Print QKeySequence::Save QKeySequence::Copy QKeySequence::SelectAll QKeySequence::Find QKeySequence::Print
QSizePolicy::Fixed QSizePolicy::Preferred QSizePolicy::Expanding QSizePolicy::Fixed
QSizePolicy::Ignored QSizePolicy::Fixed
QFrame::NoFrame QFrame::Box QFrame::NoFrame
QFrame::Plain QFrame::Sunken
QHeaderView::Stretch QHeaderView::ResizeToContents QHeaderView::Stretch
QPalette::Active QPalette::Inactive QPalette::Disabled QPalette::Active
QPalette::Window QPalette::WindowText QPalette::Window
QPalette::Base QPalette::Text QPalette::AlternateBase QPalette::Base
QPalette::Button QPalette::ButtonText QPalette::Button
QPalette::Highlight QPalette::HighlightedText QPalette::Highlight
QPalette::ToolTipBase QPalette::ToolTipText QPalette::ToolTipBase
QPalette::Link QPalette::LinkVisited QPalette::Link
QAccessible::Grouping QAccessible::ToolBar QAccessible::Grouping
QAccessible::Document QAccessible::Grouping
QAccessible::Notification QAccessible::Grouping
QAccessible::Window QAccessible::Grouping
QAccessible::Button QAccessible::CheckBox QAccessible::RadioButton QAccessible::Button
QAccessible::Name QAccessible::Value QAccessible::Name
QAbstractItemView::NoEditTriggers QAbstractItemView::AllEditTriggers
QAbstractItemView::ExtendedSelection QAbstractItemView::SingleSelection QAbstractItemView::ExtendedSelection
QAbstractItemView::SelectRows QAbstractItemView::SelectItems
QCalendarWidget::NoVerticalHeader QCalendarWidget::ISOWeekNumbers
QEvent::FocusIn QEvent::FocusOut QEvent::FocusIn
QEvent::MouseButtonPress QEvent::MouseButtonRelease QEvent::MouseButtonDblClick QEvent::MouseButtonPress
QPageSize::Letter QPageSize::A4
QPrinter::HighResolution QPrinter::ScreenResolution
QComboBox::NoInsert QComboBox::InsertAtTop
look::deep look::deepLighter look::deepLine look::deep
look::light look::lightYellow look::ink look::light
look::paper look::paperLine look::paper
look::tight look::row look::group look::tight
look::edge look::row
look::onDeep look::choicesOnDeep look::onDeep
look::onPaper look::onWhite look::onPaper
Choose::byMoving Choose::byEnter Choose::byMoving
"""
next_of = {}
for line in kinds.strip().splitlines():
    words = line.split()
    for this, other in zip(words, words[1:]):
        next_of.setdefault(this, other)
    next_of.setdefault(words[-1], words[0])

comparison = re.compile(r"(?<=\s)(?:<=|>=|==|!=|<|>)(?=\s)")
word = re.compile(r"(?<![\w:])(?:(?:Q\w+|Qt|look|Choose)::\w+|true|false)\b(?!::)")
text = re.compile(r'"(?:\\.|[^"\\\n])*"(?:\s*"(?:\\.|[^"\\\n])*")*')
letter = re.compile(r"(?<![\w])'[^'\\\n]'")
condition = re.compile(r"\bif \(")
choice = re.compile(r"\s\? ")
no_place = re.compile(r"\s*(?:enum class|case |using|template|static_assert|virtual|class|struct|#)")
control = re.compile(r"^  (?:mutable )?(\w+(?:<[^<>]+>)?) (\w+)\{\s*\*this", re.M)
use = re.compile(r"\bscreen_?\.(\w+)\b")


def other_text(quoted):
    """The text with its first letter another one; without letters, its last character."""
    place = re.search(r"(?<![\\%])[A-Za-z]", quoted)
    if place:
        at = place.start()
        return quoted[:at] + other_letter(quoted[at]) + quoted[at + 1:]
    if len(quoted) < 3 or quoted[-3] == "\\" or re.search(r"%\d\"$", quoted):
        return None
    return quoted[:-2] + '_"'


def other_letter(sign):
    if not (sign.isascii() and sign.isalpha()):
        return "_" if not sign.isdigit() else str((int(sign) + 1) % 10)
    return {"z": "a", "Z": "A"}.get(sign, chr(ord(sign) + 1))


def other_word(name):
    if name.startswith("Qt::Key_"):
        key = name[8:]
        if len(key) == 1:
            return "Qt::Key_" + other_letter(key)
        if re.fullmatch(r"F\d+", key):
            return f"Qt::Key_F{int(key[1:]) + 1}"
    return next_of.get(name)


def replaced(path, source, pattern, code, change):
    """Mutants that put something else in the place of what a pattern finds."""
    for match in pattern.finditer(code):
        before, after = match.group(), change(match.group())
        if after is not None:
            text = switched_comparison(before) if pattern is comparison else f"(tallyfin_mutated({NUMBER}) ? {after} : {HERE})"
            edit = (match.start(), match.end(), text)
            yield mutant(path, source, match.start(), " ".join(before.split()), " ".join(after.split()), [edit])


def conditions(path, source, code):
    for match in condition.finditer(code):
        start = match.end()
        end = end_of(code, start, ")")
        # What stands before a semicolon, or is a declaration, isn't the condition.
        inside = code[start:end - 1]
        if ";" in inside:
            start += inside.index(";") + 2
        if re.search(r"(?<![=!<>])=(?!=)", code[start:end - 1]):
            continue
        yield mutant(path, source, match.start(), "if", "if not",
                     [(start, end - 1, f"(tallyfin_mutated({NUMBER}) != static_cast<bool>({HERE}))")])
    for match in choice.finditer(code):
        yield mutant(path, source, match.end() - 2, "?", "? not",
                     [(match.start(), match.start(), f" != tallyfin_mutated({NUMBER})")])


def controls_of(source):
    """The controls of the screens that a view includes, with their types."""
    types = {}
    for header in re.findall(r'#include "((?:ui|w4|whatif|stateoptions)/(?!qt/)[\w/]+\.h)"', source):
        types.update((name, kind) for kind, name in control.findall((root / "src" / header).read_text()))
    return types


def neighbours(path, source, code):
    """Each control with the next one of its type."""
    types = controls_of(source)
    latest = {}
    for match in use.finditer(code):
        kind = types.get(match[1])
        if kind is None:
            continue
        last = latest.get(kind)
        latest[kind] = match
        if last is None or last[1] == match[1] or match.start() - last.start() > 600:
            continue
        edits = [(last.start(), last.end(), f"(tallyfin_mutated({NUMBER}) ? {match.group()} : {HERE})"),
                 (match.start(), match.end(), f"(tallyfin_mutated({NUMBER}) ? {last.group()} : {HERE})")]
        yield mutant(path, source, last.start(), last.group(), match.group() + " and back", edits)


# The factor of the part that takes what is left over: any other has the same effect.
stretch = re.compile(r"((?:set(?:Column|Row)Stretch|setStretchFactor)\(\w+, |add(?:Widget|Layout)\((?:[^(),]|\([^()]*\))*, )1(?=\);)")


def mutants_of(path):
    source = path.read_text()
    code = code_of(source)
    texts = code_of(source, texts=True)
    only_texts = "".join(t if c in " \n" else "\0" for t, c in zip(texts, code))
    found = [
        *replaced(path, source, number, stretch.sub(r"\1 ", code), other_number),
        *replaced(path, source, comparison, code, opposite.get),
        *replaced(path, source, word, code, other_word),
        *replaced(path, source, text, only_texts, other_text),
        *replaced(path, source, letter, text.sub(lambda match: blanks(match.group()), only_texts), lambda sign: f"'{other_letter(sign[1])}'"),
        *conditions(path, source, code),
        *statements(path, source, code),
        *neighbours(path, source, code),
    ]
    return [m for m in found if not no_place.match(m.text)]


def mutants():
    folder = root / "src" / "ui" / "qt"
    files = [path for path in sorted(folder.rglob("*")) if path.suffix in (".cpp", ".h") and path.name != "main.cpp"]
    return sorted(mutant for path in files for mutant in mutants_of(path))


constant = re.compile(r"\bconstexpr (?=[\w:]+(?:<[\w:, ]+>)?(?: \w+)?(?: \w+(?:\[\])? ?[={]))")


def switchable(_file, source):
    """As in the rules; a member becomes one that is made when the program starts, and a text may be any."""
    source = re.sub(r"\bstatic constexpr (?=\w+ \w+ ?[={])", "static inline const ", source)
    source = re.sub(r"\bconstexpr const char\* ", "const char* const ", source)
    return constant.sub("const ", source).replace("QStringLiteral(", "QString::fromUtf8(")
