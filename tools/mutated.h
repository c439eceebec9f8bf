#pragma once

#include <cstdlib>
#include <functional>

/// What tools/mutate writes into its copy of the sources: each place that it can change asks here which it is to be.

inline int tallyfin_chosen_mutant() {
  static const int chosen = [] {
    const char* text = std::getenv("TALLYFIN_MUTANT");
    return text == nullptr ? 0 : std::atoi(text);
  }();
  return chosen;
}

/// Whether this run changes the place of that number. The places are counted from 1; 0 is there since a constexpr
/// function has to be a constant for something.
constexpr bool tallyfin_mutated(int number) { return number != 0 && number == tallyfin_chosen_mutant(); }

template <int number, class Value>
auto tallyfin_first(const Value& value) {
  static const auto first = value();
  return first;
}

/// A value, or what it was at its first use.
template <int number, class Value>
constexpr auto tallyfin_kept(const Value& value) {
  return tallyfin_mutated(number) ? tallyfin_first<number>(value) : value();
}

/// A comparison that a run can change, written in the place of its operator: `a <Less{7}> b`, `a ==Equal{8}== b`.
namespace tallyfin_mutants {

template <class Plain, class Changed>
struct Comparison {
  int number;
};

template <class Left, class Plain, class Changed>
struct Begun {
  const Left& left;
  int number;

  template <class Right>
  constexpr bool with(const Right& right) const {
    return tallyfin_mutated(number) ? Changed{}(left, right) : Plain{}(left, right);
  }
};

template <class Left, class Plain, class Changed>
constexpr Begun<Left, Plain, Changed> operator<(const Left& left, Comparison<Plain, Changed> comparison) {
  return {left, comparison.number};
}
template <class Left, class Plain, class Changed>
constexpr Begun<Left, Plain, Changed> operator==(const Left& left, Comparison<Plain, Changed> comparison) {
  return {left, comparison.number};
}
template <class Left, class Plain, class Changed, class Right>
constexpr bool operator>(const Begun<Left, Plain, Changed>& begun, const Right& right) {
  return begun.with(right);
}
template <class Left, class Plain, class Changed, class Right>
constexpr bool operator==(const Begun<Left, Plain, Changed>& begun, const Right& right) {
  return begun.with(right);
}

using Less = Comparison<std::less<>, std::less_equal<>>;
using LessEqual = Comparison<std::less_equal<>, std::less<>>;
using Greater = Comparison<std::greater<>, std::greater_equal<>>;
using GreaterEqual = Comparison<std::greater_equal<>, std::greater<>>;
using Equal = Comparison<std::equal_to<>, std::not_equal_to<>>;
using NotEqual = Comparison<std::not_equal_to<>, std::equal_to<>>;

}  // namespace tallyfin_mutants
