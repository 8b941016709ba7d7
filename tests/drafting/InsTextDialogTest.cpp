// The text insertion dialog as the host runs it (ShowDlgInsText), with a
// scripted user: the fields it opens with in each angle system, the texts it
// hands back (one per non-empty line, stacked by the font's pitch, angles
// converted to radians) without touching the drawing, every refusal word for
// word with hostile numbers in each numeric field, and Cancel.
#include <gtest/gtest.h>

#include <QLineEdit>
#include <numbers>
#include <string>
#include <vector>

#include "../factory/FactoryFixture.h"
#include "app/DrawingFile.h"
#include "app/VELD.h"
#include "ulo/ctrl/Controls.h"
#include "ulo/ctrl/Dialog.h"
#include "ulo/ctrl/Win.h"
#include "veld/Data.h"
#include "veld/EntCollection.h"

using automation::ScriptedUser;

namespace {

constexpr unsigned kOk = 11196, kCancel = 11197;
constexpr unsigned kLine1 = 11139, kLine2 = 11146, kLine3 = 11147;
constexpr unsigned kHeight = 11140, kSlant = 11141, kRotation = 11142, kWidth = 11143;
constexpr unsigned kJustify = 11144, kStyle = 11145;
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
        before = drawingfile::Dump(cad);
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
    /// Something the caller held before the call.
    void Prefill() {
        veld::CEntText* old =
            CreateEntText(&cad, veld::TEXT_3D(L"old", romansStyle, 1, 0, 1, 0, kAt, 0, 0));
        ents.AddEnt(old);
        old->SubReference();
        ASSERT_GT(ents.GetNoEnts(), 0u);
    }
    void Run(const ScriptedUser& user) {
        ulo::geom::PNT_3D at = kAt;
        factory->ShowDlgInsText(nullptr, cad, at, ents);
        ExpectFinished(user);
        EXPECT_EQ(at, kAt);
    }

    CVELD cad;
    veld::CStyle* romansStyle = nullptr;
    veld::CStyle* vertical = nullptr;
    veld::CEntCollection ents;
    QByteArray before;
};

}  // namespace

// The fields follow the current style and show angles in the CAD instance's
// system; the lists hold the twelve justifications and the styles.
TEST_F(InsTextDialogTest, OpensWithTheCurrentStyleInTheAngleSystem) {
    const struct {
        const char* what;
        short format;
        bool romansCurrent;
        const char *height, *width, *rotation, *slant;
    } rows[] = {
        {"degrees, fixed height", 0, true, "2.000", "0.800", "0.0000", "15.0000"},
        {"gons, fixed height", 2, true, "2.000", "0.800", "100.0000", "83.3333"},
        {"degrees, last height", 0, false, "3.000", "1.000", "0.0000", "0.0000"},
    };
    for (const auto& r : rows) {
        SCOPED_TRACE(r.what);
        SetAngleSystem(&cad, r.format, r.format ? kPi / 2 : 0.0, r.format != 0);
        SetCurStyle(&cad, r.romansCurrent ? romansStyle : vertical);
        ScriptedUser user;
        QJsonObject justify, style;
        QString height, width, rotation, slant, lines;
        user.Inspect([&](QWidget* w) {
            auto* d = static_cast<CWSizeDialog*>(w);
            height = d->GetDlgItemText(kHeight);
            width = d->GetDlgItemText(kWidth);
            rotation = d->GetDlgItemText(kRotation);
            slant = d->GetDlgItemText(kSlant);
            lines =
                d->GetDlgItemText(kLine1) + d->GetDlgItemText(kLine2) + d->GetDlgItemText(kLine3);
            justify = ScriptedUser::ControlState(ulo::FindControl(w, kJustify));
            style = ScriptedUser::ControlState(ulo::FindControl(w, kStyle));
        });
        user.Click(kCancel);
        Run(user);
        EXPECT_EQ(height, Q(r.height));
        EXPECT_EQ(width, Q(r.width));
        EXPECT_EQ(rotation, Q(r.rotation));
        EXPECT_EQ(slant, Q(r.slant));
        EXPECT_TRUE(lines.isEmpty());
        EXPECT_EQ(justify.value(QStringLiteral("items")).toVariant().toStringList().join(u','),
                  Q("Left,Center,Right,Aligned,Middle,Fit,Top left,Top center,Top right,"
                    "Middle left,Middle right,Bottom center"));
        EXPECT_EQ(justify.value(QStringLiteral("selected")).toInt(-1), 0);
        EXPECT_EQ(style.value(QStringLiteral("items")).toVariant().toStringList().join(u','),
                  Q("STANDARD,ROMANS,VERTICAL"));
        EXPECT_EQ(style.value(QStringLiteral("selected")).toInt(-1), r.romansCurrent ? 1 : 2);
        ASSERT_EQ(user.Dialogs().size(), 1u);
        EXPECT_EQ(user.Dialogs()[0].templateId, 11024u);
        EXPECT_EQ(user.Dialogs()[0].help, Q("QuadraCE.htm#Dlg InsGrafText"));
    }
}

