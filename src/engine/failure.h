#pragma once

/// The rule of the whole program about failures.
///
/// A statement that can't be carried out (a text that isn't a number, a division by zero, a sum beyond its type) is
/// skipped: its target keeps the old value and the routine goes on with the next statement. Nothing is reported.

namespace tallyfin {

/// What a statement throws that can't be carried out. Only step() catches it.
struct FailedStatement {
  /// Why, in words that follow "because".
  const char* why = "it can't be carried out";
};

}  // namespace tallyfin
