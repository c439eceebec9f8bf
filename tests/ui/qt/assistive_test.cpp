#include <QAbstractItemView>
#include <QAccessible>
#include <QAccessibleWidget>
#include <QCheckBox>
#include <QRegularExpression>
#include <QSpinBox>
#include <QTextBrowser>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>
#include <set>

// The platform decides whether assistive technology listens; a test has to say so itself.
#include <QtGui/private/qguiapplication_p.h>
#include <qpa/qplatformaccessibility.h>
#include <qpa/qplatformintegration.h>

#include "controls/buttons.h"
#include "controls/desk.h"
#include "controls/lists.h"
#include "controls/texts.h"
#include "engine/paydata.h"
#include "everyscreen.h"
#include "stateoptions/frmState.h"
#include "ui/frmMain.h"
#include "ui/qt/accessibility/accessible.h"
#include "ui/qt/widgets/text.h"

/// The accessibility tree of the program, its notifications, and the actions that assistive technology can take.

namespace tallyfin::qt {

namespace {

using testing::Contains;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

QAccessibleInterface& faceOf(QWidget& widget) { return *QAccessible::queryAccessibleInterface(&widget); }

std::string textOf(const QAccessibleInterface& face, QAccessible::Text kind) { return face.text(kind).toStdString(); }

/// The notifications, such as "value lbl1 $120.00".
std::vector<std::string> notified;  // NOLINT: Qt's handler takes no context

void note(QAccessibleEvent* event) {
  const auto* widget = qobject_cast<const QWidget*>(event->object());
  if (widget == nullptr) return;
  const std::string name = widget->objectName().toStdString();
  switch (event->type()) {
    case QAccessible::ValueChanged:
      notified.push_back("value " + name + " " +
                         static_cast<QAccessibleValueChangeEvent*>(event)->value().toString().toStdString());
      break;
    case QAccessible::Alert: notified.push_back("alert " + widget->accessibleName().toStdString()); break;
    case QAccessible::StateChanged: {
      const QAccessible::State changed = static_cast<QAccessibleStateChangeEvent*>(event)->changedStates();
      notified.push_back("state " + name + (changed.expanded ? " expanded" : "") +
                         (changed.collapsed ? " collapsed" : ""));
      break;
    }
    case QAccessible::TextUpdated: {
      const auto* text = static_cast<QAccessibleTextUpdateEvent*>(event);
      notified.push_back("text " + name + " at " + std::to_string(text->changePosition()) + " " +
                         text->textRemoved().toStdString() + " to " + text->textInserted().toStdString());
      break;
    }
    default: break;
  }
}

class Assistive : public EveryScreen {
 protected:
  Assistive() {
    notified.clear();
    QGuiApplicationPrivate::platformIntegration()->accessibility()->setActive(true);
    QAccessible::installUpdateHandler(note);
  }
  ~Assistive() override {
    QAccessible::installUpdateHandler(nullptr);
    QGuiApplicationPrivate::platformIntegration()->accessibility()->setActive(false);
  }

