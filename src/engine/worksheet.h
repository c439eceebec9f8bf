#pragma once

#include <string>
#include <type_traits>

#include "engine/int16.h"
#include "engine/money.h"

namespace tallyfin {

/// Working fields that all state routines share. They live as long as the main screen, and nothing resets them between
/// calculations. Some results depend on that.
template <class Amount, class Count>
struct WorksheetFieldsOf {
  Count exemptions;    ///< The count of exemptions as last parsed.
  Amount stateWage;    ///< The base that a state routine works on, a period's or a year's.
  Amount stateStdDed;  ///< A second state deduction.
  Count staRate;       ///< Letter of the rate schedules of Connecticut and New Jersey. Nothing assigns it: it is 0.

  bool operator==(const WorksheetFieldsOf&) const = default;
};
using WorksheetFields = WorksheetFieldsOf<Money, Int16>;

/// Working fields, in figures of any kind.
template <class T>
concept HasWorkingFields = requires(T& one) {
  one.stateStdDed;
};

/// Calls visit(name, field...) for each field in declaration order, with the fields of that name of all arguments.
template <class Visit, HasWorkingFields... All>
void forFieldsOf(Visit&& visit, All&... all) {
  visit("exemptions", all.exemptions...);
  visit("stateWage", all.stateWage...);
  visit("stateStdDed", all.stateStdDed...);
  visit("staRate", all.staRate...);
}

/// The same for one argument.
template <HasWorkingFields One, class Visit>
void forEachField(One& one, Visit&& visit) {
  forFieldsOf(visit, one);
}

/// What a calculation reads of the main screen, and the labels that it sets. The main screen implements it; tests use a
/// fake.
class Worksheet : public WorksheetFields {
 public:
  virtual ~Worksheet() = default;

  virtual const std::string& incomeText() const = 0;
  virtual const std::string& rate401kText() const = 0;
  virtual const std::string& preTaxText() const = 0;
  virtual const std::string& preFicaText() const = 0;

  /// Text of the number of exemptions.
  virtual const std::string& exemptionsText() const = 0;
  /// Position in the state list, 0 "No State", -1 none chosen.
  virtual int stateIndex() const = 0;
  virtual bool selfEmployed() const = 0;

  /// Shows a figure, rounded to two decimals, on one of the labels lbl1 to lbl8.
  virtual void showFigure(int label, Money figure) = 0;
};

/// Returns the worksheet; creates it if there is none.
class WorksheetProvider {
 public:
  virtual Worksheet& provideWorksheet() = 0;

 protected:
  ~WorksheetProvider() = default;
};

/// The provider that Services have installed on this thread; null without them.
inline constinit thread_local WorksheetProvider* worksheetProvider = nullptr;

/// The current worksheet of this thread.
inline Worksheet& worksheet() { return worksheetProvider->provideWorksheet(); }

}  // namespace tallyfin
