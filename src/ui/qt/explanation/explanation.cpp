#include "ui/qt/explanation/explanation.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QShortcut>
#include <QTableWidget>

#include "engine/recorder.h"
#include "ui/qt/explanation/formview.h"
#include "ui/qt/frame/frame.h"
#include "ui/qt/frame/notice.h"
#include "ui/qt/frame/placement.h"
#include "ui/qt/paper/formpages.h"
#include "ui/qt/paper/printer.h"
#include "ui/qt/widgets/look.h"
#include "ui/qt/widgets/text.h"

namespace tallyfin::qt {

namespace {

const QString windowName = QStringLiteral("explanation");

/// Backgrounds of the parts, which differ in lightness, too. The check has the lightest.
const QColor grounds[] = {{38, 70, 83},    {120, 144, 156}, {62, 100, 116},
                          {150, 170, 178}, {84, 120, 134},  {226, 232, 220}};

}  // namespace

ShareBar::ShareBar(QWidget* parent) : QWidget(parent) {
  setObjectName(QStringLiteral("bar"));
  setAccessibleName(QStringLiteral("Where the gross pay goes"));
}

void ShareBar::show(std::vector<Share> shares) {
  shares_ = std::move(shares);
  setVisible(!shares_.empty());
  update();
}

// mutation: 420 -> 421: a pixel or so moves no word
QSize ShareBar::sizeHint() const { return {look::scaled(420), 2 * fontMetrics().height()}; }

void ShareBar::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  double from = 0;
  for (std::size_t i = 0; i < shares_.size(); ++i) {
    const double to = from + shares_[i].fraction;
    const QRect place(QPoint(qRound(from * width()), 0), QPoint(qRound(to * width()) - 1, height() - 1));
    from = to;
    const QColor& ground = grounds[i];
    painter.fillRect(place, ground);
    painter.setPen(Qt::white);
    painter.drawLine(place.topRight(), place.bottomRight());
    const QString words = text(shareText(shares_[i]));
    // mutation: 128 -> 129 and > -> >=: no ground is as light as the limit
    painter.setPen(ground.lightness() > 128 ? Qt::black : Qt::white);
    // mutation: < -> <= and look::tight -> look::row: a pixel or so moves no word
    if (fontMetrics().horizontalAdvance(words) + look::tight < place.width()) {
      painter.drawText(place, Qt::AlignCenter, words);
    }
  }
}

ExplanationWindow::ExplanationWindow(Frame& frame)
    : QDialog(&frame),
      frame_(frame),
      heading_(new QLabel(this)),
      bar_(new ShareBar(this)),
      shares_(new QLabel(this)),
      figures_(new QTableWidget(0, 2, this)),  // mutation: 0 -> 1: written before it is read
      page_(new FormView(this)),
      notice_(new Notice(this)) {
  setObjectName(windowName);
  setWindowTitle(QStringLiteral("How this was worked out"));
  look::setGround(*this, look::onPaper());
  heading_->setObjectName(QStringLiteral("heading"));
  heading_->setTextFormat(Qt::PlainText);
  heading_->setWordWrap(true);
  QSizePolicy narrow(QSizePolicy::Ignored, QSizePolicy::Preferred);  // a long word doesn't widen the window
  narrow.setHeightForWidth(true);
  heading_->setSizePolicy(narrow);
  heading_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  shares_->setObjectName(QStringLiteral("shares"));
  shares_->setWordWrap(true);
  shares_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  shares_->setFocusPolicy(Qt::StrongFocus);

  figures_->setObjectName(QStringLiteral("figures"));
  figures_->setAccessibleName(QStringLiteral("Figures"));
  // mutation: look::onWhite -> look::onPaper: both have the same ground for every second line
  figures_->setPalette(look::onWhite());
  // mutation: figures_->setFont(look::figures()); -> nothing: the font has digits of one width already
  figures_->setFont(look::figures());
  figures_->horizontalHeader()->hide();
  figures_->verticalHeader()->hide();
  figures_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  figures_->setSelectionMode(QAbstractItemView::SingleSelection);
  figures_->setSelectionBehavior(QAbstractItemView::SelectRows);
  figures_->setShowGrid(false);
  figures_->verticalHeader()->setDefaultSectionSize(figures_->fontMetrics().height() + look::row);
  figures_->setTabKeyNavigation(false);
  figures_->horizontalHeader()->setSectionResizeMode(0, QHeaderView::Stretch);
  figures_->horizontalHeader()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
  figures_->setFixedWidth(
      figures_->fontMetrics().horizontalAdvance(QStringLiteral("Social Security   ($1,000,000.00)")));
  connect(figures_, &QTableWidget::currentCellChanged, this, [this] { tell(); });

  auto* layout = new QVBoxLayout(this);
  layout->setSpacing(look::row);
  layout->addWidget(heading_);
  layout->addWidget(bar_);
  layout->addWidget(shares_);
  auto* middle = new QHBoxLayout;
  middle->addWidget(figures_);
  middle->addWidget(page_, 1);
  layout->addLayout(middle, 1);
  layout->addWidget(notice_);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  const auto add = [&](const char* name, const char* caption, auto act) {
    auto* button = new QPushButton(QString::fromLatin1(caption), this);
    button->setObjectName(QString::fromLatin1(name));
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, act);
    buttons->addWidget(button);
  };
  add("copy", "&Copy", [this] { copy(); });
  add("print", "&Print", [this] { print(); });
  add("close", "C&lose", [this] { close(); });
  layout->addLayout(buttons);
  for (QWidget* part :
       {static_cast<QWidget*>(figures_), static_cast<QWidget*>(page_), static_cast<QWidget*>(shares_)}) {
    part->installEventFilter(this);
  }
  frame.lendKeys(*this, {QKeySequence(Qt::Key_F9), QKeySequence(Qt::CTRL | Qt::Key_Q)});
  connect(new QShortcut(Qt::CTRL | Qt::Key_W, this), &QShortcut::activated, this, &QWidget::close);
  figures_->setFocus();
  resize(look::scaled(740), look::scaled(480));
}

