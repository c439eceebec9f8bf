#include "explain/shares.h"

#include <cmath>

#include "engine/numbertext.h"
#include "explain/figuretexts.h"

namespace tallyfin {

std::vector<Share> sharesOf(const Trace& trace) {
  const PayData& record = trace.after;
  if (record.grossPay <= 0) return {};
  const auto share = [&](const char* name, Money amount) {
    return Share{name, amount, toReal(amount) / toReal(record.grossPay)};
  };
  std::vector<Share> shares{share("401(k)", record.amt401k),     share("federal tax", record.fedTax),
                            share("state tax", record.stateTax), share("local tax", record.localTax),
                            share("FICA", record.fica),          share("check", record.checkAmt)};
  for (const Share& part : shares) {
    if (part.amount < 0) return {};
  }
  return shares;
}

std::string shareText(const Share& share) {
  return std::string(share.name) + " " + toText(std::round(share.fraction * 1000) / 10) + "%";
}

std::string sharesText(const Trace& trace) {
  const PayData& record = trace.after;
  if (record.grossPay <= 0)
    return "The gross pay is " + amountText(record.grossPay) + ": there is nothing to share out.";
  const auto shares = sharesOf(trace);
  if (shares.empty()) {
    return "The gross pay is " + amountText(record.grossPay) + "; a part of it is negative, so the parts make no bar.";
  }
  std::string parts;
  for (const Share& share : shares) {
    if (share.amount == 0) continue;
    parts += (parts.empty() ? "" : ", ") + shareText(share);
  }
  return "Of the gross pay of " + amountText(record.grossPay) + ": " + parts + ".";
}

}  // namespace tallyfin
