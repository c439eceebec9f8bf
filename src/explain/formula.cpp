#include "explain/formula.h"

#include <algorithm>

#include "explain/figuretexts.h"

namespace tallyfin {

namespace {

/// Equal as numbers, an amount and a count too.
bool sameValue(const Value& a, const Value& b) {
  const auto asAmount = [](const Value& value) -> Value {
    const auto* count = std::get_if<Int16>(&value);
    return count ? Money(*count) : value;
  };
  return asAmount(a) == asAmount(b);
}

}  // namespace

bool isReal(const Value& value) { return value.index() >= 2; }

const Circumstances& Formula::circumstances(NodeId id) const {
  return tape_.circumstances[static_cast<std::size_t>(at(id).circumstances)];
}

const char* Formula::rowOf(NodeId id) const {
  const auto found = rows_.find(id);
  return found == rows_.end() ? nullptr : found->second;
}

bool Formula::isLeaf(NodeId id) const {
  const Op op = at(id).op;
  return op == Op::entry || op == Op::left || rowOf(id) != nullptr;
}

void Formula::noteOf(NodeId id, Notes* notes) const {
  if (notes == nullptr || at(id).circumstances < 0) return;
  for (const std::string& note : circumstances(id).notes) {
    if (std::find(notes->begin(), notes->end(), note) == notes->end()) notes->push_back(note);
  }
}

void Formula::drop(NodeId id, Notes* notes) const {
  if (id == noNode || notes == nullptr || rowOf(id) != nullptr) return;
  noteOf(id, notes);
  drop(at(id).a, notes);
  drop(at(id).b, notes);
}

std::optional<NodeId> Formula::sameAs(NodeId id, Notes* notes) const {
  const Node& node = at(id);
  const auto same = [&](NodeId other) {
    return other != noNode && at(other).op != Op::constant && sameValue(at(other).value, node.value);
  };
  switch (node.op) {
    case Op::titled: {
      if (circumstances(id).row) return std::nullopt;
      const NodeId content = resolved(node.a);
      return isLeaf(content) || at(content).op == Op::titled ? std::optional(node.a) : std::nullopt;
    }
    case Op::add:
    case Op::subtract:
    case Op::least:
    case Op::greatest:
    case Op::toInt16:
    case Op::roundCents:
    case Op::roundDollars:
      if (same(node.a)) return drop(node.b, notes), node.a;
      if (node.op != Op::subtract && same(node.b)) return drop(node.a, notes), node.b;
      return std::nullopt;
    default: return std::nullopt;
  }
}

NodeId Formula::resolved(NodeId id, Notes* notes) const {
  for (;;) {
    if (rowOf(id) != nullptr) return id;
    noteOf(id, notes);
    const auto next = sameAs(id, notes);
    if (!next) return id;
    id = *next;
  }
}

bool Formula::isExcess(NodeId id) const {
  const Node& node = at(id);
  return node.op == Op::subtract && at(node.b).op == Op::constant && realOf(node.value) >= 0;
}

bool Formula::isDollars(NodeId id) const {
  const Node& node = at(id);
  if (!std::holds_alternative<Int16>(node.value)) return false;
  if (node.op == Op::constant) return node.inDollars;
  if (node.op == Op::toInt16) return true;
  return (node.a != noNode && isDollars(node.a)) || (node.b != noNode && isDollars(node.b));
}

bool Formula::inlined(NodeId id, Place place) const {
  const Node& node = at(id);
  if (isLeaf(id) || node.op == Op::titled) return false;
  if (node.op == Op::constant || node.op == Op::toReal) return true;
  if (place == Place::factor) return isExcess(id);
  return place == Place::own || (place == Place::term && node.op == Op::multiply);
}

}  // namespace tallyfin
