#include "stateoptions/frmState.h"
#include "ui/qt/look.h"
#include "ui/qt/views/views.h"

namespace tallyfin::qt {

std::unique_ptr<View> makeView(frmState& screen) { return std::make_unique<View>(screen); }

}  // namespace tallyfin::qt
