#pragma once
// The factory operations as the demo host offers them: each entry says
// whether its dialog is built yet and runs the operation on the host's data,
// returning a line for the log. Adding a dialog to the demo is setting its
// flag here.
#include <QString>
#include <functional>
#include <vector>

#include "linetypes/LtypePickers.h"
#include "ulo/Geom.h"

class CVELD;
class CVELDView;
class IVELDDlgFactory;
class QWidget;

struct DemoContext {
    IVELDDlgFactory* factory;
    CVELD* cad;
    CVELDView* view;
    QWidget* parent;
    ulo::geom::PNT_3D point;  ///< where the pointer last was in the view
    /// The library's line type pickers (null when it lacks them).
    ShowDlgSelLtypeFn selLtype = nullptr;
    ShowDlgLoadLtypeFn loadLtype = nullptr;
};

struct DemoOperation {
    const char* name;   ///< the factory's operation name (or the library entry's)
    const char* label;  ///< menu text
    bool built;
    std::function<QString(DemoContext&)> run;
};

const std::vector<DemoOperation>& DemoOperations();

/// The object snap and the angle system in a few words, for the status bar
/// ("snap: End, Mid | degrees").
QString DraftingState(const CVELD& cad);
