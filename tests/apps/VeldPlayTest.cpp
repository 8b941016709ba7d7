// JSON keys and values in this file are ASCII literals: let them convert.
#undef QT_NO_CAST_FROM_ASCII
// The veld-play language: parsing, scripts run against the factory, the
// operation catalogue it calls (and README's account of it), the command line.
#include <gtest/gtest.h>

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

#include "DrawingHost.h"
#include "Player.h"
#include "ScriptParser.h"
#include "app/ChangeEntitiesCmdExecuted.h"
#include "app/DrawingFile.h"
#include "app/VELD.h"
#include "automation/HostileTexts.h"
#include "automation/ScriptedUser.h"
#include "factory/IVELDDlgFactory.h"
#include "ulo/PalmDevice.h"
#include "veld/Ent.h"

using namespace veldplay;

// Every hostile text written with QuoteText reads back exactly; '#' starts a
// comment outside quotes; a broken text or escape is refused.
TEST(ScriptParser, QuotedTextsReadBackExactlyAndBrokenOnesAreRefused) {
    QString error;
    const QStringList texts = automation::HostileTexts(&error);
    ASSERT_FALSE(texts.isEmpty()) << error.toStdString();
    std::vector<Word> words;
    for (const QString& text : texts) {
        const QString line = "set 11212 " + QuoteText(text);
        EXPECT_FALSE(line.contains('\n')) << automation::Printable(text).toStdString();
        ASSERT_FALSE(SplitLine(line, words)) << automation::Printable(text).toStdString();
        ASSERT_EQ(words.size(), 3u);
        EXPECT_EQ(words[2].text, text) << automation::Printable(text).toStdString();
    }
    ASSERT_FALSE(SplitLine("  call X title=\"a #b\"  # note", words));
    EXPECT_EQ(words.size(), 3u);
    EXPECT_EQ(words[2].text, "title=a #b");
    for (const char* line :
         {"type 1 \"open", "type 1 \"bad \\q\"", "type 1 \"end\\", "type 1 \"\\u12\"",
          "type 1 \"\\u+123\"", "type 1 \"\\U0000D800\"", "type 1 \"\\U00110000\""})
        EXPECT_TRUE(SplitLine(line, words)) << line;
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
    int Count(const char* kind) const { return static_cast<int>(All(kind).size()); }
    /// Expects the first error on @p line, its message holding @p message.
    void ExpectError(int line, const QString& message, const std::string& what) const {
        const QJsonObject e = Count("error") ? All("error").front() : QJsonObject();
        EXPECT_EQ(e["line"].toInt(-1), line) << what << text.toStdString();
        EXPECT_TRUE(e["message"].toString().contains(message)) << what << text.toStdString();
    }
};

PlayRun parse(const QString& text, int errors) {
    PlayRun run{text, {}, errors};
    for (const QString& line : text.split('\n', Qt::SkipEmptyParts))
        run.events.push_back(QJsonDocument::fromJson(line.toUtf8()).object());
    return run;
}

/// A host with the sample drawing open.
struct SampleHost {
    DrawingHost host;
    SampleHost() {
        QString error;
        EXPECT_TRUE(host.Open(QString(), true, QString(), error)) << error.toStdString();
    }
    CVELD& CAD() { return *host.GetCAD(); }
};

/// Plays @p script (';' ends a line) on @p sample.
PlayRun play(const QString& script, SampleHost&& sample = {}) {
    QString text;
    QTextStream out(&text);
    const int errors =
        Player(CreateFactory(), &sample.host, out).Run(QString(script).replace(';', '\n') + '\n');
    out.flush();
    CPalmDevice::SetLayoutOverride(-1);
    return parse(text, errors);
}
}  // namespace

