#pragma once

#include <locale.h>

#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>
#include <system_error>

/// Doubles to and from plain texts, in every locale. Where the standard library lacks <charconv> for doubles, the
/// functions of the C library are called with the locale "C".

namespace tallyfin {

/// How many significant digits a double is written with.
inline constexpr int significantDigits = 15;

namespace clibrary {

/// Sets the locale of this thread to "C" during its lifetime.
class PlainLocale {
 public:
  PlainLocale() : before_(::uselocale(plain())) {}
  ~PlainLocale() { ::uselocale(before_); }
  PlainLocale(const PlainLocale&) = delete;
  PlainLocale& operator=(const PlainLocale&) = delete;

 private:
  static locale_t plain() {
    static const locale_t made = ::newlocale(LC_ALL_MASK, "C", locale_t{});
    return made;
  }

  locale_t before_;
};

/// The nearest double to a text such as -1.5e-7; none where the number is too large for a double, zero where it is too
/// small.
inline std::optional<double> doubleOf(const std::string& plain) {
  const PlainLocale within;
  const double value = std::strtod(plain.c_str(), nullptr);
  return std::isfinite(value) ? std::optional(value) : std::nullopt;
}

/// Up to 15 significant digits, in exponent form from 1e+15 up and below 0.0001.
inline std::string shortTextOf(double value) {
  const PlainLocale within;
  std::array<char, 32> buffer{};
  const int length = std::snprintf(buffer.data(), buffer.size(), "%.*g", significantDigits, value);
  return {buffer.data(), static_cast<std::size_t>(length)};
}

/// The shortest text that reads back as the number.
template <class Real>
std::string shortestTextOf(Real value) {
  const PlainLocale within;
  std::array<char, 32> buffer{};
  int length{};
  int digits = 0;  // mutation: 0 -> 1: with two digits a number of one reads the same
  do {
    length = std::snprintf(buffer.data(), buffer.size(), "%.*g", ++digits, static_cast<double>(value));
  } while (static_cast<Real>(std::strtod(buffer.data(), nullptr)) != value);
  return {buffer.data(), static_cast<std::size_t>(length)};
}

}  // namespace clibrary

#ifdef __cpp_lib_to_chars

inline std::optional<double> doubleOf(const std::string& plain) {
  double value{};
  const auto result = std::from_chars(plain.data(), plain.data() + plain.size(), value);
  if (result.ec != std::errc::result_out_of_range) return value;
  return plain.find("e-") == std::string::npos ? std::nullopt : std::optional(0.0);
}

inline std::string shortTextOf(double value) {
  std::array<char, 32> buffer{};
  const auto result =
      std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::general, significantDigits);
  return {buffer.data(), result.ptr};
}

template <class Real>
std::string shortestTextOf(Real value) {
  std::array<char, 32> buffer{};
  return {buffer.data(), std::to_chars(buffer.data(), buffer.data() + buffer.size(), value).ptr};
}

#else

using clibrary::doubleOf;
using clibrary::shortestTextOf;
using clibrary::shortTextOf;

#endif

/// A number without an exponent, by the fewest decimals that read back as it, or by so many at least.
template <class Real>
std::string decimalTextOf(Real value, int decimals = 0) {
  const clibrary::PlainLocale within;
  std::array<char, 400> buffer{};
  do {
    std::snprintf(buffer.data(), buffer.size(), "%.*f", decimals++, static_cast<double>(value));
  } while (static_cast<Real>(std::strtod(buffer.data(), nullptr)) != value);
  return buffer.data();
}

}  // namespace tallyfin
