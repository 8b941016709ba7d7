// The value entry, rotation and text entry dialogs through the factory: the
// sign rules and their refusals, what each opens with and hands back.
#include <QLineEdit>
#include <QWidget>

#include "support/FactoryFixture.h"
#include "ulo/ctrl/Dialog.h"
#include "ulo/ctrl/Win.h"

using automation::ScriptedUser;

namespace {
constexpr unsigned kOk = 11196;
constexpr unsigned kCancel = 11197;
constexpr unsigned kValue = 11137;

}  // namespace

TEST_F(FactoryTest, GetDoubleRefusesBySignRuleWithItsMessageOrReturnsTheNumber) {
    const struct {
        bool allowNegative, allowZero, allowPositive;
        const char* input;
        const char* refusal;  // null: accepted
        double accepted;
    } cases[] = {
        {false, false, true, "0", "The value can not be zero", 0},
        {false, false, true, "-1", "The value can not be negative", 0},
        {false, false, true, "2.5", nullptr, 2.5},
        {true, false, false, "3", "The value can not be positive", 0},
        {true, false, false, "-3", nullptr, -3},
        {false, true, false, "0", nullptr, 0},
        {false, false, false, "0", "The value can not be zero", 0},
        {false, false, false, "7", "The value can not be positive", 0},
        {true, true, true, "12abc", nullptr, 12},
        // Text that is no number ("nan", "inf") reads as 0 and meets the zero
        // rule; a number beyond a double meets the sign rule, then is refused.
        {false, false, false, "nan", "The value can not be zero", 0},
        {true, true, true, "-inf", nullptr, 0},
        {true, true, false, "1e309", "The value can not be positive", 0},
        {false, true, true, "-1e309", "The value can not be negative", 0},
        {true, true, true, "1e309", "The value is out of range", 0},
    };
    for (const auto& c : cases) {
        ScriptedUser user;
        user.SetText(kValue, QString::fromUtf8(c.input)).Click(kOk);
        if (c.refusal)
            user.Answer(ulo::IDOK).Click(kCancel);
        double value = 12.5;
        const long result = factory->ShowDlgGetDouble(nullptr, L"Height", value, c.allowNegative,
                                                      c.allowZero, c.allowPositive);
        ExpectFinished(user);
        const std::string what = std::string(c.input) + (c.allowNegative ? " -" : "") +
                                 (c.allowZero ? " 0" : "") + (c.allowPositive ? " +" : "");
        if (c.refusal) {
            EXPECT_EQ(result, ulo::IDCANCEL) << what;
            EXPECT_EQ(value, 12.5) << what;
            ASSERT_EQ(user.Messages().size(), 1u) << what;
            EXPECT_EQ(user.Messages()[0].text, QString::fromLatin1(c.refusal)) << what;
            EXPECT_EQ(user.Messages()[0].caption, QStringLiteral("Warning")) << what;
            EXPECT_EQ(user.Messages()[0].flags, 48u) << what;
        } else {
            EXPECT_EQ(result, ulo::IDOK) << what;
            EXPECT_DOUBLE_EQ(value, c.accepted) << what;
            EXPECT_TRUE(user.Messages().empty()) << what;
        }
    }
}

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

TEST_F(FactoryTest, RotateReturnsTheCodeOfTheSelectedTypeAndTheNumber) {
    const struct {
        unsigned typeButton;  // 0: leave the preset type
        long code;
        bool fieldEnabled;
    } cases[] = {{0, 6, true}, {11204, 4, false}, {11205, 5, false}, {11206, 6, true}};
    for (const auto& c : cases) {
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
        EXPECT_EQ(factory->ShowDlgRotate(nullptr, angle), c.code) << c.typeButton;
        ExpectFinished(user);
        EXPECT_TRUE(enabledAtStart);
        EXPECT_TRUE(presetChecked);
        EXPECT_EQ(presetLabel, QStringLiteral("Rotation angle specification"));
        EXPECT_EQ(enabledAfter, c.fieldEnabled) << c.typeButton;
        EXPECT_EQ(angle, 30.0) << c.typeButton;  // a disabled field keeps its text, still read
        ASSERT_FALSE(user.Dialogs().empty());
        EXPECT_EQ(user.Dialogs()[0].help, QStringLiteral("QuadraCE.htm#Dlg ScegliRotazione"));
        EXPECT_EQ(user.Dialogs()[0].templateId, 11068u);
    }
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

TEST_F(FactoryTest, GetStringReturnsTheEntryCutTo511CharactersOrKeepsTheCallersText) {
    const QString x510(510, QLatin1Char('x'));
    const struct {
        QString typed;
        unsigned button;
        QString result;
    } rows[] = {
        {QString(), kOk, QStringLiteral("kept")},
        {QStringLiteral("other"), kCancel, QStringLiteral("kept")},
        {QString(600, QLatin1Char('x')), kOk, QString(511, QLatin1Char('x'))},
        // An emoji across the cut is dropped whole, never split in half.
        {x510 + QStringLiteral("\U0001F4D0y"), kOk, x510},
    };
    for (const auto& r : rows) {
        ScriptedUser user;
        user.SetText(11212, r.typed).Click(r.button);
        ulo::WString result(L"kept");
        EXPECT_EQ(factory->ShowDlgGetString(nullptr, L"t", L"p", result), r.button == kOk);
        ExpectFinished(user);
        EXPECT_EQ(result.ToQString(), r.result) << r.typed.size();
    }
}
