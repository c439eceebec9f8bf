#pragma once

#include <array>
#include <concepts>
#include <optional>
#include <span>
#include <string_view>
#include <variant>

#include "engine/failure.h"
#include "engine/int16.h"
#include "engine/money.h"

/// The statements of a calculation. Each has a title, in the words of a pay stub and of the published tables.
/// While a recorder is installed, each reports what it did; without one a statement tests one pointer more.

namespace tallyfin {

class Recorder;

/// The recorder of the running calculation. Null for most: only the toolbar's Calculate installs one.
[[gnu::visibility("hidden")]] inline Recorder* recorder = nullptr;

/// The title of a statement. An empty one doesn't compile.
class Title {
 public:
  consteval Title(const char* words) : words_(words) {  // NOLINT(google-explicit-constructor): its words are the title
    if (std::string_view(words).empty()) throw "a statement needs a title";
  }
  constexpr const char* words() const { return words_; }

 private:
  const char* words_;
};

/// What a statement assigns: a field of the record, a working field, or a figure of the routine's own.
using Target = std::variant<const Money*, const Int16*, const double*, const float*>;

/// How a statement is run for the recorder: true if it assigned something.
using RunStatement = bool (*)(void* statement);

/// What becomes of a failure: the statement is skipped, or the statement around it fails too.
enum class OnFailure { skip, passOn };

/// Runs a statement and reports it to the recorder.
[[gnu::cold]] void watch(const char* title, std::span<const Target> targets, RunStatement run, void* statement,
                         OnFailure onFailure);

namespace detail {

template <class T, class Value>
bool assign(T& target, const std::optional<Value>& value) {
  if (value) target = *value;
  return value.has_value();
}
template <class T, class Value>
bool assign(T& target, const Value& value) {
  target = value;
  return true;
}

template <class Statement>
bool carriedOut(Statement& statement) {
  if constexpr (std::same_as<std::invoke_result_t<Statement&>, bool>) {
    return statement();
  } else {
    statement();
    return true;
  }
}

template <class Statement, class... Targets>
[[gnu::noinline, gnu::cold]] void watched(OnFailure onFailure, const char* title, Statement& statement,
                                          const Targets&... targets) {
  const std::array<Target, sizeof...(Targets)> all{&targets...};
  watch(
      title, all, [](void* it) { return carriedOut(*static_cast<Statement*>(it)); }, &statement, onFailure);
}

}  // namespace detail

/// Runs one statement; where it fails, what it had not assigned yet stays as it was. The targets are what it may
/// assign; a statement that returns false has assigned none of them.
template <class Statement, class... Targets>
requires std::invocable<Statement&>
[[gnu::always_inline]] inline void step(Title title, Statement&& statement, const Targets&... targets) {
  if (recorder != nullptr) [[unlikely]] {
    auto watched = statement;  // a copy: without a recorder nobody takes the statement's own address
    detail::watched(OnFailure::skip, title.words(), watched, targets...);
    return;
  }
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
      title, [&target, value] { return detail::assign(target, value()); }, target);
}

/// Assigns a value to the target as a part of a statement: a failure is that of the whole statement.
template <class T, class Value>
void part(Title title, T& target, Value&& value) {
  if (recorder != nullptr) [[unlikely]] {
    auto watched = [&target, value] { return detail::assign(target, value()); };
    detail::watched(OnFailure::passOn, title.words(), watched, target);
    return;
  }
  detail::assign(target, value());
}

}  // namespace tallyfin
