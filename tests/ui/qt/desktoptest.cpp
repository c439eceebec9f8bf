#include "desktoptest.h"

#include <QAbstractItemView>
#include <QEvent>
#include <QFile>
#include <QRegularExpression>

#include "controls/desk.h"
#include "ui/qt/widgets/look.h"

namespace tallyfin::qt {

DesktopTest::DesktopTest() { store_.emplace(storePath().toStdString()); }

DesktopTest::~DesktopTest() {
  desktop_.reset();
  settle();
}

void DesktopTest::stored(std::string_view section, std::string_view key, const std::string& text) {
  store_->write(section, key, text);
}

void DesktopTest::putFile(const QByteArray& content) const {
  QFile file(storePath());
  if (!file.open(QFile::WriteOnly) || file.write(content) != content.size()) throw std::runtime_error("can't write");
}

void DesktopTest::start() {
  desktop_ = std::make_unique<Desktop>(*store_, dialogs);
  desktop_->start();
  frame().activateWindow();
  if (!QTest::qWaitForWindowActive(&frame())) throw std::runtime_error("the frame doesn't become the active window");
  settle();
}

void DesktopTest::startOnMain() {
  stored(section::user, "DontShow", "1");
  start();
}

void DesktopTest::restart() {
  desktop_.reset();
  settle();
  store_.emplace(storePath().toStdString());
  start();
}

void DesktopTest::settle() {
  for (int i = 0; i < 3; ++i) {
    QApplication::processEvents();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
}

std::string DesktopTest::front() const {
  const Screen* active = desk.activeDocument();
  return active == nullptr ? "" : active->title();
}

const View& DesktopTest::view(const char* screen) const {
  const View* view = desktop_->view(screen);
  if (view == nullptr) throw std::runtime_error(std::string(screen) + " isn't shown");
  return *view;
}

void DesktopTest::click(QWidget& widget) {
  // The indicator of an option or check box is at its left end; a widget may be wider than its text.
  const bool marked = qobject_cast<QRadioButton*>(&widget) != nullptr || widget.inherits("QCheckBox");
  QTest::mouseClick(&widget, Qt::LeftButton, {}, marked ? QPoint(8, widget.height() / 2) : widget.rect().center());
  settle();
}

void DesktopTest::clickItem(const char* key) const {
  auto& item = find<QAbstractButton>("MDIOpen", QStringLiteral("SSListBar1(%1)").arg(key));
  for (auto* header : frame().findChildren<QAbstractButton*>(QRegularExpression("^group "))) {
    if (!item.isVisible()) click(*header);
  }
  if (!item.isVisible()) throw std::runtime_error(std::string(key) + " can't be seen");
  click(item);
}

void DesktopTest::type(const char* screen, const QString& name, const QString& text) const {
  auto& edit = find<QLineEdit>(screen, name);
  click(edit);
  edit.selectAll();
  if (text.isEmpty()) QTest::keyClick(&edit, Qt::Key_Delete);
  QTest::keyClicks(&edit, text);
  settle();
}

void DesktopTest::choose(const char* screen, const QString& name, const QString& entry) const {
  QWidget& widget = find(screen, name);
  if (auto* list = qobject_cast<QListWidget*>(&widget)) {
    const auto rows = list->findItems(entry, Qt::MatchExactly);
    if (rows.isEmpty()) throw std::runtime_error("there is no entry " + entry.toStdString());
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(rows.front()).center());
    return settle();
  }
  auto& box = dynamic_cast<QComboBox&>(widget);
  const int row = box.findText(entry);
  if (row < 0) throw std::runtime_error("there is no entry " + entry.toStdString());
  box.showPopup();
  settle();
  box.view()->setCurrentIndex(box.model()->index(row, 0));
  QTest::keyClick(box.view(), Qt::Key_Return);
  settle();
}

void DesktopTest::press(Qt::Key key) {
  QWidget* target = QApplication::focusWidget();
  QTest::keyClick(target != nullptr ? target : QApplication::activeWindow(), key);
  settle();
}

std::string DesktopTest::text(const char* screen, const QString& name) const {
  QWidget& widget = find(screen, name);
  if (const auto* edit = qobject_cast<QLineEdit*>(&widget)) return edit->text().toStdString();
  if (const auto* label = qobject_cast<QLabel*>(&widget)) {
    // A label of a box may have a mnemonic.
    return (label->buddy() == nullptr ? label->text() : label->text().remove('&')).toStdString();
  }
  if (const auto* box = qobject_cast<QComboBox*>(&widget)) return box->currentText().toStdString();
  if (const auto* button = qobject_cast<QAbstractButton*>(&widget)) return button->text().toStdString();
  throw std::runtime_error(name.toStdString() + " shows no text");
}

std::vector<std::string> DesktopTest::results() const {
  const auto& table = find<QTableWidget>("frmMain", "dbgDisplay");
  std::vector<std::string> rows;
  rows.reserve(static_cast<std::size_t>(table.rowCount()));
  for (int row = 0; row < table.rowCount(); ++row) {
    rows.push_back((table.item(row, 0)->text() + " " + table.item(row, 1)->text()).toStdString());
  }
  return rows;
}

std::string focused() {
  const QWidget* widget = QApplication::focusWidget();
  return widget == nullptr ? "" : widget->objectName().toStdString();
}

}  // namespace tallyfin::qt

int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  tallyfin::qt::look::apply(application);
  QApplication::setQuitOnLastWindowClosed(false);
  return RUN_ALL_TESTS();
}
