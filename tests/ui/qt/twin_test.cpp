#include <qpa/qwindowsysteminterface.h>

#include <QAbstractItemView>
#include <QAccessible>
#include <QClipboard>
#include <QCursor>
#include <QGuiApplication>
#include <QKeySequence>
#include <QProcess>
#include <random>

#include "controls/desk.h"
#include "controls/screen.h"
#include "desktoptest.h"
#include "explain/jsontext.h"
#include "platform/platform.h"
#include "script/properties.h"
#include "standingclock.h"
#include "ui/qt/binding/afterevent.h"
#include "ui/qt/widgets/text.h"

/// Random acts by keyboard and by assistive technology, and the same as commands to the script program: settings,
/// screens and all properties must be the same. The desktop gets each key when the one before is done with, and then
/// once more all at once.
///
/// TALLYFIN_TWIN_SEED is the seed, TALLYFIN_TWIN_ROUNDS the number of rounds of twelve acts.

namespace tallyfin::qt {

namespace {

/// The script program with its settings in memory.
class Headless {
 public:
  Headless() {
    process_.start(QStringLiteral(TALLYFIN_SCRIPT), QStringList());
    if (!process_.waitForStarted()) throw std::runtime_error("the script program doesn't start");
  }
  ~Headless() {
    process_.closeWriteChannel();
    process_.waitForFinished();
  }
  Headless(const Headless&) = delete;
  Headless& operator=(const Headless&) = delete;

  std::vector<std::string> answers(const std::vector<std::string>& lines) {
    for (const std::string& line : lines) process_.write((line + "\n").c_str());
    std::vector<std::string> all;
    while (all.size() < lines.size()) {
      if (!process_.canReadLine() && !process_.waitForReadyRead()) throw std::runtime_error("no answer");
      while (process_.canReadLine()) all.push_back(process_.readLine().trimmed().toStdString());
    }
    return all;
  }
  std::string answer(const std::string& line) { return answers({line}).front(); }

 private:
  QProcess process_;
};

/// What a user does, as events and as commands.
struct Act {
  std::string words;
  std::vector<std::function<void()>> events;
  std::vector<std::string> commands;
};

constexpr const char* properties[] = {"text",  "shown", "caption",     "value",   "index",   "list",      "left",
                                      "rows",  "cells", "header",      "footer",  "zoom",    "date",      "enabled",
                                      "table", "pages", "highlighted", "visible", "tooltip", "forecolor", "backcolor"};

class Twin : public DesktopTest, public ::testing::WithParamInterface<int> {
 protected:
  void begin() {
    QCursor::setPos(0, 0);
    started_ ? restart() : start();
    started_ = true;
    platform.clock = &clock_;
    platform.help = &noHelp_;
    settle();
  }

  /// Removes all settings, so that each round starts alike.
  void clearSettings() {
    FileStore store(storePath().toStdString());
    for (const auto& [section, keys] : store.all()) {
      for (const auto& [key, value] : keys) store.erase(section, key);
    }
    store.write(section::user, "DontShow", "1");
    store.write(section::settings, "Frequency", "0");
  }

  void beginHeadless() {
    headless_.emplace();
    for (const char* line : {"clock \"1999-05-17T14:00:00\"", "store put User DontShow \"1\"",
                             "store put Settings Frequency \"0\"", "start"}) {
      ASSERT_EQ(headless_->answer(line), "ok") << line;
    }
  }

  // --- Acts

  Act act() {
    switch (below(11)) {
      case 0: return tab();
      case 1: return calculate();
      case 2: return listBar();
      case 3: return mnemonic();
      case 4: return press();
      case 5: return setText();
      case 6: return paste();
      case 7: return move();
      default: return type();
    }
  }

  Act tab() { return key(below(4) == 0 ? "Shift+Tab" : "Tab", ""); }

  /// The button with that key, on a page that has one.
  Act calculate() {
    for (const auto* button : candidates<QAbstractButton>()) {
      if (button->toolTip().endsWith(QLatin1String("(F9)"))) return key("F9", "click " + addressOf(*button));
    }
    return key("F9", "");
  }

  Act listBar() {
    const auto& [keys, item] = one<std::pair<const char*, const char*>>({{"Ctrl+1", "Calc"},
                                                                         {"Ctrl+2", "Multi"},
                                                                         {"Ctrl+3", "Analysis"},
                                                                         {"Ctrl+4", "StateInfo"},
                                                                         {"Ctrl+5", "Personal"},
                                                                         {"Ctrl+6", "Pers"},
                                                                         {"Ctrl+7", "Ded"},
                                                                         {"Ctrl+8", "TwoWork"},
                                                                         {"Ctrl+9", "W4"},
                                                                         {"Ctrl+N", "NewFile"}});
    return key(keys, "click MDIOpen.SSListBar1(" + std::string(item) + ")");
  }

