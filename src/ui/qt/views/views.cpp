#include "ui/qt/views/views.h"

namespace tallyfin::qt {

namespace {

template <class... Screens>
struct Makers {
  static std::unique_ptr<View> make(Screen& screen) {
    std::unique_ptr<View> view;
    (tryOne<Screens>(screen, view), ...);
    return view;
  }

 private:
  template <class S>
  static void tryOne(Screen& screen, std::unique_ptr<View>& view) {
    if constexpr (!std::is_same_v<S, MDIOpen>) {  // the frame has its own class
      if (auto* known = dynamic_cast<S*>(&screen)) view = makeView(*known);
    }
  }
};

}  // namespace

std::unique_ptr<View> viewOf(Screen& screen) { return AllScreens<Makers>::make(screen); }

}  // namespace tallyfin::qt
