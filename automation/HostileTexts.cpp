#include "HostileTexts.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace automation {

QStringList HostileTexts(QString* error) {
    QFile file(QStringLiteral(VELD_CORPUS_FILE));
    QJsonParseError parse{};
    const QJsonDocument doc = file.open(QIODevice::ReadOnly)
                                  ? QJsonDocument::fromJson(file.readAll(), &parse)
                                  : QJsonDocument();
    if (!doc.isArray()) {
        if (error)
            *error = file.fileName() + QStringLiteral(": ") +
                     (file.isOpen() ? parse.errorString() : file.errorString());
        return {};
    }
    QStringList texts;
    for (const QJsonValue& v : doc.array()) {
        if (v.isString()) {
            texts << v.toString();
        } else {
            const QJsonObject o = v.toObject();
            texts << o.value(QStringLiteral("repeat"))
                         .toString()
                         .repeated(o.value(QStringLiteral("times")).toInt());
        }
    }
    return texts;
}

QString Printable(const QString& text) {
    QString out;
    for (const QChar c : text.left(40)) {
        if (c.unicode() >= 0x20 && c.unicode() < 0x7F)
            out += c;
        else
            out += QStringLiteral("\\u%1").arg(c.unicode(), 4, 16, QLatin1Char('0'));
    }
    if (text.size() > 40)
        out += QStringLiteral("... (%1 characters)").arg(text.size());
    return out;
}

}  // namespace automation