// Steps work the dialog and the events tell what happened: a refused value
// answered and typed again, help, a screenshot, any text typed, reads of a
// swatch and a list, numbers printed as they are (-0 stays -0), arguments at
// the ends of their types, and the run going on after a failed step, whose
// call still returns. The output holds each text of a row.
TEST(VeldPlay, StepsWorkTheDialogAndTheEventsTellWhatHappened) {
    QTemporaryDir dir;
    const QString shot = dir.filePath("rotate.png");
    const struct {
        QString script;
        std::vector<QString> printed;
        int errors = 0;
    } rows[] = {
        {"layout 3;call ShowDlgGetDouble title=\"Height\" allowZero=0;set 11137 \"0\";click 11196;"
         "answer ok;clear 11137;type 11137 \"2.5\";read 11137;click 11196;end",
         {"\"help\":\"QuadraCE.htm#Dlg InsValore\",\"layout\":3,\"template\":11012",
          "\"flags\":48,\"text\":\"The value can not be zero\"", "\"text\":\"2.5\"",
          "\"result\":1,\"value\":2.5}"}},
        {"call ShowDlgRotate angle=7;click 11204;help;shot " + QuoteText(shot) +
             ";read 11137;close;end",
         {"\"enabled\":false", "\"result\":2,\"angle\":7}"}},
        {"call ShowDlgGetDouble;set 11137 \"-0\";click 11196;end", {"\"value\":-0}"}},
        // The retry question must be asked: an unanswered "answer" step is an error.
        {"call GetDlgPasswordRequest retry=1;type 4779 \"abc\";click 11196;answer no;end",
         {"\"password\":\"ABC\",\"result\":true,\"retry\":false"}},
        {"call ShowDlgRotate;click 424242;end;call ShowDlgGetString text=\"kept\";click 11196;end",
         {"{\"event\":\"error\",\"line\":2", "\"text\":\"kept\""},
         1},
        {"call ShowDlgColor start=256 byLayer=3;read 11195;press 11189 0.99 0.5;click 11196;end",
         {"\"colorIndex\":256,\"colorName\":\"ByLayer\"", "\"kind\":\"swatch\"",
          "\"shownColorIndex\":3", "\"result\":true,\"chosen\":255}"}},
        // DASHED, the library's first, is in the drawing already; DASHED2 is new.
        {"call ShowDlgSelLtype preset=CENTER;read 11203;tap 11203 1 0;click 1163;end;"
         "call ShowDlgLoadLtype;check 2000 0;check 2000 1;click 1;end",
         {"\"marked\":3", "\"chosen\":\"DASHED\"", "\"created\":[\"DASHED2\"]"}},
        {"call ShowDlgColor start=-1 chosen=-32768;close;end;"
         "call ShowDlgGetDouble value=+2.5 allowZero=No;close;end;"
         "call ShowDlgRotate angle=0.1;close;end",
         {"\"chosen\":-32768}", "\"value\":2.5}", "\"angle\":0.1}"}},
    };
    for (const auto& r : rows) {
        const PlayRun run = play(r.script);
        EXPECT_EQ(run.errors, r.errors) << run.text.toStdString();
        for (const QString& printed : r.printed)
            EXPECT_TRUE(run.text.contains(printed)) << printed.toStdString() << " not in\n"
                                                    << run.text.toStdString();
        // Each call shows its dialog once and returns once.
        EXPECT_EQ(run.Count("dialog"), run.Count("return")) << run.text.toStdString();
    }
    EXPECT_TRUE(QFile::exists(shot));
}

// An error names its line and what is wrong. A call refused (an unknown
// argument, one not of its type, a step's word not of its kind) runs nothing;
// a call whose step fails ran its dialog, which is closed, and returns.
TEST(VeldPlay, ErrorsNameTheirLineAndWhatIsWrong) {
    const struct {
        const char* script;  ///< ';' ends a line
        int line;
        const char* message;
        int dialogs = 0;
    } rows[] = {
        {"bogus", 1, "unknown statement"},
        {";call Nothing;end", 2, "unknown operation"},
        {"call ShowDlgRotate;click 99999;end", 2, "no control 99999", 1},
        {"call ShowDlgRotate;click 11204;end", 1, "left open", 1},
        {"call ShowDlgRotate;answer yes;end", 2, "expected a message box", 1},
        {"call ShowDlgLayer;header 1129 9;end", 2, "header 1129 9: no column header 9", 1},
        {"call ShowDlgRotate", 1, "call without end"},
        {"type 1 \"open", 1, "unterminated"},
        {"call ShowDlgSelLtype preset=NOPE;end", 1, "the drawing has no line type \"NOPE\""},
        {"call ShowDlgColor logicalAllowed=0;end", 1,
         "argument logicalAllowed: not an argument of ShowDlgColor (it takes start, byLayer, "
         "byBlock, logical, chosen)"},
        {"call ShowDlgLayer x=1;end", 1,
         "argument x: not an argument of ShowDlgLayer (it takes none)"},
        {"call ShowDlgColor start=32768;end", 1,
         "argument start: \"32768\" is out of range (-32768 to 32767)"},
        {"call ShowDlgColor logical=maybe;end", 1, "\"maybe\" is not 1 or 0 (true or false, yes"},
        {"call ShowDlgHatch hatch=\" 3\";end", 1, "hatch: \" 3\" is not a whole number"},
        {"call ShowDlgGetDouble value=nan;end", 1, "value: \"nan\" is not a finite number"},
        {"call ShowDlgGetDouble value=0x10;end", 1, "value: \"0x10\" is not a number"},
        {"call ShowDlgRotate angle=1,5;end", 1, "angle: \"1,5\" is not a number"},
        {"call ShowDlgColor;click -1;end", 2, "click ID: \"-1\" is out of range (0 to 4294967295)"},
        {"call ShowDlgColor;click \"1\";end", 2, "click ID: \"1\" is a quoted text, not a number"},
        {"call ShowDlgColor;press 1 0.5 1.5;end", 2, "press FY: \"1.5\" is not a fraction from 0"},
        {"call ShowDlgColor;press 1 0.5;end", 2, "bad step: press takes ID FX FY"},
    };
    for (const auto& r : rows) {
        const PlayRun run = play(QString::fromUtf8(r.script));
        EXPECT_EQ(run.errors, 1) << r.script << run.text.toStdString();
        run.ExpectError(r.line, QString::fromUtf8(r.message), r.script);
        EXPECT_EQ(run.Count("dialog"), r.dialogs) << r.script;
        EXPECT_EQ(run.Count("return"), r.dialogs) << r.script;
    }
}

