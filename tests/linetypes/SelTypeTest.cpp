// The line type selection dialog as a host runs it (ShowDlgSelLtype), with a
// scripted user: the rows it offers, the preset row, the column widths in
// every layout, and what OK gives back.
#include <gtest/gtest.h>

#include <QHeaderView>
#include <QScrollBar>
#include <optional>

#include "app/SampleDrawing.h"
#include "app/VELD.h"
#include "automation/ScriptedUser.h"
#include "linetypes/CVELDLtypeList.h"
#include "linetypes/LtypePickers.h"
#include "ulo/PalmDevice.h"
#include "ulo/ctrl/Dialog.h"
#include "veld/Data.h"

using automation::ScriptedUser;

namespace {

constexpr unsigned kOk = 1163;
constexpr unsigned kCancel = 1164;
constexpr unsigned kList = 11203;

/// What the open dialog shows.
struct Shown {
    QStringList names;
    QStringList headings;
    std::vector<int> widths;
    int viewportWidth = 0;
    bool horizontalScrollBar = true;
    veld::CLtype* selected = nullptr;
    veld::CLtype* marked = nullptr;
    bool selectedRowInView = false;
};

Shown Look(QWidget* window) {
    Shown s;
    auto* list = qobject_cast<CVELDLtypeList*>(ulo::FindControl(window, kList));
    if (!list)
        return s;
    for (int row = 0; row < list->GetItemCount(); ++row)
        s.names << list->GetItemLtype(row)->GetName().ToQString();
    for (int c = 0; c < 3; ++c) {
        s.headings << list->model()->headerData(c, Qt::Horizontal).toString();
        s.widths.push_back(list->GetColumnWidth(c));
    }
    s.viewportWidth = list->viewport()->width();
    s.horizontalScrollBar = list->horizontalScrollBar()->isVisible();
    s.selected = list->GetSelectedLtype();
    s.marked = list->GetCurLtypeMark();
    if (s.selected) {
        const QRect row = list->visualRect(list->model()->index(list->FindLtype(s.selected), 0));
        s.selectedRowInView = list->viewport()->rect().contains(row);
    }
    return s;
}

class SelTypeTest : public ::testing::Test {
protected:
    void SetUp() override {
        BuildSampleDrawing(cad);
        CPalmDevice::SetLayoutOverride(0);
    }
    void TearDown() override { CPalmDevice::SetLayoutOverride(-1); }

    veld::CLtype* Ltype(const wchar_t* name) {
        return name ? cad.GetData()->GetLtypeTable().Find(name) : nullptr;
    }
    int RowOf(const wchar_t* name) {
        veld::CData::CLtypeIterator it(cad.GetData(), true, false);
        int row = 0;
        for (veld::CLtype* l = it.GetNext(); l; l = it.GetNext(), ++row)
            if (l->GetName() == name)
                return row;
        return -1;
    }
    static void ExpectFinished(const ScriptedUser& user) {
        EXPECT_TRUE(user.Finished()) << user.Report().toStdString();
    }

    CVELD cad;
};

// The sample drawing's line types as the list must offer them: table order,
// the XRef-dependent one included, ByBlock and ByLayer left out.
const QStringList kSampleRows = {
    QStringLiteral("Continuous"), QStringLiteral("DASHED"),        QStringLiteral("HIDDEN"),
    QStringLiteral("CENTER"),     QStringLiteral("PHANTOM"),       QStringLiteral("DOT"),
    QStringLiteral("DASHDOT"),    QStringLiteral("BORDER"),        QStringLiteral("DIVIDE"),
    QStringLiteral("GAS_LINE"),   QStringLiteral("WATER_LINE"),    QStringLiteral("FENCE_LINE"),
    QStringLiteral("BOUNDARY"),   QStringLiteral("BASEMAP|TRACK"),
};

}  // namespace

