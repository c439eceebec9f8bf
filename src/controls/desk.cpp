#include "controls/desk.h"

#include <algorithm>

namespace tallyfin {

Desk desk;

void Screen::setTextColour(Colour colour) {
  for (Control* control : controls_) control->foreColour = colour;
}

Refusal Screen::userClick() {
  return desk.act(*this, [this] { run(onClick); });
}

Refusal Screen::userDblClick() {
  return desk.act(*this, [this] {
    run(onClick);
    if (desk.holds(*this)) run(onDblClick);
  });
}

Screen* Desk::find(std::string_view name) const {
  for (const Seat& seat : seats_) {
    if (seat.screen->name() == name) return seat.screen.get();
  }
  return nullptr;
}

bool Desk::holds(const Screen& screen) const { return find(screen.name()) == &screen; }

std::vector<Screen*> Desk::loaded() const {
  std::vector<Screen*> screens;
  for (const Seat& seat : seats_) screens.push_back(seat.screen.get());
  return screens;
}

std::vector<Screen*> Desk::boxes() const {
  std::vector<Screen*> boxes;
  for (Screen* screen : loaded()) {
    if (screen->place() == Place::box) boxes.insert(boxes.begin(), screen);
  }
  return boxes;
}

Desk::Seat* Desk::seatOf(const Screen& screen) {
  const auto seat =
      std::find_if(seats_.begin(), seats_.end(), [&](const Seat& s) { return s.screen.get() == &screen; });
  return seat == seats_.end() ? nullptr : &*seat;
}

Screen& Desk::load(std::unique_ptr<Screen> created) {
  Screen& screen = *created;
  discarded_.reserve(discarded_.size() + seats_.size() + 1);  // so that discarding a screen needs no memory
  seats_.push_back({std::move(created), true, false});
  if (screen.shown_ && watcher != nullptr) watcher->shown(screen);  // the frame is shown before its Load
  screen.Load();
  if (Seat* seat = seatOf(screen)) seat->loading = false;
  activateFront();
  return screen;
}

void Desk::show(Screen& screen) {
  const Seat* seat = seatOf(screen);
  if (seat == nullptr || seat->unloading) return;
  screen.shown_ = true;
  if (screen.place() == Place::document) {
    std::erase(documents_, &screen);
    documents_.insert(documents_.begin(), &screen);
  }
  if (watcher != nullptr) watcher->shown(screen);
  activateFront();
}

/// Runs Activate of the new active document, after its Load.
void Desk::activateFront() {
  Screen* front = activeDocument();
  // Both are null without a document.
  if (front == activated_ || seatOf(*front)->loading) return;
  activated_ = front;
  front->Activate();
}

void Desk::close(Screen& screen) {
  Seat* seat = seatOf(screen);
  if (seat == nullptr || seat->loading || seat->unloading) return;
  seat->unloading = true;
  screen.Unload();
  discard(screen);
  activateFront();
}

void Desk::closeActiveDocument() {
  if (Screen* document = activeDocument()) close(*document);
}

void Desk::discard(Screen& screen) {
  if (watcher != nullptr) watcher->discarded(screen);
  std::erase(documents_, &screen);
  if (activated_ == &screen) activated_ = nullptr;
  if (focused_ != nullptr && &focused_->screen() == &screen) focused_ = nullptr;
  if (blocker_ == screen.name()) blocker_.clear();
  const auto seat =
      std::find_if(seats_.begin(), seats_.end(), [&](const Seat& s) { return s.screen.get() == &screen; });
  discarded_.push_back(std::move(seat->screen));
  seats_.erase(seat);
}

void Desk::moveFocus(Control& control) {
  if (focused_ == &control) return;
  Control* before = std::exchange(focused_, &control);
  if (before != nullptr) run(before->onLostFocus);
  control.gotFocus();
  if (watcher != nullptr) watcher->focusMoved();
}

void Desk::dropFocus() {
  if (Control* before = std::exchange(focused_, nullptr)) carryOut([before] { run(before->onLostFocus); });
}

bool Desk::blocked(std::string_view screenName) const { return !blocker_.empty() && blocker_ != screenName; }

Refusal Desk::refusal(const Control& control) const {
  if (blocked(control.screen().name())) return Refusal::blocked;
  if (!control.screen().shown() || !control.visible) return Refusal::notShown;
  if (!control.enabled) return Refusal::disabled;
  return Refusal::none;
}

Refusal Desk::act(Control& control, Refusal further, const std::function<void()>& deed) {
  if (const Refusal reason = refusal(control); reason != Refusal::none) return reason;
  if (further != Refusal::none) return further;
  return act(control.screen(), deed);
}

Refusal Desk::point(Control& control, const std::function<void()>& deed) {
  if (const Refusal reason = refusal(control); reason != Refusal::none) return reason;
  carryOut(deed);
  return Refusal::none;
}

Refusal Desk::act(Screen& screen, const std::function<void()>& deed) {
  if (blocked(screen.name())) return Refusal::blocked;
  if (!screen.shown()) return Refusal::notShown;
  carryOut([&] {
    if (screen.place() == Place::document && activeDocument() != &screen) show(screen);
    deed();
  });
  return Refusal::none;
}

Refusal Desk::userClose(Screen& screen) {
  return act(screen, [&] { screen.place() == Place::frame ? end() : close(screen); });
}

void Desk::carryOut(const std::function<void()>& deed) {
  struct Depth {
    Desk& desk;
    ActWatcher* watcher;
    explicit Depth(Desk& of) : desk(of), watcher(of.depth_ == 0 ? of.actWatcher : nullptr) {
      ++desk.depth_;
      if (watcher != nullptr) watcher->beginAct();
    }
    ~Depth() {
      if (watcher != nullptr) watcher->endAct();
      if (--desk.depth_ == 0) desk.discarded_.clear();
    }
  };
  const Depth within(*this);
  deed();
}

void Desk::begin() {
  end();
  discarded_.clear();
  running_ = true;
}

void Desk::end() {
  running_ = false;
  while (!seats_.empty()) discard(*seats_.back().screen);
  if (depth_ == 0) discarded_.clear();
}

}  // namespace tallyfin
