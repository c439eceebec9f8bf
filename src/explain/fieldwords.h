#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "engine/tape.h"

/// The words of the fields of the record, of the working fields and of the controls.

namespace tallyfin {

/// What a field or a control holds, and where its value comes from.
struct FieldWords {
  std::string title;
  std::string origin;  ///< In words that follow its value.
};
FieldWords fieldWords(std::string_view field);
FieldWords entryWords(std::string_view control);
bool isStateOption(std::string_view field);

/// A choice that rules go by, in words: "Pay frequency", "Weekly". None for a field that isn't a choice. `shown` is the
/// caption of the status button that is set.
struct ChoiceWords {
  std::string title;
  std::string choice;
};
std::optional<ChoiceWords> choiceWords(std::string_view field, int number, const std::string& shown);

}  // namespace tallyfin
