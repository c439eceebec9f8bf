#include "ui/qt/frame/frame.h"

#include <QButtonGroup>
#include <QCloseEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QRadioButton>
#include <QScreen>
#include <QScrollArea>
#include <QShortcut>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>

#include "controls/desk.h"
#include "ui/MDIOpen.h"
#include "ui/qt/accessibility/accessible.h"
#include "ui/qt/frame/notice.h"
#include "ui/qt/widgets/look.h"

namespace tallyfin::qt {

namespace {

int listBarWidth() { return look::scaled(116); }
int titleHeight() { return look::scaled(20); }
constexpr int edge = 2;  ///< Of a document that lies over another.
const QColor otherTitle{176, 190, 194};
/// Room for what a window manager puts around a window.
constexpr QMargins windowEdges{4, 32, 4, 4};

}  // namespace

// --- A document ---

Document::Document(View& view, QWidget* parent) : QWidget(parent), view_(view), strip_(new QWidget(this)) {
  presentAs(*this, QAccessible::Grouping);
  look::setGround(*this, look::onDeep());
  strip_->setAutoFillBackground(true);
  strip_->setFixedHeight(titleHeight());
  title_ = new QLabel(strip_);
  auto* close = new QToolButton(strip_);
  close->setText(QStringLiteral("×"));
  close->setAutoRaise(true);
  close->setFixedSize(titleHeight(), titleHeight() - 2);
  close->setToolTip(QStringLiteral("Close this page"));
  close->setAccessibleName(QStringLiteral("Close"));
  auto* strip = new QHBoxLayout(strip_);
  strip->setContentsMargins(look::row, 0, 2, 0);
  strip->addWidget(title_, 1);
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

void Document::showTitle() {
  const Screen* screen = view_.screen();
  if (screen == nullptr) return;
  title_->setText(QString::fromStdString(screen->title()));
  setAccessibleName(title_->text());
  static_cast<DocumentArea*>(parentWidget())->arrange();  // one that fills the area covers the others
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
  if (Screen* screen = view_.screen()) desk.act(*screen, [] {});  // a click on its frame brings it to the front
}

/// A document that doesn't fill the area has an edge: a dark line and a light one, for what is beneath may be either.
void Document::paintEvent(QPaintEvent* /*event*/) {
  if (view_.screen() == nullptr || view_.screen()->maximized) return;
  QPainter painter(this);
  look::drawEdge(painter, rect(), look::ink);
  look::drawEdge(painter, rect().adjusted(1, 1, -1, -1), look::light);
}

// --- The document area ---

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
      // What a full page covers is out of reach of the keyboard too.
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

bool DocumentArea::covers(const QWidget& widget) const {
  return std::any_of(documents_.begin(), documents_.end(), [&](const QPointer<Document>& d) {
    return d != nullptr && d->view().screen() != desk.activeDocument() && d->isAncestorOf(&widget);
  });
}

// --- The list bar ---

void BarButton::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) return click();
  QAbstractButton::keyPressEvent(event);
}

GroupHeader::GroupHeader(const QString& caption, QWidget* parent) : BarButton(parent) {
  setText(caption);
  setObjectName(QStringLiteral("group ") + caption);
  setCheckable(true);
}

QSize GroupHeader::sizeHint() const { return {listBarWidth(), std::max(22, fontMetrics().height() + 8)}; }

void GroupHeader::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.fillRect(rect(), isChecked() || underMouse() ? look::deepLighter : look::deep);
  painter.setPen(look::deepLine);
  painter.drawLine(rect().topLeft(), rect().topRight());
  if (hasFocus()) {
    painter.setPen(look::lightYellow);
    painter.drawRect(rect().adjusted(2, 2, -3, -3));
  }
  painter.setPen(isChecked() ? look::lightYellow : look::light);
  painter.drawText(rect().adjusted(look::row, 0, -look::row, 0), Qt::AlignLeft | Qt::AlignVCenter, text());

  // The mark: down for the open group, to the right for a closed one.
  const QPointF middle(width() - 12.0, height() / 2.0);
  QPolygonF mark;
  if (isChecked()) {
    mark << middle + QPointF(-4, -2) << middle + QPointF(4, -2) << middle + QPointF(0, 3);
  } else {
    mark << middle + QPointF(-2, -4) << middle + QPointF(3, 0) << middle + QPointF(-2, 4);
  }
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setBrush(painter.pen().color());
  painter.setPen(Qt::NoPen);
  painter.drawPolygon(mark);
}

ListBarButton::ListBarButton(QWidget* parent, const QString& pictureName) : BarButton(parent) {
  setIcon(look::picture(pictureName));
  QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  policy.setHeightForWidth(true);
  setSizePolicy(policy);
}