// Each run starts on the sample, angles in degrees from 0.5 clockwise, with
// entity 9 (the first) made colour 3 by a command on the undo list, and dumps
// the drawing before and after its statements (';' ends a line). A statement
// that fails names the problem and changes nothing.
TEST(VeldPlayDrawing, StatementsChangeWhatTheDumpShowsOrSayWhyNot) {
    const int before = SampleHost().CAD().GetData()->GetEntTable().Find(9)->GetColor();
    ASSERT_NE(before, 3);
    QTemporaryDir dir;
    const QString file = QuoteText(dir.filePath("plan with blanks.json"));
    struct {
        QString script;
        QJsonObject expected;  ///< values by path
        const char* error = nullptr;
    } const rows[] = {
        {"select 9 11", {{"session/selection", QJsonArray{9, 11}}}},
        {"select 9 10;deselect", {{"session/selection", QJsonArray()}}},
        // The base and the direction stay as they were.
        {"angles gons", {{"settings/angleSystem", 2}, {"settings/angleBase", 0.5}}},
        {"", {{"entities/0/color", 3}, {"session/undo", 1}, {"session/redo", 0}}},
        {"undo", {{"entities/0/color", before}, {"session/undo", 0}, {"session/redo", 1}}},
        {"undo;redo", {{"entities/0/color", 3}, {"session/undo", 1}, {"session/redo", 0}}},
        // What was saved opens again; the later changes are gone, nothing is selected.
        {"angles gons;save " + file + ";angles radians;select 9;open " + file,
         {{"settings/angleSystem", 2}, {"session/selection", QJsonArray()}, {"session/undo", 0}}},
        {"select 424242", {}, "no entity has handle 424242"},
        {"select nine", {}, "nine is not a handle"},
        {"redo", {}, "nothing to redo"},
        {"deselect all", {}, "deselect takes no arguments"},
        {"angles grads", {}, "unknown system grads"},
    };
    for (const auto& r : rows) {
        SampleHost s;
        SetAngleSystem(&s.CAD(), 0, 0.5, true);
        veld::CEnt* entity = s.CAD().GetData()->GetEntTable().Find(9);
        auto* command = new CChangeEntitiesCmdExecuted(&s.CAD());
        command->add(entity, entity->CreateMemento());
        entity->SetColor(3);
        s.CAD().AddChange(command);
        const PlayRun run = play("dump drawing;" + r.script + ";dump drawing", std::move(s));
        const std::string what = r.script.toStdString() + run.text.toStdString();
        const std::vector<QJsonObject> d = run.All("drawing");
        ASSERT_EQ(d.size(), 2u) << what;
        EXPECT_EQ(run.errors, r.error ? 1 : 0) << what;
        if (r.error) {
            run.ExpectError(2, QString::fromUtf8(r.error), what);
            EXPECT_EQ(d[0], d[1]) << what;
        }
        for (auto it = r.expected.begin(); it != r.expected.end(); ++it) {
            QJsonValue v = d[1];  // at the path "settings/angleSystem", "entities/0"
            for (const QString& key : it.key().split('/'))
                v = v.isArray() ? v.toArray().at(key.toInt()) : v.toObject().value(key);
            EXPECT_EQ(v, it.value()) << what << " at " << it.key().toStdString();
        }
    }
}

// --- The catalogue ---------------------------------------------------------

