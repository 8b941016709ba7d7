// The line type loading dialog as a host runs it (ShowDlgLoadLtype), with a
// scripted user and a support folder of the test's own: the library it opens
// on, the definitions it rejects, another file picked with "File...", the
// check boxes, and the line types OK makes.
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonObject>
#include <QLineEdit>
#include <QTableWidget>
#include <QTemporaryDir>
#include <tuple>
#include <vector>

#include "app/SampleDrawing.h"
#include "app/VELD.h"
#include "automation/ScriptedUser.h"
#include "linetypes/LtypePickers.h"
#include "ulo/ctrl/Dialog.h"
#include "veld/Data.h"
#include "veld/HandleObjectVectorCollection.h"

using automation::ScriptedUser;

namespace {

constexpr unsigned kFile = 11134;
constexpr unsigned kPath = 11135;
constexpr unsigned kGrid = 2000;
constexpr char kSupportVar[] = "VELD_SUPPORT_DIR";

QString Q(const char* text) {
    return QString::fromLatin1(text);
}

QTableWidget* GridOf(QWidget* window) {
    return window ? qobject_cast<QTableWidget*>(ulo::FindControl(window, kGrid)) : nullptr;
}

/// The rows of the grid of the dialog that owns a message box (-1: none).
int RowsBehind(QWidget* box) {
    const QTableWidget* grid = GridOf(box->parentWidget());
    return grid ? grid->rowCount() : -1;
}

/// What the open dialog shows: names joined by blanks, a '1' or '0' a row.
struct Shown {
    QString path, names, checked;
    QStringList descs;
    bool enabled = false;
};

Shown Look(QWidget* window) {
    Shown s;
    if (auto* edit = qobject_cast<QLineEdit*>(ulo::FindControl(window, kPath)))
        s.path = edit->text();
    QTableWidget* grid = GridOf(window);
    s.enabled = grid && grid->isEnabled();
    for (int row = 0; grid && row < grid->rowCount(); ++row) {
        s.checked += grid->item(row, 0)->checkState() == Qt::Checked ? u'1' : u'0';
        s.names += (row ? QStringLiteral(" ") : QString()) + grid->item(row, 1)->text();
        s.descs << grid->item(row, 2)->text();
    }
    return s;
}

/// A line type as "NAME|description|pattern", text elements as [TEXT:STYLE].
QString Describe(const veld::CLtype* l) {
    QStringList dashes;
    for (unsigned i = 0; i < l->GetNoDashes(); ++i) {
        const veld::TEXT_3D* t = l->GetDash(i)->GetText();
        dashes << (t ? QStringLiteral("[%1:%2]").arg(t->GetContext().GetString().ToQString(),
                                                     t->GetStyle()->GetName().ToQString())
                     : QString::number(l->GetDash(i)->GetDouble()));
    }
    return l->GetName().ToQString() + u'|' + l->GetDesc().ToQString() + u'|' + dashes.join(u',');
}

QString Rejected(const char* name, int line, const QString& path, const char* reason) {
    return QStringLiteral("Definition of %1 is not correct on line %2 in file %3: %4")
        .arg(Q(name), QString::number(line), path, Q(reason));
}

class LoadDialogTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(dir.isValid());
        BuildSampleDrawing(cad);
        qputenv(kSupportVar, QFile::encodeName(dir.path()));
    }
    void TearDown() override {
        if (hadSupport)
            qputenv(kSupportVar, savedSupport);
        else
            qunsetenv(kSupportVar);
    }

    QString Write(const QString& name, const char* bytes) {
        const QString path = dir.filePath(name);
        QFile f(path);
        EXPECT_TRUE(f.open(QIODevice::WriteOnly | QIODevice::Truncate)) << name.toStdString();
        f.write(bytes);
        return path;
    }
    QString Library() const { return dir.filePath(QStringLiteral("veld.lin")); }

    std::vector<veld::CLtype*> Table() {
        const veld::CLtypeTable& table = cad.GetData()->GetLtypeTable();
        std::vector<veld::CLtype*> items;
        for (unsigned i = 0; i < table.GetNoItems(); ++i)
            items.push_back(table.GetNo(i));
        return items;
    }

    /// Runs the dialog as a host does, expecting @p code, and describes what
    /// it made. The drawing comes out as it went in: the caller adds them.
    QStringList Run(ScriptedUser& user, int code = ulo::IDOK) {
        const std::vector<veld::CLtype*> before = Table();
        veld::CHandleObjectVectorCollection created;
        EXPECT_EQ(ShowDlgLoadLtype(&cad, &created), code);
        EXPECT_TRUE(user.Finished()) << user.Report().toStdString();
        EXPECT_EQ(Table(), before);
        QStringList made;
        for (unsigned i = 0; i < created.GetNoElems(); ++i) {
            const auto* l = static_cast<const veld::CLtype*>(created.GetObjectNo(i));
            EXPECT_EQ(l->GetData(), nullptr) << "in a table already";
            EXPECT_EQ(l->GetReferenceCount(), 1u) << "not the collection's alone";
            made << Describe(l);
        }
        return made;
    }

    const bool hadSupport = qEnvironmentVariableIsSet(kSupportVar);
    const QByteArray savedSupport = qgetenv(kSupportVar);
    QTemporaryDir dir;
    CVELD cad;
};

}  // namespace

