#include <string>

#include "sqlite/database.h"

namespace tallyfin::sqlite {
namespace {

/// 1000 a week of a married person without exemptions: 118.35 + (1000 - 913) * 0.28 is 142.71.
constexpr const char* federalTaxOf1000 = "142.71\n";

class PaycheckTable : public testing::Test {
 protected:
  Database database;

  std::string ask(const std::string& statement) { return database.ask(statement); }
};

/// Employees in three states; the last has no entries at all.
class Employees : public PaycheckTable {
 protected:
  Employees() {
    ask("CREATE TABLE employee(id INTEGER PRIMARY KEY, pay, frequency, state, exemptions, tax REAL);"
        "INSERT INTO employee(id, pay, frequency, state, exemptions) VALUES"
        " (1, 1000, 'Weekly', 'No State', 0), (2, 2000.5, 'Monthly', 'PA', 1), (3, '1,000.00', 0, 0, NULL),"
        " (4, NULL, NULL, NULL, NULL)");
  }
};

TEST_F(PaycheckTable, TakesArgumentsInTheOrderOfTheColumns) {
  EXPECT_EQ(ask("SELECT federal_tax FROM paycheck(1000, 0, 0, 0, 'Weekly')"), federalTaxOf1000);
  // (1000 - 60 - 2 * 52.88 - 124) * 0.15 is 106.536.
  EXPECT_EQ(ask("SELECT amt_401k, federal_tax, check_amount FROM paycheck(1000, 6, 0, 0, 'Weekly', 'Married', 2)"),
            "60.0|106.54|756.96\n");
}

TEST_F(PaycheckTable, TakesArgumentsByName) {
  EXPECT_EQ(ask("SELECT federal_tax FROM paycheck WHERE frequency = 'Weekly' AND income = 1000"), federalTaxOf1000);
  EXPECT_EQ(ask("SELECT federal_tax FROM paycheck(1000) WHERE frequency IS 'Weekly'"), federalTaxOf1000);
}

TEST_F(PaycheckTable, HasTheResultsAndTheProblemForColumns) {
  EXPECT_EQ(ask("SELECT * FROM paycheck(1000, 6, 10, 0, 'Weekly', 'Single', 1, 'PA')"),
            "1000.0|60.0|10.0|0.0|169.69|28.0|0.0|76.5|62.0|14.5|334.19|665.81|NULL\n");
  EXPECT_EQ(ask("SELECT name, type, hidden FROM pragma_table_xinfo('paycheck') WHERE cid IN (0, 11, 12, 13, 32)"),
            "gross_pay|REAL|0\ncheck_amount|REAL|0\nproblem|TEXT|0\nincome||1\nnet||1\n");
  EXPECT_EQ(ask("SELECT count(*) FROM pragma_table_xinfo('paycheck')"), "33\n");
}

TEST_F(PaycheckTable, HasNullResultsWhereAnArgumentIsNotUnderstood) {
  EXPECT_EQ(
      ask("SELECT gross_pay, check_amount, problem FROM paycheck(1000) WHERE frequency = 4 AND state = 'Atlantis'"),
      "NULL|NULL|frequency: no such entry; state: no such entry\n");
  EXPECT_EQ(ask("SELECT gross_pay, federal_tax, problem FROM paycheck('much', 0, 0, 0, 'Weekly')"),
            "0.0|0.0|income: not a number\n");
}

TEST_F(PaycheckTable, TakesAnyKindOfValue) {
  for (const char* income : {"1000", "1000.0", "'1000'", "'$1,000.00'", "x'31303030'", "CAST('1000' AS BLOB)"}) {
    EXPECT_EQ(ask("SELECT federal_tax FROM paycheck(" + std::string(income) + ", 0, 0, 0, 'Weekly')"), federalTaxOf1000)
        << income;
  }
  for (const char* frequency : {"0", "0.0", "'0'", "'weekly'", "x'30'"}) {
    EXPECT_EQ(ask("SELECT federal_tax FROM paycheck(1000, 0, 0, 0, " + std::string(frequency) + ")"), federalTaxOf1000)
        << frequency;
  }
}

TEST_F(PaycheckTable, TakesNullAndTheEmptyTextForAnEmptyCell) {
  EXPECT_EQ(ask("SELECT federal_tax FROM paycheck(1000, NULL, '', x'', 'Weekly', NULL)"), federalTaxOf1000);
  EXPECT_EQ(ask("SELECT gross_pay, problem FROM paycheck"),
            "0.0|frequency: none is chosen and so there is no federal tax\n");
}

TEST_F(PaycheckTable, GivesArgumentsBackAsTheyCame) {
  EXPECT_EQ(ask("SELECT income, typeof(income), rate_401k, typeof(rate_401k), pre_tax, typeof(pre_tax), pre_fica,"
                " typeof(pre_fica), frequency, typeof(frequency), typeof(status), hex(state), typeof(state), net"
                " FROM paycheck(1000, 6.5, '1.0', zeroblob(2), 'Weekly', NULL, NULL, x'00FF') WHERE net IS NULL"),
            "1000|integer|6.5|real|1.0|text||blob|Weekly|text|null|00FF|blob|NULL\n");
}

TEST_F(PaycheckTable, TakesAllTwentyArguments) {
  EXPECT_EQ(
      ask("SELECT federal_tax, state_tax FROM paycheck(1000, 0, 0, 0, 'Weekly', 'Married', 0, 'IL', 'N', 'N', 'N', 0, 1,"
          " 1, 2, 0, 0, 0, 0, '')"),
      ask("SELECT federal_tax, state_tax FROM paycheck(1000, 0, 0, 0, 'Weekly', 'Married', 0, 'IL') WHERE"
          " state_dependents = 1 AND illinois_dependents = 2"));
  EXPECT_EQ(
      ask("SELECT p.gross_pay FROM paycheck p WHERE income = '' AND rate_401k = 0 AND pre_tax = 0 AND pre_fica = 0 AND"
          " frequency = 0 AND status = 1 AND exemptions = 0 AND state = 0 AND self_employed = 'N' AND"
          " state_401k = 'N' AND state_pre_tax = 'N' AND local_rate = 0 AND local_base = 1 AND state_dependents = 0"
          " AND illinois_dependents = 0 AND state_exemptions = 0 AND state_marital = 0 AND state_method = 0.0 AND"
          " state_additional = x'30' AND net IS NULL"),
      "0.0\n");
}

/// After the sixteenth condition SQLite compares itself. NULL equals nothing there, so the row would be missing.
TEST_F(PaycheckTable, RefusesNullWhereSqliteWouldDropTheRow) {
  const std::string sixteen = "1000, 0, 0, 0, 'Weekly', 0, 0, 0, 'N', 'N', 'N', 0, 1, 0, 0, 0";
  EXPECT_EQ(ask("SELECT federal_tax FROM paycheck(" + sixteen + ", 0, '', '')"), federalTaxOf1000);
  EXPECT_EQ(
      ask("SELECT federal_tax FROM paycheck(" + sixteen + ", 0, NULL)"),
      "error: state_method is NULL, and behind sixteen conditions SQLite drops such a row: write IS for =, or give ''");
  EXPECT_EQ(
      ask("SELECT federal_tax FROM paycheck(" + sixteen + ", 0) WHERE state_method IS NULL AND net IS (SELECT NULL)"),
      federalTaxOf1000);
}

TEST_F(PaycheckTable, ComparesASecondValueOfAnArgument) {
  EXPECT_EQ(ask("SELECT federal_tax FROM paycheck(1000, 0, 0, 0, 'Weekly') WHERE income = 1000.0"), federalTaxOf1000);
  EXPECT_EQ(ask("SELECT federal_tax FROM paycheck(1000, 0, 0, 0, 'Weekly') WHERE income = 2000"), "");
  EXPECT_EQ(ask("SELECT federal_tax FROM paycheck(1000, 0, 0, 0, 'Weekly') WHERE income > 2000"), "");
  EXPECT_EQ(ask("SELECT federal_tax FROM paycheck(1000, 0, 0, 0, 'Weekly') WHERE check_amount > 700"),
            federalTaxOf1000);
}

TEST_F(PaycheckTable, WorksAPaycheckForEachValueOfIn) {
  EXPECT_EQ(
      ask("SELECT income, federal_tax FROM paycheck WHERE income IN (1000, 2000) AND frequency = 'Weekly' ORDER BY 1"),
      "1000|142.71\n2000|425.89\n");
}

TEST_F(PaycheckTable, WorksAPaycheckForEachSideOfOr) {
  EXPECT_EQ(
      ask("SELECT income, federal_tax FROM paycheck WHERE frequency = 'Weekly' AND (income = 1000 OR income = 2000)"
          " ORDER BY 1"),
      "1000|142.71\n2000|425.89\n");
  EXPECT_EQ(ask("SELECT frequency, federal_tax FROM paycheck(1000) WHERE frequency = 'Weekly' OR frequency = 'Monthly'"
                " ORDER BY 1 DESC"),
            "Weekly|142.71\nMonthly|69.3\n");
  EXPECT_EQ(ask("SELECT count(*) FROM paycheck WHERE"
                " ((income = 1000 AND status = 1) OR (income = 1000.0 AND status = 1))"),
            "1\n");
}

/// SQLite plans the operands of an OR without the other conditions, and may choose a plan that lacks an argument.
TEST_F(PaycheckTable, RefusesAPlanThatLacksAnArgument) {
  EXPECT_EQ(ask("SELECT 1 FROM paycheck WHERE frequency = 0 AND status = 0 AND (income = 1000 OR net = 700)"),
            "error: income is read, but is no argument of the paycheck as SQLite plans it");
  EXPECT_EQ(ask("SELECT 1 FROM paycheck WHERE income > 1000"),
            "error: income is read, but is no argument of the paycheck as SQLite plans it");
  EXPECT_EQ(ask("SELECT net, income FROM paycheck(1000) WHERE net IS NULL"), "NULL|1000\n");
}

TEST_F(Employees, AreJoinedInAnyOrder) {
  const std::string wanted =
      "1|142.71|NULL\n2|185.0|NULL\n3|142.71|NULL\n4|0.0|frequency: none is chosen and so there is no"
      " federal tax\n";
  const std::string arguments =
      " p.income = e.pay AND p.frequency = e.frequency AND p.state = e.state AND"
      " p.exemptions = e.exemptions ORDER BY e.id";
  EXPECT_EQ(ask("SELECT e.id, p.federal_tax, p.problem FROM employee e JOIN paycheck p ON" + arguments), wanted);
  EXPECT_EQ(ask("SELECT e.id, p.federal_tax, p.problem FROM paycheck p JOIN employee e ON" + arguments), wanted);
  EXPECT_EQ(ask("SELECT e.id, p.federal_tax, p.problem FROM employee e LEFT JOIN paycheck p ON" + arguments), wanted);
  EXPECT_EQ(
      ask("SELECT e.id, p.federal_tax, p.problem FROM employee e, paycheck(e.pay, 0, 0, 0, e.frequency, '', e.exemptions,"
          " e.state) p ORDER BY e.id"),
      wanted);
  EXPECT_EQ(ask("SELECT e.id, p.federal_tax FROM paycheck p CROSS JOIN employee e ON p.income = e.pay"),
            "error: income is read, but is no argument of the paycheck as SQLite plans it");
}

TEST_F(Employees, AreJoinedTwice) {
  EXPECT_EQ(ask("SELECT round(b.check_amount - a.check_amount, 4) FROM employee e"
                " JOIN paycheck a ON a.income = e.pay AND a.frequency = e.frequency"
                " JOIN paycheck b ON b.income = a.gross_pay + 100 AND b.frequency = a.frequency WHERE e.id = 1"),
            "64.35\n");  // 100 less 28 percent of federal tax and 7.65 percent of FICA
}

TEST_F(Employees, AreWorkedInAView) {
  ask("CREATE VIEW paid AS SELECT e.id, e.state, p.* FROM employee e JOIN paycheck p"
      " ON p.income = e.pay AND p.frequency = e.frequency AND p.state = e.state");
  EXPECT_EQ(ask("SELECT federal_tax FROM paid WHERE id = 1"), federalTaxOf1000);
  EXPECT_EQ(ask("SELECT state, count(*) FROM paid WHERE state_tax > 0 GROUP BY state"), "PA|1\n");
  ask("PRAGMA trusted_schema = OFF");
  EXPECT_EQ(ask("SELECT federal_tax FROM paid WHERE id = 1"), federalTaxOf1000);
}

TEST_F(Employees, AreWorkedInATrigger) {
  ask("CREATE TRIGGER worked AFTER UPDATE OF pay ON employee BEGIN UPDATE employee SET tax ="
      " (SELECT federal_tax FROM paycheck(new.pay, 0, 0, 0, new.frequency)) WHERE id = new.id; END");
  ask("PRAGMA trusted_schema = OFF; UPDATE employee SET pay = 2000 WHERE id = 1");
  EXPECT_EQ(ask("SELECT tax FROM employee WHERE id = 1"), "425.89\n");
}

TEST_F(Employees, AreWorkedInACorrelatedSubquery) {
  EXPECT_EQ(
      ask("SELECT id, (SELECT federal_tax FROM paycheck WHERE income = e.pay AND frequency = e.frequency) FROM employee e"
          " WHERE id < 4 ORDER BY id"),
      "1|142.71\n2|219.38\n3|142.71\n");
  EXPECT_EQ(ask("SELECT id FROM employee e WHERE EXISTS (SELECT 1 FROM paycheck(e.pay, 0, 0, 0, e.frequency)"
                " WHERE federal_tax > 200)"),
            "2\n");
}

TEST_F(Employees, AreUpdated) {
  ask("UPDATE employee SET tax = p.federal_tax FROM paycheck p"
      " WHERE p.income = employee.pay AND p.frequency = employee.frequency AND p.problem IS NULL");
  EXPECT_EQ(ask("SELECT id, tax FROM employee ORDER BY id"), "1|142.71\n2|219.38\n3|142.71\n4|NULL\n");
}

TEST_F(Employees, HaveMoreThanSixteenArgumentsByName) {
  ask("ALTER TABLE employee ADD COLUMN missing");
  std::string by =
      " p.income = e.pay AND p.frequency = e.frequency AND p.state = e.state AND p.exemptions = e.exemptions";
  for (const char* column : {"rate_401k", "pre_tax", "pre_fica", "status", "self_employed", "state_401k",
                             "state_pre_tax", "local_rate", "local_base", "state_dependents", "illinois_dependents",
                             "state_exemptions", "state_marital", "state_method", "state_additional", "net"}) {
    by += std::string(" AND p.") + column + " IS e.missing";
  }
  EXPECT_EQ(ask("SELECT e.id, p.federal_tax FROM employee e JOIN paycheck p ON" + by + " WHERE e.id < 4 ORDER BY e.id"),
            "1|142.71\n2|185.0\n3|142.71\n");
}

TEST_F(PaycheckTable, ReadsDatabasesOfTwoByteCharacters) {
  ask("PRAGMA encoding = 'UTF-16'; CREATE TABLE t(state); INSERT INTO t VALUES ('Pennsylvania')");
  EXPECT_EQ(ask("SELECT state_tax FROM t, paycheck(1000, 0, 0, 0, 'Weekly', 1, 0, t.state)"), "28.0\n");
}

TEST_F(PaycheckTable, CannotBeChanged) {
  EXPECT_EQ(ask("DELETE FROM paycheck"), "error: table paycheck may not be modified");
}

}  // namespace
}  // namespace tallyfin::sqlite
