#include "ui/qt/binding/binding.h"

#include <QApplication>
#include <QLabel>

#include "ui/qt/widgets/look.h"
#include "ui/qt/widgets/text.h"

namespace tallyfin::qt {

Binding::Binding(QWidget& widget, Control& control) : QObject(&widget), widget_(widget), control_(&control) {
  widget.setObjectName(text(control.address()));
  widget.setToolTip(text(control.tooltip));
  widget.setMouseTracking(true);
  widget.installEventFilter(this);
  control.watch([this] { refresh(); });
}

void Binding::release() {
  // mutation: != -> == and if -> if not: found under the address sanitizer alone
  if (control_ != nullptr) control_->watch(nullptr);
  control_ = nullptr;
}

void Binding::refresh() {
  if (control_ == nullptr || refreshing_) return;
  refreshing_ = true;
  widget_.setEnabled(control_->enabled);
  if (control_->visible && (!shown || shown())) {
    const bool back = widget_.isHidden() && control_->focused();
    widget_.setVisible(true);
    if (back) widget_.setFocus(Qt::ActiveWindowFocusReason);  // its control still has the focus
  } else {
    hideQuietly(widget_);
  }
  applyColours();
  if (show) show();
  refreshing_ = false;
}

void hideQuietly(QWidget& widget) {
  QWidget* focused = QApplication::focusWidget();
  if (focused != nullptr && (focused == &widget || widget.isAncestorOf(focused))) focused->clearFocus();
  widget.hide();
}

void Binding::applyColours() {
  QPalette palette = colours;
  // The style draws edges slightly darker than the window colour: too little contrast on the real background.
  const QWidget* ground = widget_.parentWidget();
  const bool edged = widget_.inherits("QLineEdit") || widget_.inherits("QAbstractButton") ||
                     widget_.inherits("QAbstractItemView") || widget_.inherits("QComboBox");
  if (edged && ground != nullptr) {
    // mutation: 128 -> 129 and < -> <=: no ground is as light as the limit
    const bool dark = ground->palette().color(QPalette::Window).lightness() < 128;
    palette.setColor(QPalette::Window, dark ? look::light : look::lightEdge);
  }
  if (const OwnColour& fore = control_->foreColour) {
    // The check mark of an option or check box has the colour Text, on a light background.
    const bool marked = widget_.inherits("QRadioButton") || widget_.inherits("QCheckBox");
    for (const auto role : {QPalette::WindowText, QPalette::ButtonText, QPalette::Text}) {
      if (marked && role == QPalette::Text) continue;
      palette.setColor(QPalette::Active, role, look::colour(*fore));
      palette.setColor(QPalette::Inactive, role, look::colour(*fore));
    }
  }
  if (const OwnColour& back = control_->backColour) {
    palette.setColor(QPalette::Base, look::colour(*back));
    if (qobject_cast<QLabel*>(&widget_) != nullptr) {
      palette.setColor(QPalette::Window, look::colour(*back));
      palette.setColor(QPalette::WindowText, look::ink);
      widget_.setAutoFillBackground(true);
    }
  }
  widget_.setPalette(palette);
}

bool Binding::eventFilter(QObject* /*watched*/, QEvent* event) {
  if (control_ == nullptr) return false;  // mutation: false -> true: a released widget is about to go
  switch (event->type()) {
    case QEvent::FocusIn: control_->userFocus(); break;
    case QEvent::Enter: control_->userEnter(); break;
    case QEvent::Leave: control_->userLeave(); break;
    case QEvent::MouseMove: control_->userMove(); break;
    default: break;
  }
  return false;
}

Binding& bindPlain(QWidget& widget, Control& control) { return *new Binding(widget, control); }

}  // namespace tallyfin::qt
