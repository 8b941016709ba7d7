// JSON keys and values in this file are ASCII literals: let them convert.
#undef QT_NO_CAST_FROM_ASCII
// The veld-play language: parsing, and scripts run against the factory.
#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>

#include "DrawingHost.h"
#include "Player.h"
#include "ScriptParser.h"
#include "app/ChangeEntitiesCmdExecuted.h"
#include "app/DrawingFile.h"
#include "app/VELD.h"
#include "automation/HostileTexts.h"
#include "factory/IVELDDlgFactory.h"
#include "ulo/PalmDevice.h"
#include "veld/Ent.h"

using namespace veldplay;

TEST(ScriptParser, SplitsWordsTextsAndCommentsAndReportsBrokenTexts) {
    struct {
        const char* line;
        std::vector<QString> words;
    } const rows[] = {
        {"click 11196", {"click", "11196"}},
        {"  type 11137  \"1 2\"  # note", {"type", "11137", "1 2"}},
        {"set 1 \"a\\\"b\\\\c\\nd\\te\"", {"set", "1", "a\"b\\c\nd\te"}},
        {"call X title=\"Height\" value=12.5", {"call", "X", "title=Height", "value=12.5"}},
        {"# only a comment", {}},
        {"set 1 \"#not a comment\"", {"set", "1", "#not a comment"}},
        {"set 1 \"\"", {"set", "1", ""}},
        {"set 1 \"\\U0001F4D0\\u00e9\\r\"", {"set", "1", "\U0001F4D0\u00e9\r"}},
    };
    for (const auto& r : rows) {
        std::vector<Word> words;
        EXPECT_FALSE(SplitLine(r.line, words)) << r.line;
        ASSERT_EQ(words.size(), r.words.size()) << r.line;
        for (std::size_t i = 0; i < words.size(); ++i)
            EXPECT_EQ(words[i].text, r.words[i]) << r.line;
    }
    for (const char* line :
         {"type 1 \"open", "type 1 \"bad \\q\"", "type 1 \"end\\", "type 1 \"\\u12\"",
          "type 1 \"\\u+123\"", "type 1 \"\\U0000D800\"", "type 1 \"\\U00110000\""}) {
        std::vector<Word> words;
        EXPECT_TRUE(SplitLine(line, words)) << line;
    }
}

TEST(ScriptParser, QuotedTextsHoldAnyTextExactly) {
    QString error;
    const QStringList texts = automation::HostileTexts(&error);
    ASSERT_FALSE(texts.isEmpty()) << error.toStdString();
    for (const QString& text : texts) {
        const QString line = "set 11212 " + QuoteText(text);
        EXPECT_FALSE(line.contains('\n')) << automation::Printable(text).toStdString();
        std::vector<Word> words;
        ASSERT_FALSE(SplitLine(line, words)) << automation::Printable(text).toStdString();
        ASSERT_EQ(words.size(), 3u);
        EXPECT_EQ(words[2].text, text) << automation::Printable(text).toStdString();
    }
}

