#include <QLabel>
#include <QMouseEvent>

#include "controls/texts.h"
#include "ui/qt/accessibility/accessible.h"
#include "ui/qt/binding/binding.h"
#include "ui/qt/widgets/text.h"

namespace tallyfin::qt {

namespace {

/// Turns mouse clicks on a widget without a clicked signal into acts. The first release of a double click has run Click
/// already, so the rest runs only DblClick.
class ClickFilter : public QObject {
 public:
  ClickFilter(Binding& binding, Clickable& control) : QObject(&binding), binding_(binding), control_(control) {}

  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    const auto type = event->type();
    const bool press = type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick;
    if (!press && type != QEvent::MouseButtonRelease) return false;
    if (static_cast<QMouseEvent*>(event)->button() != Qt::LeftButton) return false;
    if (type == QEvent::MouseButtonRelease && !doubled_) {
      binding_.act([this] { control_.userClick(); });
    } else if (type == QEvent::MouseButtonDblClick) {
      binding_.act([this] { control_.userSecondClick(); });
    }
    doubled_ = type == QEvent::MouseButtonDblClick;
    return doubled_;  // the model handles the double click: the screen behind must not handle it again
  }

 private:
  Binding& binding_;
  Clickable& control_;
  bool doubled_ = false;  // mutation: false -> true: a press before each release tells anew whether it is the second
};

}  // namespace

Binding& bind(QLabel& widget, Label& label) {
  auto* binding = new Binding(widget, label);
  binding->show = [&widget, &label] {
    const QString before = widget.text();
    const QString now = text(label.caption());
    widget.setText(now);
    if (before != now && dynamic_cast<Readable*>(&widget) != nullptr) tellReadable(widget, before, now);
  };
  widget.installEventFilter(new ClickFilter(*binding, label));
  return *binding;
}

}  // namespace tallyfin::qt
