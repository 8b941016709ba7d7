// Command-line arguments in this file are ASCII literals: let them convert.
#undef QT_NO_CAST_FROM_ASCII
// Random user sessions on every operation whose dialog is built, in the four
// layouts (an operation that shows no dialog yet is skipped), replayed by
// veld-play; the seeds of a run's sessions; the tool's command line.
#include <gtest/gtest.h>

#include <set>
#include <string>
#include <tuple>

#include <QJsonDocument>
#include <QProcess>
#include <QRegularExpression>
#include <QTextStream>

#include "DrawingHost.h"
#include "Player.h"
#include "SessionRunner.h"
#include "automation/HostileTexts.h"
#include "factory/IVELDDlgFactory.h"

namespace {

constexpr int kSessionsPerCase = 4;

std::vector<std::string> operationNames() {
    std::vector<std::string> names;
    for (const QString& op : sessions::AllOperations())
        names.push_back(op.toStdString());
    return names;
}

/// A seed of its own for every operation, layout and session, the same on
/// every run (a failure names it; veld-sessions replays it).
unsigned seedOf(const std::string& op, int layout, int session) {
    unsigned h = 2166136261u;
    for (const char c : op)
        h = (h ^ static_cast<unsigned char>(c)) * 16777619u;
    return h ^ static_cast<unsigned>(layout * 1000 + session);
}

class Sessions : public ::testing::TestWithParam<std::tuple<std::string, int>> {};

}  // namespace

TEST_P(Sessions, KeepEveryPromise) {
    const auto& [op, layout] = GetParam();
    QString error;
    const QStringList corpus = automation::HostileTexts(&error);
    ASSERT_FALSE(corpus.isEmpty()) << error.toStdString();
    IVELDDlgFactory* factory = CreateFactory();
    for (int k = 0; k < kSessionsPerCase; ++k) {
        const sessions::SessionResult r = sessions::RunSession(
            factory, QString::fromStdString(op), layout, seedOf(op, layout, k), corpus);
        if (!r.dialogShown)
            GTEST_SKIP() << op << " shows no dialog yet";
        EXPECT_TRUE(r.ok) << r.failure.toStdString() << "\nreplay with veld-play --sample:\n"
                          << r.script.toStdString();
    }
}

// A session's script, played by veld-play on the sample drawing, runs
// without an error to the same return.
TEST(SessionScripts, ReplayWithVeldPlayToTheSameReturn) {
    QString error;
    const QStringList corpus = automation::HostileTexts(&error);
    ASSERT_FALSE(corpus.isEmpty()) << error.toStdString();
    IVELDDlgFactory* factory = CreateFactory();
    const QStringList built = sessions::BuiltOperations(factory);
    ASSERT_FALSE(built.isEmpty());
    for (const QString& op : built) {
        for (unsigned seed = 1; seed <= 3; ++seed) {
            const sessions::SessionResult r = sessions::RunSession(factory, op, 2, seed, corpus);
            veldplay::DrawingHost host;
            host.Open(QString(), true, QString(), error);
            QString printed;
            QTextStream out(&printed);
            EXPECT_EQ(veldplay::Player(factory, &host, out).Run(r.script), 0)
                << printed.toStdString();
            out.flush();
            QJsonObject returned =
                QJsonDocument::fromJson(printed.section('\n', -2, -2).toUtf8()).object();
            EXPECT_EQ(returned.take("event"), "return") << printed.toStdString();
            returned.remove("operation");
            EXPECT_EQ(returned, r.returned) << r.script.toStdString() << printed.toStdString();
        }
    }
}

// Runs with different seeds, however near, share no session: the seeds of
// their first few thousand sessions are all different.
TEST(SessionSeeds, RunsOfNearbySeedsShareNoSession) {
    constexpr std::uint64_t kSessions = 5000;
    const struct {
        std::uint64_t a, b;
    } runs[] = {{1, 2}, {0, 1}, {41, 42}, {1, 1000}, {0, 0xFFFFFFFFFFFFFFFFu}};
    for (const auto& r : runs) {
        std::set<std::uint64_t> seen;
        for (std::uint64_t n = 0; n < kSessions; ++n) {
            seen.insert(sessions::SessionSeed(r.a, n));
            seen.insert(sessions::SessionSeed(r.b, n));
        }
        EXPECT_EQ(seen.size(), 2 * kSessions) << "seeds " << r.a << " and " << r.b;
    }
}

// --- The command line ------------------------------------------------------

