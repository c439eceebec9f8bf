#pragma once

#include <memory>

#include "ui/qt/views/screenview.h"
#include "ui/screens.h"

namespace tallyfin::qt {

/// Create the view of a screen; defined in the source of its class.
std::unique_ptr<View> makeView(MsgBox& screen);
std::unique_ptr<View> makeView(frm2Workers& screen);
std::unique_ptr<View> makeView(frmAbt& screen);
std::unique_ptr<View> makeView(frmAnalysis& screen);
std::unique_ptr<View> makeView(frmCalendar& screen);
std::unique_ptr<View> makeView(frmDednAdj& screen);
std::unique_ptr<View> makeView(frmMain& screen);
std::unique_ptr<View> makeView(frmMisc& screen);
std::unique_ptr<View> makeView(frmMultiCheck& screen);
std::unique_ptr<View> makeView(frmName& screen);
std::unique_ptr<View> makeView(frmPersWkSht& screen);
std::unique_ptr<View> makeView(frmPrint& screen);
std::unique_ptr<View> makeView(frmState& screen);
std::unique_ptr<View> makeView(frmTableOne& screen);
std::unique_ptr<View> makeView(frmW4& screen);

}  // namespace tallyfin::qt
