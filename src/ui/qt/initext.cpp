#include "ui/qt/initext.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <utility>

namespace tallyfin::qt {

namespace {

constexpr bool isLetterOrDigit(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
}
constexpr bool isControl(char c) { return (c >= 0 && c < ' ') || c == 0x7f; }
constexpr std::string_view blanks = " \t";
constexpr std::string_view hexDigits = "0123456789ABCDEF";

std::string_view trimmed(std::string_view text) {
  const auto first = text.find_first_not_of(blanks);
  return first == std::string_view::npos ? std::string_view{}
                                         : text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

// --- Names: any text, in the letters that every INI reader agrees on -------------------------------------------------

/// Letters and digits stand as they are, any other byte as _XX; a lone _ is the empty name.
std::string encoded(std::string_view name) {
  if (name.empty()) return "_";
  std::string text;
  for (const char c : name) {
    if (isLetterOrDigit(c)) {
      text += c;
    } else {
      const auto byte = static_cast<unsigned char>(c);
      text += {'_', hexDigits[byte / 16], hexDigits[byte % 16]};
    }
  }
  return text;
}

/// None for a name that this program wouldn't have written: it is someone else's.
std::optional<std::string> decoded(std::string_view text) {
  if (text == "_") return "";
  std::string name;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '_') {
      name += text[i];
      continue;
    }
    const auto high = i + 2 < text.size() ? hexDigits.find(text[i + 1]) : std::string_view::npos;
    const auto low = i + 2 < text.size() ? hexDigits.find(text[i + 2]) : std::string_view::npos;
    if (high == std::string_view::npos || low == std::string_view::npos) return std::nullopt;
    name += static_cast<char>(high * 16 + low);
    i += 2;
  }
  if (name.empty() || encoded(name) != text) return std::nullopt;
  return name;
}

// --- Values: in quotes, with the escapes of QSettings ----------------------------------------------------------------

std::string quoted(const std::string& value) {
  std::string text = "\"";
  if (value.starts_with('@')) text += '@';  // a single one would begin one of QSettings' own types
  bool afterHex = false;                    // a digit after \x.. would be read as part of it
  for (const char c : value) {
    if (isControl(c) || (afterHex && std::isxdigit(static_cast<unsigned char>(c)) != 0)) {
      const auto byte = static_cast<unsigned char>(c);
      text += {'\\', 'x', hexDigits[byte / 16], hexDigits[byte % 16]};
      afterHex = true;
      continue;
    }
    if (c == '"' || c == '\\') text += '\\';
    text += c;
    afterHex = false;
  }
  return text + '"';
}

void appendUtf8(std::string& text, unsigned character) {
  if (character < 0x80) {
    text += static_cast<char>(character);
  } else if (character < 0x800) {
    text += {static_cast<char>(0xC0 | character >> 6), static_cast<char>(0x80 | (character & 0x3F))};
  } else {
    text += {static_cast<char>(0xE0 | (character >> 12 & 0x0F)), static_cast<char>(0x80 | (character >> 6 & 0x3F)),
             static_cast<char>(0x80 | (character & 0x3F))};
  }
}

/// Takes the escape behind a backslash off the front of the text.
void takeEscape(std::string_view& text, std::string& value) {
  const char c = text.front();
  text.remove_prefix(1);
  constexpr std::string_view names = "abfnrtv0";
  constexpr std::string_view meanings{"\a\b\f\n\r\t\v\0", 8};
  if (c == 'x') {
    unsigned character = 0;
    const auto [end, error] =
        std::from_chars(text.data(), text.data() + std::min<std::size_t>(text.size(), 4), character, 16);
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    if (error == std::errc{}) appendUtf8(value, character);
  } else if (const auto at = names.find(c); at != std::string_view::npos) {
    value += meanings[at];
  } else {
    value += c;
  }
}

/// Outside quotes blanks at the end count for nothing; a list, written by hand without quotes, reads as its text.
std::string unquoted(std::string_view text) {
  std::string value;
  std::size_t kept = 0;  // so much of the value stays, whatever blanks follow
  bool inQuotes = false;
  while (!text.empty()) {
    const char c = text.front();
    text.remove_prefix(1);
    if (c == '"') {
      inQuotes = !inQuotes;
      kept = value.size();
    } else if (c == '\\' && !text.empty()) {
      takeEscape(text, value);
      kept = value.size();
    } else {
      value += c;
      if (inQuotes || blanks.find(c) == std::string_view::npos) kept = value.size();
    }
  }
  value.resize(kept);
  if (value.starts_with("@@")) value.erase(0, 1);
  return value;
}

// --- Lines -----------------------------------------------------------------------------------------------------------

struct Line {
  enum class Kind { empty, section, setting, damaged };
  Kind kind = Kind::damaged;
  std::string_view whole;  ///< With its end.
  std::string_view name;   ///< Of the section, or the key, as it stands.
  std::string_view value;  ///< As it stands.
};

Line lineOf(std::string_view whole) {
  Line line;
  line.whole = whole;
  std::string_view text = whole;
  constexpr std::string_view mark = "\xEF\xBB\xBF";  // some editors begin a file with it
  if (text.starts_with(mark)) text.remove_prefix(mark.size());
  while (text.ends_with('\n') || text.ends_with('\r')) text.remove_suffix(1);
  text = trimmed(text);
  if (text.empty() || text.front() == ';' || text.front() == '#') {
    line.kind = Line::Kind::empty;
    return line;
  }
  if (std::any_of(text.begin(), text.end(), [](char c) { return isControl(c) && c != '\t'; })) return line;
  if (text.front() == '[' && text.back() == ']') {
    line.kind = Line::Kind::section;
    line.name = trimmed(text.substr(1, text.size() - 2));
  } else if (const auto equals = text.find('='); equals != std::string_view::npos && equals > 0) {
    line.kind = Line::Kind::setting;
    line.name = trimmed(text.substr(0, equals));
    line.value = trimmed(text.substr(equals + 1));
  }
  return line;
}

/// Calls visit(line) for each line of a text.
template <class Visit>
void forEachLine(std::string_view text, Visit visit) {
  while (!text.empty()) {
    const auto end = text.find('\n');
    const std::size_t length = end == std::string_view::npos ? text.size() : end + 1;
    visit(lineOf(text.substr(0, length)));
    text.remove_prefix(length);
  }
}

void appendLine(std::string& text, std::string_view line) {
  if (!text.empty() && text.back() != '\n') text += '\n';
  text += line;
}

}  // namespace