namespace {

struct Outcome {
    int exitCode = -1;
    QString out, err;
};

Outcome runVeldSessions(const QStringList& args) {
    QProcess p;
    p.start(QStringLiteral(VELD_SESSIONS_EXE), args);
    Outcome o;
    if (!p.waitForStarted() || !p.waitForFinished(120000))
        return o;
    o.exitCode = p.exitStatus() == QProcess::NormalExit ? p.exitCode() : -1;
    o.out = QString::fromUtf8(p.readAllStandardOutput());
    o.err = QString::fromUtf8(p.readAllStandardError());
    return o;
}

}  // namespace

// --help answers with the usage; a wrong argument or value is refused with
// what is wrong and status 2, before any session runs.
TEST(VeldSessionsCommandLine, HelpAndRefusals) {
    const struct {
        QStringList args;
        int exitCode;
        const char* out;  ///< what standard output holds; "": nothing
        const char* err;  ///< what the tool says on standard error; "": nothing
    } rows[] = {
        {{"--help"}, 0, "usage: veld-sessions", ""},
        {{"--layout"}, 2, "", "--layout needs a value"},
        {{"--sessions", "abc"}, 2, "", "--sessions needs a number of sessions: \"abc\" is not"},
        {{"--seed", "-1"}, 2, "", "--seed needs a seed: \"-1\" is out of range"},
        {{"--layout", "7"}, 2, "", "--layout needs 0..3: \"7\" is not a layout"},
        {{"--print", "maybe"}, 2, "", "--print needs 0 or 1"},
        {{"--bogus", "1"}, 2, "", "unknown argument --bogus"},
        {{"--operation", "ShowDlgNothing"}, 2, "", "unknown operation ShowDlgNothing"},
        {{"--session-seed", "5"}, 2, "", "--session-seed needs one --operation"},
        {{"--session-seed", "5", "--seed", "3"}, 2, "", "--session-seed runs one session"},
    };
    for (const auto& r : rows) {
        const std::string what = r.args.join(QLatin1Char(' ')).toStdString();
        const Outcome o = runVeldSessions(r.args);
        EXPECT_EQ(o.exitCode, r.exitCode) << what << "\n" << o.err.toStdString();
        EXPECT_TRUE(*r.out ? o.out.contains(QString::fromUtf8(r.out)) : o.out.isEmpty())
            << what << " printed " << o.out.toStdString();
        // Qt may warn on standard error about the machine; the tool's own
        // lines begin with its name.
        EXPECT_TRUE(*r.err ? o.err.contains("veld-sessions: " + QString::fromUtf8(r.err))
                           : !o.err.contains("veld-sessions:"))
            << what << " printed " << o.err.toStdString();
    }
}

// Each session's script is headed by the command that runs it again: the
// session's own seed, which gives the same session.
TEST(VeldSessionsCommandLine, TheCommandHeadingASessionRunsItAgain) {
    const Outcome run = runVeldSessions(
        {"--operation", "ShowDlgGetDouble", "--seed", "5", "--sessions", "3", "--print", "1"});
    ASSERT_EQ(run.exitCode, 0) << run.out.toStdString() << run.err.toStdString();
    const QRegularExpression script(
        QStringLiteral("^# veld-sessions (--operation \\S+ --layout \\d --session-seed (\\d+))\n"
                       "(?:.*\n)*?end\n"),
        QRegularExpression::MultilineOption);
    int scripts = 0;
    for (auto it = script.globalMatch(run.out); it.hasNext(); ++scripts) {
        const QRegularExpressionMatch m = it.next();
        const QStringList again =
            m.captured(1).split(QLatin1Char(' ')) + QStringList{"--print", "1"};
        const Outcome replay = runVeldSessions(again);
        EXPECT_EQ(replay.exitCode, 0) << replay.out.toStdString();
        EXPECT_TRUE(replay.out.contains(m.captured(0)))
            << "ran\n"
            << m.captured(0).toStdString() << "again as\n"
            << replay.out.toStdString();
    }
    EXPECT_EQ(scripts, 3) << run.out.toStdString();
}

INSTANTIATE_TEST_SUITE_P(EveryOperation, Sessions,
                         ::testing::Combine(::testing::ValuesIn(operationNames()),
                                            ::testing::Range(0, 4)),
                         [](const ::testing::TestParamInfo<std::tuple<std::string, int>>& info) {
                             return std::get<0>(info.param) + "_layout" +
                                    std::to_string(std::get<1>(info.param));
                         });
