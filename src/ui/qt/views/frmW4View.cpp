#include <QApplication>
#include <QButtonGroup>
#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPaintEngine>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>

#include "ui/qt/accessibility/accessible.h"
#include "ui/qt/views/views.h"
#include "ui/qt/widgets/captions.h"
#include "ui/qt/widgets/look.h"
#include "ui/qt/widgets/text.h"
#include "w4/frmW4.h"

namespace tallyfin::qt {

namespace {

constexpr int margin = 13;         ///< For the line numbers of the form.
constexpr int space = 3;           ///< Between a rule and the text beside it.
constexpr int lineNumber = 20;     ///< Width of the boxes of lines 5 to 7 with their numbers,
constexpr int lineFigure = 76;     ///< and of their entries.
constexpr int numberColumn = 144;  ///< Width of line 2.
constexpr int rightColumn = 262;   ///< Width of lines 3 and 4.

/// The small print of the form.
QFont smallPrint(bool bold = false) {
  QFont font = QApplication::font();
  font.setPointSizeF(font.pointSizeF() * 7.0 / 8.5);
  font.setBold(bold);
  return font;
}

QFont print(double points) {
  QFont font = look::heading();
  font.setPointSizeF(QApplication::font().pointSizeF() * points / 8.5);
  return font;
}

QWidget* upright(QWidget* parent) { return look::rule(Qt::black, parent, 1, Qt::Vertical); }

QWidget* level(QWidget* parent, int height = 1) { return look::rule(Qt::black, parent, height); }

void showFocus(QPainter& painter, const QWidget& widget) {
  if (!widget.hasFocus()) return;
  painter.setPen(look::colour({58, 110, 165}));
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(widget.rect().adjusted(0, 0, -1, -1));
}

/// An option or a check box of the form: a small square box.
template <class Button>
class FormTick : public Button {
 public:
  using Button::Button;

  QSize sizeHint() const override {
    const int words = gap + this->fontMetrics().horizontalAdvance(this->text());
    return {box + words + 4, std::max(box + 4, this->fontMetrics().height())};
  }
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  static constexpr int box = 9;
  static constexpr int gap = 5;

  bool hitButton(const QPoint& position) const override { return this->rect().contains(position); }

  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    const QRect square(2, (this->height() - box) / 2, box, box);
    painter.setBrush(Qt::white);
    painter.drawRect(square);
    if (this->isChecked()) {
      painter.setRenderHint(QPainter::Antialiasing);
      painter.setPen(QPen(Qt::black, 1.6));
      painter.drawPolyline(QPolygonF({square.topLeft() + QPointF(2, 4.5), square.topLeft() + QPointF(4, 7),
                                      square.topLeft() + QPointF(7.5, 1.5)}));
      painter.setRenderHint(QPainter::Antialiasing, false);
    }
    painter.setPen(this->palette().color(QPalette::WindowText));
    // mutation: 0 -> 1: there is room
    painter.drawText(this->rect().adjusted(square.right() + gap, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter,
                     this->text());
    showFocus(painter, *this);
  }
};

/// A box without a frame: the form's own rules are around it. On paper its text isn't cut off: a long text has a
/// smaller font, and several lines where that font would be too small.
class FormBox : public Box {
 public:
  explicit FormBox(QWidget* parent) : Box(parent) { setFrame(false); }

 protected:
  void paintEvent(QPaintEvent* event) override {
    {
      QPainter painter(this);
      if (painter.paintEngine()->type() == QPaintEngine::Picture) return drawOnPaper(painter);  // what is printed
    }
    Box::paintEvent(event);
    QPainter painter(this);
    showFocus(painter, *this);
  }

 private:
  static constexpr double leastPoints = 7 / 1.5;  ///< The form is 1.5 times as large on paper.
  static constexpr double step = 0.25;