// Every entry runs on the sample with its defaults and reads exactly the
// arguments it declares, the ones a script may give. (Random sessions and the
// pictures refuse arguments an entry does not declare.)
TEST(Catalogue, EveryEntryReadsExactlyTheArgumentsItDeclares) {
    SampleHost sample;
    for (const catalogue::Operation& op : catalogue::Operations()) {
        automation::ScriptedUser user;
        user.whenIdle = [&](QWidget*) { user.Close(); };
        catalogue::Call call = NewCall(CreateFactory(), sample.host);
        op.Run(call);
        EXPECT_EQ(call.error, QString()) << op.name;
        EXPECT_TRUE(call.ReadEveryArgument()) << op.name;
    }
}

// README's tables of operations have one row for each and say "built"
// exactly for those whose dialog shows.
TEST(Catalogue, TheReadmeSaysBuiltExactlyForTheBuiltOperations) {
    QFile readme(VELD_README);
    ASSERT_TRUE(readme.open(QIODevice::ReadOnly)) << VELD_README;
    SampleHost sample;
    const QStringList built = BuiltOperations(CreateFactory(), sample.host);
    static const QRegularExpression row("^\\| `(\\w+)`[^|]*\\|[^|]*\\| *([^|]*)\\|");
    QStringList listed;
    for (const QString& line : QString::fromUtf8(readme.readAll()).split('\n')) {
        const QRegularExpressionMatch m = row.match(line);
        if (!m.hasMatch() || !catalogue::Find(m.captured(1)))
            continue;
        listed << m.captured(1);
        EXPECT_EQ(m.captured(2).startsWith("built"), built.contains(m.captured(1)))
            << line.toStdString();
    }
    EXPECT_EQ(listed.removeDuplicates(), 0);
    EXPECT_EQ(listed.size(), catalogue::Names().size());
}

// --- The command line ------------------------------------------------------

namespace {
/// Runs veld-play with @p args, and @p script on its standard input when one is
/// given; errors is the exit status.
PlayRun runVeldPlay(const QStringList& args, const QByteArray& script = {}) {
    QProcess p;
    p.start(VELD_PLAY_EXE, script.isNull() ? args : args + QStringList{"-"});
    p.write(script);
    p.closeWriteChannel();
    if (!p.waitForFinished(60000))
        return {};
    return parse(QString::fromUtf8(p.readAllStandardOutput()), p.exitCode());
}
}  // namespace

// A drawing given opens, sealed with its password, or the one event is an
// error on line 0 and the exit status 1.
TEST(VeldPlayCommandLine, TheDrawingGivenOpensOrTheErrorSaysWhyNot) {
    QTemporaryDir dir;
    const QString sealed = dir.filePath("sealed.vld"), odd = dir.filePath("say \"hi\"\\.vld");
    SampleHost sample;
    QString error;
    ASSERT_TRUE(drawingfile::Save(sample.CAD(), sealed, "pw", error)) << error.toStdString();
    QJsonObject dump = QJsonDocument::fromJson(drawingfile::Dump(sample.CAD())).object();
    dump.insert("event", "drawing");
    const struct {
        QStringList args;
        const char* error;
    } rows[] = {
        {{"--sample"}, nullptr},
        {{"--drawing", sealed, "--password", "pw"}, nullptr},
        {{"--password", "x", "--drawing", sealed}, "sealed.vld was not opened: wrong"},
        {{"--drawing", sealed}, "sealed.vld was not opened: no password was given"},
        {{"--drawing", odd}, "say \"hi\"\\.vld cannot be opened"},  // escaped in JSON
    };
    for (const auto& r : rows) {
        const std::string what = r.args.join(' ').toStdString();
        const PlayRun o = runVeldPlay(r.args, "dump drawing\n");
        EXPECT_EQ(o.errors, r.error ? 1 : 0) << what;
        ASSERT_EQ(o.events.size(), 1u) << what << o.text.toStdString();
        if (r.error)
            o.ExpectError(0, r.error, what);
        else
            EXPECT_EQ(o.events[0], dump) << what;
    }
}

// --shots takes the catalogue's pictures of every built dialog in the four
// layouts, and nothing else.
TEST(VeldPlayCommandLine, ShotsPictureEveryBuiltDialogInTheFourLayouts) {
    QTemporaryDir dir;
    const PlayRun o = runVeldPlay({"--shots", dir.path()});
    EXPECT_EQ(o.errors, 0) << o.text.toStdString();
    SampleHost sample;
    QStringList expected;
    for (const QString& name : BuiltOperations(CreateFactory(), sample.host))
        for (const catalogue::Picture& picture : catalogue::Find(name)->Pictures())
            for (int layout = 0; layout < 4; ++layout)
                expected << QString("%1-%2.png").arg(picture.file).arg(layout);
    expected.sort();
    EXPECT_EQ(QDir(dir.path()).entryList(QDir::Files, QDir::Name), expected);
}
