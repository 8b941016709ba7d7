// The veld-play language: parsing, and scripts run against the factory.
#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

#include "DrawingHost.h"
#include "Player.h"
#include "ScriptParser.h"
#include "factory/IVELDDlgFactory.h"
#include "ulo/PalmDevice.h"

using namespace veldplay;

TEST(ScriptParser, SplitsWordsTextsAndComments) {
    struct {
        const char* line;
        std::vector<QString> words;
    } const rows[] = {
        {"click 11196", {QStringLiteral("click"), QStringLiteral("11196")}},
        {"  type 11137  \"1 2\"  # note",
         {QStringLiteral("type"), QStringLiteral("11137"), QStringLiteral("1 2")}},
        {"set 1 \"a\\\"b\\\\c\\nd\\te\"",
         {QStringLiteral("set"), QStringLiteral("1"), QStringLiteral("a\"b\\c\nd\te")}},
        {"call X title=\"Height\" value=12.5",
         {QStringLiteral("call"), QStringLiteral("X"), QStringLiteral("title=Height"),
          QStringLiteral("value=12.5")}},
        {"# only a comment", {}},
        {"set 1 \"#not a comment\"",
         {QStringLiteral("set"), QStringLiteral("1"), QStringLiteral("#not a comment")}},
        {"set 1 \"\"", {QStringLiteral("set"), QStringLiteral("1"), QString()}},
    };
    for (const auto& r : rows) {
        std::vector<Word> words;
        EXPECT_FALSE(SplitLine(QString::fromLatin1(r.line), words)) << r.line;
        ASSERT_EQ(words.size(), r.words.size()) << r.line;
        for (std::size_t i = 0; i < words.size(); ++i)
            EXPECT_EQ(words[i].text, r.words[i]) << r.line;
    }
}

TEST(ScriptParser, ReportsBrokenTexts) {
    for (const char* line : {"type 1 \"open", "type 1 \"bad \\q\"", "type 1 \"end\\"}) {
        std::vector<Word> words;
        EXPECT_TRUE(SplitLine(QString::fromLatin1(line), words)) << line;
    }
}

namespace {
struct PlayRun {
    std::vector<QJsonObject> events;
    int errors = 0;
    QJsonObject First(const char* kind) const {
        for (const auto& e : events)
            if (e.value(QStringLiteral("event")).toString() == QLatin1String(kind))
                return e;
        return {};
    }
    int Count(const char* kind) const {
        int n = 0;
        for (const auto& e : events)
            n += e.value(QStringLiteral("event")).toString() == QLatin1String(kind);
        return n;
    }
};

PlayRun play(const QString& script) {
    IVELDDlgFactory* factory = CreateFactory();
    DrawingHost host(factory);
    QString text;
    QTextStream out(&text);
    Player player(factory, &host, out);
    PlayRun run;
    run.errors = player.Run(script);
    out.flush();
    for (const QString& line : text.split(QLatin1Char('\n'), Qt::SkipEmptyParts))
        run.events.push_back(QJsonDocument::fromJson(line.toUtf8()).object());
    CPalmDevice::SetLayoutOverride(-1);
    return run;
}
}  // namespace

TEST(VeldPlay, MessageBoxStepsAndReturnValues) {
    const PlayRun run =
        play(QStringLiteral("layout 3\n"
                            "call ShowDlgGetDouble title=\"Height\" allowZero=0\n"
                            "  set 11137 \"0\"\n"
                            "  click 11196\n"
                            "  answer ok\n"
                            "  clear 11137\n"
                            "  type 11137 \"2.5\"\n"
                            "  read 11137\n"
                            "  click 11196\n"
                            "end\n"));
    EXPECT_EQ(run.errors, 0);
    const QJsonObject dialog = run.First("dialog");
    EXPECT_EQ(dialog.value(QStringLiteral("template")).toInt(), 11012);
    EXPECT_EQ(dialog.value(QStringLiteral("layout")).toInt(), 3);
    EXPECT_EQ(dialog.value(QStringLiteral("help")).toString(),
              QStringLiteral("QuadraCE.htm#Dlg InsValore"));
    const QJsonObject message = run.First("message");
    EXPECT_EQ(message.value(QStringLiteral("text")).toString(),
              QStringLiteral("The value can not be zero"));
    EXPECT_EQ(message.value(QStringLiteral("flags")).toInt(), 48);
    EXPECT_EQ(run.First("control").value(QStringLiteral("text")).toString(), QStringLiteral("2.5"));
    const QJsonObject ret = run.First("return");
    EXPECT_EQ(ret.value(QStringLiteral("result")).toInt(), 1);
    EXPECT_EQ(ret.value(QStringLiteral("value")).toDouble(), 2.5);
    EXPECT_EQ(run.Count("dialog"), 1);
}

