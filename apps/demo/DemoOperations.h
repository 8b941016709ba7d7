#pragma once
// What the demo host does around a catalogue operation besides calling it:
// the arguments it takes from the host (the cross-hair, the selection), a
// check before the call, and the host's part with the results (texts
// inserted, a colour or line type given to the selection, line types added:
// each one command of the undo list) with the line the log shows. An
// operation the demo has nothing to add to runs with the catalogue's
// defaults and logs what it returned.
#include <QJsonValue>
#include <QString>

#include "ulo/Geom.h"

class CVELD;
class CVELDView;
namespace catalogue {
struct Call;
struct Operation;
}  // namespace catalogue

struct DemoContext {
    CVELD* cad;
    CVELDView* view;
    ulo::geom::PNT_3D point;  ///< where the pointer last was in the view
};

struct DemoUse {
    /// Gives the call its arguments; returns why the operation cannot run
    /// now (empty: it can).
    QString (*before)(DemoContext& c, catalogue::Call& call) = nullptr;
    /// Does the host's part with the results; returns the line for the log.
    QString (*after)(DemoContext& c, catalogue::Call& call, const QJsonValue& result) = nullptr;
};

/// The demo's part in @p operation (none for most).
DemoUse DemoUseOf(const catalogue::Operation& operation);

/// The result and out-parameters of a call, for the log ("result 1, angle 30").
QString ReportLine(const catalogue::Call& call, const QJsonValue& result);

/// The object snap and the angle system in a few words, for the status bar
/// ("snap: End, Mid | degrees").
QString DraftingState(const CVELD& cad);
