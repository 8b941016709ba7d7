#include <QLineEdit>
#include <QWidget>

#include "FactoryFixture.h"
#include "ulo/ctrl/Dialog.h"
#include "ulo/ctrl/Win.h"

using automation::ScriptedUser;

namespace {
constexpr unsigned kOk = 11196;
constexpr unsigned kCancel = 11197;
constexpr unsigned kValue = 11137;

struct SignCase {
    bool allowNegative, allowZero, allowPositive;
    const char* input;
    const char* refusal;  // null: accepted
    double accepted;
};

class GetDoubleSignRule : public FactoryTest, public ::testing::WithParamInterface<SignCase> {};
}  // namespace

TEST_P(GetDoubleSignRule, RefusesWithItsMessageOrReturnsTheNumber) {
    const SignCase c = GetParam();
    ScriptedUser user;
    user.SetText(kValue, QString::fromUtf8(c.input)).Click(kOk);
    if (c.refusal)
        user.Answer(ulo::IDOK).Click(kCancel);
    double value = 12.5;
    const long result = factory->ShowDlgGetDouble(nullptr, L"Height", value, c.allowNegative,
                                                  c.allowZero, c.allowPositive);
    ExpectFinished(user);
    if (c.refusal) {
        EXPECT_EQ(result, ulo::IDCANCEL);
        EXPECT_EQ(value, 12.5);
        ASSERT_EQ(user.Messages().size(), 1u);
        EXPECT_EQ(user.Messages()[0].text, QString::fromLatin1(c.refusal));
        EXPECT_EQ(user.Messages()[0].caption, QStringLiteral("Warning"));
        EXPECT_EQ(user.Messages()[0].flags, 48u);
    } else {
        EXPECT_EQ(result, ulo::IDOK);
        EXPECT_DOUBLE_EQ(value, c.accepted);
        EXPECT_TRUE(user.Messages().empty());
    }
}

INSTANTIATE_TEST_SUITE_P(
    Rules, GetDoubleSignRule,
    ::testing::Values(SignCase{false, false, true, "0", "The value can not be zero", 0},
                      SignCase{false, false, true, "-1", "The value can not be negative", 0},
                      SignCase{false, false, true, "2.5", nullptr, 2.5},
                      SignCase{true, false, false, "3", "The value can not be positive", 0},
                      SignCase{true, false, false, "-3", nullptr, -3},
                      SignCase{false, true, false, "0", nullptr, 0},
                      SignCase{false, false, false, "0", "The value can not be zero", 0},
                      SignCase{false, false, false, "7", "The value can not be positive", 0},
                      // Text that is no number reads as 0 and meets the zero rule.
                      SignCase{true, false, true, "abc", "The value can not be zero", 0},
                      SignCase{true, true, true, "12abc", nullptr, 12},
                      // "nan" and "inf" are no numbers either; a number beyond
                      // the range of a double meets the sign rule, then is refused.
                      SignCase{false, false, false, "nan", "The value can not be zero", 0},
                      SignCase{true, true, true, "-inf", nullptr, 0},
                      SignCase{true, true, false, "1e309", "The value can not be positive", 0},
                      SignCase{false, true, true, "-1e309", "The value can not be negative", 0},
                      SignCase{true, true, true, "1e309", "The value is out of range", 0},
                      // A decimal comma, and digits of other scripts, read as typed.
                      SignCase{true, true, true, "1,5", nullptr, 1.5},
                      SignCase{true, true, true, "\u0663\u066b\u0661\u0664", nullptr, 3.14}));

TEST_F(FactoryTest, GetDoubleOpensOnZeroWithTheTitleAsPrompt) {
    ScriptedUser user;
    QString field, frame;
    user.Inspect([&](QWidget* w) {
        field = ulo::FindControl(w, kValue)->property("text").toString();
        frame = static_cast<CWSizeDialog*>(w)->GetDlgItemText(11138);
    });
    user.Click(kOk);
    double value = 12.5;
    EXPECT_EQ(factory->ShowDlgGetDouble(nullptr, L"Height", value, false, true, false), ulo::IDOK);
    ExpectFinished(user);
    EXPECT_EQ(field, QStringLiteral("0"));
    EXPECT_EQ(frame, QStringLiteral("Height"));
    EXPECT_EQ(value, 0.0);
    ASSERT_EQ(user.Dialogs().size(), 1u);
    EXPECT_EQ(user.Dialogs()[0].help, QStringLiteral("QuadraCE.htm#Dlg InsValore"));
    EXPECT_EQ(user.Dialogs()[0].templateId, 11012u);
}