QSize ListBarButton::sizeHint() const { return {listBarWidth(), heightForWidth(listBarWidth())}; }

int ListBarButton::heightForWidth(int width) const {
  const QRect words =
      fontMetrics().boundingRect(QRect(0, 0, width - 8, 200), Qt::AlignHCenter | Qt::TextWordWrap, text());
  return 24 + words.height() + 12;
}

void ListBarButton::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const QRect inside = rect().adjusted(3, 1, -3, -1);
  if (highlighted || isDown()) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(look::lightBlue);
    painter.drawRoundedRect(inside, 3, 3);
  }
  if (hasFocus()) {
    painter.setPen(QPen(look::lightYellow, 1));
    painter.drawRoundedRect(inside, 3, 3);
  }
  const QRect pictureRect(inside.center().x() - 11, inside.top() + 4, 22, 22);
  if (highlighted || isDown()) {
    // The light picture would drown in the light blue: its shape is drawn dark.
    QPixmap picture = icon().pixmap(pictureRect.size() * devicePixelRatio());
    {
      QPainter shape(&picture);
      shape.setCompositionMode(QPainter::CompositionMode_SourceIn);
      shape.fillRect(picture.rect(), look::deep);
    }
    painter.drawPixmap(pictureRect, picture);
  } else {
    icon().paint(&painter, pictureRect);
  }
  painter.setPen(highlighted || isDown() ? look::deep : look::light);
  painter.drawText(QRect(4, pictureRect.bottom() + 3, width() - 8, height() - pictureRect.bottom() - 3),
                   Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap, text());
}

namespace {

/// Ties an item's button; an item is no command button but clicks like one.
Binding& bind(ListBarButton& widget, ListBarItem& item) {
  auto* binding = new Binding(widget, item);
  widget.setText(QString::fromStdString(item.caption()));
  binding->show = [&widget, &item] {
    widget.highlighted = item.highlighted();
    widget.update();
  };
  QObject::connect(&widget, &QAbstractButton::clicked, binding,
                   [binding, &item] { binding->act([&] { item.userClick(); }); });
  return *binding;
}

}  // namespace

// --- The frame ---

Frame::Frame(MDIOpen& screen, Dialogs& dialogs) : View(screen), dialogs_(dialogs) {
  setWindowFlags(Qt::Window | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowMinimizeButtonHint |
                 Qt::WindowCloseButtonHint);
  setWindowIcon(look::picture(QStringLiteral("tallyfin99")));
  look::setGround(*this, look::onDeep());
  // On a screen without the room for it the pages scroll.
  const QRect room = QGuiApplication::primaryScreen()->availableGeometry().marginsRemoved(windowEdges);
  setFixedSize(QSize(pixels(MDIOpen::width), pixels(MDIOpen::height)).boundedTo(room.size()));
  screen.watch([this, &screen] { setWindowTitle(QString::fromStdString(screen.title())); });

  presentAs(*this, QAccessible::Window);
  announcer_ = new Announcer(this);
  area_ = new DocumentArea(this);
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins({});
  layout->setSpacing(0);
  layout->addWidget(listBar(screen));
  auto* documents = new QVBoxLayout;
  documents->addWidget(area_, 1);
  notice_ = new Notice(this);
  notice_->setMargin(look::tight);
  documents->addWidget(notice_);
  layout->addLayout(documents, 1);
  openGroup(1);
  keys();
  move(room.center() - rect().center() - QPoint(windowEdges.left(), windowEdges.top()));
}

/// The keys that act on every page.
void Frame::keys() {
  const std::pair<const char*, const char*> items[] = {
      {"NewFile", "Ctrl+N"}, {"StateInfo", "Ctrl+4"}, {"Personal", "Ctrl+5"}, {"ExitProgram", "Ctrl+Q"},
      {"Calc", "Ctrl+1"},    {"Multi", "Ctrl+2"},     {"Analysis", "Ctrl+3"}, {"Pers", "Ctrl+6"},
      {"Ded", "Ctrl+7"},     {"TwoWork", "Ctrl+8"},   {"W4", "Ctrl+9"},       {"W4Help", "Shift+F1"},
      {"Help", "Ctrl+F1"},   {"About", "Ctrl+0"},
  };
  for (const auto& [key, sequence] : items) {
    auto* item = findChild<QAbstractButton*>(QStringLiteral("SSListBar1(%1)").arg(QLatin1String(key)));
    const QKeySequence keys(QString::fromLatin1(sequence));
    item->setToolTip(QStringLiteral("%1 (%2)").arg(item->text(), keys.toString(QKeySequence::NativeText)));
    onKey(keys, item->text(), [item] { item->click(); });
  }
  onKey(Qt::CTRL | Qt::Key_W, QStringLiteral("Close the page"), [] {
    if (Screen* page = desk.activeDocument()) desk.userClose(*page);
  });
  onKey(Qt::Key_F6, QStringLiteral("To the list bar and back to the page"), [this] {
    const QWidget* focused = focusWidget();
    QWidget* bar = groups_.front().header->parentWidget();
    if (focused == nullptr || !bar->isAncestorOf(focused)) {
      return groups_[openGroup_].header->setFocus(Qt::ShortcutFocusReason);
    }
    if (View* page = area_->active()) page->takeKeyboard();
  });
}

