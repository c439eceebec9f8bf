#include "ui/qt/look.h"
#include "ui/qt/views/views.h"
#include "w4/frmDednAdj.h"

namespace tallyfin::qt {

std::unique_ptr<View> makeView(frmDednAdj& screen) { return std::make_unique<View>(screen); }

}  // namespace tallyfin::qt
