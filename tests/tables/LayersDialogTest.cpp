// The layers dialog as the host runs it (ShowDlgLayer) on the sample drawing,
// with a scripted user: what the list shows, the refusals word for word
// (each changing nothing), renaming, sorting by the column headers, the
// filter, and a visit committed as one undo step.
#include <gtest/gtest.h>

#include <string>

#include <QAbstractItemView>
#include <QJsonArray>
#include <QLineEdit>

#include "../factory/FactoryFixture.h"
#include "app/DrawingFile.h"
#include "app/SampleDrawing.h"
#include "app/VELD.h"
#include "ulo/ctrl/Win.h"
#include "veld/Data.h"

using automation::ScriptedUser;

namespace {

constexpr unsigned kFilter = 1128, kList = 1129, kNew = 1130, kDelete = 1131, kCurrent = 1132;
constexpr unsigned kNameEdit = 11132;

QString Q(const char* text) {
    return QString::fromUtf8(text);
}

/// The list's rows as "name on freeze lock colour ltype" texts, tab-separated.
QStringList Rows(QWidget* window) {
    QStringList rows;
    const QJsonObject state = ScriptedUser::ControlState(ulo::FindControl(window, kList));
    for (const QJsonValue& row : state.value(QStringLiteral("rows")).toArray()) {
        QStringList cells;
        for (const QJsonValue& cell : row.toArray())
            cells << cell.toString();
        rows << cells.join(u'\t');
    }
    return rows;
}

QString Names(QWidget* window) {
    QStringList names;
    for (const QString& row : Rows(window))
        names << row.section(u'\t', 0, 0);
    return names.join(u',');
}

int RowOf(QWidget* window, const QString& name) {
    const QStringList rows = Rows(window);
    for (int i = 0; i < rows.size(); ++i)
        if (rows[i].section(u'\t', 0, 0) == name)
            return i;
    return -1;
}

class LayersDialogTest : public FactoryTest {
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

