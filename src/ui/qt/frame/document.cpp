#include "ui/qt/frame/document.h"

#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollArea>
#include <QShortcut>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>

#include "controls/desk.h"
#include "ui/qt/accessibility/accessible.h"
#include "ui/qt/views/view.h"
#include "ui/qt/widgets/look.h"
#include "ui/qt/widgets/text.h"

namespace tallyfin::qt {

namespace {

int titleHeight() { return look::scaled(20); }
constexpr int edge = 2;  ///< Of a document above another.
const QColor otherTitle{176, 190, 194};

}  // namespace

Document::Document(View& view, QWidget* parent) : QWidget(parent), view_(view), strip_(new QWidget(this)) {
  presentAs(*this, QAccessible::Grouping);
  look::setGround(*this, look::onDeep());
  strip_->setAutoFillBackground(true);
  strip_->setFixedHeight(titleHeight());
  title_ = new QLabel(strip_);
  confirmed_ = new QLabel(strip_);
  confirmed_->setObjectName(QStringLiteral("confirmed"));
  confirmed_->setTextFormat(Qt::PlainText);
  auto* close = new QToolButton(strip_);
  close->setText(QStringLiteral("×"));
  close->setAutoRaise(true);
  close->setFixedSize(titleHeight(), titleHeight() - 2);
  close->setToolTip(QStringLiteral("Close this page"));
  close->setAccessibleName(QStringLiteral("Close"));
  auto* strip = new QHBoxLayout(strip_);
  strip->setContentsMargins(look::row, 0, 2, 0);
  strip->addWidget(title_, 1);
  strip->addWidget(confirmed_);
  strip->addWidget(close);

  scroll_ = new QScrollArea(this);
  scroll_->setFrameShape(QFrame::NoFrame);
  scroll_->setWidgetResizable(true);
  scroll_->setFocusPolicy(Qt::NoFocus);
  scroll_->setWidget(&view);

  auto* layout = new QVBoxLayout(this);
  layout->setSpacing(0);
  layout->addWidget(strip_);
  layout->addWidget(scroll_, 1);

  view.screen()->watch([this] { showTitle(); });
  showTitle();
  connect(close, &QToolButton::clicked, this, &Document::close);
  escape_ = new QShortcut(Qt::Key_Escape, this);
  connect(escape_, &QShortcut::activated, this, &Document::close);
}

void Document::close() {
  if (Screen* screen = view_.screen()) desk.userClose(*screen);
}

void Document::confirm(const QString& words) {
  const int room = strip_->width() - title_->fontMetrics().horizontalAdvance(title_->text()) - 2 * titleHeight();
  confirmed_->setText(confirmed_->fontMetrics().elidedText(words, Qt::ElideMiddle, std::max(0, room)));
  confirmed_->setToolTip(words);
}

void Document::showTitle() {
  const Screen* screen = view_.screen();
  if (screen == nullptr) return;
  title_->setText(text(screen->title()));
  setAccessibleName(title_->text());
  static_cast<DocumentArea*>(parentWidget())->arrange();  // a document that fills the area covers the others
}

void Document::place(const QSize& area) {
  const Screen* screen = view_.screen();
  if (screen == nullptr) return;
  const int around = screen->maximized ? 1 : edge;
  layout()->setContentsMargins(around, screen->maximized ? 0 : edge, around, around);
  if (screen->maximized) {
    setGeometry(QRect(QPoint(), area));
    return;
  }
  QSize wanted = view_.sizeHint()
                     .expandedTo(view_.minimumSize())
                     .expandedTo(view_.minimumSizeHint())
                     .boundedTo(view_.maximumSize());
  if (view_.hasHeightForWidth()) wanted.setHeight(view_.heightForWidth(wanted.width()));
  wanted += QSize(2 * edge, titleHeight() + 2 * edge);
  QRect place(QPoint(), wanted.boundedTo(area));
  place.moveCenter(QRect(QPoint(), area).center());
  setGeometry(place);
}

void Document::setActive(bool active) {
  QPalette ground = look::onDeep();
  ground.setColor(QPalette::Window, active ? look::deepLighter : look::deep);
  if (!active) ground.setColor(QPalette::WindowText, otherTitle);
  strip_->setPalette(ground);
  view_.setActive(active);
  const bool over = view_.screen() != nullptr && !view_.screen()->maximized && desk.documents().size() > 1;
  escape_->setEnabled(active && over);
}

void Document::mousePressEvent(QMouseEvent* /*event*/) {
  if (Screen* screen = view_.screen()) desk.act(*screen, [] {});  // a click brings it to the front
}

/// A document that doesn't fill the area has an edge of a dark and a light line, because the background may be dark or
/// light.
void Document::paintEvent(QPaintEvent* /*event*/) {
  if (view_.screen() == nullptr || view_.screen()->maximized) return;
  QPainter painter(this);
  look::drawEdge(painter, rect(), look::ink);
  look::drawEdge(painter, rect().adjusted(1, 1, -1, -1), look::light);
}

DocumentArea::DocumentArea(QWidget* parent) : QWidget(parent) { look::setGround(*this, look::onDeep()); }

void DocumentArea::add(View& view) { documents_.emplace_back(new Document(view, this)); }

void DocumentArea::arrange() {
  std::erase_if(documents_, [](const QPointer<Document>& d) { return d == nullptr || d->view().screen() == nullptr; });
  const auto& order = desk.documents();
  for (auto screen = order.rbegin(); screen != order.rend(); ++screen) {
    for (const auto& document : documents_) {
      if (document->view().screen() != *screen) continue;
      document->place(size());
      const Screen* front = desk.activeDocument();
      document->setActive(*screen == front);
      document->raise();
      // A document below a full page can't be reached by keyboard either.
      if (*screen != front && front->maximized) {
        hideQuietly(*document);
      } else {
        document->show();
      }
    }
  }
}

void DocumentArea::resizeEvent(QResizeEvent* /*event*/) {
  for (const auto& document : documents_) {
    if (document != nullptr) document->place(size());
  }
}

View* DocumentArea::active() const {
  const auto front = std::find_if(documents_.begin(), documents_.end(), [](const QPointer<Document>& d) {
    return d != nullptr && d->view().screen() != nullptr && d->view().screen() == desk.activeDocument();
  });
  return front == documents_.end() ? nullptr : &(*front)->view();
}

void DocumentArea::confirm(const QString& words) {
  for (const auto& document : documents_) {
    if (document == nullptr || document->view().screen() == nullptr) continue;
    document->confirm(document->view().screen() == desk.activeDocument() ? words : QString());
  }
}

bool DocumentArea::covers(const QWidget& widget) const {
  return std::any_of(documents_.begin(), documents_.end(), [&](const QPointer<Document>& d) {
    return d != nullptr && d->view().screen() != desk.activeDocument() && d->isAncestorOf(&widget);
  });
}

}  // namespace tallyfin::qt
