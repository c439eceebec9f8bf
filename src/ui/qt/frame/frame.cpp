#include "ui/qt/frame/frame.h"

#include <QButtonGroup>
#include <QCloseEvent>
#include <QGuiApplication>
#include <QRadioButton>
#include <QScreen>
#include <QScrollArea>
#include <QShortcut>
#include <QVBoxLayout>

#include "controls/desk.h"
#include "ui/MDIOpen.h"
#include "ui/qt/accessibility/accessible.h"
#include "ui/qt/frame/document.h"
#include "ui/qt/frame/listbar.h"
#include "ui/qt/frame/notice.h"
#include "ui/qt/widgets/look.h"
#include "ui/qt/widgets/text.h"

namespace tallyfin::qt {

namespace {

/// Space for the window manager's decoration.
// mutation: 32 -> 33 and 4 -> 5: a guess at a window manager, which the tests have none of
constexpr QMargins windowEdges{4, 32, 4, 4};

}  // namespace

Frame::Frame(MDIOpen& screen, Dialogs& dialogs) : View(screen), dialogs_(dialogs) {
  setWindowFlags(Qt::Window | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowMinimizeButtonHint |
                 Qt::WindowCloseButtonHint);
  setWindowIcon(look::picture(QStringLiteral("tallyfin99")));
  look::setGround(*this, look::onDeep());
  // It grows with the font. On a smaller display the pages scroll.
  const QRect room = QGuiApplication::primaryScreen()->availableGeometry().marginsRemoved(windowEdges);
  const QSize wanted(look::scaled(pixels(MDIOpen::width)), look::scaled(pixels(MDIOpen::height)));
  setFixedSize(wanted.boundedTo(room.size()));
  screen.watch([this, &screen] { setWindowTitle(text(screen.title())); });

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
  keys(screen);
  move(room.center() - rect().center() - QPoint(windowEdges.left(), windowEdges.top()));
}

/// The keys for all pages.
void Frame::keys(const MDIOpen& screen) {
  for (const ListBarItem& item : screen.SSListBar1) {
    auto* button = static_cast<QAbstractButton*>(widgetOf(item));
    const QKeySequence keys(text(item.shortcut()));
    button->setToolTip(QStringLiteral("%1 (%2)").arg(button->text(), keys.toString(QKeySequence::NativeText)));
    onKey(keys, button->text(), [button] { button->click(); });
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

void Frame::lendKeys(QWidget& window, std::initializer_list<QKeySequence> keys) {
  for (const QKeySequence& key : keys) {
    auto* lent = new QShortcut(key, &window);
    connect(lent, &QShortcut::activated, this, [this, key] {
      for (QShortcut* own : findChildren<QShortcut*>()) {
        if (own->key() == key && own->isEnabled() && dynamic_cast<View*>(own->parent()) != nullptr) {
          return Q_EMIT own->activated();
        }
      }
    });
  }
}

QWidget* Frame::listBar(MDIOpen& screen) {
  auto* bar = new QWidget(this);
  // mutation: bar->setFixedWidth(listBarWidth()); -> nothing: its width is what its items ask for
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
      const Group group = addGroup(text(opened), bar);
      layout->addWidget(group.header);
      layout->addWidget(group.items, 1);
      groups_.push_back(group);
    }
    QWidget* items = groups_.back().items->widget();
    auto* widget = new ListBarButton(items, text(item.picture()));
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

void Frame::confirm(const QString& words) {
  area_->confirm(words);
  if (!words.isEmpty()) announce(words);
}

void Frame::markPage() {
  const Screen* front = desk.activeDocument();
  const auto* frame = static_cast<const MDIOpen*>(screen());
  const ListBarItem* item = frame == nullptr || front == nullptr ? nullptr : frame->itemOf(front->name());
  const QWidget* here = item == nullptr ? nullptr : widgetOf(*item);
  for (const Group& group : groups_) {
    bool inGroup = false;
    for (auto* button : group.items->widget()->findChildren<QAbstractButton*>()) {
      const bool current = button == here;
      static_cast<ListBarButton*>(button)->setCurrent(current);
      inGroup = inGroup || current;
    }
    group.header->setHere(inGroup);
  }
}

void Frame::announce(const QString& words) { announcer_->say(words); }

void Frame::closeEvent(QCloseEvent* event) {
  if (Screen* frame = screen()) {
    event->ignore();  // the frame isn't closed while a box must be answered
    desk.userClose(*frame);
  }
}

void Frame::changeEvent(QEvent* event) {
  // mutation: QWidget::changeEvent(event); -> nothing: Qt lays out changed parts without it
  QWidget::changeEvent(event);
  if (event->type() != QEvent::WindowStateChange || screen() == nullptr) return;
  if (windowState().testFlag(Qt::WindowMaximized) || windowState().testFlag(Qt::WindowFullScreen)) {
    // mutation: static_cast<MDIOpen** -> nothing: the window springs back at once
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
  const View* page = area_->active();
  for (QWidget* widget = step(from); widget != from; widget = step(widget)) {
    if (!widget->isEnabled() || !widget->isVisible() || widget->focusProxy() != nullptr) continue;
    // By default, Tab enters the option of a group that had the focus last.
    const QButtonGroup* group = groupOf(widget);
    if (group == nullptr ? !(widget->focusPolicy() & Qt::TabFocus) : group == groupOf(from)) continue;
    if (widget->window() != this || area_->covers(*widget)) continue;
    if (page != nullptr && page->isAncestorOf(widget) && !page->inSight(*widget)) continue;
    // mutation: ? -> ? not and Qt::BacktabFocusReason -> * and Qt::TabFocusReason -> * and enteredAt(*widget).s* ->
    // nothing: both ways of the Tab key select alike, and there is always a next part
    enteredAt(*widget).setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    return true;
  }
  return false;  // mutation: false -> true: both ways of the Tab key select alike, and there is always a next part
}

}  // namespace tallyfin::qt
