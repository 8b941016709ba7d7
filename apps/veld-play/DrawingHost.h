#pragma once
// The drawing veld-play works on.
#include "PlayHost.h"

class IVELDDlgFactory;

namespace veldplay {

class DrawingHost : public PlayHost {
public:
    explicit DrawingHost(IVELDDlgFactory* factory) : factory_(factory) {}
    /// Opens @p path (or the sample drawing, or an empty one).
    bool Open(const QString& path, bool sample, const QString& password, QString& error);
    bool Statement(const std::vector<Word>& words, QString& error, QJsonObject& event) override;

private:
    IVELDDlgFactory* factory_;
};

}  // namespace veldplay
