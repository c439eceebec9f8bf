#pragma once

#include <string>
#include <vector>

#include "explain/explain.h"

namespace tallyfin {

/// Explanations as a JSON object of the titles of the results, each with a list of its lines; "null" where there are
/// none.
std::string jsonOf(const std::vector<Explanation>& explanations);

/// The test of a row in words: "at most".
const char* nameOf(Test test);

}  // namespace tallyfin
