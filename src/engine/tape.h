#pragma once

#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "engine/bands.h"
#include "engine/int16.h"
#include "engine/money.h"

/// Where the figures of a recorded calculation come from, as plain data.

namespace tallyfin {

enum class Op {
  constant,  ///< A constant of the rules.
  entry,     ///< What the user entered.
  left,      ///< The value of a field before the calculation.
  titled,    ///< The result of a statement, or a line within one.
  add,
  subtract,
  multiply,
  divide,
  toReal,
  fromReal,
  toInt16,
  roundCents,
  roundDollars,
  least,
  greatest
};

using Value = std::variant<Money, Int16, double, float>;

/// The index of a figure's node on the tape.
using NodeId = int;
inline constexpr NodeId noNode = -1;

/// A figure: a leaf, or an operation on one or two others.
struct Node {
  Op op = Op::constant;
  Value value;
  NodeId a = noNode;
  NodeId b = noNode;
  const char* name = "";   ///< Of a constant; the address of an entry, the name of a field, the title.
  const char* title = "";  ///< Of a field: its title in the rule, where the rule has one.
  bool inDollars = false;  ///< A constant of the 16-bit arithmetic that is dollars.
  int circumstances = -1;  ///< Index of those of a titled figure.
};

/// A comparison on which a figure depends, and its result.
struct Comparison {
  enum class How { equal, below, atMost, above, atLeast, from };
  How how;
  NodeId a;
  NodeId b = noNode;
  NodeId c = noNode;  ///< The upper end of `from`.
  bool held = true;
};

/// A row of a table as it is published. Columns that its kind of table doesn't have are 0.
struct TableRow {
  enum class Gives { tax, amount, part };  ///< An amount is in `plus`, a part in `rate`.
  Gives gives = Gives::tax;
  Test test = Test::atMost;
  Money bound{};
  Money lower{};
  double rate = 0;
  double plus = 0;
  double credit = 0;  ///< Dollars for each exemption, off the tax.
};

/// A table and the row of it that was applied.
struct AppliedRow {
  std::string table;  ///< Its name, with the pay frequency where the table goes by it.
  std::vector<TableRow> rows;
  std::size_t number = 0;  ///< Of the row, from 0.
  NodeId x = noNode;

  const TableRow& row() const { return rows[number]; }
  /// The row above; null for the first.
  const TableRow* before() const { return number == 0 ? nullptr : &rows[number - 1]; }
};

/// What an explanation says beside the formula of a titled figure.
struct Circumstances {
  std::vector<Comparison> comparisons;
  std::vector<std::string> notes;
  std::optional<AppliedRow> row;
};

/// All figures of a calculation, in the order in which they were calculated.
struct Tape {
  std::vector<Node> nodes;
  std::vector<Circumstances> circumstances;
};

}  // namespace tallyfin
