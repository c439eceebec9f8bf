#include "ui/qt/help/desktophelp.h"

#include <QApplication>
#include <QShortcut>
#include <algorithm>

#include "controls/desk.h"
#include "ui/qt/frame/frame.h"
#include "ui/qt/frame/placement.h"
#include "ui/qt/views/view.h"
#include "ui/qt/widgets/text.h"

namespace tallyfin::qt {

DesktopHelp::DesktopHelp(QStringList folders) : files_(std::move(folders)) {}

DesktopHelp::~DesktopHelp() { delete window_; }

void DesktopHelp::serve(Frame& frame) {
  frame_ = &frame;
  auto* key = new QShortcut(QKeySequence(Qt::Key_F1), &frame);
  key->setContext(Qt::ApplicationShortcut);
  key->setWhatsThis(QStringLiteral("Help on the page"));
  QObject::connect(key, &QShortcut::activated, &frame, [this] { openForActiveWindow(); });
}

void DesktopHelp::serveBox(QWidget& box) {
  auto* key = new QShortcut(QKeySequence(Qt::Key_F1), &box);
  QObject::connect(key, &QShortcut::activated, &box, [this] { openForActiveWindow(); });
}

void DesktopHelp::leave(const QWidget& box) {
  if (window_ == nullptr || window_->parentWidget() != &box) return;
  const bool open = window_->isVisible();
  window_->setParent(frame_, window_->windowFlags());
  window_->setVisible(open);
}

void DesktopHelp::open(const std::string& file, int context) { openTopic(text(file), QString::number(context)); }

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

namespace {

QString topicOfActiveWindow(const Frame* frame) {
  for (const QWidget* window = QApplication::activeWindow(); window != nullptr && window != frame;
       window = window->parentWidget()) {
    if (window->objectName() == QLatin1String("explanation")) return QStringLiteral("explained");
    for (const QObject* child : window->children()) {
      const auto* box = dynamic_cast<const View*>(child);
      if (box != nullptr && box->screen() != nullptr) return text(box->screen()->name());
    }
  }
  const Screen* document = desk.activeDocument();
  return document == nullptr ? QString() : text(document->name());
}

}  // namespace

void DesktopHelp::openForActiveWindow() {
  const QString id = topicOfActiveWindow(frame_);
  const auto& files = HelpFiles::files;
  const auto file = std::find_if(files.begin(), files.end(), [&](const QString& candidate) {
    const HelpFile* help = files_.find(candidate);
    return help != nullptr && help->find(id) != nullptr;
  });
  openTopic(file == files.end() ? files.front() : *file, id);
}

}  // namespace tallyfin::qt