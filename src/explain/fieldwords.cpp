#include "explain/fieldwords.h"

#include <array>
#include <span>

#include "engine/choices.h"

namespace tallyfin {

namespace {

struct Words {
  std::string_view name;
  const char* title;
  const char* origin;
};

constexpr const char* fromOptions = "from the state options";
constexpr Words fields[] = {
    {"depsDed", "Federal allowance for the exemptions", "as it stood before"},
    {"exemptions", "Exemptions", "as counted last"},
    {"payPeriods", "Pay periods a year", "as it stood before"},
    {"localRate", "Local tax rate", "from the local tax page"},
    {"staDeps", "Dependents for the state", fromOptions},
    {"illDeps", "Second count of dependents", fromOptions},
    {"staExmp", "Special selection of the state", fromOptions},
    {"mMethod", "Special selection of the state", fromOptions},
    {"staAdd", "Additional amount for the state", fromOptions},
    {"rate401k", "401(k) rate", nullptr},
    {"preFica", "Pre-FICA amount", nullptr},
    {"preTax", "Pre-tax amount", nullptr},
    {"amt401k", "401(k) contribution", nullptr},
    {"taxableWage", "Taxable wage", nullptr},
    {"fedBase", "Wage for the federal tax", nullptr},
    {"grossPay", "Gross pay", nullptr},
    {"fedTax", "Federal tax", nullptr},
    {"stateTax", "State tax", nullptr},
    {"fica", "FICA", nullptr},
    {"socSec", "Social Security", nullptr},
    {"medicare", "Medicare", nullptr},
    {"localTax", "Local tax", nullptr},
    {"totalDed", "Total of deductions", nullptr},
    {"checkAmt", "Check", nullptr},
    {"state401k", "401(k) contribution that the state leaves untaxed", nullptr},
    {"statePreTax", "Pre-tax amount that the state leaves untaxed", nullptr},
    {"stateDepsDed", "Deduction of the state", nullptr},
    {"stateWage", "Wage for the state tax", nullptr},
    {"stateStdDed", "Second deduction of the state", nullptr},
};

constexpr Words entries[] = {
    {"frmMain.txtIncome", "Income", "as entered"},         {"frmMain.txt401k", "401(k) rate", "as entered"},
    {"frmMain.txtPreTax", "Pre-tax amount", "as entered"}, {"frmMain.txtPreFICA", "Pre-FICA amount", "as entered"},
    {"frmMain.cboExemptions", "Exemptions", "as chosen"},
};

FieldWords found(std::span<const Words> all, std::string_view name) {
  for (const Words& words : all) {
    if (words.name == name) return {words.title, words.origin ? words.origin : "as the last calculation left it"};
  }
  return {std::string(name), "as it stood before"};
}

constexpr const char* filing[] = {"Single",
                                  "Single, claiming full personal exemption",
                                  "Single, claiming none",
                                  "Married, claiming for both spouses",
                                  "Married, claiming for yourself only",
                                  "Married, claiming none",
                                  "Married Filing Separately",
                                  "Married, spouse not employed",
                                  "Married, spouse employed",
                                  "Head of Family"};
constexpr const char* letters[] = {"A", "B", "C", "D", "E"};
constexpr const char* bases[] = {"none",
                                 "gross pay",
                                 "gross pay less the 401(k) contribution",
                                 "gross pay less the pre-tax amount",
                                 "gross pay less the 401(k) contribution and the pre-tax amount",
                                 "gross pay less the deduction of the state"};

struct Choice {
  std::string_view field;
  const char* title;
  std::span<const char* const> names;
};
constexpr Choice choices[] = {
    {"maritalStat", "Marital status", status::captions},   {"frequency", "Pay frequency", frequency::captions},
    {"staMarried", "Filing status for the state", filing}, {"staRate", "Rate letter", letters},
    {"applyTo", "Base of the local tax", bases},
};

}  // namespace

FieldWords fieldWords(std::string_view field) { return found(fields, field); }

bool isStateOption(std::string_view field) { return fieldWords(field).origin == fromOptions; }

FieldWords entryWords(std::string_view control) { return found(entries, control); }

std::optional<ChoiceWords> choiceWords(std::string_view field, int number, const std::string& shown) {
  for (const Choice& choice : choices) {
    if (choice.field != field) continue;
    const bool known = number >= 0 && number < static_cast<int>(choice.names.size());
    std::string name = known ? choice.names[static_cast<std::size_t>(number)] : "none";
    if (known && field == "maritalStat" && !shown.empty() && shown != name) {
      name += ", by whose tables the choice \"" + shown + "\" is worked out";
    }
    if (field == "staRate")
      name += ", whatever letter is chosen in the state options: this calculation doesn't read it";
    return ChoiceWords{choice.title, name};
  }
  return std::nullopt;
}

}  // namespace tallyfin