IniContent readIni(std::string_view text) {
  IniContent content;
  std::optional<std::string> section;
  forEachLine(text, [&](const Line& line) {
    switch (line.kind) {
      case Line::Kind::empty: break;
      case Line::Kind::section: section = decoded(line.name); break;
      case Line::Kind::setting:
        if (const auto key = decoded(line.name); section && key)
          content.sections[*section][*key] = unquoted(line.value);
        break;
      case Line::Kind::damaged: content.damaged = true; break;
    }
  });
  return content;
}

std::string editedIni(std::string_view text, std::string_view section, std::string_view key,
                      const std::optional<std::string>& value) {
  const std::string sectionName = encoded(section);
  const std::string keyName = encoded(key);
  const std::string wanted = value ? keyName + '=' + quoted(*value) + '\n' : std::string{};
  std::string result;
  std::optional<std::size_t> place;  // where a new line of the section goes
  bool inSection = false;
  bool done = !value;
  forEachLine(text, [&](const Line& line) {
    if (line.kind == Line::Kind::section) inSection = line.name == sectionName;
    if (inSection && line.kind == Line::Kind::setting && line.name == keyName) {
      if (!std::exchange(done, true)) appendLine(result, wanted);
    } else {
      appendLine(result, line.whole);
    }
    if (inSection && line.kind != Line::Kind::empty) place = result.size();
  });
  if (done) return result;
  if (!place) {
    appendLine(result, (result.empty() ? "[" : "\n[") + sectionName + "]\n" + wanted);
  } else if (result[*place - 1] != '\n') {
    result.insert(*place, '\n' + wanted);
  } else {
    result.insert(*place, wanted);
  }
  return result;
}

std::string mendedIni(std::string_view text) {
  std::string result;
  forEachLine(text, [&](const Line& line) {
    if (line.kind != Line::Kind::damaged) appendLine(result, line.whole);
  });
  return result;
}

}  // namespace tallyfin::qt