bool ExplanationWindow::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress || !static_cast<QKeyEvent*>(event)->matches(QKeySequence::Copy)) return false;
  if (watched == shares_ && shares_->hasSelectedText()) return false;
  const int row = figures_->currentRow();
  take(watched == page_ ? page_->currentText()
                        : figures_->item(row, 0)->text() + QLatin1Char('\t') + figures_->item(row, 1)->text());
  return true;
}

void ExplanationWindow::take(const QString& words) {
  QGuiApplication::clipboard()->setText(words);
  tellUser(QStringLiteral("Copied"));
}

ExplanationWindow* ExplanationWindow::of(const Frame& frame) {
  return static_cast<ExplanationWindow*>(frame.findChild<QDialog*>(windowName, Qt::FindDirectChildrenOnly));
}

void ExplanationWindow::open(Frame& frame, const QString& title) {
  if (lastTrace() == nullptr) return;
  ExplanationWindow* window = of(frame);
  if (window == nullptr) window = new ExplanationWindow(frame);
  window->refresh();
  window->choose(title);
  if (!window->isVisible()) placeBeside(*window, frame);
  window->QDialog::show();
  // mutation: window->raise(); -> nothing: the offscreen platform has no order of windows, one style and no letters of
  // its own
  window->raise();
  window->activateWindow();
}

void ExplanationWindow::follow(const Frame& frame) {
  ExplanationWindow* window = of(frame);
  if (window == nullptr) return;
  // Once the calculation is over.
  QMetaObject::invokeMethod(
      window, [window] { window->refresh(); }, Qt::QueuedConnection);
}

void ExplanationWindow::refresh() {
  const Trace* trace = lastTrace();
  if (trace == nullptr) return;
  notice_->tell(QString());  // it spoke of the figures before
  explanations_ = explain(*trace);
  forms_ = formsOf(explanations_);
  entries_ = headingOf(*trace, explanations_);
  QStringList entries;
  for (const auto& [title, words] : entries_) entries << text(title) + QStringLiteral(": ") + drawn(words);
  heading_->setText(entries.join(QStringLiteral(" \u00b7 ")));
  bar_->show(sharesOf(*trace));
  shares_->setText(text(sharesText(*trace)));
  bar_->setAccessibleDescription(shares_->text());
  figures_->setRowCount(static_cast<int>(explanations_.size()));
  for (int row = 0; row < figures_->rowCount(); ++row) {
    const Explanation& explanation = explanations_[static_cast<std::size_t>(row)];
    auto* amount = new QTableWidgetItem(text(amountText(explanation.amount)));
    amount->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    figures_->setItem(row, 0, new QTableWidgetItem(QString::fromLatin1(explanation.title)));
    figures_->setItem(row, 1, amount);
  }
  tell();
}

void ExplanationWindow::choose(const QString& title) {
  for (int row = 0; row < figures_->rowCount(); ++row) {
    if (figures_->item(row, 0)->text() == title) figures_->selectRow(row);
  }
}

void ExplanationWindow::tell() {
  const int row = figures_->currentRow();
  if (row >= 0) page_->show(forms_.at(static_cast<std::size_t>(row)));
}

QString ExplanationWindow::chosenText() const {
  const Explanation& chosen = explanations_.at(static_cast<std::size_t>(figures_->currentRow()));
  QString all = QString::fromLatin1(chosen.title) + QLatin1Char('\n');
  for (const ExplanationLine& line : chosen.lines) all += text(line.print()) + QLatin1Char('\n');
  return all + text(amountText(chosen.amount));
}

void ExplanationWindow::copy() { take(chosenText()); }

void ExplanationWindow::tellUser(const QString& words) {
  notice_->tell(words);
  if (!words.isEmpty()) frame_.announce(words);
}

void ExplanationWindow::print() {
  const FormPages pages{windowTitle(), entries_, shares_->text(), forms_};
  const Paper paper{.name = QStringLiteral("explanation"),
                    .title = windowTitle(),
                    .file = windowTitle() + QStringLiteral(".pdf"),
                    .somePages = true,
                    .draw = [&](QPagedPaintDevice& device) { return pages.draw(device); }};
  const std::optional<Printed> printed = paper.printOrSave(frame_.dialogs(), *this);
  if (printed) tellUser(printed->words);
}

}  // namespace tallyfin::qt