  void drawOnPaper(QPainter& painter) const {
    const QRectF room = QRectF(rect().marginsRemoved(textMargins())).adjusted(2, 0, -2, 0);
    const double allowed = 0.98 * room.width();  // text is slightly wider on paper
    constexpr int lines = static_cast<int>(Qt::AlignLeft) | Qt::TextWordWrap;
    const QString words = drawn(text());
    QFont letters = font();
    const auto shrinkWhile = [&](const auto& tooLarge, double least) {
      for (double points = font().pointSizeF(); tooLarge() && points - step >= least;) {
        letters.setPointSizeF(points -= step);
      }
    };
    const auto tooWide = [&] { return QFontMetricsF(letters).horizontalAdvance(words) > allowed; };
    shrinkWhile(tooWide, leastPoints);
    const bool oneLine = !tooWide();
    if (!oneLine) {
      letters = font();
      const auto tooLarge = [&] {
        const QRectF place(0, 0, allowed, 10 * room.height());
        const QSizeF size = QFontMetricsF(letters).boundingRect(place, lines, words).size();
        return size.height() > room.height() || size.width() > allowed;
      };
      shrinkWhile(tooLarge, step);
    }
    painter.setFont(letters);
    painter.setPen(palette().color(QPalette::Text));
    painter.drawText(room, static_cast<int>(Qt::AlignVCenter) | (oneLine ? Qt::TextSingleLine : lines), words);
  }
};

/// Line 7, on which "EXEMPT" may be written. A click of the mouse removes the word, a double click writes it; Space,
/// Enter and assistive technology toggle it.
class ExemptLine : public PaddedLabel, public Switch {
 public:
  ExemptLine(QWidget* parent, int hanging, frmW4& screen) : PaddedLabel(parent, hanging), screen_(screen) {
    setFocusPolicy(Qt::TabFocus);
  }

  bool on() const override { return screen_.Label27.visible; }
  void turn() override {
    if (static_cast<const View*>(parentWidget())->screen() == nullptr) return;  // closed meanwhile
    on() ? screen_.Label20.userClick() : screen_.Label20.userDblClick();
  }

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    const int key = event->key();
    if (key != Qt::Key_Space && key != Qt::Key_Return && key != Qt::Key_Enter) return PaddedLabel::keyPressEvent(event);
    turn();
  }

 private:
  frmW4& screen_;
};

/// The form as on paper: black rules on white, small print, and the entries.
class frmW4View : public ScreenView {
 public:
  explicit frmW4View(frmW4& screen) : ScreenView(screen), screen_(screen) {
    QPalette palette = look::onWhite();
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::Text, Qt::black);
    look::setGround(*this, palette);
    // Minimal letter spacing prevents ligatures, so that the text of a PDF file can be searched.
    QFont letters = font();
    letters.setLetterSpacing(QFont::AbsoluteSpacing, 1.0 / 64);  // mutation: 1.0 -> 1.1: a pixel or so moves no word
    setFont(letters);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(look::row, 1, look::row, 2);  // at letters of 15 points the form just fits
    layout->setSpacing(0);
    layout->addWidget(level(this, 2));
    layout->addLayout(head());
    layout->addWidget(level(this));
    layout->addLayout(nameAndNumber());
    layout->addWidget(level(this));
    layout->addLayout(addressAndStatus());
    layout->addWidget(level(this));
    layout->addLayout(cityAndCard());
    layout->addWidget(level(this));
    layout->addLayout(lines());
    layout->addWidget(level(this));
    layout->addWidget(small(screen.Label22, 0));
    layout->addSpacing(look::row);
    layout->addLayout(signature());
    layout->addWidget(level(this, 2));
    layout->addLayout(foot());
    onKey(QKeySequence::Print, QStringLiteral("Print the form"), [this] { screen_.userDblClick(); });
    lineKeys({{'1', &screen_.txtName},
              {'2', &screen_.txtSSN},
              {'3', &screen_.optSingle},
              {'4', &screen_.Check4},
              {'7', &screen_.Label20}});
  }

  QSize sizeHint() const override { return {look::scaled(width), heightForWidth(look::scaled(width))}; }

 protected:
  /// A double click on the paper prints.
  void mouseDoubleClickEvent(QMouseEvent* event) override {
    if (event->button() == Qt::LeftButton && View::screen() != nullptr) screen_.userDblClick();
  }

 private:
  static constexpr int width = 468;  // mutation: 468 -> 469: a pixel or so moves no word

