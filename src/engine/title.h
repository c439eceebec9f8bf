#pragma once

#include <string_view>

namespace tallyfin {

/// The title of a statement, in terms of pay stubs and of the published tables. An empty title doesn't compile.
class Title {
 public:
  consteval Title(const char* words) : words_(words) {  // NOLINT(google-explicit-constructor): its words are the title
    if (std::string_view(words).empty()) throw "a statement needs a title";
  }
  constexpr const char* words() const { return words_; }

 private:
  const char* words_;
};

}  // namespace tallyfin