QWidget* Frame::listBar(MDIOpen& screen) {
  auto* bar = new QWidget(this);
  bar->setFixedWidth(listBarWidth());
  presentAs(*bar, QAccessible::ToolBar);
  bar->setAccessibleName(QStringLiteral("List bar"));
  auto* layout = new QVBoxLayout(bar);
  layout->setContentsMargins({});
  layout->setSpacing(0);
  std::string opened;
  for (ListBarItem& item : screen.SSListBar1) {
    if (item.group() != opened) {
      opened = item.group();
      const Group group = addGroup(QString::fromStdString(opened), bar);
      layout->addWidget(group.header);
      layout->addWidget(group.items, 1);
      groups_.push_back(group);
    }
    QWidget* items = groups_.back().items->widget();
    auto* widget = new ListBarButton(items, QString::fromStdString(item.picture()));
    tied(widget, bind(*widget, item));
    items->layout()->addWidget(widget);
  }
  for (const Group& group : groups_) static_cast<QVBoxLayout*>(group.items->widget()->layout())->addStretch();
  return bar;
}

Frame::Group Frame::addGroup(const QString& caption, QWidget* bar) {
  const Group group{new GroupHeader(caption, bar), new QScrollArea(bar)};
  group.items->setFrameShape(QFrame::NoFrame);
  group.items->setFocusPolicy(Qt::NoFocus);
  group.items->setWidgetResizable(true);
  auto* items = new QWidget;
  QPalette ground = look::onDeep();
  ground.setColor(QPalette::Window, look::deepLighter);
  look::setGround(*items, ground);
  auto* layout = new QVBoxLayout(items);
  layout->setContentsMargins(0, 2, 0, 2);
  layout->setSpacing(0);
  group.items->setWidget(items);
  const std::size_t number = groups_.size();
  connect(group.header, &QAbstractButton::clicked, this, [this, number] { openGroup(number); });
  return group;
}

/// Only one group shows its items at a time.
void Frame::openGroup(std::size_t group) {
  openGroup_ = group;
  for (std::size_t i = 0; i < groups_.size(); ++i) {
    groups_[i].items->setVisible(i == group);
    groups_[i].header->setChecked(i == group);
    QAccessible::State changed;
    changed.expanded = 1;
    changed.collapsed = 1;
    QAccessibleStateChangeEvent event(groups_[i].header, changed);
    QAccessible::updateAccessibility(&event);
  }
}

void Frame::tell(const QString& words) {
  notice_->tell(words);
  if (!words.isEmpty()) announce(words);
}

void Frame::announce(const QString& words) { announcer_->say(words); }

void Frame::closeEvent(QCloseEvent* event) {
  if (Screen* frame = screen()) {
    event->ignore();  // where a box must be answered first, the frame stays
    desk.userClose(*frame);
  }
}

void Frame::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() != QEvent::WindowStateChange || screen() == nullptr) return;
  if (windowState().testFlag(Qt::WindowMaximized) || windowState().testFlag(Qt::WindowFullScreen)) {
    static_cast<MDIOpen*>(screen())->userResize(WindowState::maximized);
    setWindowState(Qt::WindowNoState);
  }
}

bool Frame::focusNextPrevChild(bool next) {
  const QWidget* from = focusWidget() != nullptr ? focusWidget() : this;
  const auto step = [next](const QWidget* w) { return next ? w->nextInFocusChain() : w->previousInFocusChain(); };
  const auto groupOf = [](const QWidget* w) {
    const auto* option = qobject_cast<const QRadioButton*>(w);
    return option == nullptr ? nullptr : option->group();
  };
  for (QWidget* widget = step(from); widget != from; widget = step(widget)) {
    if (!widget->isEnabled() || !widget->isVisible() || widget->focusProxy() != nullptr) continue;
    // Which option of a group Tab may enter, the toolkit would decide by the one that has had the keyboard last.
    const QButtonGroup* group = groupOf(widget);
    if (group == nullptr ? !(widget->focusPolicy() & Qt::TabFocus) : group == groupOf(from)) continue;
    if (widget->window() != this || area_->covers(*widget)) continue;
    enteredAt(*widget).setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    return true;
  }
  return false;
}

}  // namespace tallyfin::qt
