#include "stateoptions/handover.h"

#include "engine/figures.h"

namespace tallyfin {

void takeStateOptions(const StateOptionTexts& texts) {
  step("State special selection", payData.mMethod, [&] { return toInt16(texts.special); });
  step("State dependents", payData.staDeps, [&] { return toInt16(texts.dependents); });
  step("Second allowances", payData.illDeps, [&] { return toInt16(texts.illinoisDependents); });
  step("State exemptions", payData.staExmp, [&] { return toInt16(texts.special); });
  step("Additional state withholding", payData.staAdd, [&] { return toMoney(texts.additional); });
}

const char* mississippiExemption(int maritalOption) {
  switch (maritalOption) {
    case stateStatus::single: return "6000";
    case stateStatus::spouseNotEmployed: return "10000";
    case stateStatus::spouseEmployed: return "";
    case stateStatus::headOfFamily: return "9500";
    default: return nullptr;
  }
}

}  // namespace tallyfin
