#pragma once

#include "controls/control.h"

/// Text boxes, masked boxes, labels and panels.

namespace tallyfin {

/// A text box.
class TextBox : public Control {
 public:
  TextBox(Screen& screen, std::string name, std::string text = "", std::string index = "");

  const std::string& text() const { return text_; }
  /// Replaces the text by code; the selection goes back to the start.
  void setText(std::string text);
  /// The text that is shown while the box isn't edited.
  virtual std::string shown() const { return text_; }

  int selStart() const { return selStart_; }
  int selLength() const { return selLength_; }
  /// Selects the whole text.
  void selectAll();

  Refusal userType(std::string text);

 protected:
  /// Selects the whole text.
  void gotFocus() override;
  /// Whether the user typed the text.
  bool typed() const { return typed_; }

 private:
  void replace(std::string text, bool typed);

  std::string text_;
  bool typed_ = false;
  int selStart_ = 0;
  int selLength_ = 0;
};

/// The display formats of masked boxes.
enum class Format {
  none,
  currency,  ///< "$#,##0.00;($#,##0.00)"
  whole,     ///< "0", for a typed number only: a text that the program assigned isn't formatted
};

/// A box that shows its text in a format while it isn't edited. Every character can be typed; the parser checks for
/// numbers.
class MaskedBox : public TextBox {
 public:
  MaskedBox(Screen& screen, std::string name, Format format, std::string tooltip = "");

  std::string shown() const override;

 private:
  Format format_;
};

/// A label. Its caption may be used as a variable. Clicks on a label without click handlers are clicks on its screen.
class Label : public Clickable {
 public:
  Label(Screen& screen, std::string name, std::string caption = "", std::string index = "");

  const std::string& caption() const { return caption_; }
  /// Runs the Change handler; what that handler assigns doesn't run it again.
  void setCaption(std::string caption);

  Handler onChange;

  void click() override;

 protected:
  void dblClick() override;

 private:
  bool takesClicks() const { return onClick || onDblClick; }

  std::string caption_;
  bool changing_ = false;
};

/// A rectangle with other controls. A page that is out of view is at left -10000. Twips.
class Panel : public Control {
 public:
  Panel(Screen& screen, std::string name, std::string caption = "", std::string index = "");

  const std::string& caption() const { return caption_; }
  Property<int> left{*this, 0};
  Property<int> top{*this, 0};

  static constexpr int outOfSight = -10000;
  bool inSight() const { return left() >= 0; }
  void moveTo(int newLeft, int newTop);

 private:
  std::string caption_;
};

}  // namespace tallyfin
