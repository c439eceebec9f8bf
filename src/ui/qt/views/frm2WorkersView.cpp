#include "ui/qt/look.h"
#include "ui/qt/views/views.h"
#include "w4/frm2Workers.h"

namespace tallyfin::qt {

std::unique_ptr<View> makeView(frm2Workers& screen) { return std::make_unique<View>(screen); }

}  // namespace tallyfin::qt