namespace {
struct PlayRun {
    QString text;  ///< the output as printed
    std::vector<QJsonObject> events;
    int errors = 0;
    std::vector<QJsonObject> All(const char* kind) const {
        std::vector<QJsonObject> out;
        for (const auto& e : events)
            if (e["event"].toString() == QLatin1String(kind))
                out.push_back(e);
        return out;
    }
    QJsonObject First(const char* kind) const {
        const auto all = All(kind);
        return all.empty() ? QJsonObject() : all.front();
    }
    int Count(const char* kind) const { return static_cast<int>(All(kind).size()); }
};

PlayRun play(DrawingHost& host, const QString& script) {
    QString text;
    QTextStream out(&text);
    Player player(CreateFactory(), &host, out);
    PlayRun run;
    run.errors = player.Run(script);
    out.flush();
    run.text = text;
    for (const QString& line : text.split('\n', Qt::SkipEmptyParts))
        run.events.push_back(QJsonDocument::fromJson(line.toUtf8()).object());
    CPalmDevice::SetLayoutOverride(-1);
    return run;
}

PlayRun play(const QString& script) {
    DrawingHost host;
    return play(host, script);
}

/// Expects @p e to hold each of @p fields.
void expectHas(const QJsonObject& e, const QJsonObject& fields, const QString& context) {
    QJsonObject got;
    for (auto it = fields.begin(); it != fields.end(); ++it)
        got[it.key()] = e[it.key()];
    EXPECT_EQ(QJsonDocument(got).toJson(QJsonDocument::Compact).toStdString(),
              QJsonDocument(fields).toJson(QJsonDocument::Compact).toStdString())
        << context.toStdString();
}

/// Expects the first event of @p kind in @p run to hold each of @p fields.
void expectFields(const PlayRun& run, const char* kind, const QJsonObject& fields) {
    expectHas(run.First(kind), fields, kind + QStringLiteral(" in\n") + run.text);
}

/// Expects the first error of @p run on @p line, its message holding @p message.
void expectError(const PlayRun& run, int line, const QString& message, const std::string& what) {
    const QString got = run.First("error")["message"].toString();
    EXPECT_EQ(run.First("error")["line"].toInt(-1), line) << what;
    EXPECT_TRUE(got.contains(message)) << what << " gave " << got.toStdString();
}
}  // namespace

// Steps work the dialog and the events tell what happened: a refused value
// answered and typed again, help, a screenshot, any text typed, numbers
// printed as they are (-0 stays -0), and the run going on after an error.
TEST(VeldPlay, StepsWorkTheDialogAndTheEventsTellWhatHappened) {
    QTemporaryDir dir;
    const QString shot = dir.filePath("rotate.png");
    const struct {
        QString script;
        std::vector<std::pair<const char*, QJsonObject>> first;  ///< the first event of a kind
        const char* printed = "";                                ///< a text the output holds
        int errors = 0;
    } rows[] = {
        {"layout 3\ncall ShowDlgGetDouble title=\"Height\" allowZero=0\n  set 11137 \"0\"\n"
         "  click 11196\n  answer ok\n  clear 11137\n  type 11137 \"2.5\"\n  read 11137\n"
         "  click 11196\nend\n",
         {{"dialog", {{"template", 11012}, {"layout", 3}, {"help", "QuadraCE.htm#Dlg InsValore"}}},
          {"message", {{"text", "The value can not be zero"}, {"flags", 48}}},
          {"control", {{"text", "2.5"}}},
          {"return", {{"result", 1}, {"value", 2.5}}}}},
        {QString("call ShowDlgRotate angle=7\n  click 11204\n  help\n  shot \"%1\"\n  read 11137\n"
                 "  close\nend\n")
             .arg(shot),
         {{"control", {{"enabled", false}}}, {"return", {{"result", 2}, {"angle", 7.0}}}}},
        {"call ShowDlgGetString\n  set 11212 \"a\\nb \u00e9\u0663 \U0001F4D0\"\n"
         "  click 11196\nend\n",
         {{"return", {{"text", QStringLiteral("a\nb \u00e9\u0663 \U0001F4D0")}}}}},
        {"call ShowDlgGetDouble\n  set 11137 \"-0\"\n  click 11196\nend\n", {}, "\"value\":-0}"},
        {"call ShowDlgRotate angle=3\n  set 11137 \"1e309\"\n  click 11196\n  answer ok\n"
         "  set 11137 \"0.1\"\n  click 11196\nend\n",
         {{"message", {{"text", "The value is out of range"}}}},
         "\"angle\":0.1}"},
        // The retry question must be asked: an unanswered "answer" step is an error.
        {"call GetDlgPasswordRequest retry=1\n  type 4779 \"abc\"\n  click 11196\n  answer no\n"
         "end\n",
         {{"return", {{"password", "ABC"}, {"retry", false}}}}},
        {"call ShowDlgRotate\n  click 424242\nend\n"
         "call ShowDlgGetString text=\"kept\"\n  click 11196\nend\n",
         {{"error", {{"line", 2}}}},
         "\"text\":\"kept\"",
         1},
    };
    for (const auto& r : rows) {
        const PlayRun run = play(r.script);
        EXPECT_EQ(run.errors, r.errors) << run.text.toStdString();
        for (const auto& [kind, fields] : r.first)
            expectFields(run, kind, fields);
        EXPECT_TRUE(run.text.contains(QLatin1String(r.printed))) << run.text.toStdString();
        // Each call shows its dialog once and returns once.
        EXPECT_EQ(run.Count("dialog"), run.Count("return")) << run.text.toStdString();
    }
    EXPECT_TRUE(QFile::exists(shot));
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
        const PlayRun run = play(r.script);
        EXPECT_GE(run.errors, 1) << r.script;
        expectError(run, r.line, r.message, r.script);
    }
}

