#include "ui/qt/frame.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QScrollArea>
#include <QToolButton>
#include <QVBoxLayout>

#include "controls/desk.h"
#include "ui/MDIOpen.h"
#include "ui/qt/look.h"

namespace tallyfin::qt {

namespace {

constexpr int listBarWidth = 116;
constexpr int titleHeight = 20;

/// The pictures of the list bar's items by key.
const std::map<QString, QString> itemPictures{
    {"NewFile", "new"},       {"StateInfo", "stateoptions"},
    {"Personal", "personal"}, {"ExitProgram", "exit"},
    {"Calc", "calculations"}, {"Multi", "multichecks"},
    {"Analysis", "analysis"}, {"Pers", "allowances"},
    {"Ded", "deductions"},    {"TwoWork", "twoworkers"},
    {"W4", "formw4"},         {"W4Help", "formw4help"},
    {"Help", "help"},         {"About", "about"},
};

QString keyOf(const ListBarItem& item) {
  const QString address = QString::fromStdString(item.address());
  return address.section('(', 1).chopped(1);
}

}  // namespace

// --- A document
// --------------------------------------------------------------------------------------------------------

Document::Document(View& view, QWidget* parent) : QWidget(parent), view_(view) {
  look::setGround(*this, look::onDeep());
  auto* strip = new QHBoxLayout;
  strip->setContentsMargins(look::row, 0, 2, 0);
  title_ = new QLabel(this);
  title_->setFixedHeight(titleHeight);
  close_ = new QToolButton(this);
  close_->setText(QStringLiteral("×"));
  close_->setAutoRaise(true);
  close_->setFixedSize(titleHeight, titleHeight - 2);
  close_->setFocusPolicy(Qt::NoFocus);
  close_->setToolTip(QStringLiteral("Close this page"));
  close_->setAccessibleName(QStringLiteral("Close"));
  strip->addWidget(title_, 1);
  strip->addWidget(close_);

  scroll_ = new QScrollArea(this);
  scroll_->setFrameShape(QFrame::NoFrame);
  scroll_->setWidgetResizable(true);
  scroll_->setFocusPolicy(Qt::NoFocus);
  scroll_->setWidget(&view);

  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(1, 0, 1, 1);
  layout->setSpacing(0);
  layout->addLayout(strip);
  layout->addWidget(scroll_);

  view.screen()->watch([this] { showTitle(); });
  showTitle();
  connect(close_, &QToolButton::clicked, this, [this] {
    if (Screen* screen = view_.screen()) desk.userClose(*screen);
  });
}

void Document::showTitle() {
  const Screen* screen = view_.screen();
  if (screen == nullptr) return;
  title_->setText(QString::fromStdString(screen->title()));
  if (parentWidget() != nullptr) place(parentWidget()->size());
}

void Document::place(const QSize& area) {
  const Screen* screen = view_.screen();
  if (screen == nullptr) return;
  if (screen->maximized) {
    setGeometry(QRect(QPoint(0, 0), area));
    return;
  }
  const QSize wanted = view_.sizeHint() + QSize(2, titleHeight + 1);
  QRect place(QPoint(0, 0), wanted.boundedTo(area));
  place.moveCenter(QRect(QPoint(0, 0), area).center());
  setGeometry(place);
}

void Document::mousePressEvent(QMouseEvent* event) {
  if (Screen* screen = view_.screen()) desk.act(*screen, [] {});  // a click on its frame brings it to the front
  QWidget::mousePressEvent(event);
}

bool Document::eventFilter(QObject* watched, QEvent* event) { return QWidget::eventFilter(watched, event); }

// --- The document area
// -------------------------------------------------------------------------------------------------

DocumentArea::DocumentArea(QWidget* parent) : QWidget(parent) { look::setGround(*this, look::onDeep()); }

void DocumentArea::add(View& view) {
  auto* document = new Document(view, this);
  documents_.emplace_back(document);
  document->place(size());
  document->show();
}

void DocumentArea::arrange() {
  std::erase_if(documents_, [](const QPointer<Document>& d) { return d == nullptr || d->view().screen() == nullptr; });
  const auto& order = desk.documents();
  for (auto screen = order.rbegin(); screen != order.rend(); ++screen) {
    for (const auto& document : documents_) {
      if (document->view().screen() != *screen) continue;
      document->place(size());
      document->raise();
    }
  }
}

// --- The list bar
// --------------------------------------------------------------------------------------------------------

ListBarButton::ListBarButton(QWidget* parent, const QString& pictureName) : QAbstractButton(parent) {
  setIcon(look::picture(pictureName));
  setFocusPolicy(Qt::StrongFocus);
  QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  policy.setHeightForWidth(true);
  setSizePolicy(policy);
}

QSize ListBarButton::sizeHint() const { return {listBarWidth, heightForWidth(listBarWidth)}; }

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
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(inside, 3, 3);
  }
  const QRect pictureRect(inside.center().x() - 11, inside.top() + 4, 22, 22);
  if (highlighted || isDown()) {
    // The light picture would drown in the light blue: its shape is drawn dark.
    QPixmap picture = icon().pixmap(pictureRect.size() * devicePixelRatio());
    QPainter shape(&picture);
    shape.setCompositionMode(QPainter::CompositionMode_SourceIn);
    shape.fillRect(picture.rect(), look::deep);
    shape.end();
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
  widget.setAccessibleName(widget.text());
  binding->show = [&widget, &item] {
    widget.highlighted = item.highlighted();
    widget.update();
  };
  QObject::connect(&widget, &QAbstractButton::clicked, binding,
                   [binding, &item] { binding->act([&] { item.userClick(); }); });
  binding->refresh();
  return *binding;
}

}  // namespace

