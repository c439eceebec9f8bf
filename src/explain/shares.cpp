#include "explain/shares.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "engine/numbertext.h"
#include "explain/figuretexts.h"

namespace tallyfin {

namespace {

/// Rounds the parts of a whole to tenths of a percent. Those that lose most by rounding down are rounded up, as many as
/// the sum needs.
void roundTogether(std::vector<Share>& shares) {
  int missing = 1000;
  std::vector<std::pair<double, Share*>> lost;
  for (Share& share : shares) {
    const double exact = share.fraction * 1000;
    share.tenths = static_cast<int>(exact);
    missing -= share.tenths;
    lost.emplace_back(exact - share.tenths, &share);
  }
  std::stable_sort(lost.begin(), lost.end(), [](const auto& a, const auto& b) { return a.first > b.first; });
  for (int i = 0; i < missing; ++i) ++lost.at(static_cast<std::size_t>(i)).second->tenths;
}

}  // namespace

std::vector<Share> sharesOf(const Trace& trace) {
  const PayData& record = trace.after;
  if (record.grossPay <= 0) return {};
  const auto share = [&](const char* name, Money amount) {
    return Share{name, amount, toReal(amount) / toReal(record.grossPay)};
  };
  std::vector<Share> shares{share("401(k)", record.amt401k),     share("federal tax", record.fedTax),
                            share("state tax", record.stateTax), share("local tax", record.localTax),
                            share("FICA", record.fica),          share("check", record.checkAmt)};
  double sum = 0;
  for (const Share& part : shares) {
    if (part.amount < 0) return {};
    sum += part.fraction;
  }
  if (std::abs(sum - 1) > 1E-6)
    return {};  // where the sum was out of range, the check is that of an earlier calculation
  roundTogether(shares);
  return shares;
}

std::string shareText(const Share& share) { return std::string(share.name) + " " + toText(share.tenths / 10.0) + "%"; }

std::string sharesText(const Trace& trace) {
  const PayData& record = trace.after;
  if (record.grossPay <= 0)
    return "The gross pay is " + amountText(record.grossPay) + ": there is nothing to share out.";
  const auto shares = sharesOf(trace);
  if (shares.empty()) {
    return "The gross pay is " + amountText(record.grossPay) +
           "; a part of it is negative or out of range, so the parts make no bar.";
  }
  std::string parts;
  for (const Share& share : shares) {
    if (share.amount == 0) continue;
    parts += (parts.empty() ? "" : ", ") + shareText(share);
  }
  return "Of the gross pay of " + amountText(record.grossPay) + ": " + parts + ".";
}

}  // namespace tallyfin
