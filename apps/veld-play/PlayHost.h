#pragma once
// The host side of veld-play: the open drawing and its CAD instance, and the
// top-level statements that act on them.
#include <QJsonObject>
#include <vector>

#include "ScriptParser.h"

class CVELD;
class CVELDView;

namespace veldplay {

class PlayHost {
public:
    virtual ~PlayHost() = default;
    /// Runs a top-level statement other than call/layout. Returns false when
    /// the verb is unknown; fills @p error or @p event as it goes.
    virtual bool Statement(const std::vector<Word>& words, QString& error, QJsonObject& event) = 0;
    /// The CAD instance operations work on; null when the host has none.
    virtual CVELD* GetCAD() { return nullptr; }
    /// The view of the CAD instance (the grid dialog edits its grid).
    virtual CVELDView* GetView() { return nullptr; }
};

}  // namespace veldplay
