// The layers and line types dialogs as the host runs them (ShowDlgLayer,
// ShowDlgLtype) on the sample drawing: what the lists show, every warning and
// refusal word for word, renaming, sorting, the filters, the global line type
// scale, and edits kept by OK. That any visit cancelled leaves the drawing as
// it was, and one kept is one undo step, the random visits of
// VisitInvariantTest check.
#include <gtest/gtest.h>

#include <limits>
#include <string>

#include <QJsonArray>

#include "app/DrawingFile.h"
#include "app/SampleDrawing.h"
#include "app/VELD.h"
#include "res/templates/ControlIds.h"
#include "support/FactoryFixture.h"
#include "ulo/ctrl/Win.h"
#include "veld/Data.h"

using automation::ScriptedUser;

namespace {

namespace ctl = veld5::ctl;
constexpr unsigned kLayerFilter = ctl::Layers::kFilter, kLayerList = ctl::Layers::kList,
                   kNew = ctl::Layers::kNew, kLayerDelete = ctl::Layers::kDelete,
                   kLayerCurrent = ctl::Layers::kCurrent, kNameEdit = ctl::Layers::kNameEdit;
constexpr unsigned kLtypeList = ctl::Ltypes::kList, kLtypeDelete = ctl::Ltypes::kDelete,
                   kLtypeCurrent = ctl::Ltypes::kCurrent, kScale = ctl::Ltypes::kScale;

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
/// The row of list @p id whose first column is @p name, or -1.
int RowOf(QWidget* window, unsigned id, const QString& name) {
    const QStringList rows = Rows(window, id);
    for (qsizetype row = 0; row < rows.size(); ++row)
        if (rows[row].section(u'\t', 0, 0) == name)
            return static_cast<int>(row);
    return -1;
}

using Act = std::function<void(ScriptedUser&, QWidget*)>;  // on the dialog, by row names

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
    }
    veld::CLayer* Layer(const wchar_t* name) { return cad.GetData()->GetLayerTable().Find(name); }
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
    CVELD cad;
};
using LayersDialogTest = TableDialogTest;
using LtypesDialogTest = TableDialogTest;

/// Selects the row of @p name (none: nothing) in list @p list, by a tap on
/// its first column, or in the layers list by a double toggle of its Lock;
/// then clicks @p buttons.
Act On(unsigned list, const char* name, std::vector<unsigned> buttons) {
    return [=](ScriptedUser& u, QWidget* w) {
        const int row = name ? RowOf(w, list, Q(name)) : -1;
        if (row >= 0 && list == kLayerList)
            u.Tap(list, row, 3).Tap(list, row, 3);
        else if (row >= 0)
            u.Tap(list, row, 0);
        for (const unsigned button : buttons)
            u.Click(button);
    };
}
/// Types @p name into the editor of layer ROADS, and Return.
Act Rename(const char* name) {
    return [=](ScriptedUser& u, QWidget* w) {
        u.Tap(kLayerList, RowOf(w, kLayerList, Q("ROADS")), 0)
            .SetText(kNameEdit, Q(name))
            .Key(kNameEdit, Qt::Key_Return);
    };
}

}  // namespace

