#pragma once

#include <string>
#include <string_view>

/// Failures in the whole program.
///
/// A statement that fails (a text that isn't a number, a division by zero, a sum out of range) is skipped: its target
/// keeps the old value, and the routine goes on with the next statement. Nothing is reported.

namespace tallyfin {

/// Thrown by a statement that can't be carried out. Only step() and unlessItFails(), each of which runs one statement,
/// catch it.
struct FailedStatement {
  /// Why, in words that follow "because".
  const char* why = "it can't be carried out";
};

/// Thrown for a text that should be a number and isn't.
struct NotANumber : FailedStatement {
  explicit NotANumber(std::string_view its) : FailedStatement{"the text isn't a number"}, text(its) {}
  std::string text;
};

/// Runs one statement outside a calculation. Where it fails, targets that it hasn't assigned keep their values.
template <class Statement>
void unlessItFails(Statement&& statement) {
  try {
    statement();
  } catch (const FailedStatement&) {
  }
}

}  // namespace tallyfin
