#pragma once

/// The rule of the whole program about failures.
///
/// A statement that can't be carried out (a text that isn't a number, a division by zero, a sum beyond its type) is
/// skipped: its target keeps the old value and the routine goes on with the next statement. Nothing is reported.

namespace tallyfin {

/// What a statement throws that can't be carried out. Only a statement that runs as one catches it: step() or
/// unlessItFails().
struct FailedStatement {
  /// Why, in words that follow "because".
  const char* why = "it can't be carried out";
};

/// Runs a statement that is none of a calculation; where it fails, whatever it had not assigned yet stays as it was.
template <class Statement>
void unlessItFails(Statement&& statement) {
  try {
    statement();
  } catch (const FailedStatement&) {
  }
}

}  // namespace tallyfin
