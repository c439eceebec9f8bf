#include "engine/entries.h"

#include "engine/calculate.h"

namespace tallyfin {

void takeStatus(int option, bool twoIncomes) {
  payData.maritalStat = option == status::marriedClaimingSingle && !twoIncomes ? status::single : option;
}

void takeLocalRate(const std::string& text) {
  step("Local rate as typed", payData.localRate, [&] { return text.empty() ? 0 : realOf(text); });
  payData.localRate = normalisedRate(payData.localRate);
}

}  // namespace tallyfin
