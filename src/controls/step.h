#pragma once

#include "engine/failure.h"

namespace tallyfin {

/// Runs one statement of a screen; where it fails, whatever it had not assigned yet stays as it was.
template <class Statement>
void step(Statement&& statement) {
  unlessItFails(statement);
}

}  // namespace tallyfin