// --- The drawing -----------------------------------------------------------

namespace {

/// A host with the sample drawing open.
struct SampleHost {
    DrawingHost host;
    SampleHost() {
        QString error;
        EXPECT_TRUE(host.Open(QString(), true, QString(), error)) << error.toStdString();
    }
    CVELD& CAD() { return *host.GetCAD(); }
};

/// The value at a slash-separated path ("settings/angleSystem", "entities/0").
QJsonValue at(const QJsonObject& o, const QString& path) {
    QJsonValue v = o;
    for (const QString& key : path.split('/'))
        v = v.isArray() ? v.toArray().at(key.toInt()) : v.toObject().value(key);
    return v;
}

QJsonObject dumpOf(const CVELD& cad) {
    return QJsonDocument::fromJson(drawingfile::Dump(cad)).object();
}

}  // namespace

// Each run starts on the sample, angles in degrees from 0.5 clockwise, with
// entity 9 (the first) made colour 3 by a command on the undo list.
TEST(VeldPlayDrawing, StatementsChangeWhatTheDumpShows) {
    const int before = SampleHost().CAD().GetData()->GetEntTable().Find(9)->GetColor();
    ASSERT_NE(before, 3);
    struct {
        const char* script;
        QJsonObject expected;  ///< values by path
    } const rows[] = {
        {"select 9 11", {{"session/selection", QJsonArray{9, 11}}}},
        {"select 11\nselect 9 11", {{"session/selection", QJsonArray{11, 9}}}},
        {"select 9 10\ndeselect", {{"session/selection", QJsonArray()}}},
        // The base and the direction stay as they were.
        {"angles gons", {{"settings/angleSystem", 2}, {"settings/angleBase", 0.5}}},
        {"angles radians", {{"settings/angleClockwise", true}}},
        {"",
         {{"entities/0/handle", 9},
          {"entities/0/color", 3},
          {"session/undo", 1},
          {"session/redo", 0}}},
        {"undo", {{"entities/0/color", before}, {"session/undo", 0}, {"session/redo", 1}}},
        {"undo\nredo", {{"entities/0/color", 3}, {"session/undo", 1}, {"session/redo", 0}}},
        {"undo\nredo\nundo",
         {{"entities/0/color", before}, {"session/undo", 0}, {"session/redo", 1}}},
    };
    for (const auto& r : rows) {
        SampleHost s;
        SetAngleSystem(&s.CAD(), 0, 0.5, true);
        veld::CEnt* entity = s.CAD().GetData()->GetEntTable().Find(9);
        auto* command = new CChangeEntitiesCmdExecuted(&s.CAD());
        command->add(entity, entity->CreateMemento());
        entity->SetColor(3);
        s.CAD().AddChange(command);
        const PlayRun run = play(s.host, QString(r.script) + "\ndump drawing\n");
        EXPECT_EQ(run.errors, 0) << r.script;
        ASSERT_EQ(run.Count("drawing"), 1) << r.script;
        for (auto it = r.expected.begin(); it != r.expected.end(); ++it)
            EXPECT_EQ(at(run.First("drawing"), it.key()), it.value())
                << r.script << " at " << it.key().toStdString();
    }
}