  QLayout* head() {
    auto* row = new QHBoxLayout;
    row->setSpacing(look::tight);
    // mutation: Qt::AlignVCenter -> Qt::AlignTop: its place is as wide and as high as the label
    row->addWidget(large(screen_.Label1, 17), 0, Qt::AlignVCenter);
    row->addWidget(upright(this));
    QLabel* title = large(screen_.Label2, 9);
    title->setAlignment(Qt::AlignCenter);
    row->addWidget(title, 1);
    row->addWidget(upright(this));
    row->addWidget(large(screen_.lbl1998, 15), 0, Qt::AlignVCenter);
    return row;
  }

  QLayout* nameAndNumber() {
    auto* row = new QHBoxLayout;
    row->setSpacing(space);
    row->addLayout(entry(screen_.Label4, screen_.txtName), 1);
    row->addWidget(upright(this));
    auto* number = new QWidget(this);
    number->setLayout(entry(screen_.Label5, screen_.txtSSN));
    number->setFixedWidth(look::scaled(numberColumn));
    row->addWidget(number);
    return row;
  }

  QLayout* addressAndStatus() {
    QLayout* address = entry(screen_.Label6, screen_.txtAddress);
    auto* status = new QGridLayout;
    status->setContentsMargins(0, space, 0, space);
    status->setHorizontalSpacing(look::row);
    status->setVerticalSpacing(0);
    QLabel* number = bold(screen_.Label9);
    number->setFixedWidth(look::scaled(margin - 2));
    auto* group = new QButtonGroup(this);
    status->addWidget(number, 0, 0);
    status->addWidget(option(screen_.optSingle, *group), 0, 1);
    status->addWidget(option(screen_.optMarried, *group), 0, 2);
    status->addWidget(option(screen_.SSOption1, *group), 1, 1, 1, 3);
    // mutation: 2 -> 3: an empty row or column of a grid takes no room
    status->addWidget(small(screen_.Label28, 2), 2, 1, 1, 3);
    status->setColumnStretch(3, 1);
    return halves(address, status);
  }

  QLayout* cityAndCard() {
    QLayout* city = entry(screen_.Label7, screen_.txtCity);
    auto* card = new QHBoxLayout;
    card->setContentsMargins(0, space, 0, space);
    QLabel* words = small(screen_.Label8, look::scaled(margin));
    auto* tick = new FormTick<QCheckBox>(this);
    tick->setFont(smallPrint());
    name(words, tick);
    card->addWidget(words, 1);
    card->addWidget(tied(tick, bind(*tick, screen_.Check4)), 0, Qt::AlignBottom);
    return halves(city, card);
  }

  /// Lines 5 to 7, their figures in boxes at the right edge.
  QLayout* lines() {
    auto* grid = new QGridLayout;
    boxedLine(*grid, small(screen_.lblFive, look::scaled(margin)), screen_.Label12, figure(screen_.lblW4Line5));
    grid->setRowMinimumHeight(grid->rowCount() - 1, 2 * QFontMetrics(smallPrint()).height() + space);
    // mutation: 1 -> 2 and 4 -> 5 and grid->addWidget(leve* -> nothing: an empty row or column of a grid takes no room
    grid->addWidget(level(this), grid->rowCount(), 1, 1, 4);
    boxedLine(*grid, padded(screen_.Label11), screen_.Label13, figure(screen_.lblW4Line6));
    // mutation: 1 -> 2 and 4 -> 5 and grid->addWidget(leve* -> nothing: an empty row or column of a grid takes no room
    grid->addWidget(level(this), grid->rowCount(), 1, 1, 4);
    for (Label* condition : {&screen_.Label16, &screen_.Label17, &screen_.Label18}) {
      const bool first = condition == &screen_.Label16;
      QLabel* words = small(*condition, look::scaled(first ? margin : look::row));
      // mutation: 5 -> 6: an empty row or column of a grid takes no room
      grid->addWidget(indented(words, first ? 0 : look::scaled(margin)), grid->rowCount(), 0, 1, 5);
    }
    auto* exempt = new FigureLabel(this);
    tied(exempt, bind(*exempt, screen_.Label27));
    exempt->setAlignment(Qt::AlignCenter);
    keepPlace(exempt);
    // mutation: 1 -> 2 and 4 -> 5 and grid->addWidget(leve* -> nothing: an empty row or column of a grid takes no room
    grid->addWidget(level(this), grid->rowCount(), 1, 1, 4);
    QLabel* enterHere = inSmallPrint(new ExemptLine(this, look::scaled(margin), screen_), screen_.Label20);
    enterHere->setAccessibleName(enterHere->text().simplified());
    boxedLine(*grid, enterHere, screen_.Label21, exempt);
    return grid;
  }

