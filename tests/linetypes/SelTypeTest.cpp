// The line type selection dialog as a host runs it (ShowDlgSelLtype), with a
// scripted user: the rows it offers, the preset row, the column widths in
// every layout, and what OK gives back.
#include <gtest/gtest.h>

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
    QStringList names, headings;
    std::vector<int> widths;
    int viewportWidth = 0;
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
        s.names << list->GetItem(row)->GetName().ToQString();
    for (int c = 0; c < 3; ++c) {
        s.headings << list->model()->headerData(c, Qt::Horizontal).toString();
        s.widths.push_back(list->GetColumnWidth(c));
    }
    s.viewportWidth = list->viewport()->width();
    s.selected = list->GetSelectedLtype();
    s.marked = list->GetCurMark();
    if (s.selected) {
        const QRect row = list->visualRect(list->model()->index(list->FindItem(s.selected), 0));
        s.selectedRowInView = list->viewport()->rect().contains(row);
    }
    return s;
}

// The sample drawing's line types as the list must offer them: table order,
// the XRef-dependent one included, ByBlock and ByLayer left out.
const QStringList kSampleRows =
    QStringLiteral(
        "Continuous DASHED HIDDEN CENTER PHANTOM DOT DASHDOT BORDER DIVIDE GAS_LINE "
        "WATER_LINE FENCE_LINE BOUNDARY BASEMAP|TRACK")
        .split(u' ');

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
    /// Runs the dialog for @p user with @p preset; "DOT" stands in the result
    /// beforehand, so that a dialog which leaves it alone shows.
    int Run(ScriptedUser& user, veld::CLtype* preset, veld::CLtype*& chosen) {
        chosen = Ltype(L"DOT");
        const int code = ShowDlgSelLtype(nullptr, &cad, preset, &chosen);
        EXPECT_TRUE(user.Finished()) << user.Report().toStdString();
        return code;
    }

    CVELD cad;
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
        {2, L"ByLayer", false},  // a logical line type has no row: nothing is selected
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << c.layout << " " << (c.preset ? c.preset : L"none"));
        CPalmDevice::SetLayoutOverride(c.layout);
        veld::CLtype* preset = Ltype(c.preset);
        ScriptedUser user;
        Shown shown;
        user.Inspect([&](QWidget* w) { shown = Look(w); }).Click(kOk);
        veld::CLtype* chosen;
        EXPECT_EQ(Run(user, preset, chosen), ulo::IDOK);
        EXPECT_EQ(shown.names, kSampleRows);
        EXPECT_EQ(shown.marked, preset);
        EXPECT_EQ(shown.selected, c.listed ? preset : nullptr);
        EXPECT_EQ(shown.selectedRowInView, c.listed);
        EXPECT_EQ(shown.headings, QStringLiteral("Line type|Appearance|Description").split(u'|'));
        // Three equal columns filling the list, never wider than it.
        ASSERT_EQ(shown.widths.size(), 3u);
        EXPECT_EQ(shown.widths, std::vector<int>(3, shown.widths[0]));
        EXPECT_LE(3 * shown.widths[0], shown.viewportWidth);
        EXPECT_GT(3 * shown.widths[0], shown.viewportWidth - 40);
        // OK with the preset row still selected gives the preset back.
        EXPECT_EQ(chosen, c.listed ? preset : nullptr);
        ASSERT_EQ(user.Dialogs().size(), 1u);
        EXPECT_EQ(user.Dialogs()[0].layout, c.layout);
        EXPECT_EQ(user.Dialogs()[0].title, QStringLiteral("Select Type Line"));
        EXPECT_TRUE(user.Messages().empty());
    }
}

TEST_F(SelTypeTest, OkGivesTheSelectedLineTypeUnlessItDependsOnAnExternalReference) {
    constexpr int kKeys = -1;  // from the preset row (Continuous) one down, and Return for OK
    constexpr unsigned kCloseBox = 0;
    const struct {
        const wchar_t* row;  ///< the row acted on
        int column;          ///< where it is tapped
        unsigned button;     ///< what ends the dialog
        int code;
        const wchar_t* chosen;  ///< null: no result
    } cases[] = {
        {L"HIDDEN", 0, kOk, ulo::IDOK, L"HIDDEN"},
        {L"GAS_LINE", 1, kOk, ulo::IDOK, L"GAS_LINE"},
        {L"DASHED", kKeys, kOk, ulo::IDOK, L"DASHED"},
        {L"BASEMAP|TRACK", 0, kOk, ulo::IDOK, nullptr},  // XRef-dependent: warned
        {L"DASHED", 0, kCancel, ulo::IDCANCEL, nullptr},
        {L"DASHED", 0, kCloseBox, ulo::IDCANCEL, nullptr},
    };
    veld::CLtype* const current = GetCurLtype(&cad);
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << c.row << " " << c.column << " " << c.button);
        ScriptedUser user;
        const int row = kSampleRows.indexOf(QString::fromWCharArray(c.row));
        if (c.column == kKeys)
            user.Key(kList, Qt::Key_Down).Key(kList, Qt::Key_Return);
        else if (c.button == kCloseBox)
            user.Tap(kList, row, c.column).Close();
        else
            user.Tap(kList, row, c.column).Click(c.button);
        const bool warned = c.code == ulo::IDOK && !c.chosen;
        if (warned)
            user.Answer(ulo::IDOK);
        veld::CLtype* chosen;
        EXPECT_EQ(Run(user, Ltype(L"Continuous"), chosen), c.code);
        EXPECT_EQ(chosen, Ltype(c.chosen));
        ASSERT_EQ(user.Messages().size(), warned ? 1u : 0u);
        if (warned) {
            EXPECT_EQ(user.Messages()[0].text,
                      QStringLiteral("A type line XRef-dependent can not be made current"));
            EXPECT_EQ(user.Messages()[0].caption, QStringLiteral("Warning"));
            EXPECT_EQ(user.Messages()[0].flags, 48u);
        }
    }
    // Choosing is all: the current line type stays what it was.
    EXPECT_EQ(GetCurLtype(&cad), current);
}

TEST_F(SelTypeTest, RefusesToRunWithoutACadInstanceOrAPlaceForTheResult) {
    ScriptedUser user;  // fails, and closes it, should a dialog open
    veld::CLtype* chosen = Ltype(L"DOT");
    EXPECT_EQ(ShowDlgSelLtype(nullptr, nullptr, nullptr, &chosen), -1);
    EXPECT_EQ(ShowDlgSelLtype(nullptr, &cad, nullptr, nullptr), -1);
    EXPECT_TRUE(user.Finished()) << user.Report().toStdString();
    EXPECT_TRUE(user.Dialogs().empty());
}