  static void act(QWidget& widget, const QString& action) {
    faceOf(widget).actionInterface()->doAction(action);
    settle();
  }
  /// The report of a weekly income of $1,000.
  void openReport() {
    stored(section::settings, "IncAmt", "1000");
    stored(section::settings, "Frequency", "0");
    startOnMain();
    click("frmMain", "cmdToolBar(0)");
    click("frmMain", "cmdToolBar(1)");
  }
  void toggle(const char* screen, const char* name) const {
    act(find(screen, name), QAccessibleActionInterface::toggleAction());
  }
  void press(const char* screen, const char* name) const {
    act(find(screen, name), QAccessibleActionInterface::pressAction());
  }
  /// Selects a row as assistive technology does.
  static void select(QAccessibleInterface& list, int row) {
    list.tableInterface()->cellAt(row, 0)->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    settle();
  }
};

TEST_F(Assistive, TogglingAnOptionOrACheckBoxIsAClick) {
  startOnMain();
  auto& screen = desk.use<frmMain>();
  toggle("frmMain", "chkSelfEmployed");
  EXPECT_TRUE(screen.chkSelfEmployed.value());
  toggle("frmMain", "chkSelfEmployed");
  EXPECT_FALSE(screen.chkSelfEmployed.value());
  toggle("frmMain", "optStatus(0)");
  toggle("frmMain", "optStatus(2)");
  EXPECT_FALSE(screen.optStatus[0].value());
  EXPECT_TRUE(screen.optStatus[2].value());
  EXPECT_EQ(desk.focused(), &screen.optStatus[2]);  // as after the mouse's click
  toggle("frmMain", "optStatus(2)");
  EXPECT_TRUE(screen.optStatus[2].value());
}

TEST_F(Assistive, AnOptionThatItsScreenRefusesKeepsItsMark) {
  startOnMain();
  clickItem("Analysis");  // nothing to analyse: the warning must be answered
  ASSERT_TRUE(shown("MsgBox"));
  auto& screen = desk.use<frmMain>();
  const bool before = screen.chkSelfEmployed.value();
  toggle("frmMain", "chkSelfEmployed");
  EXPECT_EQ(screen.chkSelfEmployed.value(), before);
  EXPECT_EQ(find<QCheckBox>("frmMain", "chkSelfEmployed").isChecked(), before);
}

TEST_F(Assistive, PressingAButtonIsAClick) {
  stored(section::settings, "IncAmt", "1000");
  stored(section::settings, "Frequency", "0");
  startOnMain();
  press("frmMain", "cmdToolBar(0)");
  EXPECT_EQ(results().size(), 12U);
  press("frmMain", "cmdAdditional(0)");
  EXPECT_TRUE(shown("frmMisc"));
  press("frmMisc", "imgSeal");
  EXPECT_FALSE(shown("frmMisc"));
}

TEST_F(Assistive, AButtonThatIsHeldDownIsPressed) {
  startOnMain();
  QWidget& button = find("frmMain", "cmdToolBar(0)");
  EXPECT_FALSE(faceOf(button).state().pressed);
  QTest::mousePress(&button, Qt::LeftButton);
  EXPECT_TRUE(faceOf(button).state().pressed);
  QTest::mouseRelease(&button, Qt::LeftButton, {}, QPoint(-5, -5));
  EXPECT_FALSE(faceOf(button).state().pressed);
}

TEST_F(Assistive, TurningExemptOnTheFormMovesTheKeyboardThere) {
  startOnMain();
  clickItem("W4");
  toggle("frmW4", "Label20");
  EXPECT_EQ(focused(), "Label20");
  EXPECT_TRUE(inSight("frmW4", "Label27"));
  EXPECT_TRUE(faceOf(find("frmW4", "Label20")).state().checked);
}

TEST_F(Assistive, TheListBarsGroupsExpandAndCollapse) {
  startOnMain();
  auto groups = frame().findChildren<QAbstractButton*>(QRegularExpression("^group "));
  ASSERT_GE(groups.size(), 2);
  QWidget& first = *groups.front();
  EXPECT_EQ(faceOf(first).role(), QAccessible::Button);
  EXPECT_TRUE(faceOf(first).state().expandable);
  EXPECT_FALSE(faceOf(first).state().expanded);
  EXPECT_TRUE(faceOf(first).state().collapsed);
  notified.clear();
  act(first, QAccessibleActionInterface::pressAction());
  EXPECT_TRUE(faceOf(first).state().expanded);
  EXPECT_FALSE(faceOf(first).state().collapsed);
  EXPECT_TRUE(find("MDIOpen", "SSListBar1(NewFile)").isVisible());
  EXPECT_THAT(notified, Contains("state " + first.objectName().toStdString() + " expanded collapsed"));
  press("MDIOpen", "SSListBar1(Personal)");
  EXPECT_TRUE(shown("frmName"));
}

TEST_F(Assistive, SelectingARowIsAPick) {
  startOnMain();
  auto& screen = desk.use<frmMain>();
  QAccessibleInterface& list = faceOf(find("frmMain", "lstFrequency"));
  select(list, 3);
  EXPECT_EQ(screen.lstFrequency.index(), 3);
  EXPECT_EQ(desk.focused(), &screen.lstFrequency);
  select(list, 0);
  EXPECT_EQ(screen.lstFrequency.index(), 0);
  select(list, 0);  // again
  EXPECT_EQ(screen.lstFrequency.index(), 0);
  EXPECT_EQ(find<QListWidget>("frmMain", "lstFrequency").currentRow(), 0);
}

TEST_F(Assistive, SelectingAnEntryOfADropDownIsAPick) {
  startOnMain();
  auto& screen = desk.use<frmMain>();
  auto& box = find<QComboBox>("frmMain", "cboExemptions");
  QAccessibleInterface& entries = faceOf(*box.view());
  settle();
  select(entries, 4);
  EXPECT_EQ(screen.cboExemptions.index(), 4);
  EXPECT_EQ(box.currentIndex(), 4);
  EXPECT_EQ(desk.focused(), &screen.cboExemptions);
  select(entries, 0);
  EXPECT_EQ(screen.cboExemptions.index(), 0);
  box.showPopup();
  select(entries, 2);
  EXPECT_EQ(screen.cboExemptions.index(), 2);
  EXPECT_FALSE(box.view()->isVisible());
}

TEST_F(Assistive, AListKeepsItsRowsWhileItIsWorked) {
  startOnMain();
  auto& list = find<QListWidget>("frmMain", "lstFrequency");
  const QListWidgetItem* last = list.item(list.count() - 1);
  list.scrollToBottom();
  const QRect place = list.visualItemRect(last);
  click("frmMain", "optStatus(1)");
  select(faceOf(list), 3);
  EXPECT_EQ(list.item(list.count() - 1), last);
  EXPECT_EQ(list.visualItemRect(last), place);
}

TEST_F(Assistive, ARowOfTheTableThatIsSelectedIsChosen) {
  startOnMain();
  clickItem("TwoWork");
  press("frm2Workers", "cmdTable1Show(0)");
  ASSERT_TRUE(shown("frmTableOne"));
  select(faceOf(find("frmTableOne", "lstTableOne")), 3);
  EXPECT_FALSE(shown("frmTableOne"));
  EXPECT_EQ(text("frm2Workers", "lbl2WkerT1"), "4");
}

TEST_F(Assistive, ATextThatIsSetIsTyped) {
  startOnMain();
  auto& screen = desk.use<frmMain>();
  auto& face = faceOf(find("frmMain", "txtIncome"));
  face.setText(QAccessible::Value, "1500");
  settle();
  EXPECT_EQ(screen.txtIncome.text(), "1500");
  EXPECT_EQ(text("frmMain", "txtIncome"), "1500");
  face.editableTextInterface()->replaceText(0, 4, "725.50");
  settle();
  EXPECT_EQ(screen.txtIncome.text(), "725.50");
  clickItem("StateInfo");
  auto& state = desk.use<frmState>();
  auto* edit = find<QComboBox>("frmState", "cboDeps(0)").lineEdit();
  faceOf(*edit).setText(QAccessible::Value, "3");
  settle();
  EXPECT_EQ(state.cboDeps[0].text(), "3");
}

TEST_F(Assistive, FiguresAreToldWhenTheyChange) {
  stored(section::settings, "IncAmt", "1000");
  stored(section::settings, "Frequency", "0");
  startOnMain();
  notified.clear();
  press("frmMain", "cmdToolBar(0)");
  EXPECT_THAT(notified, Contains("value lbl1 " + text("frmMain", "lbl1")));
  EXPECT_THAT(notified, Contains("text lbl1 at 0  to " + text("frmMain", "lbl1")));
  EXPECT_THAT(notified, Contains("alert " + results().back()));  // the calculation is finished, and this is the check
  EXPECT_THAT(results().back(), HasSubstr("Check Amt $"));
}

TEST_F(Assistive, APageThatComesToTheFrontIsTold) {
  startOnMain();
  notified.clear();
  clickItem("Multi");
  EXPECT_THAT(notified, Contains("alert Multiple Check Worksheet"));
  notified.clear();
  clickItem("About");
  view("frmAbt").window()->close();
  settle();
  EXPECT_THAT(notified, Not(Contains("alert Multiple Check Worksheet")));  // it was in front all the time
  notified.clear();
  clickItem("Pers");
  EXPECT_THAT(notified, Contains("alert Personal Allowances Worksheet"));
  EXPECT_THAT(notified, Not(Contains("alert Page 1")));  // it has been visible from the start
  notified.clear();
  press("frmPersWkSht", "cmdW4Back(0)");
  EXPECT_THAT(notified, Contains("alert Page 2"));
}

TEST_F(Assistive, WhatCouldntBeSavedIsTold) {
  startOnMain();
  click("frmMain", "cmdToolBar(0)");
  find<QTableWidget>("frmMain", "dbgDisplay").setFocus();
  find<QTableWidget>("frmMain", "dbgDisplay").setCurrentCell(0, 0);
  DesktopTest::press(Qt::Key_Return);
  auto* window = frame().findChild<QDialog*>("explanation");
  dialogs.path = "/dev/null/explanation.pdf";
  notified.clear();
  act(*window->findChild<QWidget*>("print"), QAccessibleActionInterface::pressAction());
  EXPECT_THAT(notified, Contains(StartsWith("alert The explanation couldn't be saved.")));
  const QTemporaryDir folder;
  dialogs.path = folder.filePath("explanation.pdf");
  notified.clear();
  act(*window->findChild<QWidget*>("print"), QAccessibleActionInterface::pressAction());
  EXPECT_THAT(notified, Contains("alert Saved as " + dialogs.path.toStdString()));
}

TEST_F(Assistive, WhatIsAnnouncedTwiceIsHeardTwice) {
  stored(section::settings, "IncAmt", "1000");
  stored(section::settings, "Frequency", "0");
  startOnMain();
  for (int time = 1; time <= 3; ++time) {
    notified.clear();
    press("frmMain", "cmdToolBar(0)");
    EXPECT_THAT(notified, Contains("alert " + results().back()).Times(1)) << time;
  }
}

TEST_F(Assistive, AReportIsToldWhenItHasChanged) {
  openReport();
  notified.clear();
  press("frmPrint", "cmdPrintMenu(0)");
  EXPECT_THAT(notified, Not(Contains(HasSubstr("vsPrinter1"))));
  payData.grossPay = 2000;
  press("frmPrint", "cmdPrintMenu(0)");
  EXPECT_THAT(notified, Contains(HasSubstr("text vsPrinter1 at ")));
}

// --- The tree

using Faces = std::vector<QAccessibleInterface*>;

void gather(QAccessibleInterface* face, Faces& into) {
  if (face == nullptr || !face->isValid()) return;
  into.push_back(face);
  for (int i = 0; i < face->childCount(); ++i) gather(face->child(i), into);
}

std::string described(const QAccessibleInterface& face) {
  const QObject* object = face.object();
  std::string words = "role " + std::to_string(face.role());
  if (object != nullptr) words += " " + object->objectName().toStdString() + " " + object->metaObject()->className();
  return words + " \"" + textOf(face, QAccessible::Name) + "\"";
}

/// Its own name or, of a drop-down, that of the label that stands for it.
QString nameOf(const QAccessibleInterface& face) {
  if (face.role() != QAccessible::ComboBox) return face.text(QAccessible::Name);
  const auto labels = face.relations(QAccessible::Label);
  return labels.isEmpty() ? QString() : labels.front().first->text(QAccessible::Name);
}

bool isControl(const QAccessibleInterface& face) {
  static const std::set<QAccessible::Role> roles{
      QAccessible::Button,       QAccessible::CheckBox, QAccessible::RadioButton,
      QAccessible::EditableText, QAccessible::List,     QAccessible::ComboBox,
      QAccessible::SpinBox,      QAccessible::Table,    QAccessible::ButtonMenu};
  return roles.contains(face.role());
}

/// A caption without its mark for the keyboard, its blanks made single.
QString plain(QString caption) {
  caption.replace(QLatin1String("&&"), QLatin1String("\1"));
  return caption.remove('&').replace('\1', '&').simplified();
}

TEST_F(Assistive, EveryControlOfTheTreeHasItsNameAndItsValue) {
  onEveryScreen([this](const Screen& screen) {
    Faces faces;
    gather(&faceOf(const_cast<View&>(view(screen.name().c_str()))), faces);
    EXPECT_GT(faces.size(), 1U);
    std::map<std::tuple<QAccessible::Role, bool, QString>, std::string> seen;
    for (const QAccessibleInterface* face : faces) {
      if (face->state().invisible) continue;
      EXPECT_NE(face->role(), QAccessible::NoRole) << described(*face);
      const auto* widget = qobject_cast<QWidget*>(face->object());
      const bool takesKeys =
          widget != nullptr && (widget->focusPolicy() & Qt::TabFocus) != 0 && widget->focusProxy() == nullptr;
      if (!isControl(*face) && !takesKeys) continue;
      const QString name = nameOf(*face).simplified();
      EXPECT_FALSE(name.isEmpty()) << described(*face);
      if (face->role() == QAccessible::ComboBox || widget == nullptr) continue;
      // What is read is what stands on the screen.
      const auto* button = qobject_cast<const QAbstractButton*>(widget);
      if (button != nullptr && !button->text().isEmpty() && button->objectName() != QLatin1String("Check4") &&
          button->accessibleName() != QLatin1String("Close")) {
        EXPECT_THAT(name.toStdString(), HasSubstr(plain(button->text()).toStdString())) << described(*face);
      }
      for (const auto* label : frame().findChildren<QLabel*>()) {
        if (label->buddy() != widget) continue;
        EXPECT_EQ(name.toStdString(), plain(label->text()).toStdString()) << described(*face);
      }
      const auto [other, first] = seen.try_emplace({face->role(), face->state().expandable, name}, described(*face));
      EXPECT_TRUE(first) << described(*face) << " and " << other->second;
    }
  });
}

TEST_F(Assistive, APageOutOfSightIsReportedAsInvisibleAndHasNothingToGoThrough) {
  int inSight = 0;
  int outOfSight = 0;
  onEveryScreen([&](const Screen& screen) {
    for (auto* page : view(screen.name().c_str()).findChildren<QWidget*>()) {
      if (dynamic_cast<Turnable*>(page) == nullptr) continue;
      const bool out = page->geometry().right() < 0;
      ASSERT_TRUE(!out || page->focusWidget() == nullptr || !page->focusWidget()->hasFocus()) << screen.name();
      ++(out ? outOfSight : inSight);
      const QAccessibleInterface& face = faceOf(*page);
      EXPECT_EQ(face.state().invisible, out) << screen.name();
      EXPECT_EQ(face.state().offscreen, out) << screen.name();
      EXPECT_EQ(face.childCount() == 0, out) << screen.name();
      EXPECT_EQ(face.child(0) == nullptr, out) << screen.name();
    }
  });
  EXPECT_GE(inSight, 6);
  EXPECT_GE(outOfSight, 6);
}

/// The rules move the focus to a box of the page that is out of sight: what has the keyboard is told.
TEST_F(Assistive, APageOutOfSightIsReportedWhileItHasTheKeyboard) {
  startOnMain();
  clickItem("Pers");
  QLineEdit* box = nullptr;
  QWidget* page = nullptr;
  for (auto* candidate : view("frmPersWkSht").findChildren<QWidget*>()) {
    if (dynamic_cast<Turnable*>(candidate) == nullptr || candidate->geometry().right() >= 0) continue;
    page = candidate;
    box = candidate->findChild<QLineEdit*>();
  }
  ASSERT_NE(box, nullptr);
  EXPECT_TRUE(faceOf(*page).state().invisible);
  box->setFocus(Qt::OtherFocusReason);
  settle();
  EXPECT_FALSE(faceOf(*page).state().invisible);
  EXPECT_FALSE(faceOf(*page).state().offscreen);
  ASSERT_NE(faceOf(*page).focusChild(), nullptr);
  EXPECT_EQ(faceOf(*page).focusChild()->object(), box);
}

TEST_F(Assistive, EveryFigureHasNameAndValue) {
  int figures = 0;
  onEveryScreen([&](const Screen& screen) {
    for (Control* control : screen.controls()) {
      const auto* label = dynamic_cast<Label*>(control);
      QWidget& widget = find(screen.name().c_str(), qt::text(control->address()));
      QAccessibleInterface& face = faceOf(widget);
      const std::string value = textOf(face, QAccessible::Value);
      // A label whose caption the program writes shows a figure; what stands there from the start is its own name.
      if (label != nullptr && widget.findChild<QLabel*>() == nullptr && dynamic_cast<Readable*>(&widget) != nullptr) {
        ++figures;
        EXPECT_EQ(value, label->caption()) << control->address();
        EXPECT_FALSE(textOf(face, QAccessible::Name).empty()) << control->address();
        EXPECT_NE(textOf(face, QAccessible::Name), label->caption()) << control->address();
        ASSERT_NE(face.textInterface(), nullptr) << control->address();
        EXPECT_EQ(face.textInterface()->text(0, face.textInterface()->characterCount()).toStdString(),
                  label->caption());
      } else if (label != nullptr) {
        const bool figure = !label->caption().empty() &&
                            label->caption().find_first_not_of("$%(),.0123456789 -") == std::string::npos &&
                            label->caption().size() > 2;
        EXPECT_TRUE(!figure || label->caption() == "1999") << control->address() << " " << label->caption();
      }
    }
  });
  EXPECT_GE(figures, 8 + 1 + 10 + 5 + 1 + 14);
}

TEST_F(Assistive, ThePageOfTheReportIsReadAsText) {
  openReport();
  ASSERT_TRUE(shown("frmPrint"));
  auto& face = faceOf(find("frmPrint", "vsPrinter1"));
  EXPECT_EQ(textOf(face, QAccessible::Name), "Preview of the report");
  const std::string page = textOf(face, QAccessible::Value);
  EXPECT_THAT(page, HasSubstr("Gross"));
  EXPECT_THAT(page, HasSubstr("$1,000.00"));
  QAccessibleTextInterface& letters = *face.textInterface();
  EXPECT_EQ(letters.text(0, letters.characterCount()).toStdString(), page);
  EXPECT_EQ(letters.text(2, 5).toStdString(), page.substr(2, 3));
  // It is read only: nothing is selected, and the cursor and every point are at its beginning.
  EXPECT_EQ(letters.selectionCount(), 0);
  EXPECT_EQ(letters.cursorPosition(), 0);
  EXPECT_EQ(letters.offsetAtPoint({9, 9}), 0);
  int start = -1;
  int end = -1;
  letters.selection(0, &start, &end);
  EXPECT_EQ(std::pair(start, end), std::pair(0, 0));
  EXPECT_EQ(letters.attributes(7, &start, &end), "");
  EXPECT_EQ(std::pair(start, end), std::pair(0, letters.characterCount()));
}

/// All that assistive technology can read of something: its texts and its letters.
QString readOf(const QAccessibleInterface& face) {
  QString read;
  for (const auto kind : {QAccessible::Name, QAccessible::Description, QAccessible::Value, QAccessible::Help}) {
    read += face.text(kind);
  }
  auto* letters = const_cast<QAccessibleInterface&>(face).textInterface();
  return letters == nullptr ? read : read + letters->text(0, letters->characterCount());
}

TEST_F(Assistive, NoTextHasTheMarksOfTables) {
  startOnMain();
  QTest::keyClick(QGuiApplication::focusWindow(), Qt::Key_F1);
  settle();
  auto* help = frame().findChild<QDialog*>("help");
  ASSERT_NE(help, nullptr);
  const auto* page = help->findChild<QTextBrowser*>("page");
  int tables = 0;
  for (QTreeWidgetItemIterator topic(help->findChild<QTreeWidget*>("contents")); *topic != nullptr; ++topic) {
    (*topic)->treeWidget()->setCurrentItem(*topic);
    settle();
    tables += page->toHtml().contains("<table") ? 1 : 0;
    Faces all;
    gather(QAccessible::queryAccessibleInterface(help), all);
    for (const QAccessibleInterface* face : all) {
      EXPECT_FALSE(readOf(*face).contains(QRegularExpression("[\\x{FDD0}\\x{FDD1}]"))) << described(*face);
    }
  }
  EXPECT_GT(tables, 10);
}

TEST_F(Assistive, TheHelpPageIsReadByItsLetters) {
  startOnMain();
  QTest::keyClick(QGuiApplication::focusWindow(), Qt::Key_F1);
  settle();
  auto* page = frame().findChild<QTextBrowser*>("page");
  ASSERT_NE(page, nullptr);
  QAccessibleTextInterface& letters = *faceOf(*page).textInterface();
  const QString whole = letters.text(0, letters.characterCount());
  EXPECT_EQ(whole, page->toPlainText().replace(QChar::Nbsp, ' '));
  EXPECT_EQ(letters.text(3, 9), whole.mid(3, 6));
  EXPECT_EQ(letters.text(9, 100'000), whole.mid(9));
  letters.addSelection(2, 7);
  EXPECT_EQ(page->textCursor().selectedText(), whole.mid(2, 5));
  int start = 0;
  int end = 0;
  letters.selection(0, &start, &end);
  EXPECT_EQ(std::tuple(letters.selectionCount(), start, end), std::tuple(1, 2, 7));
  letters.removeSelection(0);
  EXPECT_EQ(letters.selectionCount(), 0);
  letters.setCursorPosition(4);
  EXPECT_EQ(letters.cursorPosition(), 4);
  const QRect letter = letters.characterRect(4);
  EXPECT_TRUE(QRect(page->mapToGlobal(QPoint()), page->size()).contains(letter.center()));
  EXPECT_EQ(letters.offsetAtPoint({letter.left(), letter.center().y()}), 4);
  letters.scrollToSubstring(letters.characterCount() - 2, letters.characterCount() - 1);
  EXPECT_TRUE(QRect(page->mapToGlobal(QPoint()), page->size())
                  .contains(letters.characterRect(letters.characterCount() - 2).center()));
}

TEST_F(Assistive, TheFrameIsAWindowAndItsPartsAreGroups) {
  startOnMain();
  EXPECT_EQ(faceOf(frame()).role(), QAccessible::Window);
  EXPECT_EQ(textOf(faceOf(frame()), QAccessible::Name), frame().windowTitle().toStdString());
  clickItem("StateInfo");
  EXPECT_EQ(faceOf(find("frmState", "pnlRate")).role(), QAccessible::Grouping);
  int documents = 0;
  for (QObject* child : frame().area().children()) {
    auto* document = dynamic_cast<Document*>(child);
    if (document == nullptr) continue;
    ++documents;
    EXPECT_EQ(faceOf(*document).role(), QAccessible::Grouping);
    EXPECT_EQ(textOf(faceOf(*document), QAccessible::Name), document->view().screen()->title());
  }
  EXPECT_GE(documents, 1);
}

}  // namespace

}  // namespace tallyfin::qt
