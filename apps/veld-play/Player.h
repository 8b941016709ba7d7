#pragma once
// Runs a parsed script: top-level statements, and for each "call" the
// operation with its scripted steps, printing one JSON object a line.
#include <QJsonObject>
#include <QMap>
#include <QTextStream>

#include "ScriptParser.h"
#include "automation/OperationCatalogue.h"

class IVELDDlgFactory;

namespace veldplay {

class PlayHost;

/// A call of a catalogue operation on @p host: its drawing and view, and
/// the library's line type pickers.
catalogue::Call NewCall(IVELDDlgFactory* factory, PlayHost& host);
/// The operations whose dialog shows, in name order, found by calling each
/// once on @p host with a user who closes whatever appears (an operation not
/// built yet returns without showing anything).
QStringList BuiltOperations(IVELDDlgFactory* factory, PlayHost& host);
/// The script that takes the catalogue's pictures of @p operations in the
/// four layouts: DIR/<picture>-<layout>.png.
QString PictureScript(const QStringList& operations, const QString& dir);

class Player {
public:
    Player(IVELDDlgFactory* factory, PlayHost* host, QTextStream& out);
    /// Runs the script; returns the number of errors.
    int Run(const QString& script);

private:
    void Print(const QJsonObject& event, const QMap<QString, double>& numbers = {});
    void Error(int line, const QString& message);
    /// Runs statements [first, last) as the steps of one call.
    void Call(const Statement& call, const std::vector<Statement>& steps);
    bool TopLevel(const Statement& s);

    IVELDDlgFactory* factory_;
    PlayHost* host_;
    QTextStream& out_;
    int errors_ = 0;
};

}  // namespace veldplay
