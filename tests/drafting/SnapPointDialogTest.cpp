// The coordinate entry dialog as the host runs it (ShowDlSnapInsertPnt): the
// fields open blank; typed texts give the point on OK; an empty or too large
// field is refused by a beep, a negative number beyond a double by a message
// naming the field, and the dialog stays open with the texts as typed.
#include <gtest/gtest.h>

#include <QLineEdit>
#include <cmath>
#include <string>

#include "app/VELD.h"
#include "res/templates/ControlIds.h"
#include "support/FactoryFixture.h"
#include "ulo/Geom.h"
#include "ulo/ctrl/Win.h"

using automation::ScriptedUser;
using ulo::geom::PNT_3D;
namespace Snap = veld5::ctl::SnapPoint;

namespace {

constexpr unsigned kFields[] = {Snap::kEast, Snap::kNorth, Snap::kElevation};
const PNT_3D kBefore{-7.25, 8.5, 9.75};

QString Q(const char* text) {
    return QString::fromUtf8(text);
}

QString FieldText(QWidget* window, unsigned id) {
    auto* e = qobject_cast<QLineEdit*>(ulo::FindControl(window, id));
    return e ? e->text() : QStringLiteral("<no edit>");
}

}  // namespace

// Each field reads its leading decimal number, or 0, as every number field
// does (tests/ulo's TextFormatTest reads the texts); a typed decimal comma and
// Arabic-Indic digits too; no negative zero in the point, no lower limit. A
// refused field has the focus; corrected to 5, OK takes the texts.
TEST_F(FactoryTest, SnapPointTypedTextsGiveThePointOrAreRefused) {
    CVELD cad;
    const QString nines(10000, u'9');
    const struct {
        QString typed[3];
        PNT_3D want;                    // with each refused field corrected to 5
        unsigned focused = 0;           // the field refused first; 0: none
        const char* message = nullptr;  // null: a beep, when a field is refused
    } cases[] = {
        {{Q("12.5"), Q("-3"), Q("100")}, {12.5, -3, 100}},
        {{Q("12abc"), Q("abc"), Q("7 m")}, {12, 0, 7}},
        {{Q("1,5"), Q("-2,25"), Q("0,125")}, {1.5, -2.25, 0.125}},
        {{Q("-0"), Q("+0.0"), Q("   ")}, {0, 0, 0}},
        {{Q("-1e200"), Q("9.99e99"), Q("\u0663\u066b\u0661\u0664")}, {-1e200, 9.99e99, 3.14}},
        {{Q(""), Q("1"), Q("2")}, {5, 1, 2}, Snap::kEast},
        {{Q("1"), Q("2"), Q("")}, {1, 2, 5}, Snap::kElevation},
        {{Q(""), Q(""), Q("")}, {5, 5, 5}, Snap::kEast},
        {{Q("1"), Q("1e100"), Q("2")}, {1, 5, 2}, Snap::kNorth},
        {{Q("-4"), nines, nines}, {-4, 5, 5}, Snap::kNorth},
        {{Q("-1e309"), Q("1"), Q("1")}, {5, 1, 1}, Snap::kEast, "East : The value is out of range"},
        {{Q("1"), Q("-2e400"), Q("1")},
         {1, 5, 1},
         Snap::kNorth,
         "North : The value is out of range"},
        {{Q("1"), Q("1"), Q("-99e999")},
         {1, 1, 5},
         Snap::kElevation,
         "Elev. : The value is out of range"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE((c.typed[0].left(9) + u'|' + c.typed[1].left(9) + u'|' + c.typed[2].left(9))
                         .toStdString());
        ScriptedUser user;
        QString opened, kept;
        unsigned focused = 0;
        user.Inspect([&](QWidget* w) {
            for (unsigned id : kFields)
                opened += FieldText(w, id);
        });
        for (int i = 0; i < 3; ++i)
            user.SetText(kFields[i], c.typed[i]);
        user.Click(Snap::kOk);
        if (c.focused) {
            if (c.message)
                user.Answer(ulo::IDOK);
            user.Inspect([&](QWidget* w) {
                for (unsigned id : kFields)
                    kept += FieldText(w, id) + u'|';
                focused = ulo::GetDlgCtrlID(w->focusWidget());
            });
            for (int i = 0; i < 3; ++i) {
                bool number = false;
                if (const double v = c.typed[i].toDouble(&number); !number || !(v < 1e100))
                    user.SetText(kFields[i], QStringLiteral("5"));
            }
            user.Click(Snap::kOk);
        }
        PNT_3D point = kBefore;
        EXPECT_TRUE(factory->ShowDlSnapInsertPnt(nullptr, cad, point));
        ExpectFinished(user);
        EXPECT_TRUE(opened.isEmpty());
        EXPECT_EQ(point, c.want);
        for (const double v : {point.x, point.y, point.z})
            EXPECT_FALSE(v == 0 && std::signbit(v));
        EXPECT_EQ(focused, c.focused);
        if (c.focused) {
            EXPECT_EQ(kept, c.typed[0] + u'|' + c.typed[1] + u'|' + c.typed[2] + u'|');
        }
        EXPECT_EQ(user.Beeps(), c.focused && !c.message ? 1 : 0);
        ASSERT_EQ(user.Messages().size(), c.message ? 1u : 0u);
        if (c.message) {
            const auto& m = user.Messages()[0];
            EXPECT_EQ(m.caption + u'|' + m.text, QStringLiteral("Warning|") + Q(c.message));
            EXPECT_EQ(m.flags, 48u);
        }
    }
}
