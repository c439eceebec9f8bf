#pragma once

#include "controls/control.h"

/// Controls that show or take a text.

namespace tallyfin {

/// A box that the user types into.
class TextBox : public Control {
 public:
  TextBox(Screen& screen, std::string name, std::string text = "", std::string index = "");

  const std::string& text() const { return text_; }
  /// Replaces the text by code; the selection goes back to the start.
  void setText(std::string text);
  /// The text that is displayed while the box isn't being edited.
  virtual std::string shown() const { return text_; }

  int selStart() const { return selStart_; }
  int selLength() const { return selLength_; }
  /// Selects the whole text.
  void selectAll();

  Refusal userType(std::string text);

 protected:
  /// Selects the whole text.
  void gotFocus() override;
  /// Whether the text is one that the user typed.
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
  whole,     ///< "0", for a typed number only: a text that the program assigned stands as assigned
};

/// A box that shows its text in a format while it isn't being edited. Every character can be typed: the parser
/// decides what is a number.
class MaskedBox : public TextBox {
 public:
  MaskedBox(Screen& screen, std::string name, Format format, std::string tooltip = "");

  std::string shown() const override;

 private:
  Format format_;
};

/// A text on the screen that may serve as working storage. Clicks on one without handlers for them are clicks on its
/// screen.
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

/// A rectangle that holds other controls; a page lies out of sight at left -10000. Twips.
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