  /// An option, box or button by its mnemonic.
  Act mnemonic() {
    std::vector<QAbstractButton*> buttons;
    for (auto* button : candidates<QAbstractButton>()) {
      if (!button->shortcut().isEmpty()) buttons.push_back(button);
    }
    if (buttons.empty()) return tab();
    QAbstractButton& button = *one(buttons);
    Act act = key(button.shortcut().toString().toLatin1().constData(), "");
    if (button.isCheckable() && !button.hasFocus()) act.commands.push_back("focus " + addressOf(button));
    act.commands.push_back("click " + addressOf(button));
    return act;
  }

  /// A button pressed by assistive technology.
  Act press() {
    std::vector<QAbstractButton*> buttons = candidates<QAbstractButton>();
    if (buttons.empty()) return tab();
    QAbstractButton& button = *one(buttons);
    Act act{"press " + addressOf(button), {}, {}};
    act.events.push_back([this, address = addressOf(button)] {
      awaitTurn();
      QAccessible::queryAccessibleInterface(&found(address))->actionInterface()->doAction(actionOf(found(address)));
    });
    if ((button.focusPolicy() & Qt::ClickFocus) && !button.hasFocus()) {
      act.commands.push_back("focus " + addressOf(button));
    }
    act.commands.push_back("click " + addressOf(button));
    return act;
  }

  /// A text that assistive technology sets.
  Act setText() {
    std::vector<QLineEdit*> boxes = candidates<QLineEdit>();
    if (boxes.empty()) return tab();
    const QLineEdit& box = *one(boxes);
    const std::string address = addressOf(box);
    const std::string value = one<std::string>({"12", "0.05", "1,500", "x", ""});
    Act act{"set " + address + " to \"" + value + "\"", {}, {}};
    act.events.push_back([this, address, value] {
      awaitTurn();
      QAccessible::queryAccessibleInterface(&found(address))->setText(QAccessible::Value, qt::text(value));
    });
    addType(act, box, box.text().toStdString(), value);
    return act;
  }

  /// A paste over the whole text, undone and perhaps done again.
  Act paste() {
    const QLineEdit* box = focusedBox();
    if (box == nullptr) return tab();
    const auto& [copied, kept] =
        one<std::pair<const char*, const char*>>({{"1,250.00\n", "1,250.00"}, {" 900 \r\n", "900"}, {"7\t8", "7"}});
    const std::string before = box->text().toStdString();
    Act act{"paste \"" + std::string(kept) + "\"", {}, {}};
    for (const char* keys : {"Ctrl+A", "Ctrl+V"}) act.events.push_back(keyEvent(keys));
    act.events.insert(act.events.begin(), [copied = copied] {
      flush();
      QGuiApplication::clipboard()->setText(QLatin1String(copied));
    });
    addType(act, *box, before, kept);
    const int undone = below(3);
    if (undone > 0 && before != kept) {
      act.words += ", undo";
      act.events.push_back(keyEvent("Ctrl+Z"));
      addType(act, *box, kept, before);
    }
    if (undone > 1 && before != kept) {
      act.words += ", redo";
      act.events.push_back(keyEvent("Ctrl+Shift+Z"));
      addType(act, *box, before, kept);
    }
    return act;
  }

  /// The arrow in a list, a letter and Enter in a drop-down, Space on a button.
  Act move() {
    QWidget* widget = QApplication::focusWidget();
    if (const auto* list = qobject_cast<const QListWidget*>(widget); list != nullptr && tied(*widget)) {
      const int row = list->currentRow();
      if (row < 0 || row + 1 >= list->count() || list->objectName() == QLatin1String("lstTableOne")) return tab();
      return key("Down", "pick " + addressOf(*widget) + " " + std::to_string(row + 1));
    }
    const auto* box = qobject_cast<const QComboBox*>(widget);
    if (box != nullptr && !box->isEditable() && tied(*widget) && box->count() > 0) {
      const QString first = box->itemText(below(box->count())).left(1).toLower();
      if (!first.front().isLetterOrNumber()) return tab();
      int row = 0;
      while (!box->itemText(row).startsWith(first, Qt::CaseInsensitive)) ++row;
      Act act = key(first.toLatin1().constData(), "pick " + addressOf(*widget) + " " + std::to_string(row));
      // On the offscreen platform the list is a window that takes the keyboard.
      const auto wait = [this] { awaitWindow(); };
      act.events.insert(act.events.end(), {wait, keyEvent("Return"), wait});
      act.words += " and Return";
      return act;
    }
    auto* button = qobject_cast<QAbstractButton*>(widget);
    if (button != nullptr && tied(*button) && !leaves(*button)) return key("Space", "click " + addressOf(*button));
    return tab();
  }

