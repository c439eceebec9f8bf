#include "engine/numbertext.h"

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>

/// Parses any bytes as a number of each of the three types, and parses the formatted results again.

using namespace tallyfin;

namespace {

template <class Read>
auto attempt(Read read) -> std::optional<decltype(read())> {
  try {
    return read();
  } catch (const FailedStatement&) {
    return std::nullopt;
  }
}

void demand(bool condition) {
  if (!condition) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const auto amount = attempt([&] { return toMoney(text); });
  const auto real = attempt([&] { return realOf(text); });
  const auto count = attempt([&] { return toInt16(text); });
  if (!isNumber(text)) demand(!amount && !real && !count);

  if (amount) {
    demand(toMoney(toText(*amount)) == *amount);
    if (const auto cents = attempt([&] { return roundCents(*amount); })) {
      demand(toMoney(currency(*amount)) == *cents);
      demand(cents->units() % 100 == 0);
    }
  }
  if (real) {
    const std::string plain = toText(*real);
    demand(toText(realOf(plain)) == plain);
    const auto formats = [&] { return currency(*real) + percentage(*real); };
    demand(attempt(formats).has_value() || std::abs(*real) > 1e300);
  }
  if (count) {
    demand(toInt16(toText(*count)) == *count);
    demand(amount.has_value());
  }
  if (!isNumber(text)) demand(currency(text) == text && wholeNumber(text) == text);
  static_cast<void>(currency(text));
  static_cast<void>(wholeNumber(text));
  static_cast<void>(socialSecurityNumber(text));
  return 0;
}