TEST(VeldPlay, RotationHelpCloseAndScreenshot) {
    QTemporaryDir dir;
    const QString shot = dir.filePath(QStringLiteral("rotate.png"));
    const PlayRun run = play(QStringLiteral("call ShowDlgRotate angle=7\n"
                                            "  click 11204\n"
                                            "  help\n"
                                            "  shot \"%1\"\n"
                                            "  read 11137\n"
                                            "  close\n"
                                            "end\n")
                                 .arg(shot));
    EXPECT_EQ(run.errors, 0);
    EXPECT_TRUE(QFile::exists(shot));
    EXPECT_FALSE(run.First("control").value(QStringLiteral("enabled")).toBool());
    const QJsonObject ret = run.First("return");
    EXPECT_EQ(ret.value(QStringLiteral("result")).toInt(), 2);
    EXPECT_EQ(ret.value(QStringLiteral("angle")).toDouble(), 7.0);
}

TEST(VeldPlay, PasswordWithItsRetryQuestion) {
    const PlayRun run =
        play(QStringLiteral("call GetDlgPasswordRequest retry=1\n"
                            "  type 4779 \"abc\"\n"
                            "  click 11196\n"
                            "  answer no\n"
                            "end\n"));
    EXPECT_EQ(run.errors, 0);
    const QJsonObject ret = run.First("return");
    EXPECT_EQ(ret.value(QStringLiteral("password")).toString(), QStringLiteral("ABC"));
    EXPECT_FALSE(ret.value(QStringLiteral("retry")).toBool());
    EXPECT_EQ(run.First("message").value(QStringLiteral("caption")).toString(),
              QStringLiteral("Error"));
}

TEST(VeldPlay, ErrorsNameTheirLine) {
    struct {
        const char* script;
        int line;
        const char* message;
    } const rows[] = {
        {"bogus\n", 1, "unknown statement"},
        {"\ncall Nothing\nend\n", 2, "unknown operation"},
        {"call ShowDlgRotate\n  click 99999\nend\n", 2, "no control 99999"},
        {"call ShowDlgRotate\n  frobnicate 1\nend\n", 2, "bad step"},
        {"call ShowDlgRotate\n  click 11204\nend\n", 1, "left open"},
        {"call ShowDlgRotate\n  answer yes\nend\n", 2, "expected a message box"},
        {"end\n", 1, "end without call"},
        {"call ShowDlgRotate\n", 1, "call without end"},
        {"layout 9\n", 1, "layout needs"},
        {"type 1 \"open\n", 1, "unterminated"},
        {"call ShowDlgRotate bad\nend\n", 1, "bad argument"},
    };
    for (const auto& r : rows) {
        const PlayRun run = play(QString::fromLatin1(r.script));
        EXPECT_GE(run.errors, 1) << r.script;
        const QJsonObject error = run.First("error");
        EXPECT_EQ(error.value(QStringLiteral("line")).toInt(), r.line) << r.script;
        EXPECT_TRUE(
            error.value(QStringLiteral("message")).toString().contains(QLatin1String(r.message)))
            << r.script << " gave "
            << error.value(QStringLiteral("message")).toString().toStdString();
    }
}

TEST(VeldPlay, ARunGoesOnAfterAnError) {
    const PlayRun run =
        play(QStringLiteral("call ShowDlgRotate\n  click 424242\nend\n"
                            "call ShowDlgGetString text=\"kept\"\n  click 11196\nend\n"));
    EXPECT_EQ(run.errors, 1);
    EXPECT_EQ(run.Count("return"), 2);
    EXPECT_EQ(run.events.back().value(QStringLiteral("text")).toString(), QStringLiteral("kept"));
}
