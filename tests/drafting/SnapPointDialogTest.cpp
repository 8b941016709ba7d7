// The coordinate entry dialog as the host runs it (ShowDlSnapInsertPnt), with
// a scripted user: typed texts and the point they give on OK, the beep that
// refuses an empty or too large field (the dialog stays open and the field
// keeps its text), the message that refuses a negative number beyond a
// double, and Cancel. The suite runs again under a decimal-comma locale.
#include <gtest/gtest.h>

#include <QLineEdit>
#include <cmath>
#include <string>

#include "../factory/FactoryFixture.h"
#include "app/VELD.h"
#include "ulo/Geom.h"
#include "ulo/ctrl/Win.h"

using automation::ScriptedUser;
using ulo::geom::PNT_3D;

namespace {

constexpr unsigned kOk = 11196, kCancel = 11197;
constexpr unsigned kEast = 11185, kNorth = 11186, kElev = 11188;
constexpr unsigned kFields[] = {kEast, kNorth, kElev};
const PNT_3D kBefore{-7.25, 8.5, 9.75};

QString Q(const char* text) {
    return QString::fromUtf8(text);
}
QString Repeat(const char* head, char digit, int n) {
    return Q(head) + QString(n, QLatin1Char(digit));
}

QString FieldText(QWidget* window, unsigned id) {
    auto* e = qobject_cast<QLineEdit*>(ulo::FindControl(window, id));
    return e ? e->text() : QStringLiteral("<no edit>");
}

class SnapPointDialogTest : public FactoryTest {
protected:
    CVELD cad;
};

// --------------------------------------------------------- accepted texts

TEST_F(SnapPointDialogTest, TypedTextsGiveThePointOnOk) {
    const struct {
        QString east, north, elev;
        PNT_3D want;
    } cases[] = {
        {Q("12.5"), Q("-3"), Q("100"), {12.5, -3, 100}},
        {Q("12abc"), Q("abc"), Q("7 m"), {12, 0, 7}},             // leading number, or 0
        {Q("1,5"), Q("-2,25"), Q("0,125"), {1.5, -2.25, 0.125}},  // typed decimal comma
        {Q("-0"), Q("+0.0"), Q("0"), {0, 0, 0}},
        {Q("   "), Q(" 4"), Q(" "), {0, 4, 0}},  // blanks are text without a number
        {Q("-1e200"), Q("9.99e99"), Q("-1e99"), {-1e200, 9.99e99, -1e99}},  // no lower limit
        {Q("1e-400"), Q(".5"), Q("5."), {0, 0.5, 5}},                       // too small reads as 0
        {Q("0x10"), Q("1e"), Q("2e+1"), {0, 1, 20}},  // decimal only, as every number field
        {Q("inf"), Q("nan"), Q("0x1p3"), {0, 0, 0}},
        {Q("-inf"), Q("INFINITY"), Q("-nan"), {0, 0, 0}},
        {Q("\u0663\u066b\u0661\u0664"), Q("3.14.15"), Q("--1"), {3.14, 314.15, 0}},  // one point
        {Repeat("0.", '3', 9998), Repeat("-0.", '0', 9998), Q("1"), {1.0 / 3, 0, 1}},
        {Q("\xf0\x9f\x98\x80"), Q("-"), Q("."), {0, 0, 0}},
    };
    for (const auto& c : cases) {
        ScriptedUser user;
        user.SetText(kEast, c.east).SetText(kNorth, c.north).SetText(kElev, c.elev).Click(kOk);
        PNT_3D point = kBefore;
        const bool ok = factory->ShowDlSnapInsertPnt(nullptr, cad, point);
        ExpectFinished(user);
        const std::string what =
            (c.east.left(20) + u'|' + c.north.left(20) + u'|' + c.elev.left(20)).toStdString();
        EXPECT_TRUE(ok) << what;
        EXPECT_DOUBLE_EQ(point.x, c.want.x) << what;
        EXPECT_DOUBLE_EQ(point.y, c.want.y) << what;
        EXPECT_DOUBLE_EQ(point.z, c.want.z) << what;
        // A point never carries a negative zero.
        for (const double v : {point.x, point.y, point.z})
            EXPECT_FALSE(v == 0 && std::signbit(v)) << what;
        EXPECT_EQ(user.Beeps(), 0) << what;
        EXPECT_TRUE(user.Messages().empty()) << what;
    }
}

// ------------------------------------------------------------ beep refusals

TEST_F(SnapPointDialogTest, EmptyOrTooLargeFieldIsRefusedByABeepThenCorrected) {
    // Texts that are not refused here are plain numbers; each refused field
    // is corrected to 5 after the beep.
    const struct {
        QString east, north, elev;
        unsigned focused;  // the first refused field, in East, North, elevation order
    } cases[] = {
        {Q(""), Q("1"), Q("2"), kEast},
        {Q("1"), Q(""), Q("2"), kNorth},
        {Q("1"), Q("2"), Q(""), kElev},
        {Q(""), Q(""), Q(""), kEast},
        {Q("1"), Q("1e100"), Q("2"), kNorth},
        {Q("1"), Q("2"), Q("1e309"), kElev},
        {Q("1"), Repeat("1", '0', 9999), Q("3"), kNorth},
        {Q("-4"), Repeat("", '9', 10000), Repeat("", '9', 10000), kNorth},
    };
    for (const auto& c : cases) {
        const QString typed[] = {c.east, c.north, c.elev};
        bool bad[3];
        for (int i = 0; i < 3; ++i) {
            bool number = false;
            const double v = typed[i].toDouble(&number);
            bad[i] = !number || !(v < 1e100);
        }
        ScriptedUser user;
        for (int i = 0; i < 3; ++i)
            user.SetText(kFields[i], typed[i]);
        user.Click(kOk);
        bool kept = true;
        unsigned focused = 0;
        user.Inspect([&](QWidget* w) {
            for (int i = 0; i < 3; ++i)
                kept = kept && FieldText(w, kFields[i]) == typed[i];
            if (QWidget* f = w->focusWidget())
                focused = f->property("veldCtrlId").toUInt();
        });
        for (int i = 0; i < 3; ++i)
            if (bad[i])
                user.SetText(kFields[i], QStringLiteral("5"));
        user.Click(kOk);
        PNT_3D point = kBefore;
        const bool ok = factory->ShowDlSnapInsertPnt(nullptr, cad, point);
        ExpectFinished(user);
        const std::string what =
            (c.east.left(20) + u'|' + c.north.left(20) + u'|' + c.elev.left(20)).toStdString();
        EXPECT_EQ(user.Beeps(), 1) << what;
        EXPECT_TRUE(user.Messages().empty()) << what;
        EXPECT_TRUE(kept) << what;
        EXPECT_EQ(focused, c.focused) << what;
        EXPECT_TRUE(ok) << what;
        const double got[] = {point.x, point.y, point.z};
        for (int i = 0; i < 3; ++i)
            EXPECT_EQ(got[i], bad[i] ? 5.0 : typed[i].toDouble()) << what << " field " << i;
    }
}

// --------------------------------------------- beyond a double, negative

TEST_F(SnapPointDialogTest, NegativeNumberBeyondADoubleIsRefusedNamingTheField) {
    const struct {
        unsigned field;
        const char* text;
        const char* message;
    } cases[] = {
        {kEast, "-1e309", "East : The value is out of range"},
        {kNorth, "-2e400", "North : The value is out of range"},
        {kElev, "-99e999", "Elev. : The value is out of range"},
    };
    for (const auto& c : cases) {
        ScriptedUser user;
        for (unsigned id : kFields)
            user.SetText(id, id == c.field ? Q(c.text) : QStringLiteral("1"));
        QString kept;
        user.Click(kOk).Answer(ulo::IDOK).Inspect(
            [&](QWidget* w) { kept = FieldText(w, c.field); });
        user.Click(kCancel);
        PNT_3D point = kBefore;
        const bool ok = factory->ShowDlSnapInsertPnt(nullptr, cad, point);
        ExpectFinished(user);
        EXPECT_FALSE(ok) << c.text;
        EXPECT_EQ(point, kBefore) << c.text;
        EXPECT_EQ(kept, Q(c.text));
        ASSERT_EQ(user.Messages().size(), 1u) << c.text;
        EXPECT_EQ(user.Messages()[0].text, Q(c.message));
        EXPECT_EQ(user.Messages()[0].caption, QStringLiteral("Warning"));
        EXPECT_EQ(user.Messages()[0].flags, 48u);
        EXPECT_EQ(user.Beeps(), 0) << c.text;
    }
}

// ------------------------------------------------------- opening, Cancel

TEST_F(SnapPointDialogTest, OpensBlankAndCancelLeavesThePoint) {
    enum class Leave { Button, Escape, CloseBox };
    for (const Leave leave : {Leave::Button, Leave::Escape, Leave::CloseBox}) {
        ScriptedUser user;
        QStringList opened;
        user.Inspect([&](QWidget* w) {
            for (unsigned id : kFields)
                opened << FieldText(w, id);
        });
        user.SetText(kEast, Q("1")).SetText(kNorth, Q("2")).SetText(kElev, Q("3"));
        if (leave == Leave::Button)
            user.Click(kCancel);
        else if (leave == Leave::Escape)
            user.Key(kElev, Qt::Key_Escape);
        else
            user.Close();
        PNT_3D point = kBefore;
        const bool ok = factory->ShowDlSnapInsertPnt(nullptr, cad, point);
        ExpectFinished(user);
        const int how = static_cast<int>(leave);
        EXPECT_FALSE(ok) << how;
        EXPECT_EQ(point, kBefore) << how;
        EXPECT_EQ(opened, (QStringList{QString(), QString(), QString()})) << how;
        ASSERT_EQ(user.Dialogs().size(), 1u);
        EXPECT_EQ(user.Dialogs()[0].title, QStringLiteral("Snap - Enter the coordinates"));
        EXPECT_EQ(user.Dialogs()[0].templateId, 11072u);
        EXPECT_EQ(user.Dialogs()[0].help, QStringLiteral("QuadraCE.htm#Dlg InsGrafCoord"));
    }
}

}  // namespace