  /// Some characters in the box with the focus, or one deleted.
  Act type() {
    const QLineEdit* box = focusedBox();
    if (box == nullptr) return tab();
    Act act;
    QString now = box->text();
    int start = box->hasSelectedText() ? box->selectionStart() : box->cursorPosition();
    int length = static_cast<int>(box->selectedText().size());
    for (int i = below(4); i >= 0; --i) {
      const char* character = one<const char*>({"0", "1", "2", "5", "9", ".", "4", "Backspace"});
      act.words += " " + std::string(character);
      act.events.push_back(keyEvent(character));
      QString next = now;
      if (QLatin1String(character) != QLatin1String("Backspace")) {
        next.replace(start++, length, QLatin1String(character));
      } else if (length > 0) {
        next.remove(start, length);
      } else if (start > 0) {
        next.remove(--start, 1);
      }
      length = 0;
      addType(act, *box, now.toStdString(), next.toStdString());
      now = next;
    }
    act.words = "type" + act.words;
    return act;
  }

  // --- Events

  static void flush() { QWindowSystemInterface::sendWindowSystemEvents(QEventLoop::AllEvents); }

  /// Assistive technology is answered by the event loop, when what was before is done.
  static void awaitTurn() {
    flush();
    runDeferred();
  }

  /// As the window system delivers a key to the window that has the focus then.
  static std::function<void()> keyEvent(const std::string& keys) {
    return [keys] {
      const QKeyCombination one = QKeySequence(qt::text(keys))[0];
      const bool character = keys.size() == 1;
      const QString words = character ? qt::text(keys) : one.key() == Qt::Key_Space ? QStringLiteral(" ") : QString();
      for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QWindowSystemInterface::handleExtendedKeyEvent(nullptr, type, one.key(), one.keyboardModifiers(), 0, 0, 0,
                                                       words);
      }
    };
  }

  static Act key(const std::string& keys, const std::string& command) {
    Act act{keys, {keyEvent(keys)}, {}};
    if (!command.empty()) act.commands.push_back(command);
    return act;
  }

  // --- Targets

  int below(int limit) { return static_cast<int>(random_() % static_cast<unsigned>(limit)); }
  template <class T>
  T one(const std::vector<T>& of) {
    return of[static_cast<std::size_t>(below(static_cast<int>(of.size())))];
  }

  static const Screen& front() { return desk.blocked("MDIOpen") ? *desk.boxes().front() : *desk.activeDocument(); }

  /// Whether a widget of the screen in front is that of a control.
  bool tied(const QWidget& widget) const {
    const auto& controls = front().controls();
    return view(front().name().c_str()).isAncestorOf(&widget) &&
           std::any_of(controls.begin(), controls.end(),
                       [&](const Control* control) { return qt::text(control->address()) == widget.objectName(); });
  }
  /// Buttons that end the program or open a dialog of Qt's.
  static bool leaves(const QWidget& widget) {
    return front().name() == "frmMain" && widget.objectName() == QLatin1String("cmdToolBar(3)");
  }
  static std::string addressOf(const QWidget& widget) {
    return front().name() + "." + widget.objectName().toStdString();
  }
  QWidget& found(const std::string& address) const {
    const auto dot = address.find('.');
    return find(address.substr(0, dot).c_str(), qt::text(address.substr(dot + 1)));
  }
  static QString actionOf(const QWidget& button) {
    return dynamic_cast<const QAbstractButton&>(button).isCheckable() ? QAccessibleActionInterface::toggleAction()
                                                                      : QAccessibleActionInterface::pressAction();
  }

  /// The widgets of controls that the user sees and can change.
  template <class Widget>
  std::vector<Widget*> candidates() const {
    std::vector<Widget*> all;
    const View& page = view(front().name().c_str());
    for (auto* widget : page.template findChildren<Widget*>()) {
      const bool there = widget->isVisible() && widget->isEnabled() && widget->mapTo(&page, QPoint()).x() >= 0;
      if (there && tied(*widget) && !leaves(*widget)) all.push_back(widget);
    }
    return all;
  }

