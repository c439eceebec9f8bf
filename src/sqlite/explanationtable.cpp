#include "sqlite/explanationtable.h"

#include <cstdint>
#include <variant>

namespace tallyfin::sqlite {

namespace {

constexpr int firstHidden = 4;
/// The most lines that a worksheet could have, for the numbers of the rows.
constexpr std::uint64_t mostLines = 4096;

struct GiveValue {
  sqlite3_context* context;

  void operator()(Money amount) const { sqlite3_result_double(context, toReal(amount)); }
  void operator()(Int16 count) const { sqlite3_result_int(context, count.value()); }
  void operator()(double number) const { sqlite3_result_double(context, number); }
};

}  // namespace

std::string ExplanationCursor::schema() {
  return "CREATE TABLE paycheck_explanation(title TEXT, line INTEGER, words TEXT, value" + hiddenColumns() + ")";
}

int ExplanationCursor::plan(sqlite3_index_info& info) {
  info.estimatedRows = 50;
  return planArguments(info, firstHidden);
}

void ExplanationCursor::start(const char* plan, sqlite3_value** arguments, int count) {
  explanations_.clear();
  arguments_.take(plan, arguments, count, paycheck_);
  explanations_ = paycheck_.explain();
  result_ = 0;
  line_ = 0;
  skipEmpty();
}

void ExplanationCursor::next() {
  ++line_;
  skipEmpty();
}

/// Moves to the next result that has a line, after the last line of this one.
void ExplanationCursor::skipEmpty() {
  while (!atEnd() && line_ >= explanations_[result_].lines.size()) {
    ++result_;
    line_ = 0;
  }
}

void ExplanationCursor::give(sqlite3_context* context, int column) const {
  if (column >= firstHidden) return arguments_.give(context, static_cast<std::size_t>(column - firstHidden));
  const Explanation& explanation = explanations_[result_];
  const auto& line = explanation.lines[line_];
  if (column == 0) return giveText(context, explanation.title);
  if (column == 2) return giveText(context, line.text());
  if (line.number == 0) return;
  column == 1 ? sqlite3_result_int(context, line.number) : std::visit(GiveValue{context}, line.value);
}

sqlite3_int64 ExplanationCursor::rowid() const {
  const std::uint64_t row = arguments_.hash() + result_ * mostLines + line_;
  return static_cast<sqlite3_int64>(row);
}

}  // namespace tallyfin::sqlite
