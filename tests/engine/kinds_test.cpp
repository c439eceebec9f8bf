#include <new>
#include <random>

#include "engine/calculate.h"
#include "engine/recorder.h"
#include "engine/statelist.h"
#include "support/paycheck.h"

/// Both kinds of figures have identical results for any record.

namespace tallyfin {
namespace {

class KindsTest : public PaycheckTest {
 protected:
  template <class... T>
  auto oneOf(T... values) {
    const std::array<std::common_type_t<T...>, sizeof...(T)> all{values...};
    return all.at(std::uniform_int_distribution<std::size_t>(0, all.size() - 1)(random));
  }
  int from(int low, int high) { return std::uniform_int_distribution(low, high)(random); }

  std::string text() {
    const std::string usual = std::to_string(from(0, 9000)) + "." + std::to_string(from(0, 99));
    return oneOf<std::string>("", "abc", "0", "1", "6", ".5", "150", "-40", "1E300", "922337203685477", "18000", usual,
                              usual, usual, usual);
  }
  int count() { return oneOf(0, 1, 2, 3, 4, 7, 10, 11, 12, 15, 16, -1, 32767); }
  Money amount() { return Money::ofUnits(std::int64_t{from(-10000, 40'000'000)}); }

  /// Random entries, choices and earlier values.
  void chooseAnything() {
    sheet.income = text();
    sheet.rate401k = text();
    sheet.preTax = from(0, 2) == 0 ? text() : "0";
    sheet.preFica = from(0, 2) == 0 ? text() : "0";
    sheet.exemptionsEntry = from(0, 20) == 0 ? "abc" : std::to_string(count());
    sheet.state = from(-1, 41);
    sheet.selfEmployedTicked = from(0, 3) == 0;
    sheet.exemptions = count();
    sheet.staRate = oneOf(0, 0, 0, 1, 2, 3, 4, 5);
    sheet.stateStdDed = oneOf(Money(), amount());
    sheet.stateWage = amount();
    for (const char* key : {"sta401", "staPreTax"}) store.write(section::stateInfo, key, oneOf("Y", "N", "y"));
    payData.frequency = oneOf(0, 1, 2, 3, 0, 1, 2, 3, -1, 4);
    payData.payPeriods = oneOf(0, 12, 52);
    payData.maritalStat = oneOf(0, 1, 0, 1, 2, 3);
    payData.staMarried = from(-1, 10);
    payData.staExmp = oneOf(count(), 0, 1, 2, 20);
    payData.staDeps = count();
    payData.illDeps = count();
    payData.mMethod = oneOf(0, 1, 5, 48, 50, 55, 56, 58, 60, -1);
    payData.applyTo = from(0, 6);
    payData.localRate = oneOf(0.0, 0.01, 0.0235, 2.0, 1e300);
    payData.staAdd = oneOf(Money(), Money(), Money(5), amount());
    payData.stateTax = amount();
    payData.stateDepsDed = amount();
    payData.grossPay = amount();
    recordAllowance(count());
    payData.depsDed = oneOf(payData.depsDed, amount());
  }

  std::mt19937 random{1999};
};

TEST_F(KindsTest, AgreeToTheLastBitOnAnyRecord) {
  for (int round = 0; round < 2000; ++round) {
    chooseAnything();
    const PayData record = payData;
    const WorksheetFields fields = sheet;
    calculatePaycheck();
    makeTotals();
    const PayData plain = payData;
    const WorksheetFields plainFields = sheet;
    const auto plainFigures = sheet.figures;
    payData = record;
    static_cast<WorksheetFields&>(sheet) = fields;
    sheet.figures = {};
    {
      const Recorder recorder;
      Recorder::calculatePaycheck();
      Recorder::makeTotals();
    }
    ASSERT_EQ(payData, plain) << "round " << round << ", state " << sheet.state;
    ASSERT_EQ(static_cast<WorksheetFields&>(sheet), plainFields) << "round " << round << ", state " << sheet.state;
    ASSERT_EQ(sheet.figures, plainFigures) << "round " << round;
  }
}

/// A worksheet that throws std::bad_alloc when the pre-tax amount is read, within a statement.
struct WithoutMemory : FakeWorksheet {
  const std::string& preTaxText() const override { throw std::bad_alloc(); }
};

TEST_F(KindsTest, LeaveNoTraceOfACalculationThatWasBrokenOff) {
  const auto calculated = [] {
    const Recorder recorder;
    Recorder::calculatePaycheck();
  };
  chooseAnything();
  calculated();
  ASSERT_NE(lastTrace(), nullptr);
  const std::size_t statements = lastTrace()->statements.size();
  {
    WithoutMemory broken;
    const Services services(store, broken);
    EXPECT_THROW(calculated(), std::bad_alloc);
  }
  EXPECT_EQ(lastTrace(), nullptr);
  calculated();
  ASSERT_NE(lastTrace(), nullptr);
  EXPECT_EQ(lastTrace()->statements.size(), statements);
}

TEST_F(KindsTest, AgreeOnTheFederalAllowance) {
  for (const int frequency : {-1, 0, 1, 2, 3, 4}) {
    for (const int exemptions : {0, 1, 15, -1, 32767}) {
      payData.frequency = frequency;
      payData.depsDed = 7;
      takeAllowance(exemptions);
      const Money plain = payData.depsDed;
      payData.depsDed = 7;
      recordAllowance(exemptions);
      EXPECT_EQ(payData.depsDed, plain) << frequency << ", " << exemptions;
    }
  }
}

}  // namespace
}  // namespace tallyfin
