// The layers and line types dialogs as the host runs them (ShowDlgLayer,
// ShowDlgLtype) on the sample drawing: what the lists show, the refusals word
// for word, renaming, sorting, the filters, the global line type scale, and
// loaded, deleted and current items kept by OK. That any visit cancelled
// leaves the drawing as it was, and one kept is one undo step, the random
// visits of VisitInvariantTest check.
#include <gtest/gtest.h>

#include <limits>
#include <string>

#include <QJsonArray>

#include "app/DrawingFile.h"
#include "app/SampleDrawing.h"
#include "app/VELD.h"
#include "support/FactoryFixture.h"
#include "ulo/ctrl/Win.h"
#include "veld/Data.h"

using automation::ScriptedUser;

namespace {

constexpr unsigned kLayerFilter = 1128, kLayerList = 1129, kNew = 1130, kLayerDelete = 1131,
                   kLayerCurrent = 1132, kNameEdit = 11132;
constexpr unsigned kLtypeFilter = 11125, kLtypeList = 11126, kLtypeDelete = 11127, kLoad = 11128,
                   kLtypeCurrent = 11129, kScale = 11130, kLoadGrid = 2000;

QString Q(const char* text) {
    return QString::fromUtf8(text);
}

/// The rows of list @p id, each as its cells' texts, tab-separated.
QStringList Rows(QWidget* window, unsigned id) {
    QStringList rows;
    const QJsonObject state = ScriptedUser::ControlState(ulo::FindControl(window, id));
    for (const QJsonValue& row : state.value(QStringLiteral("rows")).toArray()) {
        QStringList cells;
        for (const QJsonValue& cell : row.toArray())
            cells << cell.toString();
        rows << cells.join(u'\t');
    }
    return rows;
}
/// The first column of list @p id.
QStringList Names(QWidget* window, unsigned id) {
    QStringList names;
    for (const QString& row : Rows(window, id))
        names << row.section(u'\t', 0, 0);
    return names;
}
int RowOf(QWidget* window, unsigned id, const QString& name) {
    return static_cast<int>(Names(window, id).indexOf(name));
}
int Selected(QWidget* window, unsigned id, const char* key = "selected") {
    return ScriptedUser::ControlState(ulo::FindControl(window, id))
        .value(QString::fromLatin1(key))
        .toInt(-2);
}

const QString kEmptyName =
    Q("Layer name invalid.\r\n\r\nThe name must contain at least one character!");
const QString kTakenName = Q("Layer name invalid.\r\n\r\nThe name must be unique");
const QString kLetters =
    Q("Layer name invalid.\r\n\r\nThe layer names must consist of the following "
      "letters:\r\n\tA - Z\r\n\t0 - 9\r\n\t$_-");

using Act = std::function<void(ScriptedUser&, QWidget*)>;  // on the dialog, by row names
struct Refusal {
    const char* what;
    Act act;
    QString message;
};

class TableDialogTest : public FactoryTest {
protected:
    void SetUp() override {
        FactoryTest::SetUp();
        BuildSampleDrawing(cad);
        // A layer no entity uses.
        veld::CLayer* spare = cad.GetData()->GetObjectFactory()->CreateLayer(
            L"SPARE", Layer(L"0")->GetLtype(), 3, veld::kLineWidthDefault, 0, 0);
        cad.GetData()->GetLayerTable().Add(spare);
        spare->SubReference();
        before = drawingfile::Dump(cad);
        written = drawingfile::Write(cad);
    }
    veld::CLayer* Layer(const wchar_t* name) { return cad.GetData()->GetLayerTable().Find(name); }
    veld::CLtype* Ltype(const wchar_t* name) { return cad.GetData()->GetLtypeTable().Find(name); }
    /// Runs the layers dialog, or the line types dialog, with @p act queued
    /// as the dialog opens (steps queued while looking come after those
    /// queued before: all go in at once).
    ScriptedUser& Run(ScriptedUser& user, bool layers, const Act& act) {
        user.Inspect([&](QWidget* w) { act(user, w); });
        if (layers)
            factory->ShowDlgLayer(nullptr, cad);
        else
            factory->ShowDlgLtype(nullptr, cad);
        ExpectFinished(user);
        return user;
    }
    /// Each refusal, answered, then the visit cancelled: one warning word for
    /// word, and the drawing as before.
    void ExpectRefusals(bool layers, const std::vector<Refusal>& refusals) {
        for (const Refusal& r : refusals) {
            SCOPED_TRACE(r.what);
            ScriptedUser user;
            Run(user, layers, [&](ScriptedUser& u, QWidget* w) {
                r.act(u, w);
                u.Answer(ulo::IDOK).Click(ulo::IDCANCEL);
            });
            ASSERT_EQ(user.Messages().size(), 1u);
            EXPECT_EQ(user.Messages()[0].caption, Q("Warning"));
            EXPECT_EQ(user.Messages()[0].text, r.message);
            EXPECT_EQ(user.Messages()[0].flags, 0x30u);
            EXPECT_EQ(drawingfile::Dump(cad), before);
        }
    }

