#pragma once

/// The rule of the whole program about failures.
///
/// A statement that can't be carried out (a text that isn't a number, a division by zero, a sum beyond its type) is
/// skipped: its target keeps the old value and the routine goes on with the next statement. Nothing is reported.

namespace tallyfin {

/// What a statement throws that can't be carried out. Only step() catches it.
struct FailedStatement {};

/// Runs one statement; where it fails, whatever it had not assigned yet stays as it was.
template <class Statement>
void step(Statement&& statement) {
  try {
    statement();
  } catch (const FailedStatement&) {
  }
}

}  // namespace tallyfin
