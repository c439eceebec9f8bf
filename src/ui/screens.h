#pragma once

#include <tuple>

#include "stateoptions/frmState.h"
#include "ui/MDIOpen.h"
#include "ui/MsgBox.h"
#include "ui/frmAbt.h"
#include "ui/frmMain.h"
#include "ui/frmName.h"
#include "ui/frmPrint.h"
#include "w4/frm2Workers.h"
#include "w4/frmCalendar.h"
#include "w4/frmDednAdj.h"
#include "w4/frmPersWkSht.h"
#include "w4/frmTableOne.h"
#include "w4/frmW4.h"
#include "whatif/frmAnalysis.h"
#include "whatif/frmMisc.h"
#include "whatif/frmMultiCheck.h"

namespace tallyfin {

/// All screens of the program, for bindings.
template <template <class...> class List>
using AllScreens = List<MDIOpen, frmMain, frmState, frmName, frmMisc, frmMultiCheck, frmAnalysis, frmPrint,
                        frmPersWkSht, frmDednAdj, frm2Workers, frmTableOne, frmCalendar, frmW4, frmAbt, MsgBox>;

}  // namespace tallyfin
