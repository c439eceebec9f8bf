#pragma once

#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>
#include <system_error>

/// Doubles to and from plain texts, whatever the system's locale. A standard library without the functions of
/// <charconv> for doubles gets the C library's, which give the same where the locale has a point for the decimals.

namespace tallyfin {

/// How many significant digits a double is written with.
inline constexpr int significantDigits = 15;

namespace clibrary {

/// The nearest double to a text such as -1.5e-7; none where the text is beyond every double, zero where it is too
/// small.
inline std::optional<double> doubleOf(const std::string& plain) {
  const double value = std::strtod(plain.c_str(), nullptr);
  return std::isfinite(value) ? std::optional(value) : std::nullopt;
}

/// Up to 15 significant digits, in exponent form from 1e+15 up and below 0.0001.
inline std::string shortTextOf(double value) {
  std::array<char, 32> buffer{};
  const int length = std::snprintf(buffer.data(), buffer.size(), "%.*g", significantDigits, value);
  return {buffer.data(), static_cast<std::size_t>(length)};
}

/// The number by the fewest digits that read back as it.
inline std::string shortestTextOf(double value) {
  std::array<char, 32> buffer{};
  int length = 0;
  int digits = 0;
  do {
    length = std::snprintf(buffer.data(), buffer.size(), "%.*g", ++digits, value);
  } while (std::strtod(buffer.data(), nullptr) != value);
  return {buffer.data(), static_cast<std::size_t>(length)};
}

}  // namespace clibrary

#ifdef __cpp_lib_to_chars

inline std::optional<double> doubleOf(const std::string& plain) {
  double value = 0;
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

inline std::string shortestTextOf(double value) {
  std::array<char, 32> buffer{};
  return {buffer.data(), std::to_chars(buffer.data(), buffer.data() + buffer.size(), value).ptr};
}

#else

using clibrary::doubleOf;
using clibrary::shortestTextOf;
using clibrary::shortTextOf;

#endif

/// A finite number rounded to the fewest digits that still tell it from every other of single precision.
inline std::string shortestTextOf(float value) {
  std::array<char, 32> buffer{};
  int length = 0;
  int digits = 0;
  do {
    length = std::snprintf(buffer.data(), buffer.size(), "%.*g", ++digits, static_cast<double>(value));
  } while (std::strtof(buffer.data(), nullptr) != value);
  return {buffer.data(), static_cast<std::size_t>(length)};
}

}  // namespace tallyfin
