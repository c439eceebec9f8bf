#pragma once

#include <string>

namespace tallyfin {
struct Trace;
}

namespace tallyfin::script {

/// What a calculation did, statement by statement, as the protocol writes it.
std::string statementsAsJson(const Trace& trace);

}  // namespace tallyfin::script
