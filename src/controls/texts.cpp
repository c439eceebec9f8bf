#include "controls/texts.h"

#include <algorithm>

#include "controls/desk.h"
#include "controls/screen.h"
#include "engine/numbertext.h"

namespace tallyfin {

namespace {

/// Length in characters, not in bytes.
int lengthOf(const std::string& utf8) {
  const auto continues = [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U; };
  return static_cast<int>(utf8.size()) - static_cast<int>(std::count_if(utf8.begin(), utf8.end(), continues));
}

}  // namespace

TextBox::TextBox(Screen& screen, std::string name, std::string text, std::string index)
    : Control(screen, std::move(name), std::move(index)), text_(std::move(text)) {}

void TextBox::setText(std::string text) { replace(std::move(text), false); }

void TextBox::replace(std::string text, bool typed) {
  text_ = std::move(text);
  typed_ = typed;
  selStart_ = 0;
  selLength_ = 0;
  changed();
}

void TextBox::selectAll() {
  selStart_ = 0;
  selLength_ = lengthOf(text_);
  changed();
}

void TextBox::gotFocus() {
  selectAll();
  Control::gotFocus();
}

Refusal TextBox::userType(std::string text) {
  return desk.act(*this, [&] { replace(std::move(text), true); });
}

MaskedBox::MaskedBox(Screen& screen, std::string name, Format format, std::string tip)
    : TextBox(screen, std::move(name)), format_(format) {
  tooltip = std::move(tip);
}

std::string MaskedBox::shown() const {
  if (format_ == Format::currency) return currency(text());
  if (format_ == Format::whole && typed()) return wholeNumber(text());
  return text();
}

Label::Label(Screen& screen, std::string name, std::string caption, std::string index)
    : Clickable(screen, std::move(name), std::move(index)), caption_(std::move(caption)) {}

void Label::setCaption(std::string caption) {
  caption_ = std::move(caption);
  if (!changing_) {
    changing_ = true;
    run(onChange);
    changing_ = false;
  }
  changed();
}

void Label::click() { run(takesClicks() ? onClick : screen().onClick); }

void Label::dblClick() { run(takesClicks() ? onDblClick : screen().onDblClick); }

Panel::Panel(Screen& screen, std::string name, std::string caption, std::string index)
    : Control(screen, std::move(name), std::move(index)), caption_(std::move(caption)) {}

void Panel::moveTo(int newLeft, int newTop) {
  left = newLeft;
  top = newTop;
}

}  // namespace tallyfin
