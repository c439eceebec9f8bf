#include "engine/fedtax.h"

#include "support/paycheck.h"
#include "support/table.h"

namespace tallyfin {
namespace {

/// A decimal with at most `places` decimals as a whole number of its last place.
std::int64_t scaled(const std::string& text, std::size_t places) {
  const auto point = text.find('.');
  std::string digits = text.substr(0, point);
  const std::string decimals = point == std::string::npos ? "" : text.substr(point + 1);
  digits += decimals + std::string(places - decimals.size(), '0');
  return std::stoll(digits);
}

/// The tax in cents on a base in cents, by the rows of a table. Calculated with integers, in hundred-thousandths of a
/// dollar; an exact half cent is rounded away from zero.
std::int64_t taxOn(const std::vector<Row>& rows, std::int64_t cents) {
  for (const Row& row : rows) {
    if (row.at("upTo") != "above" && cents > scaled(row.at("upTo"), 2)) continue;
    const std::int64_t over = cents - scaled(row.at("over"), 2);
    const std::int64_t tax = over * scaled(row.at("rate"), 3) + scaled(row.at("base"), 5);
    return (tax + 500) / 1000;
  }
  return 0;
}

class FedTaxTest : public PaycheckTest {
 protected:
  FedTaxTest() { payData.maritalStat = 1; }

