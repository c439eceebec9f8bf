#include "engine/calculate.h"

#include "support/paycheck.h"

namespace tallyfin {
namespace {

class CalculateTest : public PaycheckTest {
 protected:
  CalculateTest() { payData.maritalStat = 1; }
};

TEST_F(CalculateTest, TakesThe401kOfTheWholeIncomeOffTheWage) {
  sheet.income = "1000";
  sheet.rate401k = "6";
  Calculate();
  EXPECT_EQ(payData.rate401k, 0.06);
  EXPECT_EQ(payData.amt401k, 60);
  EXPECT_EQ(payData.taxableWage, 940);
  EXPECT_EQ(payData.grossPay, 1000);
}

TEST_F(CalculateTest, KeepsFourDecimalsOfThe401kAmount) {
  sheet.income = "1234.56";
  sheet.rate401k = "7.65";
  Calculate();
  EXPECT_EQ(payData.amt401k, dollars("94.4438"));
}

TEST_F(CalculateTest, TakesARateOfOneOrMoreAsAPercentage) {
  for (const auto& [typed, rate] : std::initializer_list<std::pair<const char*, double>>{{"1", 0.01},
                                                                                         {"6", 0.06},
                                                                                         {".06", 0.06},
                                                                                         {".5", 0.5},
                                                                                         {"0.999", 0.999},
                                                                                         {"99.5", 0.995},
                                                                                         {"-2", -2},
                                                                                         {"", 0}}) {
    sheet.rate401k = typed;
    Calculate();
    EXPECT_EQ(payData.rate401k, rate) << typed;
  }
}

TEST_F(CalculateTest, TakesHalfTheIncomeAtARateOfPointFive) {
  sheet.income = "1000";
  sheet.rate401k = ".5";
  Calculate();
  EXPECT_EQ(payData.amt401k, 500);
}

TEST_F(CalculateTest, FloorsTheTaxableWageAtZero) {
  sheet.income = "1000";
  sheet.preTax = "1500";
  Calculate();
  EXPECT_EQ(payData.taxableWage, 0);
  EXPECT_EQ(payData.grossPay, 1000);
}

TEST_F(CalculateTest, EndsAtZeroWhereTheDeductionsAreTheIncome) {
  sheet.income = "1000";
  sheet.rate401k = "6";
  sheet.preTax = "900";
  sheet.preFica = "40";
  Calculate();
  EXPECT_EQ(payData.taxableWage, 0);
  EXPECT_EQ(payData.amt401k, 60);
}

TEST_F(CalculateTest, TakesAPreTaxAmountWithinThePreFicaAmountOffTwice) {
  sheet.income = "1000";
  sheet.preTax = "100";
  sheet.preFica = "100";
  Calculate();
  EXPECT_EQ(payData.taxableWage, 800);
}

TEST_F(CalculateTest, ReadsAnAmountInParenthesesAsNegative) {
  sheet.income = "$1,000.00";
  sheet.preTax = "($500.00)";
  Calculate();
  EXPECT_EQ(payData.preTax, -500);
  EXPECT_EQ(payData.taxableWage, 1500);
}

TEST_F(CalculateTest, DoesNotFloorTheFederalBase) {
  sheet.income = "100";
  payData.depsDed = dollars("158.64");
  Calculate();
  EXPECT_EQ(payData.fedBase, dollars("-58.64"));
  EXPECT_EQ(payData.fedTax, 0);
}

TEST_F(CalculateTest, CalculatesOnNothingOnAFirstRunWithAnEmptyBox) {
  Calculate();
  EXPECT_EQ(payData.grossPay, 0);
  EXPECT_EQ(payData.fica, 0);
  EXPECT_EQ(payData.fedTax, 0);
}

TEST_F(CalculateTest, KeepsTheOldGrossAndItsFicaUnderAnEmptyIncome) {
  sheet.income = "1000";
  sheet.rate401k = "6";
  Calculate();
  ASSERT_GT(payData.fedTax, 0);
  sheet.income = "";
  Calculate();
  EXPECT_EQ(payData.grossPay, 1000);
  EXPECT_EQ(payData.fica, dollars("76.5"));
  EXPECT_EQ(payData.taxableWage, 0);
  EXPECT_EQ(payData.amt401k, 0);
  EXPECT_EQ(payData.fedTax, 0);
}

TEST_F(CalculateTest, TakesTheLastReducedWageForGrossWhereTheIncomeIsNoNumber) {
  sheet.income = "1000";
  sheet.rate401k = "6";
  Calculate();
  sheet.income = "a lot";
  Calculate();
  EXPECT_EQ(payData.grossPay, 940);
  EXPECT_EQ(payData.amt401k, dollars("56.4"));
  EXPECT_EQ(payData.taxableWage, dollars("883.6"));
}

TEST_F(CalculateTest, KeepsWhatABoxHeldWhereItsTextIsNoNumber) {
  sheet.income = "1000";
  sheet.rate401k = "6";
  sheet.preTax = "40";
  sheet.preFica = "30";
  Calculate();
  sheet.rate401k = "six";
  sheet.preTax = "%";
  sheet.preFica = " ";
  Calculate();
  EXPECT_EQ(payData.rate401k, 0.06);
  EXPECT_EQ(payData.preTax, 40);
  EXPECT_EQ(payData.preFica, 30);
  EXPECT_EQ(payData.taxableWage, 870);
}

TEST_F(CalculateTest, NormalisesTheKeptRateAgain) {
  sheet.rate401k = "500";
  Calculate();
  EXPECT_EQ(payData.rate401k, 5);
  sheet.rate401k = "abc";
  Calculate();
  EXPECT_EQ(payData.rate401k, 0.05);
}

TEST_F(CalculateTest, TakesARaisedIncomeFromTheRecord) {
  sheet.income = "1000";
  payData.incomeSource = 1;
  payData.taxableWage = 824;
  Calculate();
  EXPECT_EQ(payData.grossPay, 824);
  EXPECT_EQ(payData.taxableWage, 824);
}

TEST_F(CalculateTest, ReadsNoIncomeFromAnyOtherSource) {
  sheet.income = "1000";
  payData.incomeSource = 2;
  payData.taxableWage = 500;
  payData.grossPay = 7;
  Calculate();
  EXPECT_EQ(payData.grossPay, 7);
  EXPECT_EQ(payData.fedBase, 500);
}

TEST_F(CalculateTest, LeavesAWageWhoseDeductionsOverflow) {
  sheet.income = "1000";
  sheet.preTax = "922337203685477";
  sheet.preFica = "922337203685477";
  Calculate();
  EXPECT_EQ(payData.taxableWage, 1000);
  EXPECT_EQ(payData.fedBase, 1000);
}

TEST_F(CalculateTest, KeepsThe401kAmountWhereTheProductOverflows) {
  sheet.income = "1000";
  sheet.rate401k = "6";
  Calculate();
  sheet.rate401k = "1E300";
  Calculate();
  EXPECT_EQ(payData.amt401k, 60);
}

TEST_F(CalculateTest, ReadsNeitherExemptionsNorPayPeriods) {
  sheet.income = "1000";
  sheet.exemptionsEntry = "15";
  Calculate();
  EXPECT_EQ(payData.depsDed, 0);
  EXPECT_EQ(payData.payPeriods, 0);
  EXPECT_EQ(sheet.exemptions, 0);
}

TEST_F(CalculateTest, CalculatesTheLocalTaxLast) {
  sheet.income = "1000";
  payData.applyTo = 1;
  payData.localRate = 0.01;
  Calculate();
  EXPECT_EQ(payData.localTax, 10);
  EXPECT_EQ(sheet.figures[8], 0);  // the label was filled before
  Calculate();
  EXPECT_EQ(sheet.figures[8], 10);
}

}  // namespace
}  // namespace tallyfin