TEST(VeldPlayDrawing, AFailedStatementNamesTheProblemAndChangesNothing) {
    QTemporaryDir dir;
    const QString damaged = dir.filePath("damaged.json");
    {
        QFile f(damaged);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write("{\"format\": ");
    }
    const QString missing = dir.filePath("missing.json");
    const QString noFolder = dir.filePath("no/such/folder.json");
    struct {
        QString statement;
        const char* message;
    } const rows[] = {
        {"select 424242", "no entity has handle 424242"},
        {"select nine", "nine is not a handle"},
        {"select", "select needs at least one handle"},
        {"deselect all", "deselect takes no arguments"},
        {"undo", "nothing to undo"},
        {"redo", "nothing to redo"},
        {"undo 2", "undo takes no arguments"},
        {"dump", "dump needs one word: drawing"},
        {"dump layers", "dump needs one word: drawing"},
        {"angles grads", "unknown system grads"},
        {"angles", "angles needs one word"},
        {"open", "open needs one file"},
        {QString("open \"%1\"").arg(missing), "missing.json cannot be opened"},
        {QString("open \"%1\"").arg(damaged), "damaged.json: not a drawing file"},
        {QString("open \"%1\"").arg(dir.path()), "it is a folder"},
        {"save", "save needs one file"},
        {QString("save \"%1\"").arg(noFolder), "folder.json cannot be saved"},
    };
    for (const auto& r : rows) {
        SampleHost s;
        const PlayRun run = play(
            s.host, "select 10\nangles gons\ndump drawing\n" + r.statement + "\ndump drawing\n");
        const std::string what = r.statement.toStdString();
        EXPECT_EQ(run.errors, 1) << what;
        expectError(run, 4, r.message, what);
        const std::vector<QJsonObject> d = run.All("drawing");
        ASSERT_EQ(d.size(), 2u) << what;
        EXPECT_EQ(d[0], d[1]) << what;
        EXPECT_EQ(at(d[1], "session/selection"), QJsonArray{10}) << what;
    }
    EXPECT_FALSE(QFile::exists(noFolder));
}

TEST(VeldPlayDrawing, SaveThenOpenGivesTheSameDrawing) {
    QTemporaryDir dir;
    const QString file = dir.filePath("plan with blanks.json");
    SampleHost s;
    const PlayRun first = play(s.host, QString("angles gons\nsave \"%1\"\ndump drawing\n"
                                               "angles radians\nselect 9\nopen \"%1\"\n"
                                               "dump drawing\n")
                                           .arg(file));
    EXPECT_EQ(first.errors, 0);
    const std::vector<QJsonObject> d = first.All("drawing");
    ASSERT_EQ(d.size(), 2u);
    EXPECT_EQ(at(d[0], "settings/angleSystem").toInt(), 2);
    EXPECT_EQ(d[0], d[1]);  // the later changes are gone and nothing is selected
}