  Money taxOfBase(const char* base) {
    payData.fedBase = dollars(base);
    FedTax();
    return payData.fedTax;
  }
};

TEST_F(FedTaxTest, FollowsEveryRowOfEveryTableAtItsBounds) {
  std::map<std::pair<int, int>, std::vector<Row>> tables;
  for (const Row& row : tableOf("engine/data/federal.tsv")) {
    tables[{std::stoi(row.at("frequency")), std::stoi(row.at("maritalStat"))}].push_back(row);
  }
  ASSERT_EQ(tables.size(), 8U);
  for (const auto& [key, rows] : tables) {
    ASSERT_EQ(rows.size(), 6U);
    payData.frequency = key.first;
    payData.maritalStat = key.second;
    std::vector<std::int64_t> bases{-5000, 0, 1};
    for (const Row& row : rows) {
      const std::int64_t bound = row.at("upTo") == "above" ? scaled("1000000", 2) : scaled(row.at("upTo"), 2);
      for (const int step : {-10000, -100, -1, 0, 1, 100, 12345}) bases.push_back(bound + step);
    }
    for (const std::int64_t cents : bases) {
      payData.fedBase = Money::ofUnits(cents * 100);
      payData.fedTax = 1999;
      FedTax();
      EXPECT_EQ(payData.fedTax, Money::ofUnits(taxOn(rows, cents) * 100))
          << "frequency " << key.first << " status " << key.second << " base " << toText(payData.fedBase);
    }
  }
}

TEST_F(FedTaxTest, LeavesTheBoundToTheLowerRow) {
  EXPECT_EQ(taxOfBase("51"), 0);
  EXPECT_EQ(taxOfBase("51.01"), 0);  // 0.0015
  EXPECT_EQ(taxOfBase("525"), dollars("71.10"));
  EXPECT_EQ(taxOfBase("525.01"), dollars("71.10"));  // 71.1028
  EXPECT_EQ(taxOfBase("525.0001"), dollars("71.10"));
}

TEST_F(FedTaxTest, TaxesAMarriedWeekOfAThousand) {
  payData.maritalStat = 0;
  EXPECT_EQ(taxOfBase("1000"), dollars("142.71"));
}

TEST_F(FedTaxTest, TaxesNoNegativeBase) { EXPECT_EQ(taxOfBase("-500"), 0); }

TEST_F(FedTaxTest, ChoosesNoTableForStatusTwo) {
  payData.maritalStat = 2;
  EXPECT_EQ(taxOfBase("5000"), 0);
  payData.fedTax = dollars("12.345");
  EXPECT_EQ(taxOfBase("5000"), dollars("12.35"));  // the old value, rounded again
  payData.fedTax = -3;
  EXPECT_EQ(taxOfBase("5000"), 0);
}

TEST_F(FedTaxTest, ChoosesNoTableWithoutAFrequency) {
  for (const int frequency : {-1, 4}) {
    payData.frequency = frequency;
    payData.fedTax = 9;
    EXPECT_EQ(taxOfBase("5000"), 9);
  }
}

TEST_F(FedTaxTest, TakesFicaOfTheGrossLessThePreFicaAmount) {
  payData.grossPay = 1000;
  payData.amt401k = 60;
  payData.preTax = 40;
  FedTax();
  EXPECT_EQ(payData.fica, dollars("76.5"));
  EXPECT_EQ(payData.socSec, 62);
  EXPECT_EQ(payData.medicare, dollars("14.5"));
  payData.preFica = 100;
  FedTax();
  EXPECT_EQ(payData.fica, dollars("68.85"));
  EXPECT_EQ(payData.socSec, dollars("55.80"));
  EXPECT_EQ(payData.medicare, dollars("13.05"));
}

TEST_F(FedTaxTest, DoublesFicaForTheSelfEmployed) {
  payData.grossPay = 1000;
  sheet.selfEmployedTicked = true;
  FedTax();
  EXPECT_EQ(payData.fica, 153);
  EXPECT_EQ(payData.socSec, 124);
  EXPECT_EQ(payData.medicare, 29);
}

TEST_F(FedTaxTest, LetsFicaBeNegative) {
  payData.grossPay = 1000;
  payData.preFica = 1100;
  FedTax();
  EXPECT_EQ(payData.fica, dollars("-7.65"));
}

TEST_F(FedTaxTest, KeepsFicaAtFourDecimalsAsThreeProducts) {
  payData.grossPay = dollars("0.01");
  FedTax();
  EXPECT_EQ(payData.fica, dollars("0.0008"));
  EXPECT_EQ(payData.socSec, dollars("0.0006"));
  EXPECT_EQ(payData.medicare, dollars("0.0001"));
}

TEST_F(FedTaxTest, CapsNothing) {
  payData.grossPay = 1000000;
  FedTax();
  EXPECT_EQ(payData.socSec, 62000);
}

TEST_F(FedTaxTest, KeepsFicaWhereItsBaseOverflows) {
  payData.fica = 5;
  payData.grossPay = dollars("922337203685477");
  payData.preFica = dollars("-922337203685477");
  FedTax();
  EXPECT_EQ(payData.fica, 5);
}

TEST_F(FedTaxTest, CallsTheStateRoutineOnTheFinalFederalTax) {
  sheet.state = 30;  // North Dakota: 14 percent of it
  EXPECT_EQ(taxOfBase("525.01"), dollars("71.10"));
  EXPECT_EQ(payData.stateTax, dollars("9.954"));
}

TEST_F(FedTaxTest, KeepsTheStateTaxWithoutAState) {
  payData.grossPay = 1000;
  sheet.state = 34;
  FedTax();
  sheet.state = 0;
  payData.grossPay = 2000;
  FedTax();
  EXPECT_EQ(payData.stateTax, 28);
  EXPECT_EQ(payData.fica, 153);
}

TEST_F(FedTaxTest, ShowsEightFiguresHalfToEven) {
  payData.fedBase = 525;
  payData.grossPay = 1000;
  payData.amt401k = dollars("0.125");
  payData.preFica = dollars("0.135");
  payData.localTax = dollars("-2.5");
  sheet.state = 34;
  FedTax();
  EXPECT_EQ(sheet.figures[1], dollars("71.1"));
  EXPECT_EQ(sheet.figures[2], 28);
  EXPECT_EQ(sheet.figures[3], dollars("0.12"));
  EXPECT_EQ(sheet.figures[4], dollars("76.49"));  // 76.4897 of 999.865
  EXPECT_EQ(sheet.figures[5], dollars("0.14"));
  EXPECT_EQ(sheet.figures[6], dollars("61.99"));
  EXPECT_EQ(sheet.figures[7], dollars("14.5"));
  EXPECT_EQ(sheet.figures[8], dollars("-2.5"));  // of the calculation before
}

}  // namespace
}  // namespace tallyfin
