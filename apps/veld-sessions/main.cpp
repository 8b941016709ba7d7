// veld-sessions: random user sessions over the factory operations, each
// checked for what every operation promises; a failure prints the veld-play
// script that replays it. The options are in Options.cpp (--help).
#include <QApplication>
#include <QElapsedTimer>
#include <QMap>
#include <cstdio>

#include "Options.h"
#include "SessionRunner.h"
#include "automation/HostileTexts.h"
#include "factory/IVELDDlgFactory.h"

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    sessions::Options options;
    QString error;
    switch (
        sessions::ParseOptions(app.arguments().mid(1), sessions::AllOperations(), options, error)) {
        case sessions::Command::Help:
            std::fputs(qPrintable(sessions::Usage()), stdout);
            return 0;
        case sessions::Command::Wrong:
            std::fprintf(stderr, "veld-sessions: %s\n(veld-sessions --help tells more)\n",
                         qPrintable(error));
            return 2;
        case sessions::Command::Run:
            break;
    }
    const QStringList corpus = automation::HostileTexts(&error);
    if (corpus.isEmpty())
        return std::fprintf(stderr, "veld-sessions: %s\n", qPrintable(error)), 2;
    IVELDDlgFactory* factory = CreateFactory();
    QStringList ops = options.operations;
    if (ops.isEmpty())
        ops = sessions::BuiltOperations(factory);
    const unsigned long long count = options.sessionSeed ? 1 : options.sessions;
    if (options.sessionSeed)
        std::printf("session seed %llu, %s\n",
                    static_cast<unsigned long long>(*options.sessionSeed), qPrintable(ops[0]));
    else
        std::printf("seed %llu, %llu sessions over %s\n",
                    static_cast<unsigned long long>(options.seed), count,
                    qPrintable(ops.join(QStringLiteral(", "))));
    std::fflush(stdout);

    QMap<QString, int> runs, failed;
    unsigned long long failures = 0;
    QElapsedTimer clock;
    clock.start();
    for (unsigned long long n = 0; n < count && !ops.isEmpty(); ++n) {
        const auto width = static_cast<unsigned long long>(ops.size());
        const QString& op = ops[static_cast<qsizetype>(n % width)];
        const int layout = options.layout >= 0 ? options.layout : static_cast<int>((n / width) % 4);
        const std::uint64_t seed =
            options.sessionSeed ? *options.sessionSeed : sessions::SessionSeed(options.seed, n);
        const sessions::SessionResult r = sessions::RunSession(factory, op, layout, seed, corpus);
        ++runs[op];
        if ((n + 1) % 1000 == 0) {
            std::printf("%llu sessions, %llu failed, %.1f s\n", n + 1, failures,
                        clock.elapsed() / 1000.0);
            std::fflush(stdout);
        }
        if (options.print && r.ok)
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
    std::printf("%llu sessions, %llu failed, %.1f s\n", count, failures, clock.elapsed() / 1000.0);
    return failures ? 1 : 0;
}
