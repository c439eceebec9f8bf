#pragma once

#include <QColor>
#include <algorithm>
#include <cmath>

/// Contrast of colours by the WCAG formula: 1 for none, 21 for black on white.

namespace tallyfin::qt {

inline double luminance(const QColor& colour) {
  const auto linear = [](double part) {
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

inline double contrast(const QColor& one, const QColor& other) {
  const double a = luminance(one);
  const double b = luminance(other);
  return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

}  // namespace tallyfin::qt