// One text per non-empty line, in line order, with the typed values (angles
// in radians as the system converts them) and the chosen style and
// justification, each a pitch further from the insertion point; the drawing
// itself is left alone and what the collection held before is gone.
TEST_F(InsTextDialogTest, OkHandsBackOneTextPerLineStackedByThePitch) {
    const double romans = 33 * 2.5 / 21;   // (21 + 7 + 5) x height / 21
    const double standard = 10 * 1.5 / 6;  // (6 + 2 + 2) x height / 6
    const struct {
        const char* what;
        short format;
        const char *l1, *l2, *l3;
        const char *height, *width, *rotation, *slant;
        int justify, style;  // style -1: as opened (ROMANS)
        std::vector<const wchar_t*> strings;
        double widthValue, rotationRad, slantRad;
        std::vector<ulo::geom::PNT_3D> at;
    } rows[] = {
        {"three lines in degrees",
         0,
         "First",
         "Second",
         "Third",
         "2.5",
         "0.01",
         "0",
         "84.99",
         4,
         -1,
         {L"First", L"Second", L"Third"},
         0.01,
         0.0,
         1.4833553312699805,
         {kAt, {10, 20 - romans, 5}, {10, 20 - 2 * romans, 5}}},
        {"empty middle line",
         0,
         "A",
         "",
         "C",
         "2.5",
         "100",
         "-0",
         "-84.99",
         11,
         -1,
         {L"A", L"C"},
         100,
         0.0,
         -1.4833553312699805,
         {kAt, {10, 20 - romans, 5}}},
        // Whatever follows the number is ignored.
        {"only line 2",
         0,
         "",
         "Solo",
         "",
         "2.5xyz",
         "1",
         "0",
         "0",
         0,
         -1,
         {L"Solo"},
         1,
         0.0,
         0.0,
         {kAt}},
        {"rotated a quarter turn",
         0,
         "R1",
         "R2",
         "",
         "2.5",
         "1",
         "90",
         "-10",
         0,
         -1,
         {L"R1", L"R2"},
         1,
         kPi / 2,
         -10 * kPi / 180,
         {kAt, {10 + romans, 20, 5}}},
        // Gons from North clockwise: 100 is East, exactly 0 radians.
        {"gons as opened",
         2,
         "N1",
         "N2",
         "",
         "2.5",
         "0.8",
         "100.0000",
         "100",
         0,
         -1,
         {L"N1", L"N2"},
         0.8,
         0.0,
         0.0,
         {kAt, {10, 20 - romans, 5}}},
        {"gons West",
         2,
         "W1",
         "W2",
         "",
         "2.5",
         "1",
         "300",
         "90",
         0,
         -1,
         {L"W1", L"W2"},
         1,
         -kPi,
         kPi / 2 - 90 * kPi / 200,
         {kAt, {10, 20 + romans, 5}}},
        // A decimal comma reads as a point; a vertical style stacks columns.
        {"vertical style",
         0,
         "V1",
         "V2",
         "",
         "1,5",
         "1",
         "90",
         "0",
         2,
         2,
         {L"V1", L"V2"},
         1,
         kPi / 2,
         0.0,
         {kAt, {10, 20 + standard, 5}}},
        {"nothing typed", 0, "", "", "", "2.5", "1", "0", "0", 0, -1, {}, 1, 0.0, 0.0, {}},
    };
    for (const auto& r : rows) {
        SCOPED_TRACE(r.what);
        SetAngleSystem(&cad, r.format, r.format ? kPi / 2 : 0.0, r.format != 0);
        before = drawingfile::Dump(cad);
        Prefill();
        ScriptedUser user;
        user.SetText(kLine1, Q(r.l1)).SetText(kLine2, Q(r.l2)).SetText(kLine3, Q(r.l3));
        user.SetText(kHeight, Q(r.height)).SetText(kWidth, Q(r.width));
        user.SetText(kRotation, Q(r.rotation)).SetText(kSlant, Q(r.slant));
        user.Pick(kJustify, r.justify);
        if (r.style >= 0)
            user.Pick(kStyle, r.style);
        user.Click(kOk);
        Run(user);
        EXPECT_TRUE(user.Messages().empty());
        EXPECT_EQ(drawingfile::Dump(cad), before);
        ASSERT_EQ(ents.GetNoEnts(), r.strings.size());
        for (unsigned i = 0; i < ents.GetNoEnts(); ++i) {
            SCOPED_TRACE(i);
            ASSERT_EQ(ents.GetEnt(i)->GetKind(), veld::EntKind::Text);
            const veld::TEXT_3D t = static_cast<veld::CEntText*>(ents.GetEnt(i))->GetText();
            EXPECT_EQ(t.GetContext().GetString(), ulo::WString(r.strings[i]));
            EXPECT_EQ(t.GetStyle(), r.style == 2 ? vertical : romansStyle);
            EXPECT_EQ(t.GetContext().GetHeight(), r.style == 2 ? 1.5 : 2.5);
            EXPECT_EQ(t.GetContext().GetWidthFactor(), r.widthValue);
            EXPECT_EQ(t.GetContext().GetRotate(), r.rotationRad);
            EXPECT_NEAR(t.GetContext().GetSlant(), r.slantRad, 1e-15);
            EXPECT_EQ(t.GetAlignment(), r.justify);
            EXPECT_NEAR(t.GetPoint().x, r.at[i].x, 1e-12);
            EXPECT_NEAR(t.GetPoint().y, r.at[i].y, 1e-12);
            EXPECT_EQ(t.GetPoint().z, 5.0);
        }
    }
}

