// The text insertion dialog as the host runs it (ShowDlgInsText): the fields
// it opens with in each angle system, the texts it hands back (one per
// non-empty line, stacked by the font's pitch, angles in radians) without
// touching the drawing, and every refusal word for word.
#include <gtest/gtest.h>

#include <QLineEdit>
#include <numbers>
#include <string>
#include <vector>

#include "app/DrawingFile.h"
#include "app/VELD.h"
#include "res/templates/ControlIds.h"
#include "support/FactoryFixture.h"
#include "ulo/ctrl/Controls.h"
#include "ulo/ctrl/Dialog.h"
#include "veld/Data.h"
#include "veld/EntCollection.h"

using automation::ScriptedUser;

namespace {

namespace InsText = veld5::ctl::InsText;
constexpr unsigned kLines[] = {InsText::kLine1, InsText::kLine2, InsText::kLine3};
constexpr unsigned kNumbers[] = {InsText::kHeight, InsText::kWidth, InsText::kRotation,
                                 InsText::kSlant};
constexpr double kPi = std::numbers::pi;
const ulo::geom::PNT_3D kAt{10.0, 20.0, 5.0};

QString Q(const char* text) {
    return QString::fromUtf8(text);
}

class InsTextDialogTest : public FactoryTest {
protected:
    void SetUp() override {
        FactoryTest::SetUp();
        // STANDARD (font txt: 6, 2, 2) comes with the drawing; romans has 21, 7, 5.
        romansStyle = AddStyle(L"ROMANS", L"romans", 2.0, 0.8, kPi / 12, 1.0, true);
        vertical = AddStyle(L"VERTICAL", L"txt", 0.0, 1.0, 0.0, 3.0, false);
        SetCurStyle(&cad, romansStyle);
    }
    veld::CStyle* AddStyle(const wchar_t* name, const wchar_t* font, double fixed, double width,
                           double oblique, double last, bool horizontal) {
        veld::CStyle* s = cad.GetData()->GetObjectFactory()->CreateStyle(
            name, veld::CFontTable::GetInstance().Find(font), fixed, width, oblique, last, 0, 0);
        s->SetHoriz(horizontal);
        cad.GetData()->GetStyleTable().Add(s);
        s->SubReference();
        return s;
    }
    /// Sets the angle system, notes the drawing and puts a text in the
    /// collection, as a caller holding something before the call.
    void Prepare(short format) {
        SetAngleSystem(&cad, format, format ? kPi / 2 : 0.0, format != 0);
        before = drawingfile::Dump(cad);
        veld::CEntText* old =
            CreateEntText(&cad, veld::TEXT_3D(L"old", romansStyle, 1, 0, 1, 0, kAt, 0, 0));
        ents.AddEnt(old);
        old->SubReference();
    }
    void Run(const ScriptedUser& user) {
        ulo::geom::PNT_3D at = kAt;
        factory->ShowDlgInsText(nullptr, cad, at, ents);
        ExpectFinished(user);
        EXPECT_EQ(at, kAt);
        EXPECT_EQ(drawingfile::Dump(cad), before);
    }

    CVELD cad;
    veld::CStyle* romansStyle = nullptr;
    veld::CStyle* vertical = nullptr;
    veld::CEntCollection ents;
    QByteArray before;
};

}  // namespace

