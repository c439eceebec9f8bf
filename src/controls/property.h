#pragma once

#include <functional>
#include <optional>
#include <utility>

namespace tallyfin {

/// The handler of an event.
using Handler = std::function<void()>;

/// Runs a handler if there is one.
inline void run(const Handler& handler) {
  if (handler) handler();
}

/// A colour in red, green and blue, 0 to 255 each.
struct Colour {
  int red = 0;
  int green = 0;
  int blue = 0;

  bool operator==(const Colour&) const = default;
};

/// No colour: that of the screen.
using OwnColour = std::optional<Colour>;

/// A control or a screen, which a binding may watch.
class Watched {
 public:
  Watched() = default;
  Watched(const Watched&) = delete;
  Watched& operator=(const Watched&) = delete;
  virtual ~Watched() = default;

  /// Sets what is called when something changes; there is one watcher at a time.
  void watch(Handler watcher) { watcher_ = std::move(watcher); }
  void changed() { run(watcher_); }

 private:
  Handler watcher_;
};

/// A value of a control or screen that notifies the watcher of assignments.
template <class T>
class Property {
 public:
  Property(Watched& owner, T value) : owner_(owner), value_(std::move(value)) {}
  Property(const Property&) = delete;
  Property& operator=(const Property&) = delete;
  ~Property() = default;

  Property& operator=(T value) {
    value_ = std::move(value);
    owner_.changed();
    return *this;
  }
  operator const T&() const { return value_; }  // NOLINT(google-explicit-constructor): reads as its value
  const T& operator()() const { return value_; }

 private:
  Watched& owner_;
  T value_;
};

}  // namespace tallyfin