    CVELD cad;
    QByteArray before, written;
};
using LayersDialogTest = TableDialogTest;
using LtypesDialogTest = TableDialogTest;

/// Taps the row of @p name in list @p list (by its first column), then
/// clicks @p button.
Act On(unsigned list, const char* name, unsigned button) {
    return
        [=](ScriptedUser& u, QWidget* w) { u.Tap(list, RowOf(w, list, Q(name)), 0).Click(button); };
}

}  // namespace

// ------------------------------------------------------------------- layers

// Sorted by name at first; rows read as words; the current layer marked.
TEST_F(LayersDialogTest, ListsTheLayersByNameWithTheirStatesAsWords) {
    ScriptedUser user;
    QStringList rows;
    int marked = -2;
    Run(user, true, [&](ScriptedUser& u, QWidget* w) {
        rows = Rows(w, kLayerList);
        marked = Selected(w, kLayerList, "marked");
        u.Click(ulo::IDCANCEL);
    });
    ASSERT_EQ(rows.size(), 13) << rows.join(u'\n').toStdString();  // the private layer is left out
    EXPECT_EQ(rows[0], Q("0\ton\tthawed\tunlocked\tWhite\tContinuous"));
    EXPECT_EQ(rows[2].section(u'\t', 0, 3), Q("BOUNDARY\ton\tthawed\tlocked"));
    EXPECT_EQ(rows[4].section(u'\t', 0, 1), Q("CONSTRUCTION\toff"));
    EXPECT_EQ(rows[5].section(u'\t', 0, 2), Q("CONTOURS\ton\tfrozen"));
    EXPECT_EQ(marked, 3);  // BUILDINGS
    ASSERT_FALSE(user.Dialogs().empty());
    EXPECT_EQ(user.Dialogs()[0].templateId, 11028u);
    EXPECT_EQ(user.Dialogs()[0].help, Q("QuadraCE.htm#Dlg OpzPiano"));
}

// Each way to a refusal (the Current and Delete buttons, the Freeze column,
// the name editor ended by Return). What the controller refuses beyond these,
// and that a refusal changes nothing even before Cancel, CLayerLtypeCtrlDlgTest
// checks; the editor's other refusals, the test of the filter picked during an
// edit.
TEST_F(LayersDialogTest, RefusalsAreShownWordForWordAndChangeNothing) {
    ExpectRefusals(
        true,
        {
            {"current on a frozen layer", On(kLayerList, "CONTOURS", kLayerCurrent),
             Q("The layer selected can not be made current.\r\n\r\nThe following layers can not "
               "be made current:\r\n\t-XRef Layers\r\n\t-Frozen Layers")},
            {"freeze the current layer",
             [](ScriptedUser& u, QWidget* w) {
                 u.Tap(kLayerList, RowOf(w, kLayerList, Q("BUILDINGS")), 2);
             },
             Q("The current layer cannot be freezed")},
            // A row is selected by tapping its Lock twice: it ends as it began.
            {"delete layer 0",
             [](ScriptedUser& u, QWidget*) {
                 u.Tap(kLayerList, 0, 3).Tap(kLayerList, 0, 3).Click(kLayerDelete);
             },
             Q("The layer selected is not was deleted.\r\n\r\nThe following layers can not be "
               "deleted:\r\n\tLayer 0\r\n\tCurrent Layer\r\n\tXRef Layers\r\n\tLayers with "
               "objects")},
            {"rename to an external layer's name",
             [](ScriptedUser& u, QWidget* w) {
                 u.Tap(kLayerList, RowOf(w, kLayerList, Q("ROADS")), 0)
                     .SetText(kNameEdit, Q("basemap|roads"))
                     .Key(kNameEdit, Qt::Key_Return);
             },
             kLetters},
        });
}

