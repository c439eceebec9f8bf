#include <rapidcheck.h>

#include <QClipboard>
#include <QDropEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>

#include "controls/desk.h"
#include "desktoptest.h"
#include "engine/paydata.h"
#include "stateoptions/frmState.h"
#include "ui/frmMain.h"
#include "ui/frmName.h"

/// Keys, undo, redo and paste in the boxes. The model has the same text as a plain QLineEdit; only pasted or dropped
/// text is cleaned first.

namespace tallyfin::qt {

namespace {

class Typing : public DesktopTest {
 protected:
  /// Opens a box with a text in it, all of it selected.
  QLineEdit& open(const char* screen, const char* name, const QString& text) const {
    auto& edit = find<QLineEdit>(screen, name);
    edit.setFocus();
    settle();
    edit.selectAll();
    text.isEmpty() ? QTest::keyClick(&edit, Qt::Key_Delete) : QTest::keyClicks(&edit, text);
    settle();
    edit.selectAll();
    return edit;
  }
  static void paste(QLineEdit& edit, const QString& text) {
    QGuiApplication::clipboard()->setText(text);
    QTest::keyClick(&edit, Qt::Key_V, Qt::ControlModifier);
    settle();
  }
  static void undo(QLineEdit& edit) {
    QTest::keyClick(&edit, Qt::Key_Z, Qt::ControlModifier);
    settle();
  }
  static const std::string& income() { return desk.use<frmMain>().txtIncome.text(); }
};

TEST_F(Typing, OfASelectionOfASpreadsheetTheFirstCellIsPasted) {
  startOnMain();
  QLineEdit& edit = open("frmMain", "txtIncome", "1000");
  paste(edit, "1000\n2000");
  EXPECT_EQ(income(), "1000");
  EXPECT_EQ(edit.text(), "1000");
  edit.selectAll();
  paste(edit, "700\t800\n900");
  EXPECT_EQ(income(), "700");
  QTest::keyClick(&edit, Qt::Key_End);
  paste(edit, "55\r\n66");
  EXPECT_EQ(income(), "70055");
  EXPECT_EQ(edit.cursorPosition(), 5);
}

TEST_F(Typing, ALineBreakAtTheEndOfWhatIsPastedDoesNotStay) {
  startOnMain();
  QLineEdit& edit = open("frmMain", "txtIncome", "2500");
  paste(edit, "25\n");
  EXPECT_EQ(income(), "25");
  EXPECT_EQ(edit.text(), "25");
}

TEST_F(Typing, BlanksGoWhereTheWholeTextIsReplacedAndStayElsewhere) {
  startOnMain();
  clickItem("Personal");
  QLineEdit& edit = open("frmName", "txtName", "Pat");
  paste(edit, "  Ann Lee ");
  EXPECT_EQ(desk.use<frmName>().txtName.text(), "Ann Lee");
  QTest::keyClick(&edit, Qt::Key_End);
  paste(edit, " Sample");
  EXPECT_EQ(desk.use<frmName>().txtName.text(), "Ann Lee Sample");
  undo(edit);
  EXPECT_EQ(desk.use<frmName>().txtName.text(), "Ann Lee");
  QTest::keyClick(&edit, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
  settle();
  EXPECT_EQ(desk.use<frmName>().txtName.text(), "Ann Lee Sample");
}

TEST_F(Typing, WhatIsUndoneKeepsItsBlanks) {
  startOnMain();
  clickItem("Personal");
  QLineEdit& edit = open("frmName", "txtName", "Pat Sample");
  edit.setSelection(3, 7);
  QTest::keyClick(&edit, Qt::Key_Delete);
  undo(edit);
  EXPECT_EQ(edit.text(), "Pat Sample");
  EXPECT_EQ(desk.use<frmName>().txtName.text(), "Pat Sample");
}

TEST_F(Typing, WhatLooksLikeABlankOrAMinusIsOneInAnAmount) {
  startOnMain();
  QLineEdit& edit = open("frmMain", "txtIncome", "1");
  paste(edit, QString::fromUtf8("\u00A01,250.50\u2009"));
  EXPECT_EQ(income(), "1,250.50");
  edit.selectAll();
  paste(edit, QString::fromUtf8("\u202F1\u30002"));
  EXPECT_EQ(income(), "1 2");
  edit.selectAll();
  paste(edit, QString::fromUtf8("\uFEFF\u221290\u200B"));
  EXPECT_EQ(income(), "-90");
  clickItem("Personal");  // a name keeps its inner blanks
  QLineEdit& name = open("frmName", "txtName", "1");
  paste(name, QString::fromUtf8("Ann\u00A0Lee \u2212"));
  EXPECT_EQ(desk.use<frmName>().txtName.text(), "Ann\u00A0Lee \u2212");
}

TEST_F(Typing, APasteOfTheMenuIsCleanedToo) {
  startOnMain();
  QLineEdit& edit = open("frmMain", "txtIncome", "2500");
  QGuiApplication::clipboard()->setText("1000\n2000");
  QContextMenuEvent event(QContextMenuEvent::Keyboard, edit.rect().center(), edit.mapToGlobal(edit.rect().center()));
  QApplication::sendEvent(&edit, &event);
  auto* menu = edit.findChild<QMenu*>();
  ASSERT_NE(menu, nullptr);
  for (QAction* action : menu->actions()) {
    if (action->text().startsWith("&Paste")) action->trigger();
  }
  menu->close();
  settle();
  EXPECT_EQ(income(), "1000");
}

TEST_F(Typing, WhatIsDroppedIsCleanedToo) {
  startOnMain();
  QLineEdit& edit = open("frmMain", "txtIncome", "");
  QMimeData cells;
  cells.setText(" 725.50 \n900");
  QDragEnterEvent enter(edit.rect().center(), Qt::CopyAction, &cells, Qt::LeftButton, {});
  QApplication::sendEvent(&edit, &enter);  // which makes the box the drop target
  QDropEvent drop(edit.rect().center(), Qt::CopyAction, &cells, Qt::LeftButton, {});
  QApplication::sendEvent(&edit, &drop);
  settle();
  EXPECT_EQ(income(), "725.50");
  EXPECT_EQ(edit.text(), "725.50");
}

TEST_F(Typing, ADropDownTakesTheFirstCellToo) {
  startOnMain();
  clickItem("StateInfo");
  auto& box = find<QComboBox>("frmState", "cboDeps(0)");
  box.setFocus();
  settle();
  box.lineEdit()->selectAll();
  paste(*box.lineEdit(), " 7\n8");
  EXPECT_EQ(desk.use<frmState>().cboDeps[0].text(), "7");
  EXPECT_EQ(box.currentText(), "7");
}

// --- Comparison with a plain QLineEdit

struct Act {
  QString pasted;  ///< The clipboard's text; empty for a key.
  int key = 0;
  int modifiers = 0;
};

std::ostream& operator<<(std::ostream& out, const Act& act) {
  return act.pasted.isEmpty() ? out << QKeySequence(act.key | act.modifiers).toString().toStdString()
                              : out << "paste " << act.pasted.toStdString();
}

rc::Gen<Act> anyAct() {
  const auto key = [](int code, int modifiers = 0) { return Act{{}, code, modifiers}; };
  constexpr int control = Qt::ControlModifier;
  constexpr int shift = Qt::ShiftModifier;
  const std::vector<Act> acts{key('1'),
                              key('2'),
                              key('.'),
                              key('A'),
                              key(Qt::Key_Space),
                              key(Qt::Key_Space),
                              key(Qt::Key_Left),
                              key(Qt::Key_Right),
                              key(Qt::Key_Home),
                              key(Qt::Key_End),
                              key(Qt::Key_Left, shift),
                              key(Qt::Key_Right, shift),
                              key(Qt::Key_Home, shift),
                              key(Qt::Key_End, shift),
                              key(Qt::Key_Left, control),
                              key(Qt::Key_Backspace),
                              key(Qt::Key_Delete),
                              key(Qt::Key_Backspace, control),
                              key(Qt::Key_A, control),
                              key(Qt::Key_X, control),
                              key(Qt::Key_Z, control),
                              key(Qt::Key_Z, control),
                              key(Qt::Key_Z, control | shift)};
  const std::vector<const char*> texts{"1000\n2000", "25\n", " Sample",       "7 ",        "\t900",
                                       "  ",         "3.5",  "\u22125\u00A0", "12\u202834"};
  return rc::gen::map(rc::gen::inRange<std::size_t>(0, acts.size() + texts.size()), [=](std::size_t i) {
    return i < acts.size() ? acts[i] : Act{QString::fromUtf8(texts[i - acts.size()])};
  });
}

/// The cleaned text of a pasted amount, by the rule and not by the program.
QString cleaned(QString pasted, bool replacesAll) {
  for (const char16_t blank : {u'\u00A0', u'\u2009', u'\u200B', u'\uFEFF'}) pasted.replace(QChar(blank), ' ');
  pasted.replace(QChar(u'\u2212'), '-');
  qsizetype end = 0;
  while (end < pasted.size() && !QStringLiteral("\n\r\t\u2028\u2029").contains(pasted[end])) ++end;
  pasted.truncate(end);
  return replacesAll ? pasted.trimmed() : pasted;
}

void play(QLineEdit& edit, const Act& act, const QString& clip) {
  if (act.pasted.isEmpty()) {
    QTest::keyClick(&edit, static_cast<Qt::Key>(act.key), static_cast<Qt::KeyboardModifiers>(act.modifiers));
  } else {
    QGuiApplication::clipboard()->setText(clip);
    QTest::keyClick(&edit, Qt::Key_V, Qt::ControlModifier);
  }
}

bool undoes(const Act& act) { return act.key == Qt::Key_Z; }

/// Does the acts on a box and on a plain QLineEdit, into which the cleaned text is pasted. Qt's undo and redo may
/// leave cursor and selection beyond the text, where its own paste goes wrong: a paste after them goes to the end.
void compare(QLineEdit& edit, const std::vector<Act>& acts, const std::function<std::string()>& held) {
  QLineEdit alone;
  edit.setText({});  // which clears the undo history
  bool undone = false;
  for (const Act& act : acts) {
    if (undone && !act.pasted.isEmpty()) {
      for (QLineEdit* one : {&alone, &edit}) QTest::keyClick(one, Qt::Key_End);
    }
    undone = undoes(act) || (undone && act.pasted.isEmpty());
    const bool all = alone.selectedText() == alone.text();
    play(alone, act, cleaned(act.pasted, all));
    play(edit, act, act.pasted);
    RC_ASSERT(held() == alone.text().toStdString());
    RC_ASSERT(edit.text() == alone.text());
    RC_ASSERT(edit.cursorPosition() == alone.cursorPosition());
    RC_ASSERT(edit.selectedText() == alone.selectedText());
  }
}

TEST_F(Typing, APasteAfterARedoGoesToTheEndWhereTheCursorIsBeyondIt) {
  startOnMain();
  QLineEdit& edit = open("frmMain", "txtIncome", "1");
  QTest::keyClick(&edit, Qt::Key_End);
  paste(edit, "1000");
  undo(edit);
  undo(edit);
  QTest::keyClick(&edit, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
  ASSERT_EQ(edit.text(), "1");
  paste(edit, "22");
  EXPECT_EQ(income(), "122");
}

TEST_F(Typing, ABoxHasTheTextOfAPlainLineEdit) {
  startOnMain();
  QLineEdit& edit = open("frmMain", "txtIncome", "");
  EXPECT_TRUE(rc::check([&] {
    const auto acts = *rc::gen::container<std::vector<Act>>(anyAct());
    compare(edit, acts, [] { return income(); });
  }));
}

TEST_F(Typing, ADropDownHasTheTextOfAPlainLineEdit) {
  startOnMain();
  clickItem("StateInfo");
  auto& box = find<QComboBox>("frmState", "cboDeps(0)");
  box.setFocus();
  settle();
  EXPECT_TRUE(rc::check([&] {
    const auto acts = *rc::gen::container<std::vector<Act>>(anyAct());
    compare(*box.lineEdit(), acts, [] { return desk.use<frmState>().cboDeps[0].text(); });
  }));
}

}  // namespace

}  // namespace tallyfin::qt
