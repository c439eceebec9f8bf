#include "library/options.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <iterator>
#include <utility>

#include "engine/statelist.h"
#include "library/states.h"
#include "stateoptions/shapes.h"

namespace tallyfin::library {

namespace {

const Shape& shapeOf(int state) { return shapes[static_cast<std::size_t>(state)]; }

int numberOf(const char* entry) {
  int number = 0;
  std::from_chars(entry, entry + std::strlen(entry), number);
  return number;
}

/// The special list of a state for one of its two columns. Only Maryland and Michigan read state_method too.
const SpecialList* listOf(int state, Column column) {
  const bool kept = column == Column::stateExemptions || state == state::maryland || state == state::michigan;
  return kept ? shapeOf(state).special : nullptr;
}

/// The numbers that a state offers for a column, in the order of the screen.
std::vector<int> offered(int state, Column column) {
  const Shape& shape = shapeOf(state);
  std::vector<int> numbers;
  switch (column) {
    case Column::stateMarital: numbers.assign(shape.marital.begin(), shape.marital.end()); break;
    case Column::stateDependents:
      for (int i = 0; shape.dependents && i <= mostDependents; ++i) numbers.push_back(i);
      break;
    case Column::illinoisDependents:
      for (int i = 0; shape.reads.illinoisDependents && i <= mostDependents; ++i) numbers.push_back(i);
      break;
    default:
      if (const SpecialList* const list = listOf(state, column)) {
        std::transform(list->entries.begin(), list->entries.end(), std::back_inserter(numbers), numberOf);
      }
  }
  return numbers;
}

bool reads(int state, Column column) {
  const Reads& read = shapeOf(state).reads;
  switch (column) {
    case Column::stateMarital: return read.marital;
    case Column::stateDependents: return read.dependents;
    case Column::illinoisDependents: return read.illinoisDependents;
    case Column::stateExemptions: return read.special;
    default: return false;
  }
}

std::string meaningOf(int state, Column column, int number) {
  switch (column) {
    case Column::stateDependents: return dependentsCaption;
    case Column::illinoisDependents: return illinoisDependentsHint;
    case Column::stateExemptions: return shapeOf(state).special->caption;
    default: break;
  }
  const bool recaptioned = state == state::michigan && number == 9;
  return recaptioned ? michiganDependentCaption : maritalCaptions[static_cast<std::size_t>(number)];
}

/// Appends the values of a state.
class Listing {
 public:
  Listing(int state, std::vector<StateValue>& values) : state_(state), values_(values) {}

  void add(Column column, std::string value, std::string meaning) {
    const auto place = static_cast<std::size_t>(state_);
    values_.push_back({stateList[place].caption, postalCodes[place], column, std::move(value), std::move(meaning)});
  }

  void addOption(Column column) {
    if (!reads(state_, column)) return;
    const std::vector<int> numbers = offered(state_, column);
    if (column == Column::stateDependents || column == Column::illinoisDependents) {
      return add(column, offeredText(state_, column), meaningOf(state_, column, 0));
    }
    for (const int number : numbers) add(column, std::to_string(number), meaningOf(state_, column, number));
  }

 private:
  int state_;
  std::vector<StateValue>& values_;
};

}  // namespace

std::vector<StateValue> stateValues() {
  std::vector<StateValue> values;
  for (int state = 1; state < static_cast<int>(stateList.size()); ++state) {
    Listing listing(state, values);
    if (shapeOf(state).reads.untaxed) {
      listing.add(Column::state401k, "Y or N", "Deduct from Taxable State Amount? 401k");
      listing.add(Column::statePreTax, "Y or N", "Deduct from Taxable State Amount? Pre-Tax Amt");
    }
    for (const Column column :
         {Column::stateDependents, Column::illinoisDependents, Column::stateExemptions, Column::stateMarital}) {
      listing.addOption(column);
    }
    // Each marital option of Mississippi has an amount of its own.
    if (shapeOf(state).opens && state != state::mississippi)
      listing.add(Column::stateAdditional, "an amount", additionalCaption);
  }
  return values;
}

bool isOffered(int state, Column column, int number) {
  const Shape& shape = shapeOf(state);
  const bool nothing = number == 0;
  const bool dependents = number >= 0 && number <= mostDependents;
  switch (column) {
    case Column::stateDependents: return shape.dependents ? dependents : nothing;
    case Column::illinoisDependents: return shape.reads.illinoisDependents ? dependents : nothing;
    case Column::stateMarital:
      if (shape.marital.empty()) return nothing;
      return std::find(shape.marital.begin(), shape.marital.end(), number) != shape.marital.end();
    default: break;
  }
  const SpecialList* const list = listOf(state, column);
  if (list == nullptr) return nothing;
  return std::any_of(list->entries.begin(), list->entries.end(),
                     [&](const char* entry) { return numberOf(entry) == number; });
}

std::string offeredText(int state, Column column) {
  const std::vector<int> numbers = offered(state, column);
  if (numbers.empty()) return "none";
  const bool range = numbers.back() - numbers.front() + 1 == static_cast<int>(numbers.size());
  if (range) return std::to_string(numbers.front()) + " to " + std::to_string(numbers.back());
  std::string text;
  for (const int number : numbers) text += (text.empty() ? "" : " ") + std::to_string(number);
  return text;
}

const std::array<OptionReports, optionColumns.size()>& optionReports(int state) {
  static const auto all = [] {
    std::array<std::array<OptionReports, optionColumns.size()>, stateList.size()> reports;
    for (std::size_t i = 0; i < reports.size(); ++i) {
      for (std::size_t k = 0; k < optionColumns.size(); ++k) {
        const int entry = static_cast<int>(i);
        const Column column = optionColumns[k];
        const std::string offers = stateList[i].caption + (" offers " + offeredText(entry, column));
        reports[i][k].notOffered = offers;
        if (reads(entry, column) && !isOffered(entry, column, 0))
          reports[i][k].notChosen = "none is chosen where " + offers;
      }
    }
    return reports;
  }();
  return all[static_cast<std::size_t>(state)];
}

}  // namespace tallyfin::library