TEST_F(FactoryTest, HelpCommandInAValueDialogChangesNothing) {
    int hostHelp = 0;
    ulo::SetHelpCommandHandler([&](QWidget*) { ++hostHelp; });
    ScriptedUser user;
    user.SetText(kValue, QStringLiteral("4")).Help().Click(kOk);
    double value = 0;
    EXPECT_EQ(factory->ShowDlgGetDouble(nullptr, L"", value, true, true, true), ulo::IDOK);
    ulo::SetHelpCommandHandler({});
    ExpectFinished(user);
    EXPECT_EQ(value, 4.0);
    EXPECT_EQ(hostHelp, 0);
}

struct RotateCase {
    unsigned typeButton;  // 0: leave the preset type
    long code;
    bool fieldEnabled;
};

class RotateType : public FactoryTest, public ::testing::WithParamInterface<RotateCase> {};

TEST_P(RotateType, ReturnsTheCodeOfTheSelectedTypeAndTheNumber) {
    const RotateCase c = GetParam();
    ScriptedUser user;
    bool enabledAtStart = false, presetChecked = false, enabledAfter = false;
    QString presetLabel;
    user.Inspect([&](QWidget* w) {
        enabledAtStart = ulo::FindControl(w, kValue)->isEnabled();
        presetChecked = static_cast<CWSizeDialog*>(w)->IsDlgButtonChecked(11206);
        presetLabel = static_cast<CWSizeDialog*>(w)->GetDlgItemText(11206);
    });
    user.SetText(kValue, QStringLiteral("30"));
    if (c.typeButton)
        user.Click(c.typeButton);
    user.Inspect([&](QWidget* w) { enabledAfter = ulo::FindControl(w, kValue)->isEnabled(); });
    user.Click(kOk);
    double angle = 1.0;
    EXPECT_EQ(factory->ShowDlgRotate(nullptr, angle), c.code);
    ExpectFinished(user);
    EXPECT_TRUE(enabledAtStart);
    EXPECT_TRUE(presetChecked);
    EXPECT_EQ(presetLabel, QStringLiteral("Rotation angle specification"));
    EXPECT_EQ(enabledAfter, c.fieldEnabled);
    EXPECT_EQ(angle, 30.0);  // a disabled field keeps its text, which is still read
    ASSERT_FALSE(user.Dialogs().empty());
    EXPECT_EQ(user.Dialogs()[0].help, QStringLiteral("QuadraCE.htm#Dlg ScegliRotazione"));
    EXPECT_EQ(user.Dialogs()[0].templateId, 11068u);
}

INSTANTIATE_TEST_SUITE_P(Types, RotateType,
                         ::testing::Values(RotateCase{0, 6, true}, RotateCase{11204, 4, false},
                                           RotateCase{11205, 5, false},
                                           RotateCase{11206, 6, true}));

TEST_F(FactoryTest, CancelledValueDialogsKeepTheirOutValues) {
    ScriptedUser user;
    user.SetText(kValue, QStringLiteral("9")).Click(kCancel);
    user.SetText(kValue, QStringLiteral("9")).Close();
    double value = 3.25, angle = 1.5;
    EXPECT_EQ(factory->ShowDlgGetDouble(nullptr, L"x", value, true, true, true), ulo::IDCANCEL);
    EXPECT_EQ(factory->ShowDlgRotate(nullptr, angle), ulo::IDCANCEL);
    ExpectFinished(user);
    EXPECT_EQ(value, 3.25);
    EXPECT_EQ(angle, 1.5);
}