// Sorted by name at first; rows read as words; the current layer marked. The
// name editor does not open on an external layer or layer 0.
TEST_F(LayersDialogTest, ListsTheLayersByNameWithTheirStatesAsWords) {
    ScriptedUser user;
    QStringList rows;
    int marked = -2;
    bool editor = true;
    Run(user, true, [&](ScriptedUser& u, QWidget* w) {
        rows = Rows(w, kLayerList);
        marked = ScriptedUser::ControlState(ulo::FindControl(w, kLayerList))
                     .value(QStringLiteral("marked"))
                     .toInt(-2);
        u.Tap(kLayerList, RowOf(w, kLayerList, Q("BASEMAP|ROADS")), 0)
            .Tap(kLayerList, 0, 0)
            .Inspect([&](QWidget* w) { editor = ulo::FindControl(w, kNameEdit)->isVisible(); })
            .Click(ulo::IDCANCEL);
    });
    EXPECT_FALSE(editor);
    ASSERT_EQ(rows.size(), 13) << rows.join(u'\n').toStdString();  // the private layer is left out
    EXPECT_EQ(rows[0], Q("0\ton\tthawed\tunlocked\tWhite\tContinuous"));
    EXPECT_EQ(rows[2].section(u'\t', 0, 3), Q("BOUNDARY\ton\tthawed\tlocked"));
    EXPECT_EQ(rows[4].section(u'\t', 0, 1), Q("CONSTRUCTION\toff"));
    EXPECT_EQ(rows[5].section(u'\t', 0, 2), Q("CONTOURS\ton\tfrozen"));
    EXPECT_EQ(marked, 3);  // BUILDINGS
    ASSERT_FALSE(user.Dialogs().empty());
    EXPECT_EQ(user.Dialogs()[0].templateId, ctl::Layers::kTemplate);
    EXPECT_EQ(user.Dialogs()[0].help, Q("QuadraCE.htm#Dlg OpzPiano"));
}

// Every warning of the dialogs and of their controller (CLayerLtypeCtrlDlg),
// each answered, then the visit cancelled: word for word, caption "Warning",
// exclamation and OK. A refusal leaves the drawing as it was at once; the
// warning that the current layer goes off does not refuse.
TEST_F(TableDialogTest, WarningsAreShownWordForWord) {
    const QString notCurrent =
        Q("The layer selected can not be made current.\r\n\r\nThe following layers can not be "
          "made current:\r\n\t-XRef Layers\r\n\t-Frozen Layers");
    const QString notDeleted =
        Q("The layer selected is not was deleted.\r\n\r\nThe following layers can not be "
          "deleted:\r\n\tLayer 0\r\n\tCurrent Layer\r\n\tXRef Layers\r\n\tLayers with "
          "objects");
    const QString ltypeNotDeleted =
        Q("The line type selected has not been canceled.\r\n\r\nThe following types of line can "
          "not be deleted.\r\n\tLine type ByBlock, ByLayer and Continuous\r\n\tLine type "
          "current\r\n\tLine type Xref\r\n\tLine type in objects or layers");
    const QString invalid = Q("Layer name invalid.\r\n\r\n");
    const auto tap = [](const char* name, int column) -> Act {
        return [=](ScriptedUser& u, QWidget* w) {
            u.Tap(kLayerList, RowOf(w, kLayerList, Q(name)), column);
        };
    };
    const struct {
        const char* what;
        bool layers;
        Act act;
        QString message;
        bool refused = true;
    } cases[] = {
        {"current on a frozen layer", true, On(kLayerList, "CONTOURS", {kLayerCurrent}),
         notCurrent},
        {"freeze the current layer", true, tap("BUILDINGS", 2),
         Q("The current layer cannot be freezed")},
        {"switch the current layer off", true, tap("BUILDINGS", 1),
         Q("The current layer will be deactivated"), false},
        {"delete with no layer selected", true, On(kLayerList, nullptr, {kLayerDelete}),
         Q("Select a layer to erase")},
        {"delete layer 0", true, On(kLayerList, "0", {kLayerDelete}), notDeleted},
        {"delete the current layer", true, On(kLayerList, "BUILDINGS", {kLayerDelete}), notDeleted},
        {"delete the layer made current", true,
         On(kLayerList, "SPARE", {kLayerCurrent, kLayerDelete}), notDeleted},
        {"delete a layer with objects", true, On(kLayerList, "TREES", {kLayerDelete}), notDeleted},
        {"delete an external layer", true, On(kLayerList, "BASEMAP|ROADS", {kLayerDelete}),
         notDeleted},
        {"an empty name", true, Rename(""),
         invalid + Q("The name must contain at least one character!")},
        {"a name taken in other letter case", true, Rename("Trees"),
         invalid + Q("The name must be unique")},
        {"an external layer's name", true, Rename("basemap|roads"),
         invalid + Q("The layer names must consist of the following letters:\r\n\tA - Z\r\n\t0 - "
                     "9\r\n\t$_-")},
        {"make an external line type current", false,
         On(kLtypeList, "BASEMAP|TRACK", {kLtypeCurrent}),
         Q("A type line XRef-dependent can not be made current")},
        {"delete with no line type selected", false, On(kLtypeList, nullptr, {kLtypeDelete}),
         Q("Select a linetype to erase.")},
        {"delete Continuous", false, On(kLtypeList, "Continuous", {kLtypeDelete}), ltypeNotDeleted},
        {"delete an external line type", false, On(kLtypeList, "BASEMAP|TRACK", {kLtypeDelete}),
         ltypeNotDeleted},
        {"delete a layer's line type", false, On(kLtypeList, "HIDDEN", {kLtypeDelete}),
         ltypeNotDeleted},
        {"delete the line type made current", false,
         On(kLtypeList, "PHANTOM", {kLtypeCurrent, kLtypeDelete}), ltypeNotDeleted},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        ScriptedUser user;
        bool unchanged = false;
        Run(user, c.layers, [&](ScriptedUser& u, QWidget* w) {
            const QByteArray before = drawingfile::Dump(cad);
            c.act(u, w);
            u.Answer(ulo::IDOK)
                .Inspect([&, before](QWidget*) { unchanged = drawingfile::Dump(cad) == before; })
                .Click(ulo::IDCANCEL);
        });
        ASSERT_EQ(user.Messages().size(), 1u);
        EXPECT_EQ(user.Messages()[0].caption, Q("Warning"));
        EXPECT_EQ(user.Messages()[0].text, c.message);
        EXPECT_EQ(user.Messages()[0].flags, 0x30u);
        EXPECT_EQ(unchanged, c.refused);
    }
}

