// The line types dialog as the host runs it (ShowDlgLtype) on the sample
// drawing: the refusals word for word, the global scale as typed (any text),
// and line types loaded from the support library, kept by OK as one undo
// step and gone after Cancel.
#include <gtest/gtest.h>

#include <limits>

#include <QJsonArray>

#include "../factory/FactoryFixture.h"
#include "app/DrawingFile.h"
#include "app/SampleDrawing.h"
#include "app/VELD.h"
#include "ulo/ctrl/Win.h"
#include "veld/Data.h"

using automation::ScriptedUser;

namespace {

constexpr unsigned kFilter = 11125, kList = 11126, kDelete = 11127, kLoad = 11128, kCurrent = 11129,
                   kScale = 11130;
constexpr unsigned kLoadGrid = 2000;

QString Q(const char* text) {
    return QString::fromUtf8(text);
}

QStringList Names(QWidget* window) {
    QStringList names;
    const QJsonObject state = ScriptedUser::ControlState(ulo::FindControl(window, kList));
    for (const QJsonValue& row : state.value(QStringLiteral("rows")).toArray())
        names << row.toArray().at(0).toString();
    return names;
}

int RowOf(QWidget* window, const char* name) {
    return static_cast<int>(Names(window).indexOf(Q(name)));
}

class LtypesDialogTest : public FactoryTest {
protected:
    void SetUp() override {
        FactoryTest::SetUp();
        BuildSampleDrawing(cad);
        before = drawingfile::Dump(cad);
        written = drawingfile::Write(cad);
    }
    veld::CLtype* Ltype(const wchar_t* name) { return cad.GetData()->GetLtypeTable().Find(name); }
    /// Selects the row of @p name and clicks @p button.
    static void On(ScriptedUser& user, QWidget* w, const char* name, unsigned button) {
        user.Tap(kList, RowOf(w, name), 0).Click(button);
    }