TEST_F(LoadDialogTest, OpensOnTheSupportLibraryListedInFileOrderAndUnchecked) {
    const struct {
        const char* library;  // null: the support folder has none
        const char* names;
        QStringList descs;
    } cases[] = {
        {";; the test's library\r\n*ZIGZAG,Zig zag /\\/\\  \r\nA,0.5,-0.25\r\n\n"
         "*AXIS,Axis, with a comma\nA,1.25,-0.25,0.25,-0.25\n*PLAIN\nA,1,-1\n",
         "ZIGZAG AXIS PLAIN",
         {Q("Zig zag /\\/\\"), Q("Axis, with a comma"), QString()}},
        {";; comments only\n\n", "", {}},
        {nullptr, "", {}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.library ? c.library : "no library");
        QFile::remove(Library());
        if (c.library)
            Write(QStringLiteral("veld.lin"), c.library);
        ScriptedUser user;
        Shown shown;
        user.Inspect([&](QWidget* w) { shown = Look(w); }).Click(ulo::IDOK);
        EXPECT_TRUE(Run(user).isEmpty());
        EXPECT_EQ(shown.path, Library());
        EXPECT_EQ(shown.names, Q(c.names));
        EXPECT_EQ(shown.descs, c.descs);
        EXPECT_EQ(shown.checked, QString(c.descs.size(), u'0'));
        EXPECT_EQ(shown.enabled, !c.descs.isEmpty());
        EXPECT_TRUE(user.Messages().empty());
        ASSERT_EQ(user.Dialogs().size(), 1u);
        EXPECT_EQ(user.Dialogs()[0].title, QStringLiteral("Loading Line Type"));
        EXPECT_EQ(user.Dialogs()[0].templateId, 11036u);
        EXPECT_EQ(user.Dialogs()[0].help, QStringLiteral("QuadraCE.htm#Dlg LoadTipoLinea"));
    }
}

TEST_F(LoadDialogTest, RejectedDefinitionsAreReportedInFileOrderBeforeTheGoodOnesAreListed) {
    using Report = std::tuple<const char*, int, const char*>;  // name, line, reason
    const struct {
        const char* library;
        std::vector<Report> reports;
        const char* names;
    } cases[] = {
        {";; three bad among good ones\n*GOOD1,First\nA,1,-0.5\n*LOWER,lower case\na,1,-1\n"
         "*TRAIL,trailing comma\nA,1,-1,\n\n*GOOD2,Second\nA,2,-1\n*ONE,one element\nA,1\n",
         {{"LOWER", 5, "invalid alignment code"},
          {"TRAIL", 7, "invalid characters sequence"},
          {"ONE", 12, "Must be defined at least two traits"}},
         "GOOD1 GOOD2"},
        // A style the drawing lacks is no error: the text takes the drawing's
        // standard style.
        {"*UNQUOTED,text without quotes\nA,1,[GAS,STANDARD],-1\n*NEG,gap first\nA,-1,1\n"
         ";; a text element needs a dash before it\n*TEXTFIRST\nA,[\"T\",STANDARD],1\n"
         "*NOSTYLE,unknown style\nA,1,[\"N\",NO_SUCH_STYLE,S=1],-1\n",
         {{"UNQUOTED", 2, "Font type not supported"}, {"NEG", 4, " "}, {"TEXTFIRST", 7, " "}},
         "NOSTYLE"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.names);
        Write(QStringLiteral("veld.lin"), c.library);
        ScriptedUser user;
        int rowsWhileReported = -1;
        Shown shown;
        user.Inspect([&](QWidget* box) { rowsWhileReported = RowsBehind(box); });
        for (std::size_t i = 0; i < c.reports.size(); ++i)
            user.Answer(ulo::IDOK);
        user.Inspect([&](QWidget* w) { shown = Look(w); }).Click(ulo::IDOK);
        EXPECT_TRUE(Run(user).isEmpty());
        EXPECT_EQ(rowsWhileReported, 0);
        ASSERT_EQ(user.Messages().size(), c.reports.size());
        for (std::size_t i = 0; i < c.reports.size(); ++i) {
            const auto& [name, line, reason] = c.reports[i];
            EXPECT_EQ(user.Messages()[i].text, Rejected(name, line, Library(), reason));
            EXPECT_EQ(user.Messages()[i].caption, QStringLiteral("Error"));
            EXPECT_EQ(user.Messages()[i].flags, ulo::MB_OK | ulo::MB_ICONEXCLAMATION);
        }
        EXPECT_EQ(shown.names, Q(c.names));
    }
}

