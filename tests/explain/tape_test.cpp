#include <gmock/gmock.h>

#include "explain/explain.h"

/// Worksheets of tapes made by hand, for operations that rules may use but no state does.

namespace tallyfin {
namespace {

using testing::ElementsAre;

class TapeTest : public testing::Test {
 protected:
  NodeId add(Op op, Value value, NodeId a = noNode, NodeId b = noNode, const char* name = "") {
    trace.tape.nodes.push_back({.op = op, .value = value, .a = a, .b = b, .name = name});
    return static_cast<NodeId>(trace.tape.nodes.size()) - 1;
  }
  NodeId constant(Value value) { return add(Op::constant, value, noNode, noNode, "constant"); }
  NodeId titled(Value value, NodeId a, Circumstances circumstances = {}) {
    const NodeId id = add(Op::titled, value, a, noNode, "Tax");
    trace.tape.nodes.back().circumstances = static_cast<int>(trace.tape.circumstances.size());
    trace.tape.circumstances.push_back(std::move(circumstances));
    return id;
  }

  /// The worksheet of the state tax.
  std::vector<std::string> worksheetOf(NodeId figure) {
    for (NodeId& result : trace.results) result = add(Op::left, Money(), noNode, noNode, "other");
    trace.results[5] = figure;
    return explain(trace)[5].printed();
  }

  Trace trace;
  NodeId wage = add(Op::left, Money(5), noNode, noNode, "stateWage");
  const std::string wageLine = "1. Wage for the state tax: $5.00, as the last calculation left it = $5.00";
};

TEST_F(TapeTest, AFieldWithoutWordsGoesByItsName) {
  EXPECT_THAT(worksheetOf(add(Op::left, Money(5), noNode, noNode, "odd")),
              ElementsAre("1. odd: $5.00, as it stood before = $5.00"));
}

TEST_F(TapeTest, EachQuestionHasItsWords) {
  using enum Comparison::How;
  const NodeId one = constant(Money(1));
  const NodeId two = constant(Money(2));
  const NodeId ten = constant(Money(10));
  const NodeId sum = add(Op::add, Money(2), wage, constant(Money(-3)));
  const NodeId tax = titled(Money(2), sum,
                            {.comparisons = {{below, wage, ten},
                                             {below, wage, one, noNode, false},
                                             {atMost, wage, ten},
                                             {atMost, wage, two, noNode, false},
                                             {above, wage, one},
                                             {above, wage, ten, noNode, false},
                                             {atLeast, wage, two},
                                             {atLeast, wage, ten, noNode, false},
                                             {from, wage, one, two, false}},
                             .notes = {},
                             .row = {}});
  EXPECT_THAT(
      worksheetOf(tax),
      ElementsAre(wageLine,
                  "2. Tax: line 1 less $3.00, as line 1 is below $10.00 and line 1 is not below $1.00 and line 1 "
                  "is not over $10.00 and line 1 is over $2.00 and line 1 is over $1.00 and line 1 is not below "
                  "$2.00 and line 1 is not from $1.00 to $2.00 = $2.00"));
}

TEST_F(TapeTest, ARowThatDoesNotJoinTheOneBeforeTellsBothBounds) {
  AppliedRow row{
      .table = "Odd", .rows = {{.bound = 2}, {.test = ::tallyfin::Test::above, .bound = 4}}, .number = 1, .x = wage};
  const NodeId tax = titled(Money(7), add(Op::add, Money(7), wage, constant(Money(2))),
                            {.comparisons = {}, .notes = {}, .row = std::move(row)});
  EXPECT_THAT(
      worksheetOf(tax),
      ElementsAre(wageLine,
                  "2. Tax: line 1 plus $2.00, by the table \"Odd\", where line 1 is over $4.00 and the row before "
                  "it ends at $2.00 = $7.00"));
}

TEST_F(TapeTest, AnOpenRowWithoutOneBeforeTellsItsBound) {
  AppliedRow row{.table = "Odd", .rows = {{.test = ::tallyfin::Test::above, .bound = 4}}, .number = 0, .x = wage};
  const NodeId tax = titled(Money(7), add(Op::add, Money(7), wage, constant(Money(2))),
                            {.comparisons = {}, .notes = {}, .row = std::move(row)});
  EXPECT_THAT(
      worksheetOf(tax),
      ElementsAre(wageLine, "2. Tax: line 1 plus $2.00, by the table \"Odd\", where line 1 is over $4.00 = $7.00"));
}

TEST_F(TapeTest, WhatHasNoPlaceInAFormulaHasALineOfItsOwn) {
  const NodeId more = add(Op::add, Money(8), wage, constant(Money(3)));
  const NodeId less = add(Op::subtract, Money(-3), wage, more);
  const NodeId three = constant(Int16(3));
  EXPECT_THAT(worksheetOf(titled(Money(24), add(Op::multiply, Money(24), more, three))),
              ElementsAre(wageLine, "2. line 1 plus $3.00 = $8.00", "3. Tax: line 2 times 3 = $24.00"));
  EXPECT_THAT(worksheetOf(titled(Money(-9), add(Op::multiply, Money(-9), less, three))),
              ElementsAre(wageLine, "2. line 1 less line 1, less $3.00 = ($3.00)", "3. Tax: line 2 times 3 = ($9.00)"));
  EXPECT_THAT(worksheetOf(titled(Money(10), add(Op::greatest, Money(10), more, constant(Money(10))))),
              ElementsAre(wageLine, "2. line 1 plus $3.00 = $8.00", "3. Tax: line 2, but at least $10.00 = $10.00"));
  const NodeId half = add(Op::left, Money::ofUnits(25000), noNode, noNode, "stateWage");
  const NodeId whole = add(Op::roundDollars, Money(2), half);
  EXPECT_THAT(worksheetOf(titled(Money(7), add(Op::add, Money(7), wage, whole))).back(),
              "4. Tax: line 1 plus line 3 = $7.00");
}

TEST_F(TapeTest, ARoundedHalfSaysWhereItGoes) {
  const NodeId half = add(Op::left, Money::ofUnits(25000), noNode, noNode, "stateWage");
  EXPECT_THAT(
      worksheetOf(titled(Money(2), add(Op::roundDollars, Money(2), half))),
      ElementsAre("1. Wage for the state tax: $2.50, as the last calculation left it = $2.50",
                  "2. Tax: line 1, rounded down to whole dollars, since half a dollar goes to the even dollar = "
                  "$2.00"));
  const NodeId cents = add(Op::left, Money::ofUnits(10050), noNode, noNode, "stateWage");
  EXPECT_THAT(worksheetOf(titled(Money::ofUnits(10100), add(Op::roundCents, Money::ofUnits(10100), cents))).back(),
              "2. Tax: line 1, rounded up to whole cents, since half a cent goes away from zero = $1.01");
}

TEST_F(TapeTest, ASumOfNothingButWhatComesOff) {
  const NodeId none = constant(Money(-1));
  EXPECT_THAT(worksheetOf(titled(Money(-6), add(Op::subtract, Money(-6), none, wage))),
              ElementsAre(wageLine, "2. Tax: nothing less line 1, less $1.00 = ($6.00)"));
}

}  // namespace
}  // namespace tallyfin