    CVELD cad;
    QByteArray before, written;
};

TEST_F(LtypesDialogTest, RefusalsAreShownWordForWordAndChangeNothing) {
    const QString notDeleted =
        Q("The line type selected has not been canceled.\r\n\r\nThe following types of line can "
          "not be deleted.\r\n\tLine type ByBlock, ByLayer and Continuous\r\n\tLine type "
          "current\r\n\tLine type Xref\r\n\tLine type in objects or layers");
    const struct {
        const char* what;
        std::function<void(ScriptedUser&, QWidget*)> act;
        QString message;
    } cases[] = {
        {"delete with nothing selected", [](ScriptedUser& u, QWidget*) { u.Click(kDelete); },
         Q("Select a linetype to erase.")},
        {"delete ByLayer", [](ScriptedUser& u, QWidget* w) { On(u, w, "ByLayer", kDelete); },
         notDeleted},
        {"delete Continuous", [](ScriptedUser& u, QWidget* w) { On(u, w, "Continuous", kDelete); },
         notDeleted},
        {"delete a line type layers use",
         [](ScriptedUser& u, QWidget* w) { On(u, w, "GAS_LINE", kDelete); }, notDeleted},
        {"delete an external line type",
         [](ScriptedUser& u, QWidget* w) { On(u, w, "BASEMAP|TRACK", kDelete); }, notDeleted},
        {"delete the line type made current",
         [](ScriptedUser& u, QWidget* w) {
             On(u, w, "PHANTOM", kCurrent);
             u.Click(kDelete);
         },
         notDeleted},
        {"make an external line type current",
         [](ScriptedUser& u, QWidget* w) { On(u, w, "BASEMAP|TRACK", kCurrent); },
         Q("A type line XRef-dependent can not be made current")},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        ScriptedUser user;
        // Steps queued while looking come after those queued before: all go
        // in at once.
        user.Inspect([&](QWidget* w) {
            c.act(user, w);
            user.Answer(ulo::IDOK).Click(ulo::IDCANCEL);
        });
        factory->ShowDlgLtype(nullptr, cad);
        ExpectFinished(user);
        ASSERT_EQ(user.Messages().size(), 1u);
        EXPECT_EQ(user.Messages()[0].caption, Q("Warning"));
        EXPECT_EQ(user.Messages()[0].text, c.message);
        EXPECT_EQ(user.Messages()[0].flags, 0x30u);
        EXPECT_EQ(drawingfile::Dump(cad), before);
    }
}

// The scale edit shows six decimals and OK applies what it reads; a text
// that reads as 0 or less, or as no finite number, leaves the scale alone.
// Any positive scale is kept, and an untouched field never changes one
// beyond what its six decimals show.
TEST_F(LtypesDialogTest, GlobalScaleAsTyped) {
    constexpr double kStart = 1.2345678, kLargest = std::numeric_limits<double>::max();
    const struct {
        double start;
        const char* typed;  // null: not touched
        double applied;
    } cases[] = {
        {kStart, nullptr, 1.234568}, {kStart, "2.5", 2.5},          {kStart, "1,5", 1.5},
        {kStart, "abc", kStart},     {kStart, "0", kStart},         {kStart, "-3", kStart},
        {kStart, "", kStart},        {kStart, "1e309", kStart},     {kStart, "nan", kStart},
        {kStart, " 7x", 7},          {kStart, "1e-10", 1e-10},      {kStart, "4e-320", 4e-320},
        {1e100, nullptr, 1e100},     {kLargest, nullptr, kLargest}, {1e-10, nullptr, 1e-10},
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
        // What the dialog keeps, a drawing file keeps.
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
// OK keeps them as one undo step; Cancel takes them away again.
TEST_F(LtypesDialogTest, LoadedLineTypesJoinTheDrawingUntilTheVisitEnds) {
    const QString oldDashed = Ltype(L"DASHED")->GetDesc().ToQString();
    for (const int code : {ulo::IDCANCEL, ulo::IDOK}) {
        SCOPED_TRACE(code);
        ScriptedUser user;
        QStringList listed;
        user.Click(kLoad)
            .CheckRow(kLoadGrid, 0)
            .CheckRow(kLoadGrid, 1)
            .Click(ulo::IDOK)
            .Inspect([&](QWidget* w) { listed = Names(w); })
            .Click(static_cast<unsigned>(code));
        factory->ShowDlgLtype(nullptr, cad);
        ExpectFinished(user);
        EXPECT_EQ(listed.count(Q("DASHED")), 1) << listed.join(u',').toStdString();
        EXPECT_EQ(listed.last(), Q("DASHED2"));
        if (code == ulo::IDCANCEL) {
            EXPECT_EQ(drawingfile::Dump(cad), before);
            continue;
        }
        ASSERT_NE(Ltype(L"DASHED2"), nullptr);
        EXPECT_EQ(Ltype(L"DASHED")->GetDesc().ToQString(), oldDashed);
        const QByteArray after = drawingfile::Write(cad);
        ASSERT_TRUE(cad.Undo());
        EXPECT_EQ(Ltype(L"DASHED2"), nullptr);
        ASSERT_TRUE(cad.Redo());
        EXPECT_EQ(drawingfile::Write(cad), after);
        ASSERT_TRUE(cad.Undo());
    }
}

// Deleting an unused line type and making another current, kept by OK.
TEST_F(LtypesDialogTest, DeleteAndCurrentAreKeptByOk) {
    ScriptedUser user;
    QStringList unused;
    user.Pick(kFilter, 2).Inspect([&](QWidget* w) {
        unused = Names(w);
        On(user, w, "DOT", kDelete);
        user.Pick(kFilter, 0).Inspect([&](QWidget* w) {
            On(user, w, "CENTER", kCurrent);
            user.Click(ulo::IDOK);
        });
    });
    factory->ShowDlgLtype(nullptr, cad);
    ExpectFinished(user);
    EXPECT_TRUE(user.Messages().empty());
    EXPECT_TRUE(unused.contains(Q("DOT")) && !unused.contains(Q("GAS_LINE")))
        << unused.join(u',').toStdString();
    EXPECT_EQ(Ltype(L"DOT"), nullptr);
    EXPECT_EQ(GetCurLtype(&cad), Ltype(L"CENTER"));
    ASSERT_TRUE(cad.Undo());
    EXPECT_NE(Ltype(L"DOT"), nullptr);
    EXPECT_EQ(drawingfile::Write(cad), written);
}

}  // namespace