// --- The frame
// -----------------------------------------------------------------------------------------------------------

Frame::Frame(MDIOpen& screen) : View(screen) {
  setWindowFlags(Qt::Window | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowMinimizeButtonHint |
                 Qt::WindowCloseButtonHint);
  setWindowIcon(look::picture(QStringLiteral("tallyfin99")));
  look::setGround(*this, look::onDeep());
  setFixedSize(pixels(MDIOpen::width), pixels(MDIOpen::height));
  setWindowTitle(QStringLiteral("Tallyfin 99"));

  area_ = new DocumentArea(this);
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  layout->addWidget(listBar(screen));
  layout->addWidget(area_, 1);
  openGroup(1);
}

QWidget* Frame::listBar(MDIOpen& screen) {
  auto* bar = new QWidget(this);
  bar->setFixedWidth(listBarWidth);
  bar->setAccessibleName(QStringLiteral("List bar"));
  auto* layout = new QVBoxLayout(bar);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(1);
  std::string opened;
  for (ListBarItem& item : screen.SSListBar1) {
    if (item.group() != opened) {
      opened = item.group();
      Group group{new QToolButton(bar), new QWidget(bar)};
      group.header->setText(QString::fromStdString(opened));
      group.header->setObjectName(QStringLiteral("group ") + group.header->text());
      group.header->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
      group.header->setFixedHeight(22);
      look::setGround(*group.items, look::onDeep());
      QPalette ground = look::onDeep();
      ground.setColor(QPalette::Window, look::deepLighter);
      group.items->setPalette(ground);
      auto* items = new QVBoxLayout(group.items);
      items->setContentsMargins(0, 2, 0, 2);
      items->setSpacing(0);
      const std::size_t number = groups_.size();
      connect(group.header, &QToolButton::clicked, this, [this, number] { openGroup(number); });
      layout->addWidget(group.header);
      layout->addWidget(group.items, 1);
      groups_.push_back(group);
    }
    const QString key = keyOf(item);
    auto* widget = new ListBarButton(groups_.back().items, itemPictures.at(key));
    tied(widget, bind(*widget, item));
    groups_.back().items->layout()->addWidget(widget);
  }
  for (const Group& group : groups_) static_cast<QVBoxLayout*>(group.items->layout())->addStretch(1);
  return bar;
}

/// Only one group shows its items at a time.
void Frame::openGroup(std::size_t group) {
  for (std::size_t i = 0; i < groups_.size(); ++i) groups_[i].items->setVisible(i == group);
}

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

void Frame::keyPressEvent(QKeyEvent* event) { QWidget::keyPressEvent(event); }

}  // namespace tallyfin::qt
