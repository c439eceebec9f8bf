#include <QAccessible>
#include <QScrollArea>
#include <QScrollBar>
#include <set>

#include "controls/desk.h"
#include "controls/screen.h"
#include "desktoptest.h"
#include "ui/qt/widgets/text.h"

/// Accessibility of every screen: names, roles, tab order, and space for all texts.

namespace tallyfin::qt {

namespace {

/// The actions that open a screen from the main screen.
struct Way {
  const char* screen;
  std::function<void()> go;
};

class Accessibility : public DesktopTest {
 protected:
  /// Opens each screen and checks it.
  template <class Look>
  void onEachScreen(Look look) {
    stored(section::settings, "IncAmt", "1000");
    stored(section::settings, "Frequency", "0");
    startOnMain();
    click("frmMain", "cmdToolBar(0)");
    const auto item = [this](const char* key) { return [this, key] { clickItem(key); }; };
    const auto button = [this](const char* name) { return [this, name] { click("frmMain", name); }; };
    const std::vector<Way> ways{
        {"MDIOpen", [] {}},
        {"frmMain", [] {}},
        {"frmMisc", button("cmdAdditional(0)")},
        {"frmMisc", button("cmdAdditional(1)")},
        {"frmAnalysis", item("Analysis")},
        {"frmMultiCheck", item("Multi")},
        {"frmState", item("StateInfo")},
        {"frmName", item("Personal")},
    };
    for (const Way& way : ways) {
      SCOPED_TRACE(way.screen);
      way.go();
      ASSERT_TRUE(shown(way.screen));
      look(*desk.find(way.screen));
      if (std::string(way.screen) == "frmMisc") click("frmMisc", "imgSeal");
    }
  }

  /// Every caption, figure, box and button has the space that it needs, on a page that may scroll.
  void expectNothingCutOff(const Screen& screen) const {
    for (const Control* control : screen.controls()) {
      const QWidget& widget = widgetOf(*control);
      const auto* label = qobject_cast<const QLabel*>(&widget);
      const auto* button = qobject_cast<const QAbstractButton*>(&widget);
      if (const auto* list = qobject_cast<const QListWidget*>(&widget)) {
        const QRect last = list->visualItemRect(list->item(list->count() - 1));
        EXPECT_TRUE(list->viewport()->rect().contains(last)) << control->address();
        continue;
      }
      if (const auto* box = qobject_cast<const QLineEdit*>(&widget);
          box != nullptr && box->alignment() & Qt::AlignRight) {
        EXPECT_GE(box->width(), box->fontMetrics().horizontalAdvance(" $99,999.99 ")) << control->address();
      }
      if (!widget.isVisible() || (button != nullptr && button->text().isEmpty())) continue;
      if (label != nullptr && label->wordWrap()) {
        EXPECT_GE(widget.height(), widget.heightForWidth(widget.width())) << control->address();
        continue;
      }
      // The style makes buttons with a caption at least 80 pixels wide; some have a smaller minimum.
      const int needed = widget.minimumWidth() > 0 ? widget.minimumWidth() : widget.minimumSizeHint().width();
      EXPECT_GE(widget.width(), needed) << control->address();
      if (qobject_cast<const QPushButton*>(&widget) != nullptr) {
        const int words = button->fontMetrics().horizontalAdvance(QString(button->text()).remove('&'));
        EXPECT_GE(widget.width(), words + (button->icon().isNull() ? 0 : button->iconSize().width()))
            << control->address();
      }
      EXPECT_GE(widget.height(), widget.minimumSizeHint().height()) << control->address();
    }
  }

