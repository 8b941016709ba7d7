#include "CCEVELDDlgFactory.h"

#include <memory>
#include <new>

#include "Scopes.h"
#include "app/VELD.h"
#include "properties/CCECADDlgColor.h"
#include "res/StringIds.h"
#include "shell/CCECADDlgGetDouble.h"
#include "shell/CCECADDlgPasswordDwg.h"
#include "shell/CCECADDlgRotate.h"
#include "shell/CGetStringDialog.h"
#include "shell/ResString.h"
#include "tables/CEVELDLayerDLg.h"
#include "tables/CEVELDLtypeDLg.h"
#include "ulo/PalmDevice.h"
#include "veld/EntCollection.h"

namespace veld5 {

// Operations whose dialog is not built yet end as a cancelled dialog would.

// Text insertion (drafting/CCECADDlgInsText.h).
void RunInsTextDialog(CWnd* parent, CVELD& cad, const ulo::geom::PNT_3D& point,
                      veld::CEntCollection& ents);
void CCEVELDDlgFactory::ShowDlgInsText(CWnd* parent, CVELD& cad, ulo::geom::PNT_3D& point,
                                       veld::CEntCollection& ents) {
    RunInsTextDialog(parent, cad, point, ents);
}
// Object snap and coordinate entry (drafting/CCECADDlgOSnap.h, drafting/CCECADDlgSnap.h).
void RunDlgOSnap(CVELD& cad);
bool RunDlgSnapInsertPnt(CWnd* parent, ulo::geom::PNT_3D& point);
void CCEVELDDlgFactory::ShowDlgOSnap(CWnd*, CVELD& cad) {
    // The dialog has no parent window.
    RunDlgOSnap(cad);
}
bool CCEVELDDlgFactory::ShowDlSnapInsertPnt(CWnd* parent, CVELD&, ulo::geom::PNT_3D& point) {
    return RunDlgSnapInsertPnt(parent, point);
}
bool ShowGridSnapDialog(CWnd* parent);  // drafting/CCECADDlgSnapGridCont.h
bool CCEVELDDlgFactory::ShowDlgGridProp(CWnd* parent) {
    return ShowGridSnapDialog(parent);
}
void CCEVELDDlgFactory::ShowDlgOptColors(CWnd*, CVELD&) {}
namespace {

enum class TableDialog { Layers, Ltypes };

/// One visit of the layers or line types dialog: every edit is live in the
/// drawing while it runs; OK commits the visit as one undo step, anything
/// else rolls it back.
void RunTableDialog(CWnd* parent, CVELD& cad, TableDialog kind) {
    CModuleResourceScope scope;
    CSourceEventScope tables(cad.GetData()->GetDataTables()->GetDataTablesSourceEvent());
    auto* controller = new CLayerLtypeCtrlDlg(&cad);
    std::unique_ptr<CVELDLayerLtypeDlg> dialog;
    if (kind == TableDialog::Layers)
        dialog = std::make_unique<CEVELDLayerDLg>(
            controller, &cad, parent,
            static_cast<int>(CPalmDevice::SelectIdDlgStd(11028, 11029, 11030, 11031)));
    else
        dialog = std::make_unique<CEVELDLtypeDLg>(
            controller, &cad, parent,
            static_cast<int>(CPalmDevice::SelectIdDlgStd(11032, 11033, 11034, 11035)));
    if (dialog->DoModal() == ulo::IDOK)
        controller->Commit();
    else
        controller->Rollback();
    controller->SubReference();
    dialog.reset();
}

}  // namespace

void CCEVELDDlgFactory::ShowDlgLayer(CWnd* parent, CVELD& cad) {
    RunTableDialog(parent, cad, TableDialog::Layers);
}
void CCEVELDDlgFactory::ShowDlgLtype(CWnd* parent, CVELD& cad) {
    RunTableDialog(parent, cad, TableDialog::Ltypes);
}
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
// Angle system (drafting/CCECADDlgAngle.h).
bool RunAngleSystemDialog(CWnd* parent, CVELD& cad);
bool CCEVELDDlgFactory::ShowDlgAngle(CWnd* parent, CVELD& cad) {
    return RunAngleSystemDialog(parent, cad);
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