TEST_F(SelTypeTest, OpensOnThePresetRowSelectedAndMarkedCurrentInEveryLayout) {
    const struct {
        int layout;
        const wchar_t* preset;
        bool listed;
    } cases[] = {
        {0, L"Continuous", true},
        {1, L"WATER_LINE", true},
        // Far below what a landscape list shows: it must be scrolled to.
        {2, L"BOUNDARY", true},
        {3, L"DASHED", true},
        {0, nullptr, false},
        // A logical line type has no row: nothing is selected.
        {2, L"ByLayer", false},
    };
    for (const auto& c : cases) {
        const std::string what =
            std::to_string(c.layout) + " " +
            (c.preset ? QString::fromWCharArray(c.preset).toStdString() : std::string("none"));
        CPalmDevice::SetLayoutOverride(c.layout);
        veld::CLtype* preset = Ltype(c.preset);
        ScriptedUser user;
        Shown shown;
        user.Inspect([&](QWidget* w) { shown = Look(w); }).Click(kOk);
        veld::CLtype* chosen = Ltype(L"DOT");
        EXPECT_EQ(ShowDlgSelLtype(nullptr, &cad, preset, &chosen), ulo::IDOK) << what;
        ExpectFinished(user);

        EXPECT_EQ(shown.names, kSampleRows) << what;
        EXPECT_EQ(shown.marked, preset) << what;
        EXPECT_EQ(shown.selected, c.listed ? preset : nullptr) << what;
        EXPECT_EQ(shown.selectedRowInView, c.listed) << what;
        EXPECT_EQ(shown.headings,
                  (QStringList{QStringLiteral("Line type"), QStringLiteral("Appearance"),
                               QStringLiteral("Description")}))
            << what;
        // Three equal columns filling the list, never wider than it.
        ASSERT_EQ(shown.widths.size(), 3u);
        EXPECT_EQ(shown.widths[0], shown.widths[1]) << what;
        EXPECT_EQ(shown.widths[1], shown.widths[2]) << what;
        const int total = shown.widths[0] * 3;
        EXPECT_LE(total, shown.viewportWidth) << what;
        EXPECT_GT(total, shown.viewportWidth - 40) << what;
        EXPECT_FALSE(shown.horizontalScrollBar) << what;
        // OK with the preset row still selected gives the preset back.
        EXPECT_EQ(chosen, c.listed ? preset : nullptr) << what;
        ASSERT_EQ(user.Dialogs().size(), 1u) << what;
        EXPECT_EQ(user.Dialogs()[0].templateId, 11092u) << what;
        EXPECT_EQ(user.Dialogs()[0].layout, c.layout) << what;
        EXPECT_EQ(user.Dialogs()[0].title, QStringLiteral("Select Type Line")) << what;
        EXPECT_TRUE(user.Messages().empty()) << what;
    }
}

