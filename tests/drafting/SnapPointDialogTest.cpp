// The coordinate entry dialog as the host runs it (ShowDlSnapInsertPnt): typed
// texts and the point they give on OK, the beep that refuses an empty or too
// large field (the dialog stays open, the field keeps its text), and the
// message that refuses a negative number beyond a double.
#include <gtest/gtest.h>

#include <QLineEdit>
#include <cmath>
#include <string>

#include "app/VELD.h"
#include "support/FactoryFixture.h"
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

std::string Name(const QString (&typed)[3]) {
    return (typed[0].left(20) + u'|' + typed[1].left(20) + u'|' + typed[2].left(20)).toStdString();
}

QString FieldText(QWidget* window, unsigned id) {
    auto* e = qobject_cast<QLineEdit*>(ulo::FindControl(window, id));
    return e ? e->text() : QStringLiteral("<no edit>");
}

class SnapPointDialogTest : public FactoryTest {
protected:
    /// Runs the dialog over kBefore with the steps queued.
    bool Run(ScriptedUser& user, PNT_3D& point) {
        point = kBefore;
        const bool ok = factory->ShowDlSnapInsertPnt(nullptr, cad, point);
        ExpectFinished(user);
        return ok;
    }
    static ScriptedUser& Type(ScriptedUser& user, const QString (&typed)[3]) {
        for (int i = 0; i < 3; ++i)
            user.SetText(kFields[i], typed[i]);
        return user;
    }
    CVELD cad;
};

}  // namespace

