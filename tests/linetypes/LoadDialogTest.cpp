// The line type loading dialog as a host runs it (ShowDlgLoadLtype), with a
// scripted user and a support folder of the test's own: the library it opens
// on, the definitions it rejects, another file picked with "File...", the
// check boxes, and the line types OK makes.
#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonObject>
#include <QLineEdit>
#include <QTableWidget>
#include <QTemporaryDir>

#include "app/SampleDrawing.h"
#include "app/VELD.h"
#include "automation/ScriptedUser.h"
#include "linetypes/LtypePickers.h"
#include "res/templates/ControlIds.h"
#include "ulo/ctrl/Dialog.h"
#include "veld/Data.h"
#include "veld/HandleObjectVectorCollection.h"

using automation::ScriptedUser;

namespace {

using veld5::ctl::LtypeLoad::kFile;
using veld5::ctl::LtypeLoad::kGrid;
using veld5::ctl::LtypeLoad::kPath;
constexpr char kSupportVar[] = "VELD_SUPPORT_DIR";

QString Q(const char* text) {
    return QString::fromLatin1(text);
}

/// What a dialog shows: its rows as "NAME|description" joined by "; ".
struct Shown {
    QString path, listed;
    bool enabled = false;
};

Shown Look(QWidget* window) {
    Shown s;
    if (auto* edit = qobject_cast<QLineEdit*>(ulo::FindControl(window, kPath)))
        s.path = edit->text();
    auto* grid = qobject_cast<QTableWidget*>(ulo::FindControl(window, kGrid));
    s.enabled = grid && grid->isEnabled();
    for (int row = 0; grid && row < grid->rowCount(); ++row)
        s.listed += (row ? QStringLiteral("; ") : QString()) + grid->item(row, 1)->text() + u'|' +
                    grid->item(row, 2)->text();
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

class LoadDialogTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(dir.isValid());
        BuildSampleDrawing(cad);
        qputenv(kSupportVar, QFile::encodeName(dir.path()));
    }
    void TearDown() override {
        saved.isNull() ? qunsetenv(kSupportVar) : qputenv(kSupportVar, saved);
    }

    QString Write(const char* name, const char* bytes) {
        QFile f(dir.filePath(Q(name)));
        EXPECT_TRUE(f.open(QIODevice::WriteOnly | QIODevice::Truncate)) << name;
        f.write(bytes);
        return f.fileName();
    }
    QString Library() const { return dir.filePath(QStringLiteral("veld.lin")); }
    unsigned TableSize() { return cad.GetData()->GetLtypeTable().GetNoItems(); }
    QString Rejected(const char* name, int line, const char* reason, QString path = {}) const {
        return QStringLiteral("Definition of %1 is not correct on line %2 in file %3: %4")
            .arg(Q(name), QString::number(line), path.isEmpty() ? Library() : path, Q(reason));
    }

    /// Runs the dialog as a host does, expecting OK and the error messages
    /// @p reports, each shown over an empty grid, and describes what it made;
    /// the drawing comes out as it went in. The file dialog's report is kept
    /// (a step of ours on that dialog would take its name field's focus).
    QStringList Run(ScriptedUser& user, const QStringList& reports = {}) {
        const unsigned before = TableSize();
        user.onEvent = [&](const QJsonObject& e) {
            const QJsonValue event = e.value(QStringLiteral("event"));
            if (event == QStringLiteral("file-dialog"))
                fileDialog = e;
            if (event == QStringLiteral("message")) {
                EXPECT_EQ(Look(QApplication::activeModalWidget()->parentWidget()).listed,
                          QString());
            }
        };
        veld::CHandleObjectVectorCollection created;
        EXPECT_EQ(ShowDlgLoadLtype(&cad, &created), ulo::IDOK);
        EXPECT_TRUE(user.Finished()) << user.Report().toStdString();
        EXPECT_EQ(TableSize(), before);
        QStringList texts, made;
        for (const automation::MessageRecord& m : user.Messages()) {
            texts << m.text;
            EXPECT_EQ(m.caption, QStringLiteral("Error"));
            EXPECT_EQ(m.flags, ulo::MB_OK | ulo::MB_ICONEXCLAMATION);
        }
        EXPECT_EQ(texts, reports);
        for (unsigned i = 0; i < created.GetNoElems(); ++i) {
            const auto* l = static_cast<const veld::CLtype*>(created.GetObjectNo(i));
            EXPECT_EQ(l->GetData(), nullptr) << "in a table already";
            EXPECT_EQ(l->GetReferenceCount(), 1u) << "not the collection's alone";
            made << Describe(l);
        }
        return made;
    }

