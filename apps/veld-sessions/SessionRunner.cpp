#include "SessionRunner.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
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
#include "automation/OperationCatalogue.h"
#include "automation/ScriptedUser.h"
#include "ulo/PalmDevice.h"
#include "ulo/ctrl/Win.h"

namespace sessions {

namespace {

/// Arguments of a session: the operation's defaults, with the catalogue's
/// random arguments, so that every rule of a dialog gets its turn.
QMap<QString, QString> randomArgs(const catalogue::Operation& op, std::mt19937& rng) {
    QMap<QString, QString> args;
    for (const catalogue::Argument& a : op.randomArguments)
        args.insert(QLatin1String(a.name), qstrcmp(a.value, "*") == 0 ? QString::number(rng() % 2)
                                                                      : QString::fromUtf8(a.value));
    return args;
}

QString callLine(const QString& op, const QMap<QString, QString>& args) {
    QString line = QStringLiteral("call ") + op;
    for (auto it = args.begin(); it != args.end(); ++it)
        line += QLatin1Char(' ') + it.key() + QLatin1Char('=') + veldplay::QuoteText(it.value());
    return line;
}

/// Removes the member at @p path ("settings/osnapOn") of @p o.
void removePath(QJsonObject& o, const QString& path) {
    const qsizetype slash = path.indexOf(QLatin1Char('/'));
    if (slash < 0)
        return o.remove(path);
    const QString key = path.left(slash);
    QJsonObject inner = o.value(key).toObject();
    removePath(inner, path.mid(slash + 1));
    o.insert(key, inner);
}

/// The state a session may change: the drawing, the settings, the views,
/// the selection and the cursor, less @p ignored (paths into the dump); not
/// the undo counters, checked on their own.
QByteArray state(const CVELD& cad, const std::vector<const char*>& ignored = {}) {
    QJsonObject o = QJsonDocument::fromJson(drawingfile::Dump(cad)).object();
    for (const char* path : {"session/undo", "session/redo"})
        removePath(o, QString::fromLatin1(path));
    for (const char* path : ignored)
        removePath(o, QString::fromLatin1(path));
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
    return catalogue::Names();
}

QStringList BuiltOperations(IVELDDlgFactory* factory) {
    veldplay::DrawingHost host;
    QString error;
    host.Open(QString(), true, QString(), error);
    return veldplay::BuiltOperations(factory, host);
}

SessionResult RunSession(IVELDDlgFactory* factory, const QString& op, int layout,
                         std::uint64_t seed, const QStringList& corpus) {
    const catalogue::Operation& operation = *catalogue::Find(op);
    std::seed_seq seeds{static_cast<std::uint32_t>(seed), static_cast<std::uint32_t>(seed >> 32)};
    std::mt19937 rng(seeds);
    veldplay::DrawingHost host;
    QString error;
    host.Open(QString(), true, QString(), error);
    CVELD& cad = *host.GetCAD();
    CPalmDevice::SetLayoutOverride(layout);

    catalogue::Call call = veldplay::NewCall(factory, host);
    call.args = randomArgs(operation, rng);
    const QString header =
        QStringLiteral("veld-sessions --operation %1 --layout %2 --session-seed %3")
            .arg(op)
            .arg(layout)
            .arg(seed);

    const QByteArray before = state(cad);
    const QByteArray beforeSettings = state(cad, operation.settings);
    const int commandsBefore = cad.GetUndoList().GetCount();
    automation::ScriptedUser user;
    RandomUser randomUser(user, static_cast<unsigned>(rng()), corpus,
                          1 + static_cast<int>(rng() % 12));
    QJsonValue result;
    {
        const Watchdog watchdog(randomUser, header);
        result = operation.Run(call);
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
    if (const QString refused = operation.Refuse(call.args); !refused.isEmpty())
        faults << refused;
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
    // Settings of the program change without a command, with OK.
    if (added == 0 &&
        (confirmed ? state(cad, operation.settings) != beforeSettings : after != before))
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