TEST_F(LoadDialogTest, FileOpensAnotherLibraryFromTheSupportFolder) {
    Write(QStringLiteral("veld.lin"), "*LIB_A,a\nA,1,-1\n*LIB_B,b\nA,2,-2\n");
    const QString other = Write(QStringLiteral("other.lin"),
                                "*OTHER_A,oa\nA,3,-3\n*OTHER_B,ob\nA,4,-4\n*OTHER_C,oc\nA,5,-5\n");
    const QString bad = Write(QStringLiteral("bad.lin"), "*WRONG\nA,1\n*RIGHT,ok\nA,1,-0.5\n");
    // Row 0 of veld.lin is checked before "File...", row checkAfter after it.
    const struct {
        QString picked;  // empty: the file dialog is cancelled
        int checkAfter;  // -1: none
        const char* names;
        const char* made;
    } cases[] = {
        {other, 1, "OTHER_A OTHER_B OTHER_C", "OTHER_B|ob|4,-4"},
        {QString(), -1, "LIB_A LIB_B", "LIB_A|a|1,-1"},
        {bad, 0, "RIGHT", "RIGHT|ok|1,-0.5"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.names);
        ScriptedUser user;
        QJsonObject fileDialog;
        int rowsWhileReported = -1;
        Shown shown;
        // Read from the file dialog's report: a step of ours on it before the
        // answer would give its name field the focus, which then ignores it.
        user.onEvent = [&](const QJsonObject& e) {
            if (e.value(QStringLiteral("event")) == QStringLiteral("file-dialog"))
                fileDialog = e;
        };
        user.CheckRow(kGrid, 0).Click(kFile);
        if (c.picked.isEmpty())
            user.CancelFile();
        else
            user.AnswerFile(c.picked);
        if (c.picked == bad)
            user.Inspect([&](QWidget* box) { rowsWhileReported = RowsBehind(box); })
                .Answer(ulo::IDOK);
        user.Inspect([&](QWidget* w) { shown = Look(w); });
        if (c.checkAfter >= 0)
            user.CheckRow(kGrid, c.checkAfter);
        user.Click(ulo::IDOK);
        EXPECT_EQ(Run(user), QStringList{Q(c.made)});
        EXPECT_EQ(fileDialog.value(QStringLiteral("folder")), QDir(dir.path()).absolutePath());
        if (!c.picked.isEmpty()) {  // a cancelled one does not report them
            const QString filters = fileDialog.value(QStringLiteral("filters")).toString();
            EXPECT_TRUE(
                filters.split(QStringLiteral(";;")).contains(QStringLiteral("Linetype (*.lin)")));
        }
        EXPECT_EQ(shown.path, c.picked.isEmpty() ? Library() : c.picked);
        EXPECT_EQ(shown.names, Q(c.names));
        ASSERT_EQ(user.Messages().size(), c.picked == bad ? 1u : 0u);
        if (c.picked == bad) {
            // The rows of the file before are gone while the new one reports.
            EXPECT_EQ(rowsWhileReported, 0);
            EXPECT_EQ(user.Messages()[0].text,
                      Rejected("WRONG", 2, bad, "Must be defined at least two traits"));
        }
    }
}

