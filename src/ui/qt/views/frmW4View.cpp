#include "ui/qt/look.h"
#include "ui/qt/views/views.h"
#include "w4/frmW4.h"

namespace tallyfin::qt {

std::unique_ptr<View> makeView(frmW4& screen) { return std::make_unique<View>(screen); }

}  // namespace tallyfin::qt