TEST_F(LayersDialogTest, SwitchingOffTheCurrentLayerWarnsAndSwitchesItOff) {
    ScriptedUser user;
    Run(user, true, [](ScriptedUser& u, QWidget* w) {
        u.Tap(kLayerList, RowOf(w, kLayerList, Q("BUILDINGS")), 1)
            .Answer(ulo::IDOK)
            .Click(ulo::IDOK);
    });
    ASSERT_EQ(user.Messages().size(), 1u);
    EXPECT_EQ(user.Messages()[0].text, Q("The current layer will be deactivated"));
    EXPECT_TRUE(Layer(L"BUILDINGS")->IsOff());
}

// The editor does not open on layer 0 or an external layer; a layer may take
// its own name in other letter case, and keep a starting name the character
// rule refuses, or one the editor cannot hold as it stands.
TEST_F(LayersDialogTest, RenamingRules) {
    {
        ScriptedUser user;
        bool shown = true;
        Run(user, true, [&](ScriptedUser& u, QWidget* w) {
            u.Tap(kLayerList, RowOf(w, kLayerList, Q("BASEMAP|ROADS")), 0)
                .Tap(kLayerList, 0, 0)
                .Inspect([&](QWidget* w) { shown = ulo::FindControl(w, kNameEdit)->isVisible(); })
                .Click(ulo::IDCANCEL);
        });
        EXPECT_FALSE(shown);
    }
    // A starting name with a space, taken in from a file.
    Layer(L"TEXT")->SetName(L"OLD TEXT");
    const struct {
        const char *from, *to;  // to: the layer's name after OK
    } cases[] = {{"ROADS", "roads"}, {"ROADS", "MAIN_ROADS-2$"}, {"OLD TEXT", "OLD TEXT"}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.to);
        ScriptedUser user;
        Run(user, true, [&](ScriptedUser& u, QWidget* w) {
            u.Tap(kLayerList, RowOf(w, kLayerList, Q(c.from)), 0)
                .SetText(kNameEdit, Q(c.to))
                .Key(kNameEdit, Qt::Key_Return)
                .Click(ulo::IDOK);
        });
        EXPECT_TRUE(user.Messages().empty());
        const veld::CLayer* renamed = Layer(Q(c.to).toStdWString().c_str());
        ASSERT_NE(renamed, nullptr);
        EXPECT_EQ(renamed->GetName().ToQString(), Q(c.to));
        ASSERT_TRUE(cad.Undo());
    }
    // A NUL inside, more characters than an edit takes: left untouched, no
    // rename.
    for (const std::wstring& name : {std::wstring(L"A\0B", 3), std::wstring(1000000, L'Z')}) {
        SCOPED_TRACE(name.size());
        Layer(L"SPARE")->SetName(ulo::WString(name));
        ScriptedUser user;
        Run(user, true, [&](ScriptedUser& u, QWidget* w) {
            u.Tap(kLayerList, RowOf(w, kLayerList, QString::fromStdWString(name)), 0)
                .Key(kNameEdit, Qt::Key_Return)
                .Click(ulo::IDOK);
        });
        EXPECT_TRUE(user.Messages().empty());
        veld::CLayer* kept = cad.GetData()->GetLayerTable().Find(ulo::WString(name));
        ASSERT_NE(kept, nullptr);
        kept->SetName(L"SPARE");
    }
}

