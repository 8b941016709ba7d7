#include "SessionRunner.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>
#include <QTextStream>
#include <chrono>
#include <cmath>
#include <condition_variable>
#include <cstdio>
#include <mutex>
#include <random>
#include <thread>

#include "DrawingHost.h"
#include "Player.h"
#include "RandomUser.h"
#include "ScriptParser.h"
#include "app/DrawingFile.h"
#include "app/VELD.h"
#include "automation/ScriptedUser.h"
#include "ulo/PalmDevice.h"
#include "ulo/ctrl/Win.h"

namespace sessions {

namespace {

// Operations whose dialog, on OK, changes settings of the CAD instance or of
// the system directly, without a command: that is what these dialogs do
// (the angle system, the object snap modes, the cursor and the window
// colours are settings of the program, not of the drawing's history).
const QSet<QString> kSettingsWithoutCommand = {
    QStringLiteral("ShowDlgAngle"),
    QStringLiteral("ShowDlgOSnap"),
    QStringLiteral("ShowDlgOptCursor"),
    QStringLiteral("ShowDlgOptColors"),
};

/// Arguments of a session: the operation's defaults, with a few made random
/// so that every rule of a dialog gets its turn.
QMap<QString, QString> randomArgs(const QString& op, std::mt19937& rng) {
    QMap<QString, QString> args;
    const auto flag = [&] { return QString::number(rng() % 2); };
    if (op == QLatin1String("ShowDlgGetDouble")) {
        args.insert(QStringLiteral("allowNegative"), flag());
        args.insert(QStringLiteral("allowZero"), flag());
        args.insert(QStringLiteral("allowPositive"), flag());
        args.insert(QStringLiteral("value"), QStringLiteral("12.5"));
    } else if (op == QLatin1String("ShowDlgRotate")) {
        args.insert(QStringLiteral("angle"), QStringLiteral("-0.75"));
    } else if (op == QLatin1String("ShowDlgGetString")) {
        args.insert(QStringLiteral("text"), QStringLiteral("Survey point"));
    } else if (op == QLatin1String("ShowDlgProperty")) {
        args.insert(QStringLiteral("undoable"), QStringLiteral("1"));
    }
    return args;
}

QString callLine(const QString& op, const QMap<QString, QString>& args) {
    QString line = QStringLiteral("call ") + op;
    for (auto it = args.begin(); it != args.end(); ++it)
        line += QLatin1Char(' ') + it.key() + QLatin1Char('=') + veldplay::QuoteText(it.value());
    return line;
}

/// The state a session may change: the drawing, the settings, the views,
/// the selection and the cursor; not the undo counters, checked on their own.
QByteArray state(const CVELD& cad) {
    QJsonObject o = QJsonDocument::fromJson(drawingfile::Dump(cad)).object();
    QJsonObject session = o.value(QStringLiteral("session")).toObject();
    session.remove(QStringLiteral("undo"));
    session.remove(QStringLiteral("redo"));
    o.insert(QStringLiteral("session"), session);
    return QJsonDocument(o).toJson(QJsonDocument::Compact);
}

/// Where a NaN or an infinity went: the writer turns them into null, which
/// nothing in a drawing is but a picture that an image lacks.
QString nonFinite(const QJsonValue& v, const QString& where) {
    if (v.isNull() && !where.endsWith(QLatin1String(".png")))
        return where;
    if (v.isObject()) {
        const QJsonObject o = v.toObject();
        for (auto it = o.begin(); it != o.end(); ++it)
            if (QString w = nonFinite(it.value(), where + QLatin1Char('.') + it.key());
                !w.isEmpty())
                return w;
    } else if (v.isArray()) {
        const QJsonArray a = v.toArray();
        for (qsizetype i = 0; i < a.size(); ++i)
            if (QString w = nonFinite(a.at(i), where + QStringLiteral("[%1]").arg(i)); !w.isEmpty())
                return w;
    }
    return {};
}

/// One step of splitmix64 from the state @p z: a bijection that spreads
/// every bit of its input over the whole output.
std::uint64_t splitmix64(std::uint64_t z) {
    z += 0x9E3779B97F4A7C15u;
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9u;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBu;
    return z ^ (z >> 31);
}

/// Ends the process with the session so far when a call does not return.
class Watchdog {
public:
    Watchdog(const RandomUser& user, QString header) : user_(user), header_(std::move(header)) {
        thread_ = std::thread([this] {
            std::unique_lock<std::mutex> lock(mutex_);
            if (!done_.wait_for(lock, std::chrono::seconds(60), [this] { return finished_; })) {
                std::fprintf(stderr, "session hung: %s\n%s\n", qPrintable(header_),
                             qPrintable(user_.Steps().join(QLatin1Char('\n'))));
                std::fflush(stderr);
                std::abort();
            }
        });
    }
    ~Watchdog() {
        {
            const std::lock_guard<std::mutex> lock(mutex_);
            finished_ = true;
        }
        done_.notify_one();
        thread_.join();
    }

private:
    const RandomUser& user_;
    QString header_;
    std::mutex mutex_;
    std::condition_variable done_;
    bool finished_ = false;
    std::thread thread_;
};

}  // namespace

std::uint64_t SessionSeed(std::uint64_t seed, std::uint64_t n) {
    // The run seed is mixed before n is added, so that runs of neighbouring
    // seeds count from far apart; the sum is mixed again, so that neighbouring
    // sessions are unlike.
    return splitmix64(splitmix64(seed) + n);
}

QStringList AllOperations() {
    return veldplay::Operations().keys();
}

QStringList BuiltOperations(IVELDDlgFactory* factory) {
    veldplay::DrawingHost host;
    QString error;
    host.Open(QString(), true, QString(), error);
    return veldplay::BuiltOperations(factory, host);
}

SessionResult RunSession(IVELDDlgFactory* factory, const QString& op, int layout,
                         std::uint64_t seed, const QStringList& corpus) {
    std::seed_seq seeds{static_cast<std::uint32_t>(seed), static_cast<std::uint32_t>(seed >> 32)};
    std::mt19937 rng(seeds);
    veldplay::DrawingHost host;
    QString error;
    host.Open(QString(), true, QString(), error);
    CVELD& cad = *host.GetCAD();
    CPalmDevice::SetLayoutOverride(layout);

    veldplay::OperationCall call;
    call.factory = factory;
    call.host = &host;
    call.args = randomArgs(op, rng);
    const QString header =
        QStringLiteral("veld-sessions --operation %1 --layout %2 --session-seed %3")
            .arg(op)
            .arg(layout)
            .arg(seed);

    const QByteArray before = state(cad);
    const int commandsBefore = cad.GetUndoList().GetCount();
    automation::ScriptedUser user;
    RandomUser randomUser(user, static_cast<unsigned>(rng()), corpus,
                          1 + static_cast<int>(rng() % 12));
    QJsonValue result;
    {
        const Watchdog watchdog(randomUser, header);
        result = veldplay::Operations().value(op)(call);
    }
    CPalmDevice::SetLayoutOverride(-1);

    SessionResult r;
    r.dialogShown = randomUser.SawDialog();
    r.script = QStringLiteral("# %1\nlayout %2\n%3\n%4\nend\n")
                   .arg(header)
                   .arg(layout)
                   .arg(callLine(op, call.args), randomUser.Steps().join(QLatin1Char('\n')));
    QStringList faults;
    for (const QString& f : user.Failures())
        faults << QStringLiteral("a step failed: ") + f;
    if (!call.error.isEmpty())
        faults << call.error;

    const QByteArray after = state(cad);
    const int added = cad.GetUndoList().GetCount() - commandsBefore;
    const bool confirmed = randomUser.FirstDialogResult() == ulo::IDOK;
    if (added > 1)
        faults << QStringLiteral("%1 commands were added; one at most is allowed").arg(added);
    if (added == 1) {
        cad.Undo();
        if (state(cad) != before)
            faults << QStringLiteral("Undo did not give the state before the call");
        cad.Redo();
        if (state(cad) != after)
            faults << QStringLiteral("Redo did not give the state after the call");
    }
    if (added == 0 && after != before && !(confirmed && kSettingsWithoutCommand.contains(op)))
        faults << QStringLiteral("the state changed without a command (the dialog ended with %1)")
                      .arg(randomUser.FirstDialogResult());
    if (!confirmed) {
        for (auto it = call.numbers.begin(); it != call.numbers.end(); ++it)
            if (call.numberInputs.contains(it.key()) &&
                !(call.numberInputs.value(it.key()) == it.value()))
                faults << QStringLiteral("out-parameter %1 changed from %2 to %3 without OK")
                              .arg(it.key())
                              .arg(call.numberInputs.value(it.key()))
                              .arg(it.value());
        for (auto it = call.out.begin(); it != call.out.end(); ++it)
            if (call.textInputs.contains(it.key()) &&
                it.value().toString() != call.textInputs.value(it.key()))
                faults << QStringLiteral("out-parameter %1 changed without OK").arg(it.key());
    }
    for (auto it = call.numbers.begin(); it != call.numbers.end(); ++it)
        if (!std::isfinite(it.value()))
            faults << QStringLiteral("out-parameter %1 is not finite").arg(it.key());
    if (const QString where = nonFinite(QJsonDocument::fromJson(after).object(), QString());
        !where.isEmpty())
        faults << QStringLiteral("no number at %1 (NaN or infinity)").arg(where);
    // What the session left, its drawing file gives back.
    {
        const QByteArray written = drawingfile::Write(cad);
        veldplay::DrawingHost reopened;
        QString why;
        reopened.Open(QString(), false, QString(), why);
        if (!drawingfile::Read(*reopened.GetCAD(), written, why))
            faults << QStringLiteral("the drawing file it saves does not open: ") + why;
        else if (drawingfile::Write(*reopened.GetCAD()) != written)
            faults << QStringLiteral("the drawing file it saves opens as another drawing");
    }

    // A yes-or-no operation answers yes exactly when its dialog ended with OK.
    if (r.dialogShown && result.isBool() && result.toBool() != confirmed)
        faults << QStringLiteral("the operation answered %1 for a dialog that ended with %2")
                      .arg(result.toBool() ? QStringLiteral("true") : QStringLiteral("false"))
                      .arg(randomUser.FirstDialogResult());

    r.returned = call.out;
    r.returned.insert(QStringLiteral("result"), result);
    for (auto it = call.numbers.begin(); it != call.numbers.end(); ++it)
        r.returned.insert(it.key(), it.value());
    r.ok = faults.isEmpty();
    r.failure = faults.join(QStringLiteral("; "));
    return r;
}

}  // namespace sessions
