#include "DrawingHost.h"

namespace veldplay {

bool DrawingHost::Open(const QString& path, bool sample, const QString&, QString& error) {
    if (!path.isEmpty() || sample) {
        error = QStringLiteral("drawings are not available in this build");
        return false;
    }
    return true;
}

bool DrawingHost::Statement(const std::vector<Word>& words, QString& error, QJsonObject&) {
    static const QStringList verbs = {QStringLiteral("select"), QStringLiteral("deselect"),
                                      QStringLiteral("undo"),   QStringLiteral("redo"),
                                      QStringLiteral("dump"),   QStringLiteral("angles"),
                                      QStringLiteral("open"),   QStringLiteral("save")};
    if (!verbs.contains(words[0].text))
        return false;
    error = QStringLiteral("%1 needs a drawing, which this build does not have").arg(words[0].text);
    return true;
}

}  // namespace veldplay
