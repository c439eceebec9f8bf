#include "ui/qt/look.h"
#include "ui/qt/views/views.h"
#include "whatif/frmMultiCheck.h"

namespace tallyfin::qt {

std::unique_ptr<View> makeView(frmMultiCheck& screen) { return std::make_unique<View>(screen); }

}  // namespace tallyfin::qt
