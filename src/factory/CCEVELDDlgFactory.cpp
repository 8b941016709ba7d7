#include "CCEVELDDlgFactory.h"

#include <new>

#include "drafting/CCECADDlgAngle.h"
#include "drafting/CCECADDlgInsText.h"
#include "drafting/CCECADDlgOSnap.h"
#include "drafting/CCECADDlgSnap.h"
#include "drafting/CCECADDlgSnapGridCont.h"
#include "properties/CCECADDlgColor.h"
#include "shell/CCECADDlgGetDouble.h"
#include "shell/CCECADDlgPasswordDwg.h"
#include "shell/CCECADDlgRotate.h"
#include "shell/CGetStringDialog.h"
#include "tables/CEVELDLayerDLg.h"
#include "tables/CEVELDLtypeDLg.h"

namespace veld5 {

// Each operation forwards to the run function its dialog's header declares
// (Run + the operation's name without "Show"), which runs the dialog through
// RunDialog (factory/RunDialog.h). Operations whose dialog is not built yet
// end as a cancelled dialog would.

void CCEVELDDlgFactory::ShowDlgInsText(CWnd* parent, CVELD& cad, ulo::geom::PNT_3D& point,
                                       veld::CEntCollection& ents) {
    RunDlgInsText(parent, cad, point, ents);
}
void CCEVELDDlgFactory::ShowDlgOSnap(CWnd*, CVELD& cad) {
    RunDlgOSnap(cad);  // the dialog has no parent window
}
bool CCEVELDDlgFactory::ShowDlSnapInsertPnt(CWnd* parent, CVELD&, ulo::geom::PNT_3D& point) {
    return RunDlSnapInsertPnt(parent, point);
}
bool CCEVELDDlgFactory::ShowDlgGridProp(CWnd* parent) {
    return RunDlgGridProp(parent);
}
void CCEVELDDlgFactory::ShowDlgOptColors(CWnd*, CVELD&) {}
void CCEVELDDlgFactory::ShowDlgLayer(CWnd* parent, CVELD& cad) {
    RunDlgLayer(parent, cad);
}
void CCEVELDDlgFactory::ShowDlgLtype(CWnd* parent, CVELD& cad) {
    RunDlgLtype(parent, cad);
}
void CCEVELDDlgFactory::ShowDlgTextStyle(CWnd*, CVELD&) {}
bool CCEVELDDlgFactory::ShowDlgColor(CWnd* parent, const CVELD* cad, short startColour,
                                     short byLayerColour, short byBlockColour, bool logicalAllowed,
                                     short& chosen) {
    return RunDlgColor(parent, cad, startColour, byLayerColour, byBlockColour, logicalAllowed,
                       chosen);
}
void CCEVELDDlgFactory::ShowDlgOptCursor(CWnd*, CVELD&) {}
bool CCEVELDDlgFactory::ShowDlgAngle(CWnd* parent, CVELD& cad) {
    return RunDlgAngle(parent, cad);
}
bool CCEVELDDlgFactory::ShowDlgHatch(CWnd*, const veld::CHatchType**) {
    return false;
}
bool CCEVELDDlgFactory::ShowDlgDrawings(CWnd*, CVELD&) {
    return false;
}
bool CCEVELDDlgFactory::ShowDlgProperty(CWnd*, CVELD&, bool) {
    return false;
}
bool CCEVELDDlgFactory::ShowDlgCalibraLineare(CWnd*, CVELD&, CVELDImage*) {
    return false;
}

veld::IFileReaderPasswordRequest* CCEVELDDlgFactory::GetDlgPasswordRequest(CWnd* parent) {
    return new (std::nothrow) CCECADDlgPasswordDwg(parent);
}

long CCEVELDDlgFactory::ShowDlgGetDouble(CWnd* parent, const wchar_t* title, double& value,
                                         bool flag1, bool flag2, bool flag3) {
    return RunDlgGetDouble(parent, title, value, flag1, flag2, flag3);
}
bool CCEVELDDlgFactory::ShowDlgGetString(CWnd* parent, const ulo::WString& text1,
                                         const ulo::WString& text2, ulo::WString& result) {
    return RunDlgGetString(parent, text1, text2, result);
}
long CCEVELDDlgFactory::ShowDlgRotate(CWnd* parent, double& angle) {
    return RunDlgRotate(parent, angle);
}

}  // namespace veld5

extern "C" IVELDDlgFactory* CreateFactory() {
    return new (std::nothrow) veld5::CCEVELDDlgFactory();
}
