#include "explain/formula.h"

#include <algorithm>

namespace tallyfin {

namespace {

Money amountOf(const Value& value) {
  const auto* count = std::get_if<Int16>(&value);
  return count ? Money(*count) : std::get<Money>(value);
}

bool isSum(Op op) { return op == Op::add || op == Op::subtract; }

}  // namespace

bool isReal(const Value& value) { return value.index() >= 2; }

bool sameValue(const Value& a, const Value& b) {
  if (isReal(a) || isReal(b)) return a == b;
  return amountOf(a) == amountOf(b);
}

bool isZero(const Value& value) {
  return std::visit([](auto number) { return number == decltype(number){}; }, value);
}

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
  if (notes == nullptr || rowOf(id) != nullptr) return;
  noteOf(id, notes);
  if (at(id).a != noNode) drop(at(id).a, notes);
  if (at(id).b != noNode && at(id).op != Op::titled) drop(at(id).b, notes);
}

std::optional<NodeId> Formula::sameAs(NodeId id, Notes* notes) const {
  const Node& node = at(id);
  const auto same = [&](NodeId other) {
    return other != noNode && at(other).op != Op::constant && sameValue(at(other).value, node.value);
  };
  switch (node.op) {
    case Op::titled: {
      if (node.b != noNode || circumstances(id).row) return std::nullopt;
      const NodeId content = resolved(node.a);
      if (!isLeaf(content) && at(content).op != Op::titled) return std::nullopt;
      return sameValue(at(content).value, node.value) ? std::optional(node.a) : std::nullopt;
    }
    case Op::add:
      if (isZero(at(node.b).value) && same(node.a)) return drop(node.b, notes), node.a;
      if (isZero(at(node.a).value) && same(node.b)) return drop(node.a, notes), node.b;
      return std::nullopt;
    case Op::subtract:
      if (isZero(at(node.b).value) && same(node.a)) return drop(node.b, notes), node.a;
      return std::nullopt;
    case Op::toInt16:
    case Op::roundCents:
    case Op::roundDollars:
    case Op::least:
    case Op::greatest:
      if (same(node.a)) return node.a;
      return same(node.b) ? std::optional(node.b) : std::nullopt;
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
  return node.op == Op::subtract && at(node.b).op == Op::constant && at(resolved(node.a)).op != Op::constant &&
         !isReal(node.value) && amountOf(node.value) >= 0;
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
  switch (place) {
    case Place::own: return true;
    case Place::term: return isSum(node.op) || (isReal(node.value) && node.op == Op::multiply);
    case Place::factor: return isExcess(id);
    case Place::bounded:
      return isSum(node.op) || node.op == Op::fromReal || node.op == Op::least || node.op == Op::greatest;
    default: return false;
  }
}

void Formula::eachOperand(NodeId id, Place place, const std::function<void(NodeId, Place)>& visit) const {
  const Node& node = at(id);
  const auto operands = [&](Place its) {
    if (node.a != noNode) visit(node.a, its);
    if (node.b != noNode) visit(node.b, its);
  };
  switch (node.op) {
    case Op::add:
    case Op::subtract: return operands(place == Place::factor ? Place::alone : Place::term);
    case Op::multiply: return operands(Place::factor);
    case Op::least:
    case Op::greatest: return operands(Place::bounded);
    case Op::toReal: return operands(place == Place::factor ? place : Place::alone);
    case Op::divide: return operands(Place::alone);
    default: return operands(Place::own);
  }
}

}  // namespace tallyfin