// Each refusal shows its text word for word, puts the user back into the
// field with all of it selected and makes nothing; the checks run height,
// width factor, slant, rotation and stop at the first failure.
TEST_F(InsTextDialogTest, RefusalsNameTheFieldAndMakeNothing) {
    const QString invalid = Q("Entered an invalid value!");
    const QString positive = Q("Value must be positive");
    const QString range = Q("The value is not between 0.010000 and 100.000000");
    const QString slant85 = Q("The value must be between -85 and 85 degrees");
    const QString digits(10000, u'9');
    const QString warning = Q("Warning"), error = Q("Error");
    const struct {
        unsigned field;
        QString text;
        QString message;
        QString caption;
        short format = 0;
        unsigned field2 = 0;  // a second field typed wrong, checked later
        QString text2 = {};
    } rows[] = {
        {kHeight, Q(""), invalid, warning},
        {kHeight, Q("   "), invalid, warning},
        {kHeight, Q("abc"), invalid, warning},
        {kHeight, Q("nan"), invalid, warning},
        {kHeight, Q("inf"), invalid, warning},
        {kHeight, Q("0x10"), invalid, warning},
        {kHeight, Q("0abc"), invalid, warning},
        {kHeight, Q("1e309"), invalid, warning},
        {kHeight, Q("1e100"), invalid, warning},
        {kHeight, digits, invalid, warning},
        {kHeight, Q("0"), positive, warning},
        {kHeight, Q("-0"), positive, warning},
        {kHeight, Q("-2"), positive, warning},
        // A second line would stand beyond the coordinates a drawing keeps.
        {kHeight, Q("9.9e99"), Q("The value is out of range"), warning, 0, kLine2, Q("Below")},
        {kHeight, Q(""), invalid, warning, 0, kSlant, Q("85")},
        {kWidth, Q(""), invalid, warning},
        {kWidth, Q("nan"), invalid, warning},
        {kWidth, Q("-1e309"), invalid, warning},
        {kWidth, digits, invalid, warning},
        {kWidth, Q("0"), range, warning},
        {kWidth, Q("-0"), range, warning},
        {kWidth, Q("0.0099999"), range, warning},
        {kWidth, Q("100.0001"), range, warning},
        {kWidth, Q("1e99"), range, warning, 0, kRotation, Q("x")},
        {kSlant, Q(""), invalid, warning},
        {kSlant, Q("-inf"), invalid, warning},
        {kSlant, digits, invalid, warning},
        {kSlant, Q("85"), slant85, error},
        {kSlant, Q("-85"), slant85, error},
        {kSlant, Q("275"), slant85, error},
        {kSlant, Q("1e99"), slant85, error},
        {kSlant, Q("0"), slant85, error, 2},  // North is a quarter turn from East
        {kSlant, Q("1,5e3"), slant85, error},
        {kRotation, Q(""), invalid, warning},
        {kRotation, Q("nan"), invalid, warning},
        {kRotation, Q("1e309"), invalid, warning},
        {kRotation, Q("text"), invalid, warning},
        {kRotation, digits, invalid, warning, 2},
    };
    for (const auto& r : rows) {
        SCOPED_TRACE(r.text.left(20).toStdString() + " in " + std::to_string(r.field));
        SetAngleSystem(&cad, r.format, r.format ? kPi / 2 : 0.0, r.format != 0);
        before = drawingfile::Dump(cad);
        Prefill();
        ScriptedUser user;
        user.SetText(kLine1, Q("Never")).SetText(kHeight, Q("2")).SetText(kWidth, Q("1"));
        user.SetText(kRotation, Q("0")).SetText(kSlant, r.format ? Q("100") : Q("0"));
        user.SetText(r.field, r.text);
        if (r.field2)
            user.SetText(r.field2, r.text2);
        bool focused = false, allSelected = false;
        user.Click(kOk).Answer(ulo::IDOK).Inspect([&](QWidget* w) {
            auto* edit = qobject_cast<QLineEdit*>(ulo::FindControl(w, r.field));
            focused = edit && w->focusWidget() == edit;
            allSelected = edit && edit->selectedText() == edit->text() &&
                          (edit->text().isEmpty() || edit->hasSelectedText());
        });
        user.Click(kCancel);
        Run(user);
        ASSERT_EQ(user.Messages().size(), 1u);
        EXPECT_EQ(user.Messages()[0].text, r.message);
        EXPECT_EQ(user.Messages()[0].caption, r.caption);
        EXPECT_EQ(user.Messages()[0].flags, 0x30u);
        EXPECT_TRUE(focused);
        EXPECT_TRUE(allSelected);
        EXPECT_EQ(ents.GetNoEnts(), 0u);
        EXPECT_EQ(drawingfile::Dump(cad), before);
    }
}

// Cancel and the close box hand back an empty collection, whatever it held.
TEST_F(InsTextDialogTest, CancelHandsBackNothing) {
    for (const bool closeBox : {false, true}) {
        Prefill();
        ScriptedUser user;
        user.SetText(kLine1, Q("Typed")).SetText(kHeight, Q("3"));
        if (closeBox)
            user.Close();
        else
            user.Click(kCancel);
        Run(user);
        EXPECT_EQ(ents.GetNoEnts(), 0u) << closeBox;
        EXPECT_EQ(drawingfile::Dump(cad), before);
    }
}
