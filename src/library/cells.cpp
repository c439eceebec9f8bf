#include "library/cells.h"

#include <charconv>
#include <vector>

#include "engine/choices.h"
#include "engine/numbertext.h"
#include "engine/statelist.h"
#include "library/names.h"
#include "library/states.h"

namespace tallyfin::library {

namespace {

std::vector<Named> allStates() {
  std::vector<Named> all;
  for (std::size_t i = 0; i < stateList.size(); ++i) {
    all.push_back({stateList[i].caption, static_cast<int>(i)});
    if (!postalCodes[i].empty()) all.push_back({postalCodes[i], static_cast<int>(i)});
  }
  for (const RightName& state : rightNames) all.push_back({state.name, state.state});
  for (const UntaxedState& state : untaxedStates) {
    all.push_back({state.name, 0});
    all.push_back({state.postalCode, 0});
  }
  return all;
}

/// The lists of names.
struct Lists {
  Names frequencies{namesOf(Column::frequency)};
  Names statuses{namesOf(Column::status)};
  Names states{namesOf(Column::state)};
  Names flags{namesOf(Column::selfEmployed)};
};

std::optional<int> entryNamed(Column column, std::string_view text) {
  static const Lists lists;
  switch (column) {
    case Column::frequency: return lists.frequencies.find(text);
    case Column::status: return lists.statuses.find(text);
    case Column::state: return lists.states.find(text);
    case Column::selfEmployed:
    case Column::state401k:
    case Column::statePreTax: return lists.flags.find(text);
    default: return std::nullopt;
  }
}

/// A whole number, optionally with a point and zeros.
std::optional<std::int64_t> wholeNumberOf(std::string_view text) {
  const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
  if (text.empty() || (lowered(text.front()) >= 'a' && lowered(text.front()) <= 'z')) return std::nullopt;
  // Most are of one digit or two.
  if (text.size() == 1 && isDigit(text[0])) return text[0] - '0';
  if (text.size() == 2 && isDigit(text[0]) && isDigit(text[1])) return 10 * (text[0] - '0') + (text[1] - '0');
  std::int64_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc{}) return std::nullopt;
  text.remove_prefix(static_cast<std::size_t>(end - text.data()));
  const bool whole = text.empty() || (text.front() == '.' && text.find_first_not_of('0', 1) == std::string_view::npos);
  return whole ? std::optional(number) : std::nullopt;
}

}  // namespace

std::vector<Named> namesOf(Column column) {
  using namespace frequency;
  switch (column) {
    case Column::frequency:
      return {{captions[weekly], weekly},
              {captions[twiceAMonth], twiceAMonth},
              {"Semi-monthly", twiceAMonth},
              {"Semimonthly", twiceAMonth},
              {captions[everyTwoWeeks], everyTwoWeeks},
              {"Biweekly", everyTwoWeeks},
              {"Bi-weekly", everyTwoWeeks},
              {captions[monthly], monthly}};
    case Column::status: return {{status::captions[0], 0}, {status::captions[1], 1}, {status::captions[2], 2}};
    case Column::state: return allStates();
    case Column::selfEmployed:
    case Column::state401k:
    case Column::statePreTax: return {{"N", 0}, {"No", 0}, {"False", 0}, {"Y", 1}, {"Yes", 1}, {"True", 1}};
    default: return {};
  }
}

std::optional<int> entryOf(Column column, std::string_view text) {
  text = trimmed(text);
  if (const auto number = wholeNumberOf(text)) return entryOf(column, *number);
  return entryNamed(column, text);
}

std::optional<int> entryOf(Column column, std::int64_t number) {
  const ColumnRule& rule = ruleOf(column);
  const bool inList =
      rule.kind == Kind::flag ? number == 0 || number == 1 : number >= rule.first && number <= rule.last;
  return inList ? std::optional(static_cast<int>(number)) : std::nullopt;
}

std::optional<int> countOf(std::string_view text) {
  std::optional<int> count;
  unlessItFails([&] { count = toInt16(text).value(); });
  return count;
}

}  // namespace tallyfin::library
