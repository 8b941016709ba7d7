// The line type selection dialog as a host runs it (ShowDlgSelLtype), with a
// scripted user: the rows it offers, the preset row, the column widths in
// every layout, and what OK gives back.
#include <gtest/gtest.h>

#include "app/SampleDrawing.h"
#include "app/VELD.h"
#include "automation/ScriptedUser.h"
#include "linetypes/CVELDLtypeList.h"
#include "linetypes/LtypePickers.h"
#include "res/templates/ControlIds.h"
#include "ulo/PalmDevice.h"
#include "ulo/ctrl/Dialog.h"
#include "veld/Data.h"

using automation::ScriptedUser;

namespace {

using veld5::ctl::SelType::kCancel;
using veld5::ctl::SelType::kList;
using veld5::ctl::SelType::kOk;

// The sample drawing's line types as the list must offer them: table order,
// the XRef-dependent one included, ByBlock and ByLayer left out.
const QStringList kSampleRows =
    QStringLiteral(
        "Continuous DASHED HIDDEN CENTER PHANTOM DOT DASHDOT BORDER DIVIDE GAS_LINE "
        "WATER_LINE FENCE_LINE BOUNDARY BASEMAP|TRACK")
        .split(u' ');

class SelTypeTest : public ::testing::Test {
protected:
    void SetUp() override { BuildSampleDrawing(cad); }
    void TearDown() override { CPalmDevice::SetLayoutOverride(-1); }
    veld::CLtype* Ltype(const wchar_t* name) {
        return name ? cad.GetData()->GetLtypeTable().Find(name) : nullptr;
    }
    CVELD cad;
};

}  // namespace

// The dialog opens in every layout on the preset row, selected (scrolled to)
// and marked current, with three equal columns that fill the list and call
// for no horizontal scroll bar. OK gives the selected line type (tapped in any
// column, or one row down by key and Return), unless it depends on an external
// reference: then the user is told and the result is null, with code 1.
TEST_F(SelTypeTest, OpensOnThePresetRowAndOkGivesTheSelectedLineType) {
    constexpr int kKeys = -1;       // one row down and Return for OK
    constexpr int kNoTap = -2;      // only the button
    constexpr unsigned kClose = 0;  // the close box
    const struct {
        int layout;
        const wchar_t* preset;  ///< unlisted for ByLayer: nothing selected
        const wchar_t* row;     ///< the row acted on
        int column;             ///< where it is tapped
        unsigned button;        ///< what ends the dialog
        int code;
        const wchar_t* chosen;  ///< null: no result
    } cases[] = {
        {0, L"Continuous", nullptr, kNoTap, kOk, ulo::IDOK, L"Continuous"},
        {1, L"WATER_LINE", nullptr, kNoTap, kOk, ulo::IDOK, L"WATER_LINE"},
        {2, L"BOUNDARY", nullptr, kNoTap, kOk, ulo::IDOK, L"BOUNDARY"},  // below the first page
        {3, L"DASHED", nullptr, kNoTap, kOk, ulo::IDOK, L"DASHED"},
        {0, nullptr, nullptr, kNoTap, kOk, ulo::IDOK, nullptr},
        {2, L"ByLayer", nullptr, kNoTap, kOk, ulo::IDOK, nullptr},
        {0, L"Continuous", L"HIDDEN", 0, kOk, ulo::IDOK, L"HIDDEN"},
        {0, L"Continuous", L"GAS_LINE", 1, kOk, ulo::IDOK, L"GAS_LINE"},
        {0, L"Continuous", nullptr, kKeys, kOk, ulo::IDOK, L"DASHED"},
        {0, L"Continuous", L"BASEMAP|TRACK", 0, kOk, ulo::IDOK, nullptr},
        {0, L"Continuous", L"DASHED", 0, kCancel, ulo::IDCANCEL, nullptr},
        {0, L"Continuous", L"DASHED", 0, kClose, ulo::IDCANCEL, nullptr},
    };
    veld::CLtype* const current = GetCurLtype(&cad);
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << c.layout << " " << (c.preset ? c.preset : L"none") << " "
                                        << (c.row ? c.row : L"-") << " " << c.button);
        CPalmDevice::SetLayoutOverride(c.layout);
        veld::CLtype* preset = Ltype(c.preset);
        const bool listed = c.preset && kSampleRows.contains(QString::fromWCharArray(c.preset));
        ScriptedUser user;
        user.Inspect([&](QWidget* w) {
            auto* list = qobject_cast<CVELDLtypeList*>(ulo::FindControl(w, kList));
            ASSERT_NE(list, nullptr);
            QStringList names, headings;
            for (int row = 0; row < list->GetItemCount(); ++row)
                names << list->GetItem(row)->GetName().ToQString();
            for (int column = 0; column < 3; ++column)
                headings << list->model()->headerData(column, Qt::Horizontal).toString();
            EXPECT_EQ(names, kSampleRows);
            EXPECT_EQ(headings.join(u'|'), QStringLiteral("Line type|Appearance|Description"));
            const int width = list->GetColumnWidth(0), room = list->viewport()->width();
            EXPECT_TRUE(list->GetColumnWidth(1) == width && list->GetColumnWidth(2) == width);
            EXPECT_TRUE(3 * width <= room && 3 * width > room - 40) << width << " " << room;
            EXPECT_EQ(list->GetCurMark(), preset);
            EXPECT_EQ(list->GetSelectedItem(), listed ? preset : nullptr);
            const QRect row = list->CellRect(list->FindItem(preset), 0);
            EXPECT_EQ(list->viewport()->rect().contains(row), listed);
        });
        if (c.column == kKeys)
            user.Key(kList, Qt::Key_Down).Key(kList, Qt::Key_Return);
        else if (c.column != kNoTap)
            user.Tap(kList, kSampleRows.indexOf(QString::fromWCharArray(c.row)), c.column);
        if (c.button == kClose)
            user.Close();
        else if (c.column != kKeys)
            user.Click(c.button);
        const bool warned = c.code == ulo::IDOK && c.row && !c.chosen;
        if (warned)
            user.Answer(ulo::IDOK);
        veld::CLtype* chosen = Ltype(L"DOT");  // a dialog that leaves it alone shows
        EXPECT_EQ(ShowDlgSelLtype(nullptr, &cad, preset, &chosen), c.code);
        EXPECT_TRUE(user.Finished()) << user.Report().toStdString();
        EXPECT_EQ(chosen, Ltype(c.chosen));
        ASSERT_EQ(user.Dialogs().size(), 1u);
        EXPECT_EQ(user.Dialogs()[0].layout, c.layout);
        EXPECT_EQ(user.Dialogs()[0].title, QStringLiteral("Select Type Line"));
        QString messages;  // "caption|text|flags"
        for (const automation::MessageRecord& m : user.Messages())
            messages += m.caption + u'|' + m.text + u'|' + QString::number(m.flags);
        EXPECT_EQ(messages, QString::fromLatin1(warned ? "Warning|A type line XRef-dependent can "
                                                         "not be made current|48"
                                                       : ""));
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
