#pragma once

#include <memory>

#include "ui/qt/view.h"

namespace tallyfin {
class MsgBox;
class frm2Workers;
class frmAbt;
class frmAnalysis;
class frmCalendar;
class frmDednAdj;
class frmMain;
class frmMisc;
class frmMultiCheck;
class frmName;
class frmPersWkSht;
class frmPrint;
class frmState;
class frmTableOne;
class frmW4;
}  // namespace tallyfin

/// One maker for each screen that has a view; the view's own class stands in its source.

namespace tallyfin::qt {

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
