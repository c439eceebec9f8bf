#pragma once

#include <string>

namespace tallyfin::batch {

/// What each state reads, as CSV with a header: state,postal,column,value,meaning.
std::string statesTable(char delimiter);

}  // namespace tallyfin::batch
