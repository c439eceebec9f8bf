#include "ui/qt/help/desktophelp.h"

#include <QApplication>
#include <QShortcut>
#include <algorithm>

#include "controls/desk.h"
#include "ui/qt/frame/frame.h"
#include "ui/qt/frame/placement.h"

namespace tallyfin::qt {

DesktopHelp::DesktopHelp(QStringList folders) : files_(std::move(folders)) {}

DesktopHelp::~DesktopHelp() { delete window_; }

void DesktopHelp::serve(Frame& frame) {
  frame_ = &frame;
  auto* key = new QShortcut(QKeySequence(Qt::Key_F1), &frame);
  key->setContext(Qt::ApplicationShortcut);
  key->setWhatsThis(QStringLiteral("Help on the page"));
  QObject::connect(key, &QShortcut::activated, &frame, [this] { openForActiveDocument(); });
}

void DesktopHelp::serveBox(QWidget& box) {
  auto* key = new QShortcut(QKeySequence(Qt::Key_F1), &box);
  QObject::connect(key, &QShortcut::activated, &box, [this] { openForActiveDocument(); });
}

void DesktopHelp::leave(const QWidget& box) {
  if (window_ == nullptr || window_->parentWidget() != &box) return;
  const bool open = window_->isVisible();
  window_->setParent(frame_, window_->windowFlags());
  window_->setVisible(open);
}

void DesktopHelp::open(const std::string& file, int context) {
  openTopic(QString::fromStdString(file), QString::number(context));
}

void DesktopHelp::openTopic(const QString& file, const QString& id) {
  if (window_ == nullptr) {
    window_ = new HelpWindow(files_, frame_);
    frame_->lendKeys(*window_, {QKeySequence(Qt::CTRL | Qt::Key_Q)});
  }
  const bool missing = files_.find(file) == nullptr;
  if (missing && !window_->isVisible()) return frame_->tell(files_.missing(file));
  frame_->tell({});
  window_->showTopic(file, id);
  if (missing) return;
  // While a modal box is open, only windows above it accept input.
  QWidget* above = QApplication::activeModalWidget() != nullptr ? QApplication::activeModalWidget() : frame_.data();
  const bool opens = !window_->isVisible();
  if (window_->parentWidget() != above) window_->setParent(above, window_->windowFlags());
  if (opens) placeBeside(*window_, *frame_);
  window_->show();
  // mutation: window_->raise(); -> nothing: the offscreen platform has no order of windows, one style and no letters of
  // its own
  window_->raise();
  window_->activateWindow();
}

void DesktopHelp::openForActiveDocument() {
  const Screen* screen = desk.activeDocument();
  const std::vector<Screen*> boxes = desk.boxes();
  if (!boxes.empty() && QApplication::activeWindow() != frame_) screen = boxes.front();
  const QWidget* front = QApplication::activeWindow();
  QString id = screen == nullptr ? QString() : QString::fromStdString(screen->name());
  if (front != nullptr && front->objectName() == QLatin1String("explanation")) id = QStringLiteral("explained");
  if (desk.blocked("MDIOpen")) id = QStringLiteral("frmAnalysis");  // the box is the warning of the analysis
  const auto& files = HelpFiles::files;
  const auto file = std::find_if(files.begin(), files.end(), [&](const QString& candidate) {
    const HelpFile* help = files_.find(candidate);
    return help != nullptr && help->find(id) != nullptr;
  });
  openTopic(file == files.end() ? files.front() : *file, id);
}

}  // namespace tallyfin::qt