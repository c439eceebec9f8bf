#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "library/cells.h"
#include "library/options.h"

/// The lists of columns, values and states in the manual page and the guide are those of the tables. With
/// TALLYFIN_REWRITE in the environment these tests rewrite the lists.

namespace tallyfin::library {
namespace {

using Lines = std::vector<std::string>;

const std::string pathOfTests = TESTS_FOLDER;

std::string padded(std::string text, std::size_t width) {
  text.append(width - std::min(width, text.size()), ' ');
  return text;
}

/// Appends words to a beginning, in lines of at most 78 characters with a hanging indent.
void addWrapped(Lines& lines, const std::string& beginning, const Lines& words) {
  std::string line = beginning;
  for (const std::string& word : words) {
    if (line.size() + word.size() >= 78) {
      lines.push_back(line.substr(0, line.find_last_not_of(' ') + 1));
      line = std::string(beginning.size(), ' ');
    }
    line += word + " ";
  }
  lines.push_back(line.substr(0, line.find_last_not_of(' ') + 1));
}

std::string kindOf(const ColumnRule& rule) {
  switch (rule.kind) {
    case Kind::box: return "what is typed into a box: an amount or a rate; 0 where empty";
    case Kind::choice:
      return std::to_string(rule.first) + " to " + std::to_string(rule.last) +
             (rule.byDefault < 0 ? "; none where empty" : "; " + std::to_string(rule.byDefault) + " where empty");
    case Kind::flag: return "yes or no; no where empty";
    case Kind::count: return "-32768 to 32767; 0 where empty";
    case Kind::wanted: return "the check wanted, in whole cents, in place of income";
  }
  return "";
}

/// Each column with its values.
Lines columnLines() {
  Lines lines;
  for (std::size_t i = 0; i < columnCount; ++i) {
    const auto column = static_cast<Column>(i);
    lines.push_back(padded(std::string(columnRules[i].name), 21) + kindOf(columnRules[i]));
    std::map<int, Lines> entries;
    for (const Named& entry : namesOf(column)) entries[entry.number].push_back(std::string(entry.name) + ",");
    for (auto& [number, names] : entries) {
      names.back().pop_back();
      addWrapped(lines, padded("", 21) + padded(std::to_string(number), 4), names);
    }
  }
  return lines;
}

Lines stateLines() {
  Lines lines;
  std::string_view state;
  for (const StateValue& entry : stateValues()) {
    if (entry.state != state) lines.push_back(std::string(entry.state) + ", " + std::string(entry.postal));
    state = entry.state;
    lines.push_back("  " + padded(std::string(ruleOf(entry.column).name), 21) + padded(entry.value, 10) +
                    entry.meaning);
  }
  return lines;
}

/// Compares the text between two lines of a file with the expected text.
void expectBetween(const std::string& path, const std::string& begin, const std::string& end, const std::string& text) {
  std::ifstream in(path);
  std::stringstream read;
  read << in.rdbuf();
  std::string whole = read.str();
  const std::size_t from = whole.find(begin) + begin.size();
  const std::size_t to = whole.find(end, from);
  ASSERT_NE(whole.find(begin), std::string::npos) << path;
  ASSERT_NE(to, std::string::npos) << path;
  if (std::getenv("TALLYFIN_REWRITE") != nullptr) {
    std::ofstream(path) << whole.replace(from, to - from, text);
    return;
  }
  EXPECT_EQ(whole.substr(from, to - from), text) << path;
}

std::string inRoff(const Lines& lines) {
  std::string text = ".nf\n";
  for (const std::string& line : lines) {
    for (const char c : line) {
      if (c == '-' || c == '\\') text += '\\';
      text += c;
    }
    text += '\n';
  }
  return text + ".fi\n";
}

std::string inMarkdown(const Lines& lines) {
  std::string text = "\n";
  for (const std::string& line : lines) text += "    " + line + "\n";
  return text + "\n";
}

TEST(Manual, ListsColumnsAndStates) {
  const std::string page = pathOfTests + "/../packaging/tallyfin99-batch.1";
  expectBetween(page, ".\\\" The columns, from the tables.\n", ".\\\" End of the columns.\n", inRoff(columnLines()));
  expectBetween(page, ".\\\" The states, from the tables.\n", ".\\\" End of the states.\n", inRoff(stateLines()));
}

TEST(Manual, GuideListsColumnsAndStates) {
  const std::string guide = pathOfTests + "/../docs/batch.md";
  expectBetween(guide, "<!-- The columns, from the tables. -->\n", "<!-- End of the columns. -->\n",
                inMarkdown(columnLines()));
  expectBetween(guide, "<!-- The states, from the tables. -->\n", "<!-- End of the states. -->\n",
                inMarkdown(stateLines()));
}

}  // namespace
}  // namespace tallyfin::library
