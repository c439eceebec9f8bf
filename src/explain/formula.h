#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "engine/tape.h"

/// For the worksheet of one row of the results: which figures of the tape have a line, which stand within a formula,
/// and which are left out because they had no effect.

namespace tallyfin {

/// Where an operand stands in a formula.
enum class Place {
  own,     ///< It is the formula of a line.
  term,    ///< Of a sum.
  factor,  ///< Of a product.
  alone    ///< Anywhere else: it has a line of its own unless it is a constant.
};

class Formula {
 public:
  using Notes = std::vector<std::string>;

  /// `rows` are the figures that belong to other rows of the results, by their titles.
  Formula(const Tape& tape, std::map<NodeId, const char*> rows) : tape_(tape), rows_(std::move(rows)) {}

  const Node& at(NodeId id) const { return tape_.nodes[static_cast<std::size_t>(id)]; }
  /// Of a titled figure.
  const Circumstances& circumstances(NodeId id) const;

  /// The title of the row to which the figure belongs, or null.
  const char* rowOf(NodeId id) const;
  bool isLeaf(NodeId id) const;

  /// The figure itself, or the one that it equals after operations without effect are left out. The notes of those are
  /// added to `notes`.
  NodeId resolved(NodeId id, Notes* notes = nullptr) const;

  /// Whether a resolved figure stands within the formula around it, and not in a line of its own.
  bool inlined(NodeId id, Place place) const;

  /// A wage less a bound, as a factor: "the amount of line 7 over $525.00".
  bool isExcess(NodeId id) const;
  /// A whole number that is dollars.
  bool isDollars(NodeId id) const;

 private:
  std::optional<NodeId> sameAs(NodeId id, Notes* notes) const;
  void noteOf(NodeId id, Notes* notes) const;
  void drop(NodeId id, Notes* notes) const;

  const Tape& tape_;
  std::map<NodeId, const char*> rows_;
};

bool isReal(const Value& value);

}  // namespace tallyfin
