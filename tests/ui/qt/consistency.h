#pragma once

#include <QColor>
#include <QPointer>
#include <QWidget>
#include <map>
#include <string>
#include <vector>

#include "controls/desk.h"
#include "controls/screen.h"
#include "controls/texts.h"
#include "ui/qt/desktop.h"
#include "ui/qt/widgets/text.h"

/// Consistency of views and models: compares every widget of every shown screen with its control.

namespace tallyfin::qt {

class Consistency {
 public:
  /// Compares everything. The differences are then in differences(), one on each line, and the state of all screens in
  /// held().
  void look(const Desktop& desktop);
  const std::string& differences() const { return differences_; }
  const std::string& held() const { return held_; }
  /// Call when an act selects a part of a box's text: the selection isn't compared at the next look().
  void userSelects() { userSelects_ = true; }
  /// The control of a widget, or of a parent; null for a widget without a control.
  Control* controlOf(const QWidget* widget) const;

 private:
  struct Tie {
    Control* control;
    QWidget* widget;
    std::vector<const Panel*> pages;  ///< That contain it.
  };
  struct Ties {
    QPointer<View> view;
    std::vector<Tie> ties;
  };

  void tieAll(View& view, const Screen& screen);
  void compareScreen(View& view, const Screen& screen);
  void compare(const Tie& tie, const View& view);
  void compareContent(const Control& control, QWidget& widget);
  void compareColours(const Control& control, const QWidget& widget);
  void compareNames(const Control& control, QWidget& widget);
  void compareDocuments(const Desktop& desktop);
  void compareFocus(const Desktop& desktop);

  void same(const char* what, const QString& held, const QString& shown);
  void same(const char* what, const std::string& held, const QString& shown) { same(what, text(held), shown); }
  void same(const char* what, int held, int shown) { same(what, QString::number(held), QString::number(shown)); }
  void differ(const QString& words);

  std::map<const Screen*, Ties> ties_;
  std::map<QString, QColor> own_;  ///< The view's colours of widgets whose controls have none, by name and role.
  QString address_;
  const Control* focused_ = nullptr;
  bool userSelects_ = false;
  std::string differences_;
  std::string held_;
};

}  // namespace tallyfin::qt
