#include "ui/qt/widgets/captions.h"

#include <QPainter>
#include <QStyleOptionButton>
#include <string>

#include "controls/caption.h"
#include "ui/qt/widgets/text.h"

namespace tallyfin::qt {

namespace {

constexpr int wrapped = Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap;
constexpr int hintWidth = 320;   // mutation: 320 -> 321: the page gives the caption its width
constexpr int leastWidth = 100;  // mutation: 100 -> 101: the page gives the caption its width

Caption parted(const QString& text) { return captionOf(text.toStdString()); }

int wrappedHeight(const QWidget& widget, int width, const QString& text) {
  // mutation: 0 -> 1 and 10000 -> 10001: it is measured for its height, and none is as high
  return widget.fontMetrics().boundingRect(QRect(0, 0, width, 10000), wrapped, text).height();
}

void drawHanging(QPainter& painter, const QRect& place, int margin, const std::string& number, const QString& words) {
  painter.drawText(place, wrapped, qt::text(number));
  painter.drawText(place.adjusted(margin, 0, 0, 0), wrapped, words);  // mutation: 0 -> 1: there is room
}

void wrapsIn(QWidget& widget) {
  QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Preferred);
  policy.setHeightForWidth(true);
  widget.setSizePolicy(policy);
}

}  // namespace

HangingLabel::HangingLabel(QWidget* parent, int margin) : QLabel(parent), margin_(margin) { setWordWrap(true); }

QSize HangingLabel::sizeHint() const { return {hintWidth, heightForWidth(hintWidth)}; }

QSize HangingLabel::minimumSizeHint() const { return {leastWidth, fontMetrics().height()}; }

int HangingLabel::heightForWidth(int width) const {
  return wrappedHeight(*this, width - margin_, words(width - margin_));
}

QString HangingLabel::words(int /*width*/) const { return qt::text(parted(text()).words); }

void HangingLabel::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  drawHanging(painter, rect(), margin_, parted(text()).number, words(width() - margin_));
}

QString PaddedLabel::words(int width) const {
  std::string shown = parted(text()).words;
  const std::string bare = withoutPadding(shown);
  const auto height = [&](const std::string& words) { return wrappedHeight(*this, width, qt::text(words)); };
  const int enough = height(bare);
  while (shown != bare && height(shown) > enough) shown = withLessPadding(shown);
  return qt::text(shown);
}

HangingCheckBox::HangingCheckBox(QWidget* parent, int margin, int column)
    : QCheckBox(parent), margin_(margin), column_(column) {
  wrapsIn(*this);
}

QSize HangingCheckBox::sizeHint() const { return {hintWidth, heightForWidth(hintWidth)}; }

// mutation: 2 -> 3: a pixel or so moves no word
QSize HangingCheckBox::minimumSizeHint() const { return {leastWidth + column_, fontMetrics().height() + 2}; }

int HangingCheckBox::heightForWidth(int width) const {
  return wrappedHeight(*this, width - margin_ - column_, qt::text(parted(text()).words)) + 2;
}

bool HangingCheckBox::hitButton(const QPoint& position) const { return rect().contains(position); }

void HangingCheckBox::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const Caption caption = parted(text());
  drawHanging(painter, rect().adjusted(0, 1, -column_, 0), margin_, caption.number,  // mutation: 0 -> 1: there is room
              qt::text(caption.words));
  QStyleOptionButton option;
  initStyleOption(&option);
  const QSize box(style()->pixelMetric(QStyle::PM_IndicatorWidth, &option, this),
                  style()->pixelMetric(QStyle::PM_IndicatorHeight, &option, this));
  option.rect = QRect(QPoint(width() - box.width() - 2, height() - box.height() - 1), box);
  style()->drawPrimitive(QStyle::PE_IndicatorCheckBox, &option, &painter, this);
}

namespace {

constexpr QMargins padding{6, 3, 6, 3};  // mutation: 6 -> 7: a pixel or so moves no word

}  // namespace

WrapButton::WrapButton(QWidget* parent) : QPushButton(parent) {
  setAutoDefault(true);  // Enter presses the focused button
  wrapsIn(*this);
}

QSize WrapButton::sizeHint() const { return {hintWidth, heightForWidth(hintWidth)}; }