// A header clicked twice sorts ascending, then descending; ties go by name
// ascending in both directions; after "New" the next click sorts ascending.
TEST_F(LayersDialogTest, ColumnHeadersSortWithTiesByName) {
    Layer(L"ROADS")->SetColor(3);  // FENCES, ROADS and SPARE: 3 (Green)
    ScriptedUser user;
    QStringList seen;
    const auto look = [&](QWidget* w) {
        QStringList colours;
        for (const QString& row : Rows(w, kLayerList))
            colours << row.section(u'\t', 4, 4) + u':' + row.section(u'\t', 0, 0);
        seen << colours.join(u',');
    };
    user.Header(kLayerList, 4).Inspect(look).Header(kLayerList, 4).Inspect(look);
    user.Click(kNew).Header(kLayerList, 4).Inspect(look).Click(ulo::IDCANCEL);
    factory->ShowDlgLayer(nullptr, cad);
    ExpectFinished(user);
    ASSERT_EQ(seen.size(), 3);
    EXPECT_TRUE(
        seen[0].startsWith(Q("Red:BUILDINGS,Yellow:TEXT,Green:FENCES,Green:ROADS,Green:SPARE,")))
        << seen[0].toStdString();
    EXPECT_TRUE(
        seen[1].contains(Q(",Green:FENCES,Green:ROADS,Green:SPARE,Yellow:TEXT,Red:BUILDINGS")))
        << seen[1].toStdString();
    EXPECT_TRUE(seen[2].startsWith(Q("Red:BUILDINGS"))) << seen[2].toStdString();
}

// "All unused" leaves out the layers in use, but a new layer is listed until
// the next refill.
TEST_F(LayersDialogTest, FilterAndNewLayer) {
    ScriptedUser user;
    QStringList unused, afterNew, all;
    user.Pick(kLayerFilter, 2)
        .Inspect([&](QWidget* w) { unused = Names(w, kLayerList); })
        .Click(kNew)
        .Inspect([&](QWidget* w) { afterNew = Names(w, kLayerList); })
        .Pick(kLayerFilter, 1)
        .Pick(kLayerFilter, 0)
        .Inspect([&](QWidget* w) { all = Names(w, kLayerList); })
        .Click(ulo::IDCANCEL);
    factory->ShowDlgLayer(nullptr, cad);
    ExpectFinished(user);
    EXPECT_TRUE(unused.contains(Q("SPARE")) && !unused.contains(Q("TREES")))
        << unused.join(u',').toStdString();
    EXPECT_EQ(afterNew, unused + QStringList{Q("Layer1")});
    EXPECT_TRUE(all.contains(Q("Layer1")) && all.contains(Q("TREES")))
        << all.join(u',').toStdString();
}