// The fields open on the current style, angles in the CAD instance's system,
// the justification on the first of the twelve, the style on the current one.
// OK hands back one text per non-empty line, in line order, with the typed
// values (angles in radians), the chosen style and justification, each a pitch
// further on; the drawing is left alone and what the collection held before
// is gone.
TEST_F(InsTextDialogTest, OpensOnTheCurrentStyleAndHandsBackOneTextPerLine) {
    const double romans = 33 * 2.5 / 21;   // (21 + 7 + 5) x height / 21
    const double standard = 10 * 1.5 / 6;  // (6 + 2 + 2) x height / 6
    constexpr double kDeg = kPi / 180;
    // The fields as they open: height, width, rotation, slant, then the lists.
    static constexpr const char* romansAt0 = "2.000 0.800 0.0000 15.0000 @1";
    static constexpr const char* romansInGons = "2.000 0.800 100.0000 83.3333 @1";
    static constexpr const char* verticalAt0 = "3.000 1.000 0.0000 0.0000 @2";
    const struct {
        short format;
        const char* lines;    // the three lines, '|' between
        const char* numbers;  // height, width, rotation, slant, '|' between
        int justify, style;   // style -1: as opened; 2: VERTICAL picked
        double rotation, slant;
        ulo::geom::PNT_3D step;  // from one line's point to the next
        const char* opened = romansAt0;
    } rows[] = {
        {0, "First|Second|Third", "2.5|0.01|0|84.99", 4, -1, 0.0, 84.99 * kDeg, {0, -romans, 0}},
        {0, "A||C", "2.5|100|-0|-84.99", 11, -1, 0.0, -84.99 * kDeg, {0, -romans, 0}},
        {0, "|Solo|", "2.5xyz|1|0|0", 0, -1, 0.0, 0.0, {}},  // what follows a number is ignored
        {0, "R1|R2|", "2.5|1|90|-10", 0, -1, kPi / 2, -10 * kDeg, {romans, 0, 0}},
        // Gons from North clockwise: 100 is East, exactly 0 radians.
        {2, "N1|N2|", "2.5|0.8|100.0000|100", 0, -1, 0.0, 0.0, {0, -romans, 0}, romansInGons},
        {2,
         "W1|W2|",
         "2.5|1|300|90",
         0,
         -1,
         -kPi,
         kPi / 2 - 90 * kPi / 200,
         {0, romans, 0},
         romansInGons},
        // A decimal comma reads as a point; a vertical style stacks columns.
        {0, "V1|V2|", "1,5|1|90|0", 2, 2, kPi / 2, 0.0, {0, standard, 0}},
        // VERTICAL current: no fixed height, the last one used.
        {0, "||", "2.5|1|0|0", 0, -1, 0.0, 0.0, {}, verticalAt0},
    };
    for (const auto& r : rows) {
        SCOPED_TRACE(std::string(r.lines) + " " + r.numbers);
        SetCurStyle(&cad, r.lines == std::string("||") ? vertical : romansStyle);
        Prepare(r.format);
        const QStringList lines = Q(r.lines).split(u'|'), numbers = Q(r.numbers).split(u'|');
        ScriptedUser user;
        QStringList opened, lists;
        user.Inspect([&](QWidget* w) {
            for (unsigned id : {kNumbers[0], kNumbers[1], kNumbers[2], kNumbers[3], kLines[0],
                                kLines[1], kLines[2], InsText::kStyle, InsText::kJustify}) {
                const QJsonObject c = ScriptedUser::ControlState(ulo::FindControl(w, id));
                const QJsonValue items = c.value(QStringLiteral("items"));
                if (!items.isUndefined())
                    lists << items.toVariant().toStringList().join(u',');
                opened << (items.isUndefined() ? c.value(QStringLiteral("text")).toString()
                                               : QStringLiteral("@%1").arg(
                                                     c.value(QStringLiteral("selected")).toInt()));
            }
        });
        for (int i = 0; i < 3; ++i)
            user.SetText(kLines[i], lines[i]);
        for (int i = 0; i < 4; ++i)
            user.SetText(kNumbers[i], numbers[i]);
        user.Pick(InsText::kJustify, r.justify);
        if (r.style >= 0)
            user.Pick(InsText::kStyle, r.style);
        user.Click(InsText::kOk);
        Run(user);
        opened.removeAll(QString());  // the lines open empty
        EXPECT_EQ(opened.join(u' '), Q(r.opened) + QStringLiteral(" @0"));
        EXPECT_EQ(lists, (QStringList{Q("STANDARD,ROMANS,VERTICAL"),
                                      Q("Left,Center,Right,Aligned,Middle,Fit,Top left,Top center,"
                                        "Top right,Middle left,Middle right,Bottom center")}));
        EXPECT_TRUE(user.Messages().empty());
        QStringList typed = lines;
        typed.removeAll(QString());
        ASSERT_EQ(ents.GetNoEnts(), static_cast<unsigned>(typed.size()));
        for (unsigned i = 0; i < ents.GetNoEnts(); ++i) {
            SCOPED_TRACE(i);
            ASSERT_EQ(ents.GetEnt(i)->GetKind(), veld::EntKind::Text);
            const veld::TEXT_3D t = static_cast<veld::CEntText*>(ents.GetEnt(i))->GetText();
            EXPECT_EQ(t.GetContext().GetString().ToQString(), typed[i]);
            EXPECT_EQ(t.GetStyle(), r.style == 2 ? vertical : romansStyle);
            EXPECT_EQ(t.GetContext().GetHeight(), r.style == 2 ? 1.5 : 2.5);
            EXPECT_EQ(t.GetContext().GetWidthFactor(), numbers[1].toDouble());
            EXPECT_EQ(t.GetContext().GetRotate(), r.rotation);
            EXPECT_NEAR(t.GetContext().GetSlant(), r.slant, 1e-15);
            EXPECT_EQ(t.GetAlignment(), r.justify);
            EXPECT_NEAR(t.GetPoint().x, kAt.x + i * r.step.x, 1e-12);
            EXPECT_NEAR(t.GetPoint().y, kAt.y + i * r.step.y, 1e-12);
            EXPECT_EQ(t.GetPoint().z, 5.0);
        }
    }
}

