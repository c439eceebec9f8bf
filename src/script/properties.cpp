#include "script/properties.h"

#include <algorithm>

#include "controls/buttons.h"
#include "controls/calendar.h"
#include "controls/desk.h"
#include "controls/lists.h"
#include "controls/output.h"
#include "controls/texts.h"
#include "explain/jsontext.h"

namespace tallyfin::script {

namespace {

using Value = std::optional<std::string>;

std::string written(bool truth) { return truth ? "true" : "false"; }

std::string written(const OwnColour& colour) {
  if (!colour) return json("default");
  return json(std::to_string(colour->red) + "," + std::to_string(colour->green) + "," + std::to_string(colour->blue));
}

std::string written(std::chrono::year_month_day date) {
  const auto digits = [](std::size_t count, unsigned number) {
    const std::string text = std::to_string(number);
    return std::string(count - std::min(count, text.size()), '0') + text;
  };
  return json(digits(4, static_cast<unsigned>(int{date.year()})) + "-" + digits(2, unsigned{date.month()}) + "-" +
              digits(2, unsigned{date.day()}));
}

// One function for each kind of control: its own properties by name.

Value ofKind(const TextBox& box, std::string_view name) {
  if (name == "text") return json(box.text());
  if (name == "shown") return json(box.shown());
  if (name == "selstart") return std::to_string(box.selStart());
  if (name == "sellength") return std::to_string(box.selLength());
  return std::nullopt;
}

Value ofKind(const Label& label, std::string_view name) {
  if (name == "caption") return json(label.caption());
  return std::nullopt;
}

Value ofKind(const CommandButton& button, std::string_view name) {
  if (name == "caption") return json(button.caption());
  return std::nullopt;
}

Value ofKind(const ListBarItem& item, std::string_view name) {
  if (name == "caption") return json(item.caption());
  if (name == "highlighted") return written(item.highlighted());
  return std::nullopt;
}

Value ofKind(const OptionButton& option, std::string_view name) {
  if (name == "caption") return json(option.caption());
  if (name == "value") return written(option.value());
  return std::nullopt;
}

Value ofKind(const CheckBox& box, std::string_view name) {
  if (name == "caption") return json(box.caption());
  if (name == "value") return written(box.value());
  return std::nullopt;
}

Value ofKind(const ListBox& list, std::string_view name) {
  if (name == "index") return std::to_string(list.index());
  if (name == "list") return json(list.entries());
  if (name == "text") return json(list.text());
  const auto* dropDown = dynamic_cast<const DropDown*>(&list);
  if (name == "editable" && dropDown != nullptr) {
    return written(dynamic_cast<const EditableDropDown*>(dropDown) != nullptr);
  }
  return std::nullopt;
}

Value ofKind(const Panel& panel, std::string_view name) {
  if (name == "left") return std::to_string(panel.left());
  if (name == "top") return std::to_string(panel.top());
  if (name == "caption") return json(panel.caption());
  return std::nullopt;
}

std::string written(const std::vector<RowKind>& kinds) {
  return jsonList(kinds, [](RowKind kind) { return json(nameOf(kind)); });
}

std::string written(const PrintColumn& column) {
  return JsonObject()
      .add("align", json(column.rightAligned ? "right" : "left"))
      .add("width", std::to_string(column.width))
      .text();
}

Value ofKind(const Grid& grid, std::string_view name) {
  if (name == "rows") return json(grid.rows());
  if (name == "cells") return json(grid.cells());
  if (name == "kinds") return written(grid.kinds());
  return std::nullopt;
}

Value ofKind(const PrintEngine& engine, std::string_view name) {
  if (name == "header") return json(engine.header());
  if (name == "footer") return json(engine.footer());
  if (name == "table") return json(engine.table());
  if (name == "columns") {
    return jsonList(engine.columns(), [](const PrintColumn& column) { return written(column); });
  }
  if (name == "cells") return json(engine.cells());
  if (name == "kinds") return written(engine.kinds());
  if (name == "zoom") return std::to_string(engine.zoom());
  if (name == "pages") return std::to_string(engine.pages());
  return std::nullopt;
}

Value ofKind(const MonthCalendar& calendar, std::string_view name) {
  if (name == "date") return written(calendar.date());
  return std::nullopt;
}

Value ofKind(const UpDown& upDown, std::string_view name) {
  if (name == "value") return std::to_string(upDown.value());
  return std::nullopt;
}

/// The property if the control is of one of these kinds.
template <class... Kinds>
Value ofOneOf(const Control& control, std::string_view name) {
  Value value;
  const auto tryKind = [&](const auto* kind) { return kind != nullptr && (value = ofKind(*kind, name), true); };
  static_cast<void>((tryKind(dynamic_cast<const Kinds*>(&control)) || ...));
  return value;
}

}  // namespace

Value property(const Control& control, std::string_view name) {
  if (name == "enabled") return written(control.enabled());
  if (name == "visible") return written(control.visible());
  if (name == "forecolor") return written(control.foreColour());
  if (name == "backcolor") return written(control.backColour());
  if (name == "tooltip") return json(control.tooltip);
  if (name == "focused") return written(control.focused());
  return ofOneOf<TextBox, Label, CommandButton, ListBarItem, OptionButton, CheckBox, ListBox, Panel, Grid, PrintEngine,
                 MonthCalendar, UpDown>(control, name);
}

Value property(const Screen& screen, std::string_view name) {
  if (name == "title") return json(screen.title());
  if (name == "shown") return written(screen.shown());
  if (name == "maximized") return written(screen.maximized());
  if (name == "backcolor") return written(screen.backColour());
  if (name == "front") {
    return written(screen.place() == Place::document ? desk.activeDocument() == &screen : screen.shown());
  }
  return std::nullopt;
}

}  // namespace tallyfin::script