// An operation's argument is a number of its type or it is refused: the
// error names the argument and why, and the dialog does not run.
TEST(VeldPlay, OperationArgumentsAreNumbersOfTheirTypeOrRefused) {
    const QString flag = QStringLiteral("is not 1 or 0 (true or false, yes or no)");
    const QString shortRange = QStringLiteral("is out of range (-32768 to 32767)");
    struct {
        const char* call;
        QString error;  ///< after "argument "
    } const refused[] = {
        {"ShowDlgColor start=abc", "start: \"abc\" is not a whole number"},
        {"ShowDlgColor start=32768", "start: \"32768\" " + shortRange},
        {"ShowDlgColor byLayer=-32769", "byLayer: \"-32769\" " + shortRange},
        {"ShowDlgColor byBlock=7x", "byBlock: \"7x\" is not a whole number"},
        {"ShowDlgColor chosen=1.5", "chosen: \"1.5\" is not a whole number"},
        {"ShowDlgColor logical=maybe", "logical: \"maybe\" " + flag},
        {"ShowDlgCalibraLineare image=99999999999",
         "image: \"99999999999\" is out of range (-2147483648 to 2147483647)"},
        {"ShowDlgHatch hatch=\" 3\"", "hatch: \" 3\" is not a whole number"},
        {"ShowDlgGetDouble value=nan", "value: \"nan\" is not a finite number"},
        {"ShowDlgGetDouble value=-inf", "value: \"-inf\" is not a finite number"},
        {"ShowDlgGetDouble value=1e400", "value: \"1e400\" is out of range for a double"},
        {"ShowDlgGetDouble value=0x10", "value: \"0x10\" is not a number"},
        {"ShowDlgGetDouble value=1,5", "value: \"1,5\" is not a number"},
        {"ShowDlgGetDouble allowZero=2", "allowZero: \"2\" " + flag},
        {"ShowDlgRotate angle=", "angle: \"\" is not a number"},
        {"ShowDlgInsText y=abc", "y: \"abc\" is not a number"},
        {"ShowDlSnapInsertPnt z=infinity", "z: \"infinity\" is not a finite number"},
        {"ShowDlgProperty undoable=on", "undoable: \"on\" " + flag},
        {"GetDlgPasswordRequest retry=2", "retry: \"2\" " + flag},
    };
    for (const auto& r : refused) {
        SampleHost sample;
        const PlayRun run = play(sample.host, QString("call %1\n  close\nend\n").arg(r.call));
        EXPECT_EQ(run.errors, 1) << r.call << "\n" << run.text.toStdString();
        expectFields(run, "error", {{"line", 1}, {"message", "argument " + r.error}});
        EXPECT_EQ(run.Count("dialog"), 0) << r.call;
        EXPECT_EQ(run.Count("return"), 0) << r.call;
    }
    // Values at the ends of a type's range, a leading '+', and flags in any
    // letter case are taken as they are.
    for (const auto& [call, returned] : std::vector<std::pair<const char*, const char*>>{
             {"ShowDlgColor start=-1 chosen=-32768", "\"chosen\":-32768}"},
             {"ShowDlgColor chosen=+32767 logical=FALSE", "\"chosen\":32767}"},
             {"ShowDlgRotate angle=-1e-3", "\"angle\":-0.001}"},
             {"ShowDlgGetDouble value=+2.5 allowZero=No", "\"value\":2.5}"}}) {
        SampleHost sample;
        const PlayRun run = play(sample.host, QString("call %1\n  close\nend\n").arg(call));
        EXPECT_EQ(run.errors, 0) << call << "\n" << run.text.toStdString();
        EXPECT_TRUE(run.text.contains(returned)) << call << "\n" << run.text.toStdString();
    }
}

// A step's ids, rows, columns, indices and fractions are numbers of their
// kind or the step is refused, naming the word and why; nothing runs.
TEST(VeldPlay, StepNumbersAreNumbersOfTheirKindOrRefused) {
    struct {
        const char* step;
        const char* error;
    } const rows[] = {
        {"click -1", "click ID: \"-1\" is out of range (0 to 4294967295)"},
        {"click 4294967296", "click ID: \"4294967296\" is out of range (0 to 4294967295)"},
        {"click \"11196\"", "click ID: \"11196\" is a quoted text, not a number"},
        {"read 11195x", "read ID: \"11195x\" is not a whole number"},
        {"tap 1129 1x 0", "tap ROW: \"1x\" is not a whole number"},
        {"dtap 1129 0 99999999999",
         "dtap COL: \"99999999999\" is out of range (-2147483648 to 2147483647)"},
        {"pick 1128 2.0", "pick INDEX: \"2.0\" is not a whole number"},
        {"check 2000 +", "check ROW: \"+\" is not a whole number"},
        {"header 1129 0x1", "header COL: \"0x1\" is not a whole number"},
        {"tab 11 one", "tab INDEX: \"one\" is not a whole number"},
        {"press 11187 nan 0.5", "press FX: \"nan\" is not a finite number"},
        {"press 11187 0.5 1.5", "press FY: \"1.5\" is not a fraction from 0 to 1"},
        {"press 11187 -0.5 0.5", "press FX: \"-0.5\" is not a fraction from 0 to 1"},
        {"press 11187 1e999 0.5", "press FX: \"1e999\" is out of range for a double"},
        {"press 11187 0.5", "bad step: press takes ID FX FY"},
        {"close now", "bad step: close takes no words"},
    };
    for (const auto& r : rows) {
        const PlayRun run = play(QString("call ShowDlgColor\n  %1\n  close\nend\n").arg(r.step));
        EXPECT_EQ(run.errors, 1) << r.step << "\n" << run.text.toStdString();
        expectFields(run, "error", {{"line", 2}, {"message", QString::fromUtf8(r.error)}});
        EXPECT_EQ(run.Count("dialog"), 0) << r.step;
    }
}