  void boxedLine(QGridLayout& grid, QLabel* words, Label& number, QLabel* figure) {
    const int row = grid.rowCount();
    QLabel* numberLabel = bold(number);
    numberLabel->setAlignment(Qt::AlignCenter);
    numberLabel->setFixedWidth(look::scaled(lineNumber));
    figure->setFixedWidth(look::scaled(lineFigure));
    figure->setMargin(2);
    figure->setContentsMargins(0, 0, look::tight, 0);
    figure->setAccessibleName(words->text().simplified());
    grid.addWidget(words, row, 0, Qt::AlignBottom);
    grid.addWidget(upright(this), row, 1);
    grid.addWidget(numberLabel, row, 2);
    grid.addWidget(upright(this), row, 3);
    grid.addWidget(figure, row, 4);
  }

  QLayout* signature() {
    auto* row = new QHBoxLayout;
    row->setContentsMargins(0, look::tight, 0, 1);
    row->setSpacing(look::group);
    row->addWidget(bold(screen_.lblSig), 1);
    row->addWidget(bold(screen_.lblSigDate));
    auto* date = new FigureLabel(this);
    tied(date, bind(*date, screen_.lblDate));
    date->setAccessibleName(text(screen_.lblSigDate.caption()));
    row->addWidget(date);
    return row;
  }

  /// The parts that aren't printed.
  QLayout* foot() {
    auto* row = new QHBoxLayout;
    row->setContentsMargins(0, space, 0, 0);
    QLabel* hint = label(screen_.lblPrint);
    QPushButton* exit = wordButton(screen_.cmdW4Exit, "exit-dark", "Close");
    exit->setFixedHeight(look::scaled(22));
    row->addWidget(hint, 1);
    row->addWidget(exit);
    return row;
  }

  // --- Parts

  /// A caption with its box under it.
  QLayout* entry(Label& caption, TextBox& control) {
    auto* column = new QVBoxLayout;
    column->setContentsMargins(0, space, 0, 1);
    column->setSpacing(0);
    QLabel* words = padded(caption);
    auto* edit = new FormBox(this);
    name(words, edit);
    edit->setTextMargins(look::scaled(margin - 2), 0, 0, 0);  // mutation: 0 -> 1: there is room
    column->addWidget(words);
    column->addStretch();
    column->addWidget(tied(edit, bind(*edit, control)));
    return column;
  }

  QLayout* halves(QLayout* left, QLayout* right) {
    auto* row = new QHBoxLayout;
    row->setSpacing(space);
    auto* half = new QWidget(this);
    half->setLayout(right);
    half->setFixedWidth(look::scaled(rightColumn));
    row->addLayout(left, 1);
    row->addWidget(upright(this));
    row->addWidget(half);
    return row;
  }

  QWidget* indented(QLabel* words, int by) {
    auto* holder = new QWidget(this);
    auto* row = new QHBoxLayout(holder);
    row->setContentsMargins(by, 0, 0, 0);
    row->addWidget(words);
    return holder;
  }

  QLabel* small(Label& control, int hanging) { return inSmallPrint(new HangingLabel(this, hanging), control); }
  QLabel* padded(Label& control) { return inSmallPrint(new PaddedLabel(this, look::scaled(margin)), control); }
  QLabel* inSmallPrint(QLabel* widget, Label& control) {
    widget->setFont(smallPrint());
    return tied(widget, bind(*widget, control));
  }

  QLabel* bold(Label& control) {
    QLabel* widget = label(control);
    widget->setFont(smallPrint(true));
    return widget;
  }

  QLabel* large(Label& control, double points) {
    QLabel* widget = label(control);
    widget->setFont(print(points));
    return widget;
  }

  QRadioButton* option(OptionButton& control, QButtonGroup& group) {
    auto* widget = new FormTick<QRadioButton>(this);
    widget->setFont(smallPrint());
    return tied(widget, bind(*widget, control, group));
  }

  frmW4& screen_;
};

}  // namespace

std::unique_ptr<View> makeView(frmW4& screen) { return std::make_unique<frmW4View>(screen); }

}  // namespace tallyfin::qt
