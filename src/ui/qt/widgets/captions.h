#pragma once

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>

/// Widgets for long captions, which the toolkit's own would leave on one line.

namespace tallyfin::qt {

/// A caption that wraps and hangs its line number ("10.  Add lines ...") in the margin.
class HangingLabel : public QLabel {
 public:
  /// The margin in pixels; a caption without a number stands in from it as well.
  HangingLabel(QWidget* parent, int margin);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;
  int heightForWidth(int width) const override;

 protected:
  /// The words as they are displayed at a width.
  virtual QString words(int width) const;
  void paintEvent(QPaintEvent* event) override;

 private:
  int margin_;
};

/// A caption of a form whose padding, a run of blanks or the dots at its end, gives way before the words wrap.
class PaddedLabel : public HangingLabel {
 public:
  using HangingLabel::HangingLabel;

 protected:
  QString words(int width) const override;
};

/// A caption with a hanging line number, of a check box whose box stands at the right end of the line.
class HangingCheckBox : public QCheckBox {
 public:
  /// The caption leaves a column of this width free at its right, the box's.
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

/// A sentence of two captions with a button in it: the first caption has a gap of two blanks, into which the button and
/// then the second caption belong.
class SentenceWithButton : public QWidget {
 public:
  /// A caption of the sentence, whose words the sentence places.
  class Words;

  SentenceWithButton(QWidget* parent, int margin);
  Words* first() const { return first_; }
  Words* second() const { return second_; }
  /// Takes the button when all captions are set.
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
    QPoint base;  ///< Left end of its base line.
    QString text;
  };
  std::vector<Word> words;

  QSize minimumSizeHint() const override { return {}; }  // the sentence asks for their room

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace tallyfin::qt