QSize WrapButton::minimumSizeHint() const { return {leastWidth, fontMetrics().height()}; }

int WrapButton::heightForWidth(int width) const {
  return wrappedHeight(*this, width - padding.left() - padding.right(), text()) + padding.top() + padding.bottom();
}

void WrapButton::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  QStyleOptionButton option;
  initStyleOption(&option);
  option.text.clear();
  style()->drawControl(QStyle::CE_PushButton, &option, &painter, this);
  style()->drawItemText(&painter, rect().marginsRemoved(padding), wrapped | Qt::TextShowMnemonic, palette(),
                        isEnabled(), text(), QPalette::ButtonText);
}

// --- A sentence with a button
// ------------------------------------------------------------------------------------------

void SentenceWithButton::Words::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  for (const Word& word : words) painter.drawText(word.base, word.text);
}

/// Lays out words and a button in lines.
class SentenceWithButton::Flow {
 public:
  Flow(const QFontMetrics& metrics, int margin, int width, int lineHeight)
      : metrics_(metrics), margin_(margin), width_(width), lineHeight_(lineHeight), x_(margin) {}

  /// Positions each word; consecutive words belong to one caption.
  void add(const QString& words, std::vector<Words::Word>& placed) {
    for (const QString& word : words.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
      const QRect room = next(metrics_.horizontalAdvance(word));
      placed.push_back({{room.left(), room.top() + (lineHeight_ - metrics_.height()) / 2 + metrics_.ascent()}, word});
    }
  }

  /// The position of an item of this width.
  QRect next(int width) {
    if (x_ + width > width_) {  // mutation: > -> >=: a pixel or so moves no word
      x_ = margin_;
      y_ += lineHeight_;
    }
    const QRect room(x_, y_, width, lineHeight_);
    x_ += width + metrics_.horizontalAdvance(QLatin1Char(' '));
    return room;
  }

  int height() const { return y_ + lineHeight_; }

 private:
  QFontMetrics metrics_;
  int margin_;
  int width_;
  int lineHeight_;
  int x_;
  int y_ = 0;
};

SentenceWithButton::SentenceWithButton(QWidget* parent, int margin)
    : QWidget(parent), margin_(margin), first_(new Words(this)), second_(new Words(this)) {
  wrapsIn(*this);
}

void SentenceWithButton::setButton(QPushButton* button) {
  button_ = button;
  button_->setParent(this);
}

QSize SentenceWithButton::sizeHint() const { return {hintWidth, heightForWidth(hintWidth)}; }

// mutation: false -> true: words are placed the same for measuring
int SentenceWithButton::heightForWidth(int width) const { return flow(width, false); }

void SentenceWithButton::resizeEvent(QResizeEvent* /*event*/) { flow(width(), true); }

int SentenceWithButton::flow(int width, bool place) const {
  const Caption caption = parted(first_->text());
  const auto [before, behind] = aroundGap(caption.words);
  const QSize buttonSize(button_->sizeHint().width(), fontMetrics().height() + 6);
  Flow sentence(fontMetrics(), margin_, width, fontMetrics().height() + 2);

  std::vector<Words::Word> first;
  std::vector<Words::Word> second;
  sentence.add(qt::text(before), first);
  if (!first.empty()) first.push_back({{0, first.front().base.y()}, qt::text(caption.number)});
  const QRect room = sentence.next(buttonSize.width());
  sentence.add(second_->text(), second);
  sentence.add(qt::text(behind), first);
  // The button's line is as high as the button with its focus ring.
  constexpr int ring = 2;
  const int above = (buttonSize.height() + 2 * ring - room.height()) / 2;
  if (place) {
    for (auto* words : {&first, &second}) {
      for (Words::Word& word : *words) {
        if (word.base.y() > room.bottom()) {
          word.base.ry() += 2 * above;
        } else if (word.base.y() > room.top()) {
          word.base.ry() += above;
        }
      }
    }
    first_->words = first;
    second_->words = second;
    for (Words* words : {first_, second_}) words->setGeometry(rect());
    button_->setGeometry(QRect(QPoint(room.left(), room.top() + ring), buttonSize));
  }
  return sentence.height() + 2 * above;
}

}  // namespace tallyfin::qt
