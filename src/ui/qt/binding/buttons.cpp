#include "controls/buttons.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QRadioButton>

#include "ui/qt/accessibility/accessible.h"
#include "ui/qt/binding/binding.h"
#include "ui/qt/widgets/text.h"

namespace tallyfin::qt {

Binding& bind(QAbstractButton& widget, CommandButton& button) {
  auto* binding = new Binding(widget, button);
  widget.setText(text(button.caption()));
  QObject::connect(&widget, &QAbstractButton::clicked, binding,
                   [binding, &button] { binding->act([&] { button.userClick(); }); });
  return *binding;
}

Binding& bind(QRadioButton& widget, OptionButton& option, QButtonGroup& group) {
  auto* binding = new Binding(widget, option);
  group.addButton(&widget);
  binding->show = [&widget, &option, &group] {
    if (nameOf(widget) != text(option.caption()).trimmed()) widget.setText(text(option.caption()));
    group.setExclusive(false);  // else Qt wouldn't clear the last option
    widget.setChecked(option.value());
    group.setExclusive(true);
  };
  QObject::connect(&widget, &QRadioButton::clicked, binding,
                   [binding, &option] { binding->act([&] { option.userClick(); }); });
  return *binding;
}

Binding& bind(QCheckBox& widget, CheckBox& box) {
  auto* binding = new Binding(widget, box);
  widget.setText(text(box.caption()));
  binding->show = [&widget, &box] { widget.setChecked(box.value()); };
  QObject::connect(&widget, &QCheckBox::clicked, binding, [binding, &box] { binding->act([&] { box.userClick(); }); });
  return *binding;
}

}  // namespace tallyfin::qt
