#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTest>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>

#include "fakedialogs.h"
#include "store/store.h"
#include "ui/qt/desktop.h"
#include "ui/qt/frame/document.h"
#include "ui/qt/frame/frame.h"

/// Fixture of the desktop's tests: the whole program without a display, with a temporary store file, driven by clicks
/// and keys on widgets found by their names.

namespace tallyfin::qt {

class DesktopTest : public ::testing::Test {
 protected:
  DesktopTest();
  ~DesktopTest() override;

  /// Stores a setting, as from an earlier run.
  void stored(std::string_view section, std::string_view key, const std::string& text);
  void start();
  /// As start, where the personal information isn't asked for: the main screen comes first.
  void startOnMain();
  /// The stored text at the next start.
  void putFile(const QByteArray& content) const;
  QString storePath() const { return folder_.filePath("settings.sqlite"); }
  /// Ends the program and starts it again on the same store file.
  void restart();
  /// Runs deferred work of the program.
  static void settle();

  Desktop& desktop() const { return *desktop_; }
  Frame& frame() const { return *desktop_->frame(); }
  bool shown(const char* screen) const { return desktop_->view(screen) != nullptr; }
  /// The title of the document in front.
  std::string front() const;

  const View& view(const char* screen) const;
  template <class Widget = QWidget>
  Widget& find(const char* screen, const QString& name) const {
    auto* widget = view(screen).findChild<Widget*>(name);
    if (widget == nullptr) throw std::runtime_error(std::string(screen) + " has no " + name.toStdString());
    return *widget;
  }

  /// Whether a widget is on a visible page.
  bool inSight(const char* screen, const QString& name) const {
    const QWidget& widget = find(screen, name);
    return widget.isVisible() && widget.mapTo(&view(screen), widget.rect().topRight()).x() >= 0;
  }

  static void click(QWidget& widget);
  void click(const char* screen, const QString& name) const { click(find(screen, name)); }
  /// Clicks an item of the list bar, after its group's header where the group is closed.
  void clickItem(const char* key) const;
  /// Clicks the box and replaces its text.
  void type(const char* screen, const QString& name, const QString& text) const;
  /// Chooses an entry of a list or, by the keyboard, of an opened drop-down.
  void choose(const char* screen, const QString& name, const QString& entry) const;
  static void press(Qt::Key key);

  std::string text(const char* screen, const QString& name) const;
  /// The rows of the results as "Title value".
  std::vector<std::string> results() const;

  FakeDialogs dialogs;

 private:
  QTemporaryDir folder_;
  std::optional<FileStore> store_;
  std::unique_ptr<Desktop> desktop_;
};

/// The object name of the widget that has the focus.
std::string focused();

}  // namespace tallyfin::qt
