#pragma once
// The factory the host receives from CreateFactory. Stateless: every
// operation builds its dialog, runs it and destroys it before returning.
#include "IVELDDlgFactory.h"

namespace veld5 {

class CCEVELDDlgFactory : public IVELDDlgFactory {
public:
    void ShowDlgInsText(CWnd* parent, CVELD& cad, ulo::geom::PNT_3D& point,
                        veld::CEntCollection& ents) override;
    void ShowDlgOSnap(CWnd* parent, CVELD& cad) override;
    bool ShowDlSnapInsertPnt(CWnd* parent, CVELD& cad, ulo::geom::PNT_3D& point) override;
    bool ShowDlgGridProp(CWnd* parent) override;
    void ShowDlgOptColors(CWnd* parent, CVELD& cad) override;
    void ShowDlgLayer(CWnd* parent, CVELD& cad) override;
    void ShowDlgLtype(CWnd* parent, CVELD& cad) override;
    void ShowDlgTextStyle(CWnd* parent, CVELD& cad) override;
    bool ShowDlgColor(CWnd* parent, const CVELD* cad, short startColour, short byLayerColour,
                      short byBlockColour, bool logicalAllowed, short& chosen) override;
    void ShowDlgOptCursor(CWnd* parent, CVELD& cad) override;
    bool ShowDlgAngle(CWnd* parent, CVELD& cad) override;
    bool ShowDlgHatch(CWnd* parent, const veld::CHatchType** hatch) override;
    bool ShowDlgDrawings(CWnd* parent, CVELD& cad) override;
    bool ShowDlgProperty(CWnd* parent, CVELD& cad, bool undoable) override;
    bool ShowDlgCalibraLineare(CWnd* parent, CVELD& cad, CVELDImage* image) override;
    veld::IFileReaderPasswordRequest* GetDlgPasswordRequest(CWnd* parent) override;
    long ShowDlgGetDouble(CWnd* parent, const wchar_t* title, double& value, bool flag1, bool flag2,
                          bool flag3) override;
    bool ShowDlgGetString(CWnd* parent, const ulo::WString& text1, const ulo::WString& text2,
                          ulo::WString& result) override;
    long ShowDlgRotate(CWnd* parent, double& angle) override;
};

}  // namespace veld5