  /// The box for a text that has the focus; null if none.
  const QLineEdit* focusedBox() const {
    const auto* box = qobject_cast<const QLineEdit*>(QApplication::focusWidget());
    return box != nullptr && tied(*box) && !box->isReadOnly() ? box : nullptr;
  }

  static void addType(Act& act, const QLineEdit& box, const std::string& before, const std::string& after) {
    if (before != after) act.commands.push_back("type " + addressOf(box) + " " + json(after));
  }

  // --- Comparison

  /// Windows get the keyboard when the window system has seen them. Without a window manager the frame doesn't get it
  /// back from a box that has closed.
  void awaitWindow() {
    flush();
    settle();
    if (QApplication::activeWindow() != nullptr) return;
    frame().activateWindow();
    settle();
  }

  /// Tab may lead to a widget that isn't a control, where no command leads.
  void moveToAControl() {
    for (int i = 0; desk.focused() == nullptr && i < 40; ++i) {
      events_.push_back(keyEvent("Tab"));
      events_.back()();
      flush();
      settle();
    }
  }

  void followFocus() {
    moveToAControl();
    if (desk.focused() == nullptr) return;
    const std::string address = desk.focused()->screen().name() + "." + desk.focused()->address();
    if (headless_->answer("get " + address + " focused") == "= false") {
      EXPECT_EQ(headless_->answer("focus " + address), "ok") << address;
    }
  }

  std::string settings() const {
    JsonObject sections;
    for (const auto& [section, keys] : FileStore(storePath().toStdString()).all()) {
      JsonObject entries;
      for (const auto& [key, value] : keys) entries.add(key, json(value));
      sections.add(section, entries.text());
    }
    return "= " + sections.text();
  }

  /// The differences between the desktop and the script program, one a line.
  std::string differences() {
    std::vector<std::string> questions{"store"};
    std::vector<std::string> shown{settings()};
    for (const Screen* screen : desk.loaded()) {
      questions.push_back("get " + screen->name() + " shown");
      shown.push_back(screen->shown() ? "= true" : "= false");
      for (const Control* control : screen->controls()) {
        for (const char* name : properties) {
          const auto value = script::property(*control, name);
          if (!value) continue;
          questions.push_back("get " + screen->name() + "." + control->address() + " " + name);
          shown.push_back("= " + *value);
        }
      }
    }
    const std::vector<std::string> held = headless_->answers(questions);
    std::string words;
    for (std::size_t i = 0; i < held.size(); ++i) {
      if (held[i] != shown[i]) words += questions[i] + ": " + shown[i] + ", held " + held[i] + "\n";
    }
    return words;
  }

  std::mt19937 random_{static_cast<unsigned>(fromEnvironment("TALLYFIN_TWIN_SEED", 1999) * 100 + GetParam())};
  std::vector<std::function<void()>> events_;
  std::optional<Headless> headless_;

  static int fromEnvironment(const char* name, int usual) {
    const int value = qEnvironmentVariableIntValue(name);
    return value == 0 ? usual : value;
  }

 private:
  StandingClock clock_;
  HelpViewer noHelp_;
  bool started_ = false;
};

TEST_P(Twin, HoldsWhatTheScriptProgramHoldsAtAnySpeedOfKeys) {
  const int rounds = fromEnvironment("TALLYFIN_TWIN_ROUNDS", 12);
  for (int round = 0; round < rounds; ++round) {
    clearSettings();
    begin();
    beginHeadless();
    followFocus();
    events_.clear();
    std::string words = "round " + std::to_string(round);
    for (int i = 0; i < 12; ++i) {
      const QWidget* window = QApplication::activeWindow();
      const Act next = act();
      words += "\n  " + next.words;
      for (const auto& event : next.events) {
        event();
        flush();
        settle();
      }
      events_.insert(events_.end(), next.events.begin(), next.events.end());
      if (QApplication::activeWindow() != window) {
        events_.push_back([this] { awaitWindow(); });
        awaitWindow();
      }
      for (const std::string& command : next.commands) {
        words += "\n    " + command;
        const std::string answer = headless_->answer(command);
        EXPECT_TRUE(answer == "ok" || answer.starts_with("! blocked")) << answer << "\n" << words;
      }
      followFocus();
      words += "\n   at " + focused();
      ASSERT_EQ(differences(), "") << words;
    }
    clearSettings();
    begin();
    for (const auto& event : events_) event();
    flush();
    settle();
    ASSERT_EQ(differences(), "") << "all at once: " << words;
  }
}

INSTANTIATE_TEST_SUITE_P(Seeds, Twin, ::testing::Values(1, 2));

}  // namespace

}  // namespace tallyfin::qt
