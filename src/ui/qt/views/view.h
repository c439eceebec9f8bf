#pragma once

#include <QKeySequence>
#include <QPointer>
#include <QWidget>
#include <functional>
#include <memory>
#include <vector>

#include "ui/qt/binding/binding.h"

class QShortcut;

namespace tallyfin::qt {

/// The view of a screen: widgets bound to its controls, the focus among them, and the keys of the page. Created when
/// the screen is first shown, deleted when it is discarded.
class View : public QWidget {
 public:
  explicit View(Screen& screen);
  ~View() override;

  Screen* screen() const { return screen_; }
  /// Releases all bindings, before the screen is destroyed.
  void release();
  /// The widget of a control; null if there is none.
  QWidget* widgetOf(const Control& control) const;
  /// Whether a widget of this page is visible and enabled.
  bool inSight(const QWidget& widget) const;
  /// Takes the keyboard focus as if the user had moved there: the control that had it last, or else the first one.
  void takeKeyboard();
  /// Stores the widget of this page that has the keyboard focus.
  void noteFocus(QWidget& widget) { lastFocus_ = &widget; }
  /// Enables the keys of the page, while it is active.
  void setActive(bool active);

 protected:
  /// Registers a widget that the view has bound itself.
  template <class Widget>
  Widget* tied(Widget* widget, Binding& binding) {
    bindings_.push_back(&binding);
    binding.refresh();
    return widget;
  }

  /// A key that works while this page is active, for any focus. `words` describes its action.
  void onKey(const QKeySequence& key, const QString& words, std::function<void()> act);
  /// The control that gets the focus when the page opens; null for none.
  virtual QWidget* firstControl() const;

  /// The binding of a widget; null if it has none.
  Binding* bindingOf(const QWidget* widget) const;

 private:
  Screen* screen_;
  std::vector<Binding*> bindings_;
  std::vector<QShortcut*> keys_;
  QPointer<QWidget> lastFocus_;
};

/// The target of Tab for a widget: the chosen option of a group.
QWidget& enteredAt(QWidget& widget);

/// Creates the view of a screen.
std::unique_ptr<View> viewOf(Screen& screen);

}  // namespace tallyfin::qt
