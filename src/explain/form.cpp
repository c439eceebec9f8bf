#include "explain/form.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>

#include "engine/entries.h"
#include "engine/settings.h"
#include "explain/fieldwords.h"
#include "explain/figuretexts.h"

namespace tallyfin {

namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }

/// With a capital first letter, where it begins with a letter.
std::string capitalised(std::string words) {
  if (words.front() >= 'a') words.front() = static_cast<char>(words.front() - 'a' + 'A');
  return words;
}

/// Reads the numbers of lines at the beginning of a text and removes them: "4", and of several "2 and 3", "2, 3 and 5",
/// "2 to 5".
std::vector<int> takeNumbers(std::string_view& text, bool several) {
  std::vector<int> numbers;
  bool upTo = false;
  for (;;) {
    int number = 0;
    text.remove_prefix(
        static_cast<std::size_t>(std::from_chars(text.data(), text.data() + text.size(), number).ptr - text.data()));
    while (upTo && numbers.back() + 1 < number) numbers.push_back(numbers.back() + 1);
    numbers.push_back(number);
    constexpr std::array<std::string_view, 3> separators{" to ", ", ", " and "};
    const auto* separator = std::find_if(separators.begin(), separators.end(), [&](std::string_view its) {
      return several && text.starts_with(its) && text.size() > its.size() && isDigit(text[its.size()]);
    });
    if (separator == separators.end()) return numbers;
    upTo = separator == separators.begin();
    text.remove_prefix(separator->size());
  }
}

/// Reads the amount at the beginning of a text, "$5.00" or "($5.00)", removes it, and returns it in words.
std::string takeAmount(std::string_view& text) {
  const bool negative = text.front() == '(';
  text.remove_prefix(negative ? 2 : 1);
  const auto whole = text.substr(0, text.find('.'));
  const auto rest = text.substr(whole.size() + 1);
  const auto decimals =
      rest.substr(0, static_cast<std::size_t>(std::find_if_not(rest.begin(), rest.end(), isDigit) - rest.begin()));
  text.remove_prefix(whole.size() + 1 + decimals.size() + (negative ? 1 : 0));
  std::string words = (negative ? "minus " : "") + std::string(whole);
  if (decimals.size() > 2) return words + "." + std::string(decimals) + " dollars";
  words += whole == "1" ? " dollar" : " dollars";
  return decimals == "00" ? words : words + " " + std::string(decimals);
}

/// Whether a figure was entered, or is that of a field or of another row.
bool isTakenOver(const ExplanationLine& line) {
  return line.from.origin == Operand::Origin::entry || line.from.origin == Operand::Origin::left ||
         line.from.origin == Operand::Origin::row;
}

/// The line's parts: title and words as sentences. An entry's words don't repeat its figure.
std::vector<FormPart> sentencesOf(const ExplanationLine& line) {
  if (line.number == 0) return {{line.text(), {}}};
  if (isTakenOver(line)) {
    const std::string figure = line.figure + ", ";
    const std::string words = line.words.starts_with(figure) ? line.words.substr(figure.size()) : line.words;
    return {{line.title + ", " + words, {}}};
  }
  std::vector<FormPart> parts = partsOf(line.words);
  parts.front().text = capitalised(parts.front().text);
  if (!line.title.empty()) parts.insert(parts.begin(), {line.title + ". ", {}});
  return parts;
}

FormTable tableOf(const UsedRow& used) {
  FormTable table{.name = used.row.table,
                  .of = "Line " + std::to_string(used.x.line),  // a table is always applied to the figure of a line
                  .rows = {},
                  .used = used.row.number};
  for (std::size_t row = 0; row < used.row.rows.size(); ++row) {
    table.rows.push_back({boundsText(used.row, row), givenText(used.row.rows[row])});
  }
  return table;
}

FormLine formOf(const ExplanationLine& line) {
  FormLine form{.number = line.number, .parts = sentencesOf(line), .figure = line.figure, .spoken = {}, .table = {}};
  if (line.table) form.table = tableOf(*line.table);
  form.spoken = line.number == 0 ? spoken(form.text())
                                 : "Line " + std::to_string(line.number) + ". " + spoken(form.text()) + ". " +
                                       spoken(form.figure) + ".";
  return form;
}

}  // namespace

std::string FormLine::text() const {
  std::string all;
  for (const FormPart& part : parts) all += part.text;
  return all;
}

std::vector<FormPart> partsOf(const std::string& text) {
  std::vector<FormPart> parts;
  std::size_t from = 0;
  const auto add = [&](std::size_t to, std::vector<int> lines) {
    if (to > from) parts.push_back({text.substr(from, to - from), std::move(lines)});
    from = to;
  };
  for (std::size_t at = text.find("line"); at != std::string::npos; at = text.find("line", at + 1)) {
    std::string_view rest = std::string_view(text).substr(at + 4);
    const bool several = rest.starts_with('s');
    if (several) rest.remove_prefix(1);
    if (rest.size() < 2 || rest[0] != ' ' || !isDigit(rest[1])) continue;
    rest.remove_prefix(1);
    std::vector<int> lines = takeNumbers(rest, several);
    add(at, {});
    add(text.size() - rest.size(), std::move(lines));
  }
  add(text.size(), {});
  return parts;
}

std::string spoken(const std::string& text) {
  std::string words;
  std::string_view rest = text;
  while (!rest.empty()) {
    if (rest.front() == '$' || rest.starts_with("($")) {
      words += takeAmount(rest);
    } else {
      words += rest.front();
      rest.remove_prefix(1);
    }
  }
  return words;
}

std::vector<Form> formsOf(const std::vector<Explanation>& explanations) {
  std::vector<Form> forms;
  for (const Explanation& explanation : explanations) {
    Form form{explanation.title, amountText(explanation.amount), {}};
    for (const ExplanationLine& line : explanation.lines) form.lines.push_back(formOf(line));
    forms.push_back(std::move(form));
  }
  return forms;
}

FormHeading headingOf(const Trace& trace, const std::vector<Explanation>& explanations) {
  FormHeading heading;
  const auto add = [&](const std::string& title, const std::string& words) {
    const auto same = [&](const auto& other) { return other.first == title; };
    if (!words.empty() && std::none_of(heading.begin(), heading.end(), same)) heading.emplace_back(title, words);
  };
  const std::string name = settings::uName.text();
  add("Name", name == settings::uName.defaultText ? "" : name);
  add("Date", trace.date);
  add("Tax year", "1999");
  for (const auto& [field, number] :
       {std::pair{"frequency", trace.after.frequency}, std::pair{"maritalStat", trace.after.maritalStat}}) {
    const auto choice = choiceWords(field, number.value(), trace.statusChosen);
    add(choice->title, choice->choice);
  }
  add("Exemptions", trace.exemptions);
  add("State", trace.state);
  for (std::size_t row = 0; row < explanations.size(); ++row) {
    if (resultRows[row].amount != &PayData::stateTax) continue;
    for (const ExplanationLine& line : explanations[row].lines) {
      if (line.number == 0 && !line.title.empty()) add(line.title, line.words);
      if (isStateOption(line.from.name)) add(line.title, line.figure);
    }
  }
  return heading;
}

}  // namespace tallyfin
