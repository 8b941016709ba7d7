#pragma once
// The drawing veld-play works on: one CAD instance with one view that is never
// shown (the dialogs that edit a view's grid need one), and the top-level
// statements on the selection, the undo list, the angle system and files.
#include <QString>
#include <memory>

#include "PlayHost.h"

class CVELDView;

namespace veldplay {

class DrawingHost : public PlayHost {
public:
    DrawingHost();
    ~DrawingHost() override;
    DrawingHost(const DrawingHost&) = delete;
    DrawingHost& operator=(const DrawingHost&) = delete;

    /// Opens @p path (or the sample drawing, or keeps the empty one). A sealed
    /// file is opened with @p password, which "open" uses later as well.
    bool Open(const QString& path, bool sample, const QString& password, QString& error);
    bool Statement(const std::vector<Word>& words, QString& error, QJsonObject& event) override;
    CVELD* GetCAD() override { return cad_.get(); }
    CVELDView* GetView() override { return view_.get(); }

private:
    bool Load(const QString& path, QString& error);
    QString Select(const std::vector<Word>& words);
    QString Angles(const std::vector<Word>& words);

    QString password_;
    std::unique_ptr<CVELD> cad_;
    std::unique_ptr<CVELDView> view_;  // goes before the CAD instance it is attached to
};

}  // namespace veldplay
