// veld-sessions [--sessions N] [--seed S] [--operation OP]... [--layout L] [--print 1]
// Runs N random user sessions (default 100) over the factory operations whose
// dialog is built (or the ones named), in every layout (or one), seeds S,
// S+1, ... (default 1), and prints each failure with the veld-play script
// that replays it (with --print 1, every session's script). Exit status 0
// when every session kept every promise.
#include <QApplication>
#include <QElapsedTimer>
#include <QMap>
#include <cstdio>

#include "SessionRunner.h"
#include "automation/HostileTexts.h"
#include "factory/IVELDDlgFactory.h"

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    QStringList args = app.arguments().mid(1);
    long sessions = 100;
    unsigned seed = 1;
    QStringList ops;
    int onlyLayout = -1;
    bool print = false;
    for (int i = 0; i + 1 < args.size(); i += 2) {
        const QString& a = args[i];
        const QString& v = args[i + 1];
        if (a == QLatin1String("--sessions"))
            sessions = v.toLong();
        else if (a == QLatin1String("--seed"))
            seed = v.toUInt();
        else if (a == QLatin1String("--operation"))
            ops << v;
        else if (a == QLatin1String("--layout"))
            onlyLayout = v.toInt();
        else if (a == QLatin1String("--print"))
            print = v == QLatin1String("1");
        else
            return std::fprintf(stderr, "veld-sessions: unknown argument %s\n", qPrintable(a)), 2;
    }
    if (args.size() % 2)
        return std::fprintf(stderr, "veld-sessions: %s needs a value\n", qPrintable(args.last())),
               2;
    QString error;
    const QStringList corpus = automation::HostileTexts(&error);
    if (corpus.isEmpty())
        return std::fprintf(stderr, "veld-sessions: %s\n", qPrintable(error)), 2;
    IVELDDlgFactory* factory = CreateFactory();
    if (ops.isEmpty())
        ops = sessions::BuiltOperations(factory);
    std::printf("seed %u, %ld sessions over %s\n", seed, sessions,
                qPrintable(ops.join(QStringLiteral(", "))));
    std::fflush(stdout);

    QMap<QString, int> runs, failed;
    long failures = 0;
    QElapsedTimer clock;
    clock.start();
    for (long n = 0; n < sessions && !ops.isEmpty(); ++n) {
        const QString& op = ops[static_cast<int>(n % ops.size())];
        const int layout = onlyLayout >= 0 ? onlyLayout : static_cast<int>((n / ops.size()) % 4);
        const unsigned s = seed + static_cast<unsigned>(n);
        const sessions::SessionResult r = sessions::RunSession(factory, op, layout, s, corpus);
        ++runs[op];
        if ((n + 1) % 1000 == 0) {
            std::printf("%ld sessions, %ld failed, %.1f s\n", n + 1, failures,
                        clock.elapsed() / 1000.0);
            std::fflush(stdout);
        }
        if (print && r.ok)
            std::printf("%s\n", qPrintable(r.script));
        if (!r.ok) {
            ++failures;
            ++failed[op];
            std::printf("FAILED %s\n%s\n", qPrintable(r.failure), qPrintable(r.script));
            std::fflush(stdout);
        }
    }
    for (auto it = runs.begin(); it != runs.end(); ++it)
        std::printf("%-24s %6d sessions, %d failed\n", qPrintable(it.key()), it.value(),
                    failed.value(it.key()));
    std::printf("%ld sessions, %ld failed, %.1f s\n", sessions, failures, clock.elapsed() / 1000.0);
    return failures ? 1 : 0;
}