// A layer may take its own name in other letter case, and keep a starting
// name the character rule refuses (taken in from a file), or one the editor
// cannot hold as it stands (a NUL inside, more characters than an edit takes).
TEST_F(LayersDialogTest, RenamingRules) {
    const struct {
        std::wstring from;
        const char* typed;  // null: the name as the editor shows it
    } cases[] = {{L"SPARE", "spare"},
                 {L"SPARE", "MAIN_ROADS-2$"},
                 {L"OLD TEXT", nullptr},
                 {std::wstring(L"A\0B", 3), nullptr},
                 {std::wstring(1000000, L'Z'), nullptr}};
    veld::CLayer* layer = Layer(L"SPARE");
    for (const auto& c : cases) {
        SCOPED_TRACE(c.typed ? c.typed : "untouched");
        layer->SetName(ulo::WString(c.from));
        ScriptedUser user;
        Run(user, true, [&](ScriptedUser& u, QWidget* w) {
            u.Tap(kLayerList, RowOf(w, kLayerList, QString::fromStdWString(c.from)), 0);
            if (c.typed)
                u.SetText(kNameEdit, Q(c.typed));
            u.Key(kNameEdit, Qt::Key_Return).Click(ulo::IDOK);
        });
        EXPECT_TRUE(user.Messages().empty());
        EXPECT_EQ(layer->GetName().ToQString(),
                  c.typed ? Q(c.typed) : QString::fromStdWString(c.from));
    }
}

