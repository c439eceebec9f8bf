#pragma once

#include <string>
#include <vector>

#include "explain/explain.h"

namespace tallyfin::library {

/// Explanations as a JSON object of their titles, each with a list of its sentences; "null" where there are none.
std::string textOf(const std::vector<Explanation>& explanations);

}  // namespace tallyfin::library
