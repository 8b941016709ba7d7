#pragma once
// The dialog factory: the one entry of the library for dialogs. The host calls
// CreateFactory once (or more: the factory is stateless) and asks the factory
// to run modal dialogs. Each operation runs one dialog to completion.
//
// A public header: it names the host's types without including the host's
// headers, so that a host compiles against it with its own.
#include "Export.h"

class QWidget;
namespace ulo {
class WString;
using CWnd = QWidget;  // the parent window of a dialog
namespace geom {
struct PNT_3D;
}
}  // namespace ulo
using ulo::CWnd;

class CVELD;
class CVELDView;
class CVELDImage;
namespace veld {
class CEnt;
class CEntCollection;
class CHatchType;
class IFileReaderPasswordRequest;
}  // namespace veld

class IVELDDlgFactory {
public:
    virtual void ShowDlgInsText(CWnd* parent, CVELD& cad, ulo::geom::PNT_3D& point,
                                veld::CEntCollection& ents) = 0;
    virtual void ShowDlgOSnap(CWnd* parent, CVELD& cad) = 0;
    virtual bool ShowDlSnapInsertPnt(CWnd* parent, CVELD& cad, ulo::geom::PNT_3D& point) = 0;
    virtual bool ShowDlgGridProp(CWnd* parent) = 0;
    virtual void ShowDlgOptColors(CWnd* parent, CVELD& cad) = 0;
    virtual void ShowDlgLayer(CWnd* parent, CVELD& cad) = 0;
    virtual void ShowDlgLtype(CWnd* parent, CVELD& cad) = 0;
    virtual void ShowDlgTextStyle(CWnd* parent, CVELD& cad) = 0;
    virtual bool ShowDlgColor(CWnd* parent, const CVELD* cad, short startColour,
                              short byLayerColour, short byBlockColour, bool logicalAllowed,
                              short& chosen) = 0;
    virtual void ShowDlgOptCursor(CWnd* parent, CVELD& cad) = 0;
    virtual bool ShowDlgAngle(CWnd* parent, CVELD& cad) = 0;
    virtual bool ShowDlgHatch(CWnd* parent, const veld::CHatchType** hatch) = 0;
    virtual bool ShowDlgDrawings(CWnd* parent, CVELD& cad) = 0;
    virtual bool ShowDlgProperty(CWnd* parent, CVELD& cad, bool undoable) = 0;
    virtual bool ShowDlgCalibraLineare(CWnd* parent, CVELD& cad, CVELDImage* image) = 0;
    virtual veld::IFileReaderPasswordRequest* GetDlgPasswordRequest(CWnd* parent) = 0;
    virtual long ShowDlgGetDouble(CWnd* parent, const wchar_t* title, double& value, bool flag1,
                                  bool flag2, bool flag3) = 0;
    virtual bool ShowDlgGetString(CWnd* parent, const ulo::WString& text1,
                                  const ulo::WString& text2, ulo::WString& result) = 0;
    virtual long ShowDlgRotate(CWnd* parent, double& angle) = 0;
};

/// Type of CreateFactory, for hosts that resolve it at run time.
using CreateFactoryFn = IVELDDlgFactory* (*)();

extern "C" {
VELD5_EXPORT IVELDDlgFactory* CreateFactory();

VELD5_EXPORT void SetPresetViewTop(CVELDView* view);
VELD5_EXPORT void SetPresetViewBottom(CVELDView* view);
VELD5_EXPORT void SetPresetViewFront(CVELDView* view);
VELD5_EXPORT void SetPresetViewBack(CVELDView* view);
VELD5_EXPORT void SetPresetViewLeft(CVELDView* view);
VELD5_EXPORT void SetPresetViewRight(CVELDView* view);
VELD5_EXPORT void SetPresetViewSWIso(CVELDView* view);
VELD5_EXPORT void SetPresetViewSEIso(CVELDView* view);
VELD5_EXPORT void SetPresetViewNEIso(CVELDView* view);
VELD5_EXPORT void SetPresetViewNWIso(CVELDView* view);
VELD5_EXPORT void NtfySelectedEnt(CVELD* cad, veld::CEnt* entity, bool selected);
}