// Each field reads its leading decimal number, or 0; one point, the separator
// typed last; a decimal comma as a point; no negative zero in the point.
TEST_F(SnapPointDialogTest, TypedTextsGiveThePointOnOk) {
    const struct {
        QString typed[3];
        PNT_3D want;
    } cases[] = {
        {{Q("12.5"), Q("-3"), Q("100")}, {12.5, -3, 100}},
        {{Q("12abc"), Q("abc"), Q("7 m")}, {12, 0, 7}},             // leading number, or 0
        {{Q("1,5"), Q("-2,25"), Q("0,125")}, {1.5, -2.25, 0.125}},  // typed decimal comma
        {{Q("-0"), Q("+0.0"), Q("0")}, {0, 0, 0}},
        {{Q("   "), Q(" 4"), Q(" ")}, {0, 4, 0}},  // blanks are text without a number
        {{Q("-1e200"), Q("9.99e99"), Q("-1e99")}, {-1e200, 9.99e99, -1e99}},  // no lower limit
        {{Q("1e-400"), Q(".5"), Q("5.")}, {0, 0.5, 5}},  // too small reads as 0
        {{Q("0x10"), Q("1e"), Q("2e+1")}, {0, 1, 20}},   // decimal only, as every number field
        {{Q("inf"), Q("nan"), Q("0x1p3")}, {0, 0, 0}},
        {{Q("\u0663\u066b\u0661\u0664"), Q("3.14.15"), Q("--1")}, {3.14, 314.15, 0}},
        {{Repeat("0.", '3', 9998), Repeat("-0.", '0', 9998), Q("1")}, {1.0 / 3, 0, 1}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(Name(c.typed));
        ScriptedUser user;
        Type(user, c.typed).Click(kOk);
        PNT_3D point;
        EXPECT_TRUE(Run(user, point));
        EXPECT_DOUBLE_EQ(point.x, c.want.x);
        EXPECT_DOUBLE_EQ(point.y, c.want.y);
        EXPECT_DOUBLE_EQ(point.z, c.want.z);
        for (const double v : {point.x, point.y, point.z})
            EXPECT_FALSE(v == 0 && std::signbit(v));
        EXPECT_EQ(user.Beeps(), 0);
        EXPECT_TRUE(user.Messages().empty());
    }
}

// An empty field, or one of 1e100 or more, is refused by one beep: the texts
// stay, the first refused field has the focus; corrected, OK takes them.
TEST_F(SnapPointDialogTest, EmptyOrTooLargeFieldIsRefusedByABeepThenCorrected) {
    const struct {
        QString typed[3];
        unsigned focused;
    } cases[] = {
        {{Q(""), Q("1"), Q("2")}, kEast},
        {{Q("1"), Q("2"), Q("")}, kElev},
        {{Q(""), Q(""), Q("")}, kEast},
        {{Q("1"), Q("1e100"), Q("2")}, kNorth},
        {{Q("-4"), Repeat("", '9', 10000), Repeat("", '9', 10000)}, kNorth},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(Name(c.typed));
        bool bad[3];
        for (int i = 0; i < 3; ++i) {
            bool number = false;
            const double v = c.typed[i].toDouble(&number);
            bad[i] = !number || !(v < 1e100);
        }
        ScriptedUser user;
        bool kept = true;
        unsigned focused = 0;
        Type(user, c.typed).Click(kOk).Inspect([&](QWidget* w) {
            for (int i = 0; i < 3; ++i)
                kept = kept && FieldText(w, kFields[i]) == c.typed[i];
            if (QWidget* f = w->focusWidget())
                focused = f->property("veldCtrlId").toUInt();
        });
        for (int i = 0; i < 3; ++i)
            if (bad[i])
                user.SetText(kFields[i], QStringLiteral("5"));
        user.Click(kOk);
        PNT_3D point;
        EXPECT_TRUE(Run(user, point));
        EXPECT_EQ(user.Beeps(), 1);
        EXPECT_TRUE(user.Messages().empty());
        EXPECT_TRUE(kept);
        EXPECT_EQ(focused, c.focused);
        const double got[] = {point.x, point.y, point.z};
        for (int i = 0; i < 3; ++i)
            EXPECT_EQ(got[i], bad[i] ? 5.0 : c.typed[i].toDouble()) << "field " << i;
    }
}

// The fields open blank. A negative number beyond a double is refused by a
// message naming the field; Cancel then leaves the point.
TEST_F(SnapPointDialogTest, NegativeNumberBeyondADoubleIsRefusedNamingTheField) {
    const struct {
        int field;
        const char* text;
        const char* message;
    } cases[] = {
        {0, "-1e309", "East : The value is out of range"},
        {1, "-2e400", "North : The value is out of range"},
        {2, "-99e999", "Elev. : The value is out of range"},
    };
    for (const auto& c : cases) {
        QString typed[3] = {Q("1"), Q("1"), Q("1")};
        typed[c.field] = Q(c.text);
        SCOPED_TRACE(c.text);
        ScriptedUser user;
        QString kept, opened;
        user.Inspect([&](QWidget* w) {
            for (unsigned id : kFields)
                opened += FieldText(w, id);
        });
        Type(user, typed).Click(kOk).Answer(ulo::IDOK).Inspect([&](QWidget* w) {
            kept = FieldText(w, kFields[c.field]);
        });
        user.Click(kCancel);
        PNT_3D point;
        EXPECT_FALSE(Run(user, point));
        EXPECT_EQ(point, kBefore);
        EXPECT_EQ(kept, Q(c.text));
        ASSERT_EQ(user.Messages().size(), 1u);
        EXPECT_EQ(user.Messages()[0].text, Q(c.message));
        EXPECT_EQ(user.Messages()[0].caption, QStringLiteral("Warning"));
        EXPECT_EQ(user.Messages()[0].flags, 48u);
        EXPECT_EQ(user.Beeps(), 0);
        EXPECT_TRUE(opened.isEmpty());
        ASSERT_EQ(user.Dialogs().size(), 1u);
        EXPECT_EQ(user.Dialogs()[0].title, QStringLiteral("Snap - Enter the coordinates"));
        EXPECT_EQ(user.Dialogs()[0].templateId, 11072u);
        EXPECT_EQ(user.Dialogs()[0].help, QStringLiteral("QuadraCE.htm#Dlg InsGrafCoord"));
    }
}