// --- The command line ------------------------------------------------------

namespace {

struct Outcome : PlayRun {
    int exitCode = -1;
    bool allJson = true;
};

Outcome runVeldPlay(const QStringList& args, const QByteArray& script) {
    QProcess p;
    p.start(VELD_PLAY_EXE, args + QStringList{"-"});
    Outcome o;
    if (!p.waitForStarted())
        return o;
    p.write(script);
    p.closeWriteChannel();
    if (!p.waitForFinished(60000))
        return o;
    o.exitCode = p.exitCode();
    for (const QByteArray& line : p.readAllStandardOutput().split('\n')) {
        const QJsonDocument doc = QJsonDocument::fromJson(line);
        o.allJson = o.allJson && (line.isEmpty() || doc.isObject());
        if (!line.isEmpty())
            o.events.push_back(doc.object());
    }
    return o;
}

}  // namespace

TEST(VeldPlayCommandLine, DrawingOptions) {
    QTemporaryDir dir;
    const QString sealed = dir.filePath("sealed.vld");
    const QString odd = dir.filePath("say \"hi\"\\.vld");
    SampleHost sample;
    const QJsonObject sampleDump = dumpOf(sample.CAD());
    SetAngleSystem(&sample.CAD(), 3, 0.25, true);
    QString error;
    ASSERT_TRUE(drawingfile::Save(sample.CAD(), sealed, "pw", error)) << error.toStdString();
    const QJsonObject sealedDump = dumpOf(sample.CAD());
    const QJsonObject emptyDump = dumpOf(*DrawingHost().GetCAD());

    const struct {
        QStringList args;
        int exitCode;
        const QJsonObject* dump;  ///< the drawing dumped, or null for an error
        const char* message;
    } rows[] = {
        {{}, 0, &emptyDump, nullptr},
        {{"--sample"}, 0, &sampleDump, nullptr},
        {{"--drawing", sealed, "--password", "pw"}, 0, &sealedDump, nullptr},
        {{"--password", "x", "--drawing", sealed}, 1, nullptr, "sealed.vld was not opened: wrong"},
        {{"--drawing", sealed}, 1, nullptr, "sealed.vld was not opened: no password was given"},
        // The message names a file whose name needs escaping in JSON.
        {{"--drawing", odd}, 1, nullptr, "say \"hi\"\\.vld cannot be opened"},
    };
    for (const auto& r : rows) {
        const std::string what = r.args.join(' ').toStdString();
        const Outcome o = runVeldPlay(r.args, "dump drawing\n");
        EXPECT_EQ(o.exitCode, r.exitCode) << what;
        EXPECT_TRUE(o.allJson) << what;
        ASSERT_EQ(o.events.size(), 1u) << what;
        QJsonObject e = o.events[0];
        if (r.dump) {
            EXPECT_EQ(e.take("event").toString(), QStringLiteral("drawing")) << what;
            EXPECT_EQ(e, *r.dump) << what;
        } else {
            expectError(o, 0, QString::fromUtf8(r.message), what);
        }
    }
}

