#pragma once

#include <string>
#include <vector>

#include "controls/property.h"
#include "engine/failure.h"

namespace tallyfin {

class Control;
enum class Refusal;

/// Where a screen opens.
enum class Place {
  document,  ///< In the document area of the frame; the shown ones form a stack.
  frame,     ///< The frame of the program itself.
  box,       ///< Above the frame.
};

/// A screen as a model: named controls, registered in the order of their declaration, and handlers. The screen stack
/// controls its lifetime (creation at first use, Load, Activate, Unload).
class Screen : public Watched {
 public:
  Screen(std::string name, std::string titleAtDesign, Place place = Place::document)
      : title(*this, std::move(titleAtDesign)), name_(std::move(name)), place_(place) {}

  const std::string& name() const { return name_; }
  Place place() const { return place_; }
  const std::vector<Control*>& controls() const { return controls_; }

  Property<std::string> title;
  Property<OwnColour> backColour{*this, std::nullopt};
  /// Whether it fills the document area.
  Property<bool> maximized{*this, false};
  bool shown() const { return shown_; }

  /// Clicks on the form itself.
  Handler onClick;
  Handler onDblClick;
  Refusal userClick();
  Refusal userDblClick();

 protected:
  /// Sets the text colour of every control.
  void setTextColour(Colour colour);

  virtual void Load() {}
  virtual void Activate() {}
  virtual void Unload() {}

 private:
  friend class Control;
  friend class Desk;

  std::string name_;
  Place place_;
  std::vector<Control*> controls_;
  bool shown_ = false;
};

}  // namespace tallyfin