  QWidget& widgetOf(const Control& control) const {
    return find(control.screen().name().c_str(), qt::text(control.address()));
  }
};

/// The name for screen readers: its accessible name or, for drop-downs, that of the label beside it.
std::string nameOf(QWidget& widget) {
  QAccessibleInterface* face = QAccessible::queryAccessibleInterface(&widget);
  if (face->role() != QAccessible::ComboBox) return face->text(QAccessible::Name).toStdString();
  const auto labels = face->relations(QAccessible::Label);
  return labels.isEmpty() ? "" : labels.front().first->text(QAccessible::Name).toStdString();
}

bool takesFocus(const QWidget& widget) { return widget.focusPolicy() != Qt::NoFocus; }

TEST_F(Accessibility, EveryControlHasOneWidgetOfItsName) {
  onEachScreen([this](const Screen& screen) {
    for (const Control* control : screen.controls()) {
      const auto widgets = view(screen.name().c_str()).findChildren<QWidget*>(qt::text(control->address()));
      EXPECT_EQ(widgets.size(), 1) << control->address();
    }
  });
}

TEST_F(Accessibility, WhateverTakesTheFocusHasANameAndARole) {
  onEachScreen([this](const Screen& screen) {
    for (const Control* control : screen.controls()) {
      QWidget& widget = widgetOf(*control);
      QAccessibleInterface* face = QAccessible::queryAccessibleInterface(&widget);
      ASSERT_NE(face, nullptr) << control->address();
      EXPECT_NE(face->role(), QAccessible::NoRole) << control->address();
      if (!takesFocus(widget)) continue;
      EXPECT_NE(nameOf(widget), "") << control->address();
    }
  });
}

TEST_F(Accessibility, RolesAreThoseOfTheControls) {
  startOnMain();
  const auto role = [this](const char* screen, const char* name) {
    return QAccessible::queryAccessibleInterface(&find(screen, name))->role();
  };
  EXPECT_EQ(role("frmMain", "txtIncome"), QAccessible::EditableText);
  EXPECT_EQ(role("frmMain", "lstFrequency"), QAccessible::List);
  EXPECT_EQ(role("frmMain", "optStatus(0)"), QAccessible::RadioButton);
  EXPECT_EQ(role("frmMain", "cboState"), QAccessible::ComboBox);
  EXPECT_EQ(role("frmMain", "chkSelfEmployed"), QAccessible::CheckBox);
  EXPECT_EQ(role("frmMain", "cmdToolBar(0)"), QAccessible::Button);
  EXPECT_EQ(role("frmMain", "dbgDisplay"), QAccessible::Table);
  EXPECT_EQ(role("frmMain", "lbl1"), QAccessible::StaticText);
  EXPECT_EQ(role("MDIOpen", "SSListBar1(Calc)"), QAccessible::Button);
}

TEST_F(Accessibility, NamesAreThoseOnTheScreen) {
  startOnMain();
  const auto name = [this](const char* widget) { return nameOf(find("frmMain", widget)); };
  EXPECT_EQ(name("txtIncome"), "Income Amount");
  EXPECT_EQ(name("txt401k"), "401(k)%");
  EXPECT_EQ(name("cboExemptions"), "Number of Exemptions");
  EXPECT_EQ(name("cmdToolBar(0)"), "Calculate");
  EXPECT_EQ(name("cmdToolBar(4)"), "Sponsor Info");
  EXPECT_EQ(name("lbl1"), "Federal");
}

TEST_F(Accessibility, EveryControlInViewIsReachedByTab) {
  onEachScreen([this](const Screen& screen) {
    std::set<const QWidget*> reached;
    for (int i = 0; i < 60; ++i) {
      press(Qt::Key_Tab);
      reached.insert(QApplication::focusWidget());
    }
    for (const Control* control : screen.controls()) {
      const QWidget& widget = widgetOf(*control);
      // Tab reaches the set option of a group, the arrow keys the others.
      if (!widget.isVisible() || !widget.isEnabled() || !(widget.focusPolicy() & Qt::TabFocus)) continue;
      const auto* option = qobject_cast<const QRadioButton*>(&widget);
      if (option != nullptr && !option->isChecked()) continue;
      if (widget.mapTo(widget.window(), QPoint()).x() < 0) continue;
      EXPECT_TRUE(reached.contains(&widget)) << control->address();
    }
  });
}

TEST_F(Accessibility, APageFitsWithoutScrollingAndCutsNothingOff) {
  onEachScreen([this](const Screen& screen) {
    for (const auto* area : frame().findChildren<QScrollArea*>()) {
      if (!area->isVisible()) continue;
      EXPECT_FALSE(area->verticalScrollBar()->isVisible());
      EXPECT_FALSE(area->horizontalScrollBar()->isVisible());
    }
    expectNothingCutOff(screen);
  });
}

TEST_F(Accessibility, ALargerFontCutsNothingOff) {
  const QFont normal = QApplication::font();
  QFont large = normal;
  large.setPointSizeF(1.5 * normal.pointSizeF());
  QApplication::setFont(large);
  onEachScreen([this](const Screen& screen) { expectNothingCutOff(screen); });
  QApplication::setFont(normal);
}

}  // namespace

}  // namespace tallyfin::qt
