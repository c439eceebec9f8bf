#include "ui/qt/look.h"
#include "ui/qt/views/views.h"
#include "whatif/frmAnalysis.h"

namespace tallyfin::qt {

std::unique_ptr<View> makeView(frmAnalysis& screen) { return std::make_unique<View>(screen); }

}  // namespace tallyfin::qt
