#include "states/handover.h"

#include "engine/failure.h"
#include "engine/numbertext.h"
#include "engine/paydata.h"

namespace tallyfin {

void takeStateOptions(const StateOptionTexts& texts) {
  step([&] { payData.mMethod = toInt16(texts.special); });
  step([&] { payData.staDeps = toInt16(texts.dependents); });
  step([&] { payData.illDeps = toInt16(texts.illinoisDependents); });
  step([&] { payData.staExmp = toInt16(texts.special); });
  step([&] { payData.staAdd = toMoney(texts.additional); });
}

const char* mississippiExemption(int maritalOption) {
  switch (maritalOption) {
    case 0: return "6000";
    case 7: return "10000";
    case 8: return "";
    case 9: return "9500";
    default: return nullptr;
  }
}

}  // namespace tallyfin
