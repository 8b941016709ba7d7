#include "CCEVELDDlgFactory.h"

#include <new>

#include "Scopes.h"
#include "properties/CCECADDlgColor.h"
#include "res/StringIds.h"
#include "shell/CCECADDlgGetDouble.h"
#include "shell/CCECADDlgPasswordDwg.h"
#include "shell/CCECADDlgRotate.h"
#include "shell/CGetStringDialog.h"
#include "shell/ResString.h"
#include "veld/EntCollection.h"

namespace veld5 {

// Operations whose dialog is not built yet end as a cancelled dialog would.

void CCEVELDDlgFactory::ShowDlgInsText(CWnd*, CVELD&, ulo::geom::PNT_3D&,
                                       veld::CEntCollection& ents) {
    // The caller gets only the texts of this call, whatever the outcome.
    ents.RemoveAllEnts();
}
void CCEVELDDlgFactory::ShowDlgOSnap(CWnd*, CVELD&) {}
bool CCEVELDDlgFactory::ShowDlSnapInsertPnt(CWnd*, CVELD&, ulo::geom::PNT_3D&) {
    return false;
}
bool CCEVELDDlgFactory::ShowDlgGridProp(CWnd*) {
    return false;
}
void CCEVELDDlgFactory::ShowDlgOptColors(CWnd*, CVELD&) {}
void CCEVELDDlgFactory::ShowDlgLayer(CWnd*, CVELD&) {}
void CCEVELDDlgFactory::ShowDlgLtype(CWnd*, CVELD&) {}
void CCEVELDDlgFactory::ShowDlgTextStyle(CWnd*, CVELD&) {}
bool CCEVELDDlgFactory::ShowDlgColor(CWnd* parent, const CVELD* cad, short startColour,
                                     short byLayerColour, short byBlockColour, bool logicalAllowed,
                                     short& chosen) {
    CModuleResourceScope scope;
    CCECADDlgColor dialog(cad, startColour, byLayerColour, byBlockColour, logicalAllowed, parent);
    if (dialog.DoModal() != ulo::IDOK)
        return false;
    chosen = dialog.GetSelColor();
    return true;
}
void CCEVELDDlgFactory::ShowDlgOptCursor(CWnd*, CVELD&) {}
bool CCEVELDDlgFactory::ShowDlgAngle(CWnd*, CVELD&) {
    return false;
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
    CModuleResourceScope scope;
    CCECADDlgGetDouble dialog(parent);
    dialog.SetRequest(value, ulo::WString(title), flag1, flag2, flag3);
    const long result = static_cast<long>(dialog.DoModal());
    if (result == ulo::IDOK)
        value = dialog.GetValue();
    return result;
}

bool CCEVELDDlgFactory::ShowDlgGetString(CWnd* parent, const ulo::WString& text1,
                                         const ulo::WString& text2, ulo::WString& result) {
    CModuleResourceScope scope;
    CGetStringDialog dialog(parent, text1, text2, result);
    return dialog.DoModal() == ulo::IDOK;
}

long CCEVELDDlgFactory::ShowDlgRotate(CWnd* parent, double& angle) {
    CModuleResourceScope scope;
    CCECADDlgRotate dialog(parent);
    dialog.SetRequest(angle, LoadResString(ids::kSelectRotationType), true, true, true);
    long result = static_cast<long>(dialog.DoModal());
    if (result == ulo::IDOK) {
        int code = static_cast<int>(result);
        angle = dialog.GetValue(code);
        result = code;
    }
    return result;
}

}  // namespace veld5

extern "C" IVELDDlgFactory* CreateFactory() {
    return new (std::nothrow) veld5::CCEVELDDlgFactory();
}