// Opening the filter while the name editor holds a name the rules refuse ends
// the edit first: the warning shows, the layer keeps its name, and then the
// item picked is the filter.
TEST_F(LayersDialogTest, FilterPickedWhileARefusedNameIsInTheEditorTakesEffectAfterTheWarning) {
    const struct {
        const char* name;
        QString message;
        int filter;
        const char *listed, *leftOut;
    } cases[] = {
        {"", kEmptyName, 2, "SPARE", "TREES"},
        {"Trees", kTakenName, 1, "TREES", "SPARE"},
        {"MAIN ROADS", kLetters, 2, "SPARE", "TREES"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        ScriptedUser user;
        QStringList listed;
        int picked = -1;
        bool kept = false;
        Run(user, true, [&](ScriptedUser& u, QWidget* w) {
            u.Tap(kLayerList, RowOf(w, kLayerList, Q("ROADS")), 0)
                .SetText(kNameEdit, Q(c.name))
                .Pick(kLayerFilter, c.filter)
                .Answer(ulo::IDOK)
                .Inspect([&](QWidget* w) {
                    listed = Names(w, kLayerList);
                    picked = Selected(w, kLayerFilter);
                    kept = Layer(L"ROADS") != nullptr;
                })
                .Click(ulo::IDCANCEL);
        });
        ASSERT_EQ(user.Messages().size(), 1u);
        EXPECT_EQ(user.Messages()[0].text, c.message);
        EXPECT_EQ(picked, c.filter);
        EXPECT_TRUE(listed.contains(Q(c.listed)) && !listed.contains(Q(c.leftOut)))
            << listed.join(u',').toStdString();
        EXPECT_TRUE(kept);
        EXPECT_EQ(drawingfile::Dump(cad), before);
    }
}

// A new layer renamed, coloured through the colour picker and given a line
// type through its picker, made current; another layer deleted; all kept by OK.
TEST_F(LayersDialogTest, AVisitsEditsAreKeptByOk) {
    ScriptedUser user;
    user.Click(kNew);
    Run(user, true, [](ScriptedUser& u, QWidget* w) {
        const int row = RowOf(w, kLayerList, Q("Layer1"));
        const int spare = RowOf(w, kLayerList, Q("SPARE"));
        u.Tap(kLayerList, row, 0)
            .SetText(kNameEdit, Q("SURVEY"))
            .Key(kNameEdit, Qt::Key_Return)
            .Tap(kLayerList, row, 4)
            .Press(11192, 0.5, 0.5)
            .Click(11196)  // the colour picker's OK
            .Tap(kLayerList, row, 5)
            .Tap(11203, 4, 0)
            .Click(1163)  // the line type picker's OK
            .Click(kLayerCurrent)
            .Tap(kLayerList, spare, 3)
            .Tap(kLayerList, spare, 3)
            .Click(kLayerDelete)
            .Click(ulo::IDOK);
    });
    EXPECT_TRUE(user.Messages().empty());
    veld::CLayer* survey = Layer(L"SURVEY");
    ASSERT_NE(survey, nullptr);
    EXPECT_EQ(GetCurLayer(&cad), survey);
    EXPECT_NE(survey->GetColor(), Layer(L"BUILDINGS")->GetColor());
    EXPECT_NE(survey->GetLtype(), Layer(L"BUILDINGS")->GetLtype());
    EXPECT_EQ(Layer(L"SPARE"), nullptr);
}

// --------------------------------------------------------------- line types

// Each button's refusal; which line types may go, and that a refusal changes
// nothing even before Cancel, CLayerLtypeCtrlDlgTest checks.
TEST_F(LtypesDialogTest, RefusalsAreShownWordForWordAndChangeNothing) {
    ExpectRefusals(
        false,
        {
            {"delete with nothing selected",
             [](ScriptedUser& u, QWidget*) { u.Click(kLtypeDelete); },
             Q("Select a linetype to erase.")},
            {"delete the line type made current",
             [](ScriptedUser& u, QWidget* w) {
                 On(kLtypeList, "PHANTOM", kLtypeCurrent)(u, w);
                 u.Click(kLtypeDelete);
             },
             Q("The line type selected has not been canceled.\r\n\r\nThe following types of "
               "line can not be deleted.\r\n\tLine type ByBlock, ByLayer and "
               "Continuous\r\n\tLine type current\r\n\tLine type Xref\r\n\tLine type in objects "
               "or layers")},
            {"make an external line type current", On(kLtypeList, "BASEMAP|TRACK", kLtypeCurrent),
             Q("A type line XRef-dependent can not be made current")},
        });
}

// The scale edit shows six decimals and OK applies what it reads; a text
// that reads as 0 or less, or as no finite number, leaves the scale alone.
// Any positive scale is kept, also through a drawing file, and an untouched
// field never changes one beyond what its six decimals show.
TEST_F(LtypesDialogTest, GlobalScaleAsTyped) {
    constexpr double kStart = 1.2345678, kLargest = std::numeric_limits<double>::max();
    const struct {
        double start;
        const char* typed;  // null: not touched
        double applied;
    } cases[] = {
        {kStart, nullptr, 1.234568}, {kStart, "2.5", 2.5},    {kStart, "0", kStart},
        {kStart, "-3", kStart},      {kStart, "", kStart},    {kStart, "1e309", kStart},
        {kStart, "nan", kStart},     {kStart, " 7x", 7},      {kStart, "1e-10", 1e-10},
        {kStart, "4e-320", 4e-320},  {1e100, nullptr, 1e100}, {kLargest, nullptr, kLargest},
        {1e-10, nullptr, 1e-10},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.typed ? c.typed : "untouched");
        SetLtypeScale(&cad, c.start);
        ScriptedUser user;
        QString shown;
        user.Inspect([&](QWidget* w) {
            shown = ScriptedUser::ControlState(ulo::FindControl(w, kScale))
                        .value(QStringLiteral("text"))
                        .toString();
        });
        if (c.typed)
            user.Clear(kScale).Type(kScale, Q(c.typed));
        user.Click(ulo::IDOK);
        factory->ShowDlgLtype(nullptr, cad);
        ExpectFinished(user);
        if (c.start == kStart) {
            EXPECT_EQ(shown, Q("1.234568"));
        }
        EXPECT_EQ(GetLtypeScale(&cad), c.applied);
        CVELD reopened;
        QString error;
        ASSERT_TRUE(drawingfile::Read(reopened, drawingfile::Write(cad), error))
            << error.toStdString();
        EXPECT_EQ(GetLtypeScale(&reopened), c.applied);
        if (c.applied != c.start) {
            ASSERT_TRUE(cad.Undo());
            EXPECT_EQ(GetLtypeScale(&cad), c.start);
        }
    }
}