// Each refusal shows its text word for word, puts the user back into the
// field with all of it selected and makes nothing; Cancel then hands back an
// empty collection, whatever it held. The checks run height, width factor,
// slant, rotation and stop at the first failure.
TEST_F(InsTextDialogTest, RefusalsNameTheFieldAndMakeNothing) {
    const QString invalid = Q("Entered an invalid value!");
    const QString positive = Q("Value must be positive");
    const QString range = Q("The value is not between 0.010000 and 100.000000");
    const QString slant85 = Q("The value must be between -85 and 85 degrees");
    const QString warning = Q("Warning"), error = Q("Error");
    const struct {
        unsigned field;
        QString text, message, caption;
        short format = 0;
        unsigned field2 = 0;  // a second field typed wrong, checked later
        QString text2 = {};
    } rows[] = {
        {InsText::kHeight, Q(""), invalid, warning, 0, InsText::kSlant, Q("85")},
        {InsText::kHeight, Q("nan"), invalid, warning},
        {InsText::kHeight, Q("0abc"), invalid, warning},
        {InsText::kHeight, Q("1e309"), invalid, warning},
        {InsText::kHeight, Q("1e100"), invalid, warning},
        {InsText::kHeight, Q("-0"), positive, warning},
        // A second line would stand beyond the coordinates a drawing keeps.
        {InsText::kHeight, Q("9.9e99"), Q("The value is out of range"), warning, 0, InsText::kLine2,
         Q("Below")},
        {InsText::kWidth, Q("nan"), invalid, warning},
        {InsText::kWidth, Q("0"), range, warning},
        {InsText::kWidth, Q("0.0099999"), range, warning},
        {InsText::kWidth, Q("100.0001"), range, warning},
        {InsText::kWidth, Q("1e99"), range, warning, 0, InsText::kRotation, Q("x")},
        {InsText::kSlant, Q("-inf"), invalid, warning},
        {InsText::kSlant, Q("85"), slant85, error},
        {InsText::kSlant, Q("-85"), slant85, error},
        {InsText::kSlant, Q("275"), slant85, error},
        {InsText::kSlant, Q("1e99"), slant85, error},
        {InsText::kSlant, Q("0"), slant85, error, 2},  // North is a quarter turn from East
        {InsText::kRotation, QString(10000, u'9'), invalid, warning, 2},
    };
    for (const auto& r : rows) {
        SCOPED_TRACE(r.text.left(20).toStdString() + " in " + std::to_string(r.field));
        Prepare(r.format);
        ScriptedUser user;
        user.SetText(InsText::kLine1, Q("Never"))
            .SetText(InsText::kHeight, Q("2"))
            .SetText(InsText::kWidth, Q("1"));
        user.SetText(InsText::kRotation, Q("0"))
            .SetText(InsText::kSlant, r.format ? Q("100") : Q("0"));
        user.SetText(r.field, r.text);
        if (r.field2)
            user.SetText(r.field2, r.text2);
        bool focused = false, allSelected = false;
        user.Click(InsText::kOk).Answer(ulo::IDOK).Inspect([&](QWidget* w) {
            auto* edit = qobject_cast<QLineEdit*>(ulo::FindControl(w, r.field));
            focused = edit && w->focusWidget() == edit;
            allSelected = edit && edit->selectedText() == edit->text() &&
                          (edit->text().isEmpty() || edit->hasSelectedText());
        });
        user.Click(InsText::kCancel);
        Run(user);
        ASSERT_EQ(user.Messages().size(), 1u);
        EXPECT_EQ(user.Messages()[0].text, r.message);
        EXPECT_EQ(user.Messages()[0].caption, r.caption);
        EXPECT_EQ(user.Messages()[0].flags, 0x30u);
        EXPECT_TRUE(focused);
        EXPECT_TRUE(allSelected);
        EXPECT_EQ(ents.GetNoEnts(), 0u);
    }
}
