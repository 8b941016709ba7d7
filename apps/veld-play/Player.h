#pragma once
// Runs a parsed script: top-level statements, and for each "call" the
// operation with its scripted steps, printing one JSON object a line.
#include <QJsonObject>
#include <QMap>
#include <QTextStream>
#include <functional>

#include "ScriptParser.h"

class CVELD;
class CVELDView;
class IVELDDlgFactory;
class QWidget;

namespace veldplay {

class PlayHost;

/// What an operation receives: its arguments (NAME=VALUE) and where to put
/// its out-parameters.
struct OperationCall {
    IVELDDlgFactory* factory = nullptr;
    PlayHost* host = nullptr;
    QMap<QString, QString> args;
    QJsonObject out;  ///< out-parameters reported with the return event
    /// Number out-parameters, printed exactly as they are ("-0", "0.1"): a
    /// JSON value would print -0 as 0.
    QMap<QString, double> numbers;
    QString error;  ///< set when the arguments are wrong
    /// The values read with Number, Short, Int and Text (an argument or its
    /// default): an out-parameter of the same name must keep its value when
    /// cancelled.
    QMap<QString, double> numberInputs;
    QMap<QString, QString> textInputs;

    /// The argument @p name as a number of the type, or @p fallback when it
    /// is not given. One that is given but is not a number of the type (see
    /// ScriptNumbers.h) sets error, naming it and why, and gives @p fallback.
    double Number(const QString& name, double fallback);
    short Short(const QString& name, short fallback);
    int Int(const QString& name, int fallback);
    bool Flag(const QString& name, bool fallback);
    QString Text(const QString& name, const QString& fallback);
    /// False once an argument was refused: the operation returns without
    /// running its dialog. Read every argument before asking.
    bool ArgumentsOk() const { return error.isEmpty(); }
    /// The host's CAD instance and view, for operations that work on the
    /// drawing; null when the host has none (the operation then sets error)
    /// or when an argument was refused.
    CVELD* CAD();
    CVELDView* View();

private:
    template <class T, class Reader>
    T Read(const QString& name, T fallback, Reader read);
};

/// One factory operation of the player: returns the operation's result.
using Operation = std::function<QJsonValue(OperationCall&)>;
/// The operations by name (the factory's operation names).
const QMap<QString, Operation>& Operations();
/// The operations whose dialog shows, found by calling each once on @p host
/// with a user who closes whatever appears (an operation not built yet
/// returns without showing anything).
QStringList BuiltOperations(IVELDDlgFactory* factory, PlayHost& host);

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