TEST_F(FactoryTest, GetStringShowsCallerTextAndPrompt) {
    ScriptedUser user;
    QString title, prompt, text, selected;
    user.Inspect([&](QWidget* w) {
        title = w->windowTitle();
        prompt = static_cast<CWSizeDialog*>(w)->GetDlgItemText(11213);
        auto* e = static_cast<QLineEdit*>(ulo::FindControl(w, 11212));
        text = e->text();
        selected = e->selectedText();
    });
    user.Type(11212, QStringLiteral(" B")).Click(kOk);
    ulo::WString result(L"Name A");
    EXPECT_TRUE(factory->ShowDlgGetString(nullptr, L"Rename", L"New name:", result));
    ExpectFinished(user);
    EXPECT_EQ(title, QStringLiteral("Rename"));
    EXPECT_EQ(prompt, QStringLiteral("New name:"));
    EXPECT_EQ(text, QStringLiteral("Name A"));
    EXPECT_EQ(selected, QStringLiteral("Name A"));
    EXPECT_EQ(result, L"Name A B");
}

TEST_F(FactoryTest, GetStringKeepsTextWhenFieldEmptyOrCancelled) {
    ScriptedUser user;
    user.Clear(11212).Click(kOk);
    user.SetText(11212, QStringLiteral("other")).Click(kCancel);
    ulo::WString result(L"kept");
    EXPECT_TRUE(factory->ShowDlgGetString(nullptr, L"t", L"p", result));
    EXPECT_EQ(result, L"kept");
    EXPECT_FALSE(factory->ShowDlgGetString(nullptr, L"t", L"p", result));
    ExpectFinished(user);
    EXPECT_EQ(result, L"kept");
}

TEST_F(FactoryTest, GetStringCutsLongEntriesTo511Characters) {
    const QString x510(510, QLatin1Char('x'));
    const struct {
        QString typed;
        QString kept;
    } rows[] = {
        {QString(600, QLatin1Char('x')), QString(511, QLatin1Char('x'))},
        // An emoji across the cut is dropped whole, never split in half.
        {x510 + QStringLiteral("\U0001F4D0y"), x510},
    };
    for (const auto& r : rows) {
        ScriptedUser user;
        user.SetText(11212, r.typed).Click(kOk);
        ulo::WString result;
        EXPECT_TRUE(factory->ShowDlgGetString(nullptr, L"t", L"p", result));
        ExpectFinished(user);
        EXPECT_EQ(result.ToQString(), r.kept);
    }
}

TEST_F(FactoryTest, TwoFactoriesAreDistinctAndBehaveAlike) {
    IVELDDlgFactory* other = CreateFactory();
    ASSERT_NE(other, nullptr);
    EXPECT_NE(other, factory);
    ScriptedUser user;
    user.SetText(kValue, QStringLiteral("5")).Click(kOk);
    user.SetText(kValue, QStringLiteral("5")).Click(kOk);
    double a = 0, b = 0;
    EXPECT_EQ(factory->ShowDlgGetDouble(nullptr, L"", a, true, true, true),
              other->ShowDlgGetDouble(nullptr, L"", b, true, true, true));
    ExpectFinished(user);
    EXPECT_EQ(a, b);
}

TEST_F(FactoryTest, ADialogLeftOpenIsClosedAndReported) {
    ScriptedUser user;
    user.SetIdleLimit(50);
    user.SetText(kValue, QStringLiteral("5"));
    double value = 1;
    EXPECT_EQ(factory->ShowDlgGetDouble(nullptr, L"", value, true, true, true), ulo::IDCANCEL);
    ASSERT_EQ(user.Failures().size(), 1u);
    EXPECT_TRUE(user.Failures()[0].contains(QStringLiteral("left open")));
    EXPECT_EQ(value, 1.0);
}

TEST_F(FactoryTest, AStepOnAMissingControlFailsWithoutHanging) {
    ScriptedUser user;
    user.Click(4242).Click(kOk);
    double value = 1;
    EXPECT_EQ(factory->ShowDlgGetDouble(nullptr, L"", value, true, true, true), ulo::IDCANCEL);
    ASSERT_EQ(user.Failures().size(), 1u);
    EXPECT_TRUE(user.Failures()[0].contains(QStringLiteral("no control 4242")));
}