TEST_F(LoadDialogTest, OkMakesTheCheckedDefinitionsTheDrawingLacksInGridOrder) {
    Write(QStringLiteral("veld.lin"),
          "*dashed,the drawing's DASHED\nA,1,-1\n*NEW_A,first new\nA,1,-0.5,0,-0.5\n"
          "*Gas_Line,the drawing's GAS_LINE\nA,1,-1\n"
          "*NEW_B,with text\nA,1,[\"B\",NO_SUCH,S=0.5,X=-0.1],-1\n*NEW_A,again\nA,2,-2\n");
    const QString newA = QStringLiteral("NEW_A|first new|1,-0.5,0,-0.5");
    const QString newB = QStringLiteral("NEW_B|with text|1,[B:STANDARD],-1");
    const QString again = QStringLiteral("NEW_A|again|2,-2");
    const struct {
        const char* what;
        std::vector<int> rows;  // checked in this order
        int end;                // the button, or 0 for the close box
        QStringList made;
    } cases[] = {
        {"checked bottom up", {3, 1}, ulo::IDOK, {newA, newB}},
        {"names the drawing has, in another case", {0, 2}, ulo::IDOK, {}},
        {"one name twice", {4, 1}, ulo::IDOK, {newA, again}},
        {"every row", {0, 1, 2, 3, 4}, ulo::IDOK, {newA, newB, again}},
        {"none", {}, ulo::IDOK, {}},
        {"cancel", {1, 3}, ulo::IDCANCEL, {}},
        {"close box", {1}, 0, {}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        ScriptedUser user;
        for (const int row : c.rows)
            user.CheckRow(kGrid, row);
        if (c.end)
            user.Click(c.end);
        else
            user.Close();
        EXPECT_EQ(Run(user, c.end == ulo::IDOK ? ulo::IDOK : ulo::IDCANCEL), c.made);
        EXPECT_TRUE(user.Messages().empty());
    }
}

TEST_F(LoadDialogTest, RowsAreCheckedByATapOnTheCheckCellOrBySpaceOnTheFocusedRow) {
    Write(QStringLiteral("veld.lin"), "*R0\nA,1,-1\n*R1\nA,2,-2\n*R2\nA,3,-3\n");
    // Taps: 'c' on the check cell, 'n' the name, 'd' the description, then the row.
    const struct {
        const char* acts;
        const char* checked;
    } cases[] = {
        {"c1", "010"},       {"c1 c1", "000"},          {"n0 d2", "000"},
        {"n2 space", "001"}, {"d0 space space", "000"}, {"n0 space down down space", "101"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.acts);
        ScriptedUser user;
        for (const QString& act : Q(c.acts).split(u' ')) {
            if (act == QStringLiteral("space") || act == QStringLiteral("down"))
                user.Key(kGrid, act == QStringLiteral("space") ? Qt::Key_Space : Qt::Key_Down);
            else
                user.Tap(kGrid, act[1].digitValue(), QStringLiteral("cnd").indexOf(act[0]));
        }
        user.Click(ulo::IDOK);
        QStringList expected;
        for (int row = 0; row < 3; ++row)
            if (c.checked[row] == '1')
                expected << QStringLiteral("R%1||%2,-%2").arg(row).arg(row + 1);
        EXPECT_EQ(Run(user), expected);
    }
}

TEST_F(LoadDialogTest, AFileThatFailsToReadLeavesAnEmptyGridAndAUsableDialog) {
    // /proc/self/mem opens but cannot be read at its start.
    const QString mem = QStringLiteral("/proc/self/mem");
    if (!QFileInfo::exists(mem))
        GTEST_SKIP() << "no /proc";
    const QString good = Write(QStringLiteral("good.lin"), "*GOOD,g\nA,1,-1\n");
    const QString failing = dir.filePath(QStringLiteral("failing.lin"));
    ASSERT_TRUE(QFile::link(mem, failing));
    for (const bool atStart : {true, false}) {  // else picked after a good library
        SCOPED_TRACE(atStart ? "fails at the start" : "fails when picked");
        QFile::remove(Library());
        ASSERT_TRUE(atStart ? QFile::link(mem, Library()) : QFile::copy(good, Library()));
        ScriptedUser user;
        Shown failed;
        if (!atStart)
            user.CheckRow(kGrid, 0).Click(kFile).AnswerFile(failing);
        user.Inspect([&](QWidget* w) { failed = Look(w); });
        if (atStart)
            user.Click(kFile).AnswerFile(good).CheckRow(kGrid, 0);
        user.Click(ulo::IDOK);
        EXPECT_EQ(Run(user), atStart ? QStringList{Q("GOOD|g|1,-1")} : QStringList());
        EXPECT_EQ(failed.path, atStart ? Library() : failing);
        EXPECT_TRUE(failed.names.isEmpty());
        EXPECT_FALSE(failed.enabled);
        EXPECT_TRUE(user.Messages().empty());
    }
}
