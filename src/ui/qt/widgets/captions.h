#pragma once

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>

/// Widgets for long captions, which Qt's widgets don't wrap.

namespace tallyfin::qt {

/// A caption that wraps, with its line number ("10.  Add lines ...") in the margin.
class HangingLabel : public QLabel {
 public:
  /// The margin in pixels; a caption without a number is indented by it too.
  HangingLabel(QWidget* parent, int margin);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;
  int heightForWidth(int width) const override;

 protected:
  /// The text with its line breaks at a width.
  virtual QString words(int width) const;
  void paintEvent(QPaintEvent* event) override;

 private:
  int margin_;
};

/// A caption of a form. Its padding, blanks or dots at its end, is shortened before the text wraps.
class PaddedLabel : public HangingLabel {
 public:
  using HangingLabel::HangingLabel;

 protected:
  QString words(int width) const override;
};

/// A caption with a line number in the margin, for a check box whose box is at the right end of the line.
class HangingCheckBox : public QCheckBox {
 public:
  /// The width of the column of the box at the right, which the caption leaves free.
  HangingCheckBox(QWidget* parent, int margin, int column);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;
  int heightForWidth(int width) const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  bool hitButton(const QPoint& position) const override;

 private:
  int margin_;
  int column_;
};

/// A push button that wraps its caption.
class WrapButton : public QPushButton {
 public:
  explicit WrapButton(QWidget* parent);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;
  int heightForWidth(int width) const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

/// A sentence of two captions with a button: the button and the second caption belong into a gap of two blanks in the
/// first one.
class SentenceWithButton : public QWidget {
 public:
  /// Adds a caption, whose words this widget positions.
  class Words;

  SentenceWithButton(QWidget* parent, int margin);
  Words* first() const { return first_; }
  Words* second() const { return second_; }
  /// Sets the button, after all captions.
  void setButton(QPushButton* button);

  QSize sizeHint() const override;
  int heightForWidth(int width) const override;

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  class Flow;
  int flow(int width, bool place) const;

  int margin_;
  Words* first_;
  Words* second_;
  QPushButton* button_ = nullptr;
};

class SentenceWithButton::Words : public QLabel {
 public:
  using QLabel::QLabel;
  struct Word {
    QPoint base;  ///< Left end of the baseline.
    QString text;
  };
  std::vector<Word> words;

  QSize minimumSizeHint() const override { return {}; }  // the sentence has the size hint

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace tallyfin::qt