// Load...: the checked rows of the support library join the list and the
// drawing, but for names the drawing has (DASHED keeps its definition).
TEST_F(LtypesDialogTest, LoadedLineTypesJoinTheDrawing) {
    const QString oldDashed = Ltype(L"DASHED")->GetDesc().ToQString();
    ScriptedUser user;
    QStringList listed;
    user.Click(kLoad)
        .CheckRow(kLoadGrid, 0)
        .CheckRow(kLoadGrid, 1)
        .Click(ulo::IDOK)
        .Inspect([&](QWidget* w) { listed = Names(w, kLtypeList); })
        .Click(ulo::IDOK);
    factory->ShowDlgLtype(nullptr, cad);
    ExpectFinished(user);
    EXPECT_EQ(listed.count(Q("DASHED")), 1) << listed.join(u',').toStdString();
    EXPECT_EQ(listed.last(), Q("DASHED2"));
    EXPECT_NE(Ltype(L"DASHED2"), nullptr);
    EXPECT_EQ(Ltype(L"DASHED")->GetDesc().ToQString(), oldDashed);
}

// Deleting an unused line type and making another current, kept by OK; undo
// brings both back.
TEST_F(LtypesDialogTest, DeleteAndCurrentAreKeptByOk) {
    ScriptedUser user;
    QStringList unused;
    user.Pick(kLtypeFilter, 2);
    Run(user, false, [&](ScriptedUser& u, QWidget* w) {
        unused = Names(w, kLtypeList);
        On(kLtypeList, "DOT", kLtypeDelete)(u, w);
        u.Pick(kLtypeFilter, 0).Inspect([&](QWidget* w) {
            On(kLtypeList, "CENTER", kLtypeCurrent)(user, w);
            user.Click(ulo::IDOK);
        });
    });
    EXPECT_TRUE(user.Messages().empty());
    EXPECT_TRUE(unused.contains(Q("DOT")) && !unused.contains(Q("GAS_LINE")))
        << unused.join(u',').toStdString();
    EXPECT_EQ(Ltype(L"DOT"), nullptr);
    EXPECT_EQ(GetCurLtype(&cad), Ltype(L"CENTER"));
    ASSERT_TRUE(cad.Undo());
    EXPECT_NE(Ltype(L"DOT"), nullptr);
    EXPECT_EQ(drawingfile::Write(cad), written);
}