// A header clicked twice sorts ascending, then descending, ties by name
// ascending both ways; after "New" the next click sorts ascending again.
// "All unused" leaves out the layers in use, but a new layer is listed until
// the next refill.
TEST_F(LayersDialogTest, TheListFollowsHeaderClicksNewLayersAndTheFilter) {
    Layer(L"ROADS")->SetColor(3);  // FENCES, ROADS and SPARE: 3 (Green)
    ScriptedUser user;
    QStringList seen;  // each look: "colour:name" for each row
    const auto look = [&](QWidget* w) {
        QStringList rows;
        for (const QString& row : Rows(w, kLayerList))
            rows << row.section(u'\t', 4, 4) + u':' + row.section(u'\t', 0, 0);
        seen << rows.join(u',') + u',';
    };
    user.Header(kLayerList, 4).Inspect(look).Header(kLayerList, 4).Inspect(look);
    user.Click(kNew).Header(kLayerList, 4).Inspect(look);
    user.Pick(kLayerFilter, 2).Inspect(look).Click(kNew).Inspect(look);
    user.Pick(kLayerFilter, 0).Inspect(look).Click(ulo::IDCANCEL);
    factory->ShowDlgLayer(nullptr, cad);
    ExpectFinished(user);
    ASSERT_EQ(seen.size(), 6);
    EXPECT_TRUE(
        seen[0].startsWith(Q("Red:BUILDINGS,Yellow:TEXT,Green:FENCES,Green:ROADS,Green:SPARE,")))
        << seen[0].toStdString();
    EXPECT_TRUE(
        seen[1].endsWith(Q(",Green:FENCES,Green:ROADS,Green:SPARE,Yellow:TEXT,Red:BUILDINGS,")))
        << seen[1].toStdString();
    EXPECT_TRUE(seen[2].startsWith(Q("Red:BUILDINGS,Red:Layer1,"))) << seen[2].toStdString();
    EXPECT_TRUE(seen[3].contains(Q(":SPARE,")) && seen[3].contains(Q(":Layer1,")) &&
                !seen[3].contains(Q(":TREES,")))
        << seen[3].toStdString();
    EXPECT_EQ(seen[4], seen[3] + Q("Red:Layer2,"));
    EXPECT_TRUE(seen[5].contains(Q(":Layer2,")) && seen[5].contains(Q(":TREES,")))
        << seen[5].toStdString();
}

// A new layer renamed, coloured and given a line type through the pickers,
// made current, and another layer deleted: all kept by OK. Undo after a later
// edit of a layer the visit left alone keeps that edit.
TEST_F(LayersDialogTest, AVisitsEditsAreKeptByOk) {
    ScriptedUser user;
    user.Click(kNew);
    Run(user, true, [](ScriptedUser& u, QWidget* w) {
        const int row = RowOf(w, kLayerList, Q("Layer1"));
        u.Tap(kLayerList, row, 0)
            .SetText(kNameEdit, Q("SURVEY"))
            .Key(kNameEdit, Qt::Key_Return)
            .Tap(kLayerList, row, 4)
            .Press(ctl::Color::kPaletteEven, 0.5, 0.5)
            .Click(ctl::Color::kOk)
            .Tap(kLayerList, row, 5)
            .Tap(ctl::SelType::kList, 4, 0)
            .Click(ctl::SelType::kOk)
            .Click(kLayerCurrent);
        On(kLayerList, "SPARE", {kLayerDelete, ulo::IDOK})(u, w);
    });
    EXPECT_TRUE(user.Messages().empty());
    veld::CLayer* survey = Layer(L"SURVEY");
    ASSERT_NE(survey, nullptr);
    EXPECT_EQ(GetCurLayer(&cad), survey);
    EXPECT_NE(survey->GetColor(), Layer(L"BUILDINGS")->GetColor());
    EXPECT_NE(survey->GetLtype(), Layer(L"BUILDINGS")->GetLtype());
    EXPECT_EQ(Layer(L"SPARE"), nullptr);
    Layer(L"TREES")->SetColor(55);
    ASSERT_TRUE(cad.Undo());
    EXPECT_EQ(Layer(L"SURVEY"), nullptr);
    EXPECT_NE(Layer(L"SPARE"), nullptr);
    EXPECT_EQ(Layer(L"TREES")->GetColor(), 55);
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
