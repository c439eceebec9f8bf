#pragma once

#include <concepts>
#include <optional>

#include "engine/failure.h"
#include "engine/title.h"

/// Statements for the kinds of figures that aren't recorded. Titles and remarks compile to nothing.

namespace tallyfin::unrecorded {

/// A figure within a statement that has a line of its own in an explanation.
template <class T>
constexpr T line(const char* /*title*/, T value) {
  return value;
}

/// A choice of the state options, with a title for what it means in the rule.
template <class T>
constexpr T called(const char* /*title*/, T choice) {
  return choice;
}

/// Notes that a figure depends on a choice that an earlier figure compared.
template <class T>
constexpr void goesBy(const T& /*choice*/) {}

/// The result of a statement that assigns nothing, and the reason.
constexpr std::nullopt_t keep(const char* /*why*/) { return std::nullopt; }
constexpr bool keepAll(const char* /*why*/) { return false; }
/// Remarks for the explanation: on the running statement, on a field, on the statement where the amount isn't 0.
constexpr void note(const char* /*remark*/) {}
template <class T>
constexpr void noteOn(const T& /*field*/, const char* /*remark*/) {}
template <class Amount>
constexpr void noteIfAny(const Amount& /*amount*/, const char* /*remark*/) {}

/// The entry of the state list whose routine runs.
constexpr void stateIs(const char* /*caption*/) {}

namespace detail {

template <class T, class Value>
void assign(T& target, const std::optional<Value>& value) {
  if (value) target = *value;
}
template <class T, class Value>
void assign(T& target, const Value& value) {
  target = value;
}

}  // namespace detail

/// Runs one statement. Where it fails, targets that it hasn't assigned keep their values. The targets are all that it
/// may assign; a statement that returns false has assigned none of them.
template <class Statement, class... Targets>
requires std::invocable<Statement&>
[[gnu::always_inline]] inline void step(Title /*title*/, Statement&& statement, const Targets&... /*targets*/) {
  try {
    statement();
  } catch (const FailedStatement&) {
  }
}

/// Assigns a value to the target. Where the value fails, or there is none, the target keeps its value.
template <class T, class Value>
requires(std::invocable<Value&> && !std::invocable<T&>)
    [[gnu::always_inline]] inline void step(Title title, T& target, Value&& value) {
  step(
      title, [&target, &value] { detail::assign(target, value()); }, target);
}

/// Assigns a value to the target as a part of a statement: a failure is that of the whole statement.
template <class T, class Value>
void part(Title /*title*/, T& target, Value&& value) {
  detail::assign(target, value());
}

}  // namespace tallyfin::unrecorded
