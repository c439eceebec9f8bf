#include "library/columns.h"

#include <gtest/gtest.h>

#include "engine/statelist.h"
#include "library/cells.h"
#include "library/states.h"

namespace tallyfin::library {
namespace {

TEST(Columns, AreFoundByTheirNames) {
  for (std::size_t i = 0; i < columnCount; ++i) {
    EXPECT_EQ(columnNamed(columnRules[i].name), static_cast<Column>(i)) << columnRules[i].name;
  }
  EXPECT_EQ(columnNamed("income"), Column::income);
  EXPECT_EQ(columnNamed(" RATE_401K\t"), Column::rate401k);
  EXPECT_EQ(columnNamed("net"), Column::net);
  EXPECT_EQ(columnNamed("incomes"), std::nullopt);
  EXPECT_EQ(columnNamed(""), std::nullopt);
}

TEST(Columns, StateIsNamedByCaptionByPostalCodeAndByNumber) {
  for (std::size_t i = 0; i < stateList.size(); ++i) {
    const int number = static_cast<int>(i);
    EXPECT_EQ(entryOf(Column::state, stateList[i].caption), number);
    EXPECT_EQ(entryOf(Column::state, std::to_string(number)), number);
  }
  for (int number = 1; number <= 41; ++number) {
    EXPECT_EQ(entryOf(Column::state, postalCodes[static_cast<std::size_t>(number)]), number);
  }
  EXPECT_EQ(entryOf(Column::state, " pa "), 34);
  EXPECT_EQ(entryOf(Column::state, "dc"), 8);
  EXPECT_EQ(entryOf(Column::state, "massachusetts"), 20);
  EXPECT_EQ(entryOf(Column::state, "District of Columbia"), 8);
}

TEST(Columns, StateThatTaxesNoWagesIsNoState) {
  for (const char* name :
       {"Alaska",    "AK", "Florida", "FL", "Nevada",     "NV", "New Hampshire", "NH", "South Dakota", "SD",
        "Tennessee", "TN", "Texas",   "TX", "Washington", "WA", "Wyoming",       "WY", "No State",     "0"}) {
    EXPECT_EQ(entryOf(Column::state, name), 0) << name;
  }
}

TEST(Columns, TextThatNamesNoEntryHasNoNumber) {
  for (const char* name : {"Atlantis", "", " ", "42", "-1", "2.5", "2.0x", "PR", "1e1", "99999999999999999999", "{",
                           ":", "1:", ":1", "/1"}) {
    EXPECT_EQ(entryOf(Column::state, name), std::nullopt) << name;
  }
  EXPECT_EQ(entryOf(Column::exemptions, "few"), std::nullopt);
  EXPECT_EQ(entryOf(Column::frequency, "4"), std::nullopt);
  EXPECT_EQ(entryOf(Column::localBase, "0"), std::nullopt);
}

TEST(Columns, WholeNumberMayHaveAPoint) {
  EXPECT_EQ(entryOf(Column::state, "34.0"), 34);
  EXPECT_EQ(entryOf(Column::exemptions, "2."), 2);
  EXPECT_EQ(entryOf(Column::frequency, "3.000"), 3);
  EXPECT_EQ(entryOf(Column::statePreTax, "1.0"), 1);
  EXPECT_EQ(countOf("7.0"), 7);
}

TEST(Columns, FrequencyHasTheNamesOfPayrollPrograms) {
  for (const char* name : {"Twice A Month", "semi-monthly", "SEMIMONTHLY"}) {
    EXPECT_EQ(entryOf(Column::frequency, name), 1) << name;
  }
  for (const char* name : {"Every Two Weeks", "biweekly", "Bi-Weekly"}) {
    EXPECT_EQ(entryOf(Column::frequency, name), 2) << name;
  }
  EXPECT_EQ(entryOf(Column::frequency, "Weekly"), 0);
  EXPECT_EQ(entryOf(Column::frequency, "Monthly"), 3);
}

TEST(Columns, FlagIsYesOrNo) {
  for (const Column column : {Column::selfEmployed, Column::state401k, Column::statePreTax}) {
    for (const char* yes : {"Y", "y", "Yes", "TRUE", "1", " yes "}) EXPECT_EQ(entryOf(column, yes), 1) << yes;
    for (const char* no : {"N", "n", "no", "False", "0", "0.0"}) EXPECT_EQ(entryOf(column, no), 0) << no;
    for (const char* neither : {"Maybe", "2", "-1", "Ye", "T"}) EXPECT_EQ(entryOf(column, neither), std::nullopt);
  }
}

}  // namespace
}  // namespace tallyfin::library