TEST(VeldPlay, PickersReportTheirSwatchListsAndResults) {
    // The colour swatch through ByLayer, then a pick; a cancelled pick keeps
    // the result variable.
    PlayRun run = play(
        "call ShowDlgColor start=256 byLayer=3\n  read 11195\n  press 11189 0.99 0.5\n"
        "  read 11195\n  click 11196\nend\n"
        "call ShowDlgColor start=5 chosen=9\n  press 11187 0.5 0.5\n  click 11197\nend\n");
    EXPECT_EQ(run.errors, 0) << run.text.toStdString();
    const std::vector<QJsonObject> swatches = run.All("control"), returns = run.All("return");
    ASSERT_EQ(swatches.size(), 2u);
    expectHas(
        swatches[0],
        {{"kind", "swatch"}, {"colorIndex", 256}, {"shownColorIndex", 3}, {"colorName", "ByLayer"}},
        run.text);
    EXPECT_EQ(swatches[1]["colorIndex"], 255);
    EXPECT_NE(swatches[1]["rgb"], swatches[0]["rgb"]);
    ASSERT_EQ(returns.size(), 2u);
    expectHas(returns[0], {{"result", true}, {"chosen", 255}}, run.text);
    expectHas(returns[1], {{"result", false}, {"chosen", 9}}, run.text);

    // The selection list marks the preset row; the loading grid reports the
    // check boxes, and OK names what was made.
    SampleHost sample;
    run =
        play(sample.host,
             "call ShowDlgSelLtype preset=CENTER\n  read 11203\n  tap 11203 1 0\n"
             "  click 1163\nend\n"
             "call ShowDlgLoadLtype\n  check 2000 0\n  check 2000 1\n  read 2000\n  click 1\nend\n"
             "call ShowDlgSelLtype preset=NOPE\nend\n");
    EXPECT_EQ(run.errors, 1) << run.text.toStdString();
    const QJsonObject list = run.First("control");
    expectHas(list, {{"marked", 3}, {"selected", 3}}, run.text);
    EXPECT_EQ(list["rows"].toArray().at(3).toArray().at(0), "CENTER");
    EXPECT_FALSE(list.contains("checked"));
    const QJsonObject grid = run.All("control").back();
    EXPECT_EQ(grid["id"], 2000);
    const QJsonArray checked = grid["checked"].toArray();
    ASSERT_EQ(checked.size(), grid["rows"].toArray().size());
    ASSERT_GT(checked.size(), 2);
    EXPECT_EQ(checked.at(0), true);
    EXPECT_EQ(checked.at(1), true);
    EXPECT_EQ(checked.at(2), false);
    const std::vector<QJsonObject> results = run.All("return");
    ASSERT_EQ(results.size(), 2u);
    expectHas(results[0], {{"chosen", "DASHED"}, {"result", 1}}, run.text);
    // DASHED, the library's first, is in the drawing already; DASHED2 is new.
    EXPECT_EQ(results[1]["created"], QJsonArray({"DASHED2"}));
    expectFields(run, "error", {{"message", "the drawing has no line type \"NOPE\""}});
}

// A script sorts the layers list by a column header and reads the rows with
// their states as words; the line types dialog reports its scale edit.
TEST(VeldPlay, TableDialogsSortAndReadTheirLists) {
    SampleHost sample;
    const PlayRun run = play(sample.host,
                             "call ShowDlgLayer\n  header 1129 4\n  read 1129\n  header 1129 4\n"
                             "  read 1129\n  header 1129 9\n  click 2\nend\n"
                             "call ShowDlgLtype\n  read 11130\n  click 2\nend\n");
    EXPECT_EQ(run.errors, 1) << run.text.toStdString();
    expectFields(run, "error", {{"message", "header 1129 9: no column header 9"}});
    const std::vector<QJsonObject> lists = run.All("control");
    ASSERT_EQ(lists.size(), 3u);
    const QJsonArray ascending = lists[0]["rows"].toArray();
    const QJsonArray descending = lists[1]["rows"].toArray();
    ASSERT_EQ(ascending.size(), descending.size());
    // Colour 1 (Red, BUILDINGS) first, then last; every state a word.
    EXPECT_EQ(ascending.first().toArray(),
              QJsonArray({"BUILDINGS", "on", "thawed", "unlocked", "Red", "Continuous"}));
    EXPECT_EQ(descending.last().toArray().at(0), "BUILDINGS");
    EXPECT_EQ(lists[0]["marked"], 0);
    EXPECT_EQ(lists[2]["text"], "1.000000");
}