    CVELD cad;
    QByteArray before, written;
};

// Sorted by name at first; rows read as words; the current layer marked.
TEST_F(LayersDialogTest, ListsTheLayersByNameWithTheirStatesAsWords) {
    ScriptedUser user;
    QStringList rows;
    int marked = -2;
    user.Inspect([&](QWidget* w) {
            rows = Rows(w);
            marked = ScriptedUser::ControlState(ulo::FindControl(w, kList))
                         .value(QStringLiteral("marked"))
                         .toInt(-2);
        })
        .Click(ulo::IDCANCEL);
    factory->ShowDlgLayer(nullptr, cad);
    ExpectFinished(user);
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

// Every refusal shows its text word for word and, the visit cancelled, the
// drawing is as before; the warnings that do not refuse still warn.
TEST_F(LayersDialogTest, RefusalsAreShownWordForWordAndChangeNothing) {
    const QString layerNotCurrent =
        Q("The layer selected can not be made current.\r\n\r\nThe following layers can not be "
          "made current:\r\n\t-XRef Layers\r\n\t-Frozen Layers");
    const QString notDeleted =
        Q("The layer selected is not was deleted.\r\n\r\nThe following layers can not be "
          "deleted:\r\n\tLayer 0\r\n\tCurrent Layer\r\n\tXRef Layers\r\n\tLayers with objects");
    const QString letters =
        Q("Layer name invalid.\r\n\r\nThe layer names must consist of the following "
          "letters:\r\n\tA - Z\r\n\t0 - 9\r\n\t$_-");
    const struct {
        const char* what;
        std::function<void(ScriptedUser&, QWidget*)> act;  // on the dialog, by row names
        QString message;
    } cases[] = {
        {"delete with nothing selected", [](ScriptedUser& u, QWidget*) { u.Click(kDelete); },
         Q("Select a layer to erase")},
        {"current on a frozen layer",
         [](ScriptedUser& u, QWidget* w) {
             u.Tap(kList, RowOf(w, Q("CONTOURS")), 1).Click(kCurrent);
         },
         layerNotCurrent},
        {"current on an external layer",
         [](ScriptedUser& u, QWidget* w) {
             u.Tap(kList, RowOf(w, Q("BASEMAP|ROADS")), 1).Click(kCurrent);
         },
         layerNotCurrent},
        {"freeze the current layer",
         [](ScriptedUser& u, QWidget* w) { u.Tap(kList, RowOf(w, Q("BUILDINGS")), 2); },
         Q("The current layer cannot be freezed")},
        {"delete layer 0",
         [](ScriptedUser& u, QWidget*) { u.Tap(kList, 0, 3).Tap(kList, 0, 3).Click(kDelete); },
         notDeleted},
        {"delete the current layer",
         [](ScriptedUser& u, QWidget* w) {
             const int row = RowOf(w, Q("BUILDINGS"));
             u.Tap(kList, row, 3).Tap(kList, row, 3).Click(kDelete);
         },
         notDeleted},
        {"rename to nothing",
         [](ScriptedUser& u, QWidget* w) {
             u.Tap(kList, RowOf(w, Q("ROADS")), 0).Clear(kNameEdit).Key(kNameEdit, Qt::Key_Return);
         },
         Q("Layer name invalid.\r\n\r\nThe name must contain at least one character!")},
        {"rename to another layer's name in other letter case",
         [](ScriptedUser& u, QWidget* w) {
             u.Tap(kList, RowOf(w, Q("ROADS")), 0)
                 .SetText(kNameEdit, Q("Trees"))
                 .Key(kNameEdit, Qt::Key_Return);
         },
         Q("Layer name invalid.\r\n\r\nThe name must be unique")},
        {"rename to a name with a space",
         [](ScriptedUser& u, QWidget* w) {
             u.Tap(kList, RowOf(w, Q("ROADS")), 0)
                 .SetText(kNameEdit, Q("MAIN ROADS"))
                 .Key(kNameEdit, Qt::Key_Return);
         },
         letters},
        {"rename to an external layer's name",
         [](ScriptedUser& u, QWidget* w) {
             u.Tap(kList, RowOf(w, Q("ROADS")), 0)
                 .SetText(kNameEdit, Q("basemap|roads"))
                 .Key(kNameEdit, Qt::Key_Return);
         },
         letters},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        ScriptedUser user;
        // A row is selected by tapping its Lock twice: it ends as it began.
        // Steps queued while looking come after those queued before: all go
        // in at once.
        user.Inspect([&](QWidget* w) {
            c.act(user, w);
            user.Answer(ulo::IDOK).Click(ulo::IDCANCEL);
        });
        factory->ShowDlgLayer(nullptr, cad);
        ExpectFinished(user);
        ASSERT_EQ(user.Messages().size(), 1u);
        EXPECT_EQ(user.Messages()[0].caption, Q("Warning"));
        EXPECT_EQ(user.Messages()[0].text, c.message);
        EXPECT_EQ(user.Messages()[0].flags, 0x30u);
        EXPECT_EQ(drawingfile::Dump(cad), before);
    }
}

TEST_F(LayersDialogTest, SwitchingOffTheCurrentLayerWarnsAndSwitchesItOff) {
    ScriptedUser user;
    user.Inspect([&](QWidget* w) {
        user.Tap(kList, RowOf(w, Q("BUILDINGS")), 1).Answer(ulo::IDOK).Click(ulo::IDOK);
    });
    factory->ShowDlgLayer(nullptr, cad);
    ExpectFinished(user);
    ASSERT_EQ(user.Messages().size(), 1u);
    EXPECT_EQ(user.Messages()[0].text, Q("The current layer will be deactivated"));
    EXPECT_TRUE(Layer(L"BUILDINGS")->IsOff());
    ASSERT_TRUE(cad.Undo());
    EXPECT_FALSE(Layer(L"BUILDINGS")->IsOff());
}

// The editor does not open on layer 0 or an external layer; a layer may take
// its own name in other letter case, and keep a starting name the character
// rule refuses.
TEST_F(LayersDialogTest, RenamingRules) {
    {
        ScriptedUser user;
        bool shown = true;
        user.Inspect([&](QWidget* w) {
            user.Tap(kList, RowOf(w, Q("BASEMAP|ROADS")), 0)
                .Tap(kList, 0, 0)
                .Inspect([&](QWidget* w) { shown = ulo::FindControl(w, kNameEdit)->isVisible(); })
                .Click(ulo::IDCANCEL);
        });
        factory->ShowDlgLayer(nullptr, cad);
        ExpectFinished(user);
        EXPECT_FALSE(shown);
    }
    // A starting name with a space, taken in from a file.
    Layer(L"TEXT")->SetName(L"OLD TEXT");
    const struct {
        const char* from;
        const char* to;
        const char* expected;  // the layer's name after OK
    } cases[] = {
        {"ROADS", "roads", "roads"},
        {"ROADS", "MAIN_ROADS-2$", "MAIN_ROADS-2$"},
        {"OLD TEXT", "OLD TEXT", "OLD TEXT"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.to);
        ScriptedUser user;
        user.Inspect([&](QWidget* w) {
            user.Tap(kList, RowOf(w, Q(c.from)), 0)
                .SetText(kNameEdit, Q(c.to))
                .Key(kNameEdit, Qt::Key_Return)
                .Click(ulo::IDOK);
        });
        factory->ShowDlgLayer(nullptr, cad);
        ExpectFinished(user);
        EXPECT_TRUE(user.Messages().empty());
        ASSERT_NE(Layer(QString::fromUtf8(c.expected).toStdWString().c_str()), nullptr);
        EXPECT_EQ(
            Layer(QString::fromUtf8(c.expected).toStdWString().c_str())->GetName().ToQString(),
            Q(c.expected));
        ASSERT_TRUE(cad.Undo());
    }
    // A name the editor cannot hold as it stands (a NUL inside, more
    // characters than an edit takes), left untouched, is no rename.
    for (const std::wstring& name : {std::wstring(L"A\0B", 3), std::wstring(1000000, L'Z')}) {
        SCOPED_TRACE(name.size());
        Layer(L"SPARE")->SetName(ulo::WString(name));
        ScriptedUser user;
        user.Inspect([&](QWidget* w) {
            user.Tap(kList, RowOf(w, QString::fromStdWString(name)), 0)
                .Key(kNameEdit, Qt::Key_Return)
                .Click(ulo::IDOK);
        });
        factory->ShowDlgLayer(nullptr, cad);
        ExpectFinished(user);
        EXPECT_TRUE(user.Messages().empty());
        veld::CLayer* kept = cad.GetData()->GetLayerTable().Find(ulo::WString(name));
        ASSERT_NE(kept, nullptr);
        kept->SetName(L"SPARE");
    }
}

// A header clicked twice sorts ascending, then descending; ties go by name
// ascending in both directions; after "New" the next click sorts ascending.
TEST_F(LayersDialogTest, ColumnHeadersSortWithTiesByName) {
    // Two layers of one colour.
    Layer(L"ROADS")->SetColor(3);
    ScriptedUser user;
    QStringList seen;
    const auto look = [&](QWidget* w) {
        QStringList colours;
        for (const QString& row : Rows(w))
            colours << row.section(u'\t', 4, 4) + u':' + row.section(u'\t', 0, 0);
        seen << colours.join(u',');
    };
    user.Header(kList, 4).Inspect(look).Header(kList, 4).Inspect(look);
    user.Click(kNew).Header(kList, 4).Inspect(look).Click(ulo::IDCANCEL);
    factory->ShowDlgLayer(nullptr, cad);
    ExpectFinished(user);
    ASSERT_EQ(seen.size(), 3);
    // FENCES, ROADS and SPARE are all 3 (Green): in name order both ways.
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
    QString unused, afterNew, all;
    user.Pick(kFilter, 2)
        .Inspect([&](QWidget* w) { unused = Names(w); })
        .Click(kNew)
        .Inspect([&](QWidget* w) { afterNew = Names(w); })
        .Pick(kFilter, 1)
        .Pick(kFilter, 0)
        .Inspect([&](QWidget* w) { all = Names(w); })
        .Click(ulo::IDCANCEL);
    factory->ShowDlgLayer(nullptr, cad);
    ExpectFinished(user);
    EXPECT_TRUE(unused.contains(Q("SPARE")) && !unused.contains(Q("TREES")))
        << unused.toStdString();
    EXPECT_EQ(afterNew, unused + Q(",Layer1"));
    EXPECT_TRUE(all.contains(Q("Layer1")) && all.contains(Q("TREES"))) << all.toStdString();
    EXPECT_EQ(drawingfile::Dump(cad), before);
}

// Opening the filter while the name editor holds a name the rules refuse ends
// the edit first: the warning shows, the layer keeps its name, and then the
// item picked is the filter.
TEST_F(LayersDialogTest, FilterPickedWhileARefusedNameIsInTheEditorTakesEffectAfterTheWarning) {
    const struct {
        const char* name;
        QString message;
        int filter;
        const char* listed;
        const char* leftOut;
    } cases[] = {
        {"", Q("Layer name invalid.\r\n\r\nThe name must contain at least one character!"), 2,
         "SPARE", "TREES"},
        {"Trees", Q("Layer name invalid.\r\n\r\nThe name must be unique"), 1, "TREES", "SPARE"},
        {"MAIN ROADS",
         Q("Layer name invalid.\r\n\r\nThe layer names must consist of the following "
           "letters:\r\n\tA - Z\r\n\t0 - 9\r\n\t$_-"),
         2, "SPARE", "TREES"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        ScriptedUser user;
        QString names;
        int picked = -1;
        bool kept = false;
        user.Inspect([&](QWidget* w) {
            user.Tap(kList, RowOf(w, Q("ROADS")), 0)
                .SetText(kNameEdit, Q(c.name))
                .Pick(kFilter, c.filter)
                .Answer(ulo::IDOK)
                .Inspect([&](QWidget* w) {
                    names = Names(w);
                    picked = ScriptedUser::ControlState(ulo::FindControl(w, kFilter))
                                 .value(QStringLiteral("selected"))
                                 .toInt(-1);
                    kept = Layer(L"ROADS") != nullptr;
                })
                .Click(ulo::IDCANCEL);
        });
        factory->ShowDlgLayer(nullptr, cad);
        ExpectFinished(user);
        ASSERT_EQ(user.Messages().size(), 1u);
        EXPECT_EQ(user.Messages()[0].text, c.message);
        EXPECT_EQ(picked, c.filter);
        const QStringList listed = names.split(u',');
        EXPECT_TRUE(listed.contains(Q(c.listed)) && !listed.contains(Q(c.leftOut)))
            << names.toStdString();
        EXPECT_TRUE(kept);
        EXPECT_EQ(drawingfile::Dump(cad), before);
    }
}

// A whole visit: a new layer renamed, coloured and given a line type, made
// current, another layer deleted. OK makes it one undo step.
TEST_F(LayersDialogTest, VisitIsOneUndoStep) {
    ScriptedUser user;
    user.Click(kNew).Inspect([&](QWidget* w) {
        const int row = RowOf(w, Q("Layer1"));
        const int spare = RowOf(w, Q("SPARE"));
        user.Tap(kList, row, 0)
            .SetText(kNameEdit, Q("SURVEY"))
            .Key(kNameEdit, Qt::Key_Return)
            .Tap(kList, row, 4)
            .Press(11192, 0.5, 0.5)
            .Click(11196)  // the colour picker's OK
            .Tap(kList, row, 5)
            .Tap(11203, 4, 0)
            .Click(1163)  // the line type picker's OK
            .Click(kCurrent)
            .Tap(kList, spare, 3)
            .Tap(kList, spare, 3)
            .Click(kDelete)
            .Click(ulo::IDOK);
    });
    factory->ShowDlgLayer(nullptr, cad);
    ExpectFinished(user);
    EXPECT_TRUE(user.Messages().empty());
    veld::CLayer* survey = Layer(L"SURVEY");
    ASSERT_NE(survey, nullptr);
    EXPECT_EQ(GetCurLayer(&cad), survey);
    EXPECT_NE(survey->GetColor(), Layer(L"BUILDINGS")->GetColor());
    EXPECT_NE(survey->GetLtype(), Layer(L"BUILDINGS")->GetLtype());
    EXPECT_EQ(Layer(L"SPARE"), nullptr);
    const QByteArray after = drawingfile::Write(cad);
    ASSERT_TRUE(cad.Undo());
    EXPECT_FALSE(cad.CanUndo());
    EXPECT_EQ(drawingfile::Write(cad), written);
    EXPECT_EQ(Layer(L"SURVEY"), nullptr);
    ASSERT_TRUE(cad.Redo());
    EXPECT_EQ(drawingfile::Write(cad), after);
}

}  // namespace
