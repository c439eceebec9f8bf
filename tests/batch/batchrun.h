#pragma once

#include <algorithm>
#include <cstring>
#include <string>
#include <string_view>

#include "batch/run.h"

namespace tallyfin::batch {

/// A source that returns a text in pieces of a given size.
inline BlockReader::Source sourceOf(std::string_view text, std::size_t atOnce = std::string_view::npos) {
  return [text, atOnce](char* place, std::size_t size) mutable {
    const std::size_t count = std::min({size, atOnce, text.size()});
    std::memcpy(place, text.data(), count);
    text.remove_prefix(count);
    return count;
  };
}

/// The results of a whole run.
struct Outcome {
  std::string out;
  std::string trouble;
  std::string notice;
  Account account;
};

inline Outcome outcomeOf(std::string_view in, const Choices& choices = {},
                         std::size_t atOnce = std::string_view::npos) {
  Outcome outcome;
  try {
    outcome.account = run({sourceOf(in, atOnce), [&](std::string_view text) { outcome.out += text; },
                           [](std::uint64_t) {}, [&](const std::string& notice) { outcome.notice += notice; }},
                          choices);
  } catch (const Trouble& trouble) {
    outcome.trouble = trouble.what();
  }
  return outcome;
}

}  // namespace tallyfin::batch
