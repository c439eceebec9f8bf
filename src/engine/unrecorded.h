#pragma once

#include <concepts>
#include <optional>

#include "engine/failure.h"
#include "engine/title.h"

/// Statements of rules that nobody records, and the remarks that then cost nothing: for the kinds of figures that don't
/// tell how they came about.

namespace tallyfin::unrecorded {

/// A figure within a statement that an explanation shows in a line of its own.
template <class T>
constexpr T line(const char* /*title*/, T value) {
  return value;
}

/// The same for a figure that is another one again under its own title.
template <class T>
constexpr T asMuch(const char* /*title*/, T value) {
  return value;
}
/// A choice of the state options by what it means to the rule.
template <class T>
constexpr T called(const char* /*title*/, T choice) {
  return choice;
}

/// Says that a figure goes by a choice that was asked for an earlier one.
template <class T>
constexpr void goesBy(const T& /*choice*/) {}

/// Says that a statement assigns nothing, and why.
constexpr std::nullopt_t keep(const char* /*why*/) { return std::nullopt; }
constexpr bool keepAll(const char* /*why*/) { return false; }
/// Remarks for the explanation: of the running statement, of a field, of the statement where the amount isn't 0.
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

/// Runs one statement; where it fails, what it had not assigned yet stays as it was. The targets are what it may
/// assign; a statement that returns false has assigned none of them.
template <class Statement, class... Targets>
requires std::invocable<Statement&>
[[gnu::always_inline]] inline void step(Title /*title*/, Statement&& statement, const Targets&... /*targets*/) {
  try {
    statement();
  } catch (const FailedStatement&) {
  }
}

/// Assigns a value to the target; where the value can't be worked out, or there is none, the target stays as it was.
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