    const QByteArray saved = qgetenv(kSupportVar);
    QJsonObject fileDialog;
    QTemporaryDir dir;
    CVELD cad;
};

}  // namespace

// The library the dialog opens on (the support folder's), and another picked
// with "File..." in the support folder: bad definitions are reported in file
// order over an empty grid, then the good ones are listed unchecked; a style
// the drawing lacks is no error (the text takes the drawing's standard
// style). A library that fails to read (/proc/self/mem opens but cannot be
// read at its start) leaves an empty grid and a dialog still usable. Rows
// checked before "File..." and after it; OK makes what is checked.
TEST_F(LoadDialogTest, ListsTheSupportLibraryOrAnotherOneAfterTheReports) {
    const QString failing = dir.filePath(QStringLiteral("failing.lin"));
    const bool proc =
        QFile::link(QStringLiteral("/proc/self/mem"), failing) && QFileInfo::exists(failing);
    const char* const lib = "*LIB_A,a\nA,1,-1\n*LIB_B,b\nA,2,-2\n";
    const char* const unreadable = "";
    const QString other =
        Write("other.lin", "*OTHER_A,oa\nA,3,-3\n*OTHER_B,ob\nA,4,-4\n*OTHER_C,oc\nA,5,-5\n");
    const QString bad = Write("bad.lin", "*WRONG\nA,1\n*RIGHT,ok\nA,1,-0.5\n");
    const QString none = QStringLiteral("-");  // no "File..."
    const QString wrong = Rejected("WRONG", 2, "Must be defined at least two traits", bad);
    const QStringList rejected = {Rejected("LOWER", 8, "invalid alignment code"),
                                  Rejected("TRAIL", 10, "invalid characters sequence"),
                                  Rejected("ONE", 14, "Must be defined at least two traits"),
                                  Rejected("UNQUOTED", 16, "Font type not supported"),
                                  Rejected("NEG", 18, " "),
                                  Rejected("TEXTFIRST", 21, " ")};
    const struct {
        const char* library;          // null: the support folder has none
        QString picked;               // empty: the file dialog is cancelled
        int checkBefore, checkAfter;  // -1: none
        const char* listed;
        const char* made;
        QStringList reports;
    } cases[] = {
        {";; the test's library\r\n*ZIGZAG,Zig zag /\\/\\  \r\nA,0.5,-0.25\r\n\n"
         "*AXIS,Axis, with a comma\nA,1.25,-0.25,0.25,-0.25\n*LOWER,lower case\na,1,-1\n"
         "*TRAIL,trailing comma\nA,1,-1,\n*PLAIN\nA,1,-1\n*ONE,one element\nA,1\n"
         "*UNQUOTED,text without quotes\nA,1,[GAS,STANDARD],-1\n*NEG,gap first\nA,-1,1\n"
         ";; a text element needs a dash before it\n*TEXTFIRST\nA,[\"T\",STANDARD],1\n"
         "*NOSTYLE,unknown style\nA,1,[\"N\",NO_SUCH_STYLE,S=1],-1\n",
         none, -1, -1,
         "ZIGZAG|Zig zag /\\/\\; AXIS|Axis, with a comma; PLAIN|; NOSTYLE|unknown style", "",
         rejected},
        {";; comments only\n\n", none, -1, -1, "", "", {}},
        {nullptr, none, -1, -1, "", "", {}},
        {lib, other, 0, 1, "OTHER_A|oa; OTHER_B|ob; OTHER_C|oc", "OTHER_B|ob|4,-4", {}},
        {lib, QString(), 0, -1, "LIB_A|a; LIB_B|b", "LIB_A|a|1,-1", {}},
        {lib, bad, 0, 0, "RIGHT|ok", "RIGHT|ok|1,-0.5", {wrong}},
        {lib, failing, 0, -1, "", "", {}},
        {unreadable, other, -1, 2, "OTHER_A|oa; OTHER_B|ob; OTHER_C|oc", "OTHER_C|oc|5,-5", {}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE((c.library ? c.library : "no library") + ("\n" + c.picked.toStdString()));
        if ((c.picked == failing || c.library == unreadable) && !proc)
            continue;
        QFile::remove(Library());
        if (c.library == unreadable)
            QFile::link(QStringLiteral("/proc/self/mem"), Library());
        else if (c.library)
            Write("veld.lin", c.library);
        ScriptedUser user;
        Shown shown;
        if (c.checkBefore >= 0)
            user.CheckRow(kGrid, c.checkBefore);
        if (c.picked != none) {
            user.Click(kFile);
            c.picked.isEmpty() ? user.CancelFile() : user.AnswerFile(c.picked);
        }
        for (qsizetype i = 0; i < c.reports.size(); ++i)
            user.Answer(ulo::IDOK);
        user.Inspect([&](QWidget* w) { shown = Look(w); });
        if (c.checkAfter >= 0)
            user.CheckRow(kGrid, c.checkAfter);
        user.Click(ulo::IDOK);
        EXPECT_EQ(Run(user, c.reports), *c.made ? QStringList{Q(c.made)} : QStringList());
        EXPECT_EQ(shown.path, c.picked == none || c.picked.isEmpty() ? Library() : c.picked);
        EXPECT_EQ(shown.listed, Q(c.listed));
        EXPECT_EQ(shown.enabled, *c.listed != 0);
        ASSERT_EQ(user.Dialogs().size(), 1u);
        EXPECT_EQ(user.Dialogs()[0].templateId, veld5::ctl::LtypeLoad::kTemplate);
        EXPECT_EQ(user.Dialogs()[0].help, QStringLiteral("QuadraCE.htm#Dlg LoadTipoLinea"));
        if (c.picked != none) {
            EXPECT_EQ(fileDialog.value(QStringLiteral("folder")), QDir(dir.path()).absolutePath());
            const QString filters = fileDialog.value(QStringLiteral("filters")).toString();
            EXPECT_TRUE(c.picked.isEmpty() || filters.contains(QStringLiteral("Linetype (*.lin)")));
        }
    }
}

// Rows are checked by CheckRow, a tap on the check cell (not the name or the
// description) or Space on the focused row; OK makes the checked definitions
// the drawing lacks, in grid order. Rows 0 and 2 name line types the drawing
// has, in another case. (Cancel gives nothing: the random sessions' promise.)
TEST_F(LoadDialogTest, OkMakesTheCheckedDefinitionsTheDrawingLacksInGridOrder) {
    Write("veld.lin",
          "*dashed,the drawing's DASHED\nA,1,-1\n*NEW_A,first new\nA,1,-0.5,0,-0.5\n"
          "*Gas_Line,the drawing's GAS_LINE\nA,1,-1\n"
          "*NEW_B,with text\nA,1,[\"B\",NO_SUCH,S=0.5,X=-0.1],-1\n*NEW_A,again\nA,2,-2\n");
    const QString newA = QStringLiteral("NEW_A|first new|1,-0.5,0,-0.5");
    const QString newB = QStringLiteral("NEW_B|with text|1,[B:STANDARD],-1");
    const QString again = QStringLiteral("NEW_A|again|2,-2");
    // kN: CheckRow N; cN, nN, dN: a tap on row N's check cell, name, description.
    const struct {
        const char* acts;
        QStringList made;
    } cases[] = {
        {"k4 k3 k2 k1 k0 ok", {newA, newB, again}},
        {"ok", {}},
        {"c1 ok", {newA}},
        {"c1 c1 ok", {}},
        {"n1 d3 ok", {}},
        {"n3 space ok", {newB}},
        {"d1 space space ok", {}},
        {"n1 space down down space ok", {newA, newB}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.acts);
        ScriptedUser user;
        for (const QString& act : Q(c.acts).split(u' ')) {
            if (act == u"space" || act == u"down")
                user.Key(kGrid, act == u"space" ? Qt::Key_Space : Qt::Key_Down);
            else if (act == u"ok")
                user.Click(ulo::IDOK);
            else if (act[0] == u'k')
                user.CheckRow(kGrid, act[1].digitValue());
            else
                user.Tap(kGrid, act[1].digitValue(), QStringLiteral("cnd").indexOf(act[0]));
        }
        EXPECT_EQ(Run(user), c.made);
    }
}
