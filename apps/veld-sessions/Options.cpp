#include "Options.h"

#include "automation/ScriptNumbers.h"

namespace sessions {

QString Usage() {
    return QStringLiteral(
        "usage: veld-sessions [--sessions N] [--seed S] [--operation OP]... [--layout 0..3]\n"
        "                     [--print 0|1]\n"
        "       veld-sessions --operation OP [--layout 0..3] --session-seed X [--print 0|1]\n"
        "\n"
        "Runs N random user sessions (default 100) over the factory operations whose dialog\n"
        "is built, or the ones named, in the four layouts in turn or in the one given, and\n"
        "checks after each what every operation promises. Session n of a run takes a seed\n"
        "of its own, mixed from S (default 1) and n, so runs of different seeds share no\n"
        "sessions.\n"
        "\n"
        "A failure prints the veld-play script that replays it (veld-play --sample SCRIPT),\n"
        "headed by the veld-sessions command that runs the same session again with its\n"
        "seed (--session-seed). --print 1 prints every session's script.\n"
        "\n"
        "Exit status: 0 when every session kept every promise, 1 when one did not, 2 for a\n"
        "wrong command line.\n");
}

Command ParseOptions(const QStringList& args, const QStringList& known, Options& options,
                     QString& error) {
    bool sessionsGiven = false, seedGiven = false;
    for (qsizetype i = 0; i < args.size(); ++i) {
        const QString& a = args[i];
        if (a == QLatin1String("--help") || a == QLatin1String("-h"))
            return Command::Help;
        const bool takesValue = a == QLatin1String("--sessions") || a == QLatin1String("--seed") ||
                                a == QLatin1String("--session-seed") ||
                                a == QLatin1String("--operation") ||
                                a == QLatin1String("--layout") || a == QLatin1String("--print");
        if (!takesValue) {
            error = QStringLiteral("unknown argument %1").arg(a);
            return Command::Wrong;
        }
        if (i + 1 >= args.size()) {
            error = QStringLiteral("%1 needs a value").arg(a);
            return Command::Wrong;
        }
        const QString& v = args[++i];
        QString why;
        const auto refuse = [&](const QString& what) {
            error = QStringLiteral("%1 needs %2: %3").arg(a, what, why);
            return Command::Wrong;
        };
        if (a == QLatin1String("--sessions")) {
            const std::optional<unsigned> n = automation::ReadUnsigned(v, why);
            if (!n)
                return refuse(QStringLiteral("a number of sessions"));
            options.sessions = *n;
            sessionsGiven = true;
        } else if (a == QLatin1String("--seed") || a == QLatin1String("--session-seed")) {
            const std::optional<std::uint64_t> n = automation::ReadUInt64(v, why);
            if (!n)
                return refuse(QStringLiteral("a seed"));
            if (a == QLatin1String("--seed")) {
                options.seed = *n;
                seedGiven = true;
            } else {
                options.sessionSeed = *n;
            }
        } else if (a == QLatin1String("--operation")) {
            if (!known.contains(v)) {
                error = QStringLiteral("unknown operation %1 (one of %2)")
                            .arg(v, known.join(QStringLiteral(", ")));
                return Command::Wrong;
            }
            options.operations << v;
        } else if (a == QLatin1String("--layout")) {
            const std::optional<int> n = automation::ReadInt(v, why);
            if (n && (*n < 0 || *n > 3))
                why = QStringLiteral("\"%1\" is not a layout").arg(v);
            if (!n || !why.isEmpty())
                return refuse(QStringLiteral("0..3"));
            options.layout = *n;
        } else {
            const std::optional<bool> on = automation::ReadBool(v, why);
            if (!on)
                return refuse(QStringLiteral("0 or 1"));
            options.print = *on;
        }
    }
    if (options.sessionSeed) {
        if (sessionsGiven || seedGiven) {
            error = QStringLiteral(
                "--session-seed runs one session: give it without --sessions "
                "and --seed");
            return Command::Wrong;
        }
        if (options.operations.size() != 1) {
            error = QStringLiteral("--session-seed needs one --operation");
            return Command::Wrong;
        }
    }
    return Command::Run;
}

}  // namespace sessions