TEST_F(SelTypeTest, OkGivesTheSelectedLineTypeUnlessItDependsOnAnExternalReference) {
    enum class Act { TapName, TapSample, TapDescription, KeyDownReturn, Cancel, Close };
    const struct {
        const wchar_t* row;  // the row acted on
        Act act;
        int code;
        const wchar_t* chosen;  // null: no result
        bool warned;
    } cases[] = {
        {L"HIDDEN", Act::TapName, ulo::IDOK, L"HIDDEN", false},
        {L"GAS_LINE", Act::TapSample, ulo::IDOK, L"GAS_LINE", false},
        {L"BOUNDARY", Act::TapDescription, ulo::IDOK, L"BOUNDARY", false},
        // From the preset row (Continuous) one down, and Return for OK.
        {L"DASHED", Act::KeyDownReturn, ulo::IDOK, L"DASHED", false},
        {L"BASEMAP|TRACK", Act::TapName, ulo::IDOK, nullptr, true},
        {L"DASHED", Act::Cancel, ulo::IDCANCEL, nullptr, false},
        {L"DASHED", Act::Close, ulo::IDCANCEL, nullptr, false},
    };
    veld::CLtype* const current = GetCurLtype(&cad);
    for (const auto& c : cases) {
        const std::string what = QString::fromWCharArray(c.row).toStdString() + " " +
                                 std::to_string(static_cast<int>(c.act));
        ScriptedUser user;
        const int row = RowOf(c.row);
        ASSERT_GE(row, 0) << what;
        switch (c.act) {
            case Act::TapName:
                user.Tap(kList, row, 0).Click(kOk);
                break;
            case Act::TapSample:
                user.Tap(kList, row, 1).Click(kOk);
                break;
            case Act::TapDescription:
                user.Tap(kList, row, 2).Click(kOk);
                break;
            case Act::KeyDownReturn:
                user.Key(kList, Qt::Key_Down).Key(kList, Qt::Key_Return);
                break;
            case Act::Cancel:
                user.Tap(kList, row, 0).Click(kCancel);
                break;
            case Act::Close:
                user.Tap(kList, row, 0).Close();
                break;
        }
        if (c.warned)
            user.Answer(ulo::IDOK);
        veld::CLtype* chosen = Ltype(L"DOT");
        EXPECT_EQ(ShowDlgSelLtype(nullptr, &cad, Ltype(L"Continuous"), &chosen), c.code) << what;
        ExpectFinished(user);
        EXPECT_EQ(chosen, Ltype(c.chosen)) << what;
        if (c.warned) {
            ASSERT_EQ(user.Messages().size(), 1u) << what;
            EXPECT_EQ(user.Messages()[0].text,
                      QStringLiteral("A type line XRef-dependent can not be made current"));
            EXPECT_EQ(user.Messages()[0].caption, QStringLiteral("Warning"));
            EXPECT_EQ(user.Messages()[0].flags, 48u);
        } else {
            EXPECT_TRUE(user.Messages().empty()) << what;
        }
    }
    // Choosing is all: the current line type stays what it was.
    EXPECT_EQ(GetCurLtype(&cad), current);
}

TEST_F(SelTypeTest, ALongListOpensScrolledToThePresetRow) {
    auto data = std::make_unique<veld::CData>();
    veld::CLtypeComplexDashSeq seq;
    seq.AddDashDouble(1.0);
    seq.AddDashDouble(-0.5);
    veld::CLtype* far = nullptr;
    constexpr int kCount = 10000;
    for (int i = 0; i < kCount; ++i) {
        const std::wstring name = L"LT" + std::to_wstring(i);
        veld::CLtype* l = data->GetObjectFactory()->CreateLtype(name, L"", seq, 0, 0);
        data->GetLtypeTable().Add(l);
        l->SubReference();
        if (i == kCount - 7)
            far = l;
    }
    cad.SetData(std::move(data));
    ScriptedUser user;
    Shown shown;
    user.Inspect([&](QWidget* w) { shown = Look(w); }).Click(kOk);
    veld::CLtype* chosen = nullptr;
    EXPECT_EQ(ShowDlgSelLtype(nullptr, &cad, far, &chosen), ulo::IDOK);
    ExpectFinished(user);
    EXPECT_EQ(shown.names.size(), kCount + 1);  // and Continuous
    EXPECT_EQ(shown.selected, far);
    EXPECT_TRUE(shown.selectedRowInView);
    EXPECT_EQ(chosen, far);
}

TEST_F(SelTypeTest, RefusesToRunWithoutACadInstanceOrAPlaceForTheResult) {
    ScriptedUser user;  // fails, and closes it, should a dialog open
    veld::CLtype* chosen = Ltype(L"DOT");
    EXPECT_EQ(ShowDlgSelLtype(nullptr, nullptr, nullptr, &chosen), -1);
    EXPECT_EQ(ShowDlgSelLtype(nullptr, &cad, nullptr, nullptr), -1);
    ExpectFinished(user);
    EXPECT_TRUE(user.Dialogs().empty());
}
