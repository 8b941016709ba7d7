// The value entry dialogs through the factory: number, rotation, text and
// password; the sign rules and their refusals, what each opens with and hands
// back.
#include <QLineEdit>
#include <QWidget>
#include <cstring>
#include <memory>
#include <vector>

#include "automation/HostileTexts.h"
#include "res/templates/ControlIds.h"
#include "support/FactoryFixture.h"
#include "ulo/ctrl/Dialog.h"
#include "ulo/ctrl/Win.h"
#include "veld/FileReaderPasswordRequest.h"

using automation::ScriptedUser;
namespace Number = veld5::ctl::GetDouble;
namespace Rotate = veld5::ctl::Rotate;
namespace Text = veld5::ctl::GetString;
namespace Password = veld5::ctl::Password;

// The number and the rotation entry. The field opens on "0" under the
// caller's title (the rotation under its own prompt, the angle type chosen);
// the sign rules refuse with their message (a text without a number reads as
// 0, a number beyond a double meets the sign rule first); OK hands back the
// number with IDOK, or with the code of the rotation type: the reference
// point types disable the field, which is still read.
TEST_F(FactoryTest, ValueDialogsApplyTheirRulesAndHandBackTheNumber) {
    const char* zero = "The value can not be zero";
    const char* negative = "The value can not be negative";
    const char* positive = "The value can not be positive";
    const char* range = "The value is out of range";
    const struct {
        const char* signs;  // the signs the number entry allows; null: the rotation
        unsigned type;      // the rotation type clicked; 0: as it opened
        const char* input;
        const char* refusal;  // null: accepted
        long result = ulo::IDCANCEL;
        double value = 12.5;
        bool enabled = true;  // the field, after the type was clicked
    } rows[] = {
        {"+", 0, "0", zero},
        {"+", 0, "-1", negative},
        {"+", 0, "2.5", nullptr, ulo::IDOK, 2.5},
        {"-", 0, "3", positive},
        {"-", 0, "-3", nullptr, ulo::IDOK, -3},
        {"0", 0, "0", nullptr, ulo::IDOK, 0},
        {"", 0, "nan", zero},
        {"-0", 0, "1e309", positive},
        {"0+", 0, "-1e309", negative},
        {"-0+", 0, "1e309", range},
        {nullptr, 0, "30", nullptr, 6, 30},
        {nullptr, Rotate::kOnePoint, "30", nullptr, 4, 30, false},
        {nullptr, Rotate::kTwoPoints, "30", nullptr, 5, 30, false},
        {nullptr, 0, "-1e309", range},
    };
    static_assert(Number::kValue == Rotate::kValue && Number::kOk == Rotate::kOk);
    for (const auto& r : rows) {
        SCOPED_TRACE(std::string(r.signs ? r.signs : "rotation") + " " + r.input);
        ScriptedUser user;
        QString opened;
        bool enabled = false;
        user.Inspect([&](QWidget* w) {
            auto* d = static_cast<CWSizeDialog*>(w);
            opened = d->GetDlgItemText(Number::kValue) + u'|' + d->GetDlgItemText(Number::kFrame);
            if (!r.signs && d->IsDlgButtonChecked(Rotate::kAngle))
                opened += QStringLiteral("|angle");
        });
        user.SetText(Number::kValue, QString::fromUtf8(r.input));
        if (r.type)
            user.Click(r.type);
        user.Inspect(
                [&](QWidget* w) { enabled = ulo::FindControl(w, Number::kValue)->isEnabled(); })
            .Click(Number::kOk);
        if (r.refusal)
            user.Answer(ulo::IDOK).Click(Number::kCancel);
        double value = 12.5;
        const auto allows = [&](char sign) { return std::strchr(r.signs, sign) != nullptr; };
        const long result = r.signs
                                ? factory->ShowDlgGetDouble(nullptr, L"Height", value, allows('-'),
                                                            allows('0'), allows('+'))
                                : factory->ShowDlgRotate(nullptr, value);
        ExpectFinished(user);
        EXPECT_EQ(opened, r.signs ? QStringLiteral("0|Height")
                                  : QStringLiteral("0|Select the rotation type|angle"));
        EXPECT_EQ(enabled, r.enabled);
        EXPECT_EQ(result, r.result);
        EXPECT_EQ(value, r.value);
        ASSERT_EQ(user.Messages().size(), r.refusal ? 1u : 0u);
        if (r.refusal) {
            const auto& m = user.Messages()[0];
            EXPECT_EQ(m.caption + u'|' + m.text,
                      QStringLiteral("Warning|") + QLatin1String(r.refusal));
            EXPECT_EQ(m.flags, 48u);
        }
    }
}

// The caller's caption, prompt and text, all of it selected. The answer is
// the entry as typed, cut to 511 characters without splitting a character, or
// the caller's text when the entry is empty: every text of the hostile corpus
// comes back so.
TEST_F(FactoryTest, GetStringReturnsTheEntryCutTo511Characters) {
    QString error;
    QStringList texts = automation::HostileTexts(&error);
    ASSERT_GE(texts.size(), 30) << error.toStdString();
    const QString x510(510, u'x');
    const QMap<QString, QString> exact = {{QString(), QStringLiteral("Name A")},
                                          {QString(600, u'x'), QString(511, u'x')},
                                          // An emoji across the cut is dropped whole.
                                          {x510 + QStringLiteral("\U0001F4D0y"), x510}};
    texts += exact.keys();
    for (const QString& text : texts) {
        const std::string name = automation::Printable(text).toStdString();
        SCOPED_TRACE(name);
        ScriptedUser user;
        QString opened, shown;
        const auto edit = [](QWidget* w) {
            return static_cast<QLineEdit*>(ulo::FindControl(w, Text::kText));
        };
        user.Inspect([&](QWidget* w) {
                opened = w->windowTitle() + u'|' +
                         static_cast<CWSizeDialog*>(w)->GetDlgItemText(Text::kPrompt) + u'|' +
                         edit(w)->text() + u'|' + edit(w)->selectedText();
            })
            .SetText(Text::kText, text)
            .Inspect([&](QWidget* w) { shown = edit(w)->text(); })
            .Click(Text::kOk);
        ulo::WString result(L"Name A");
        EXPECT_TRUE(factory->ShowDlgGetString(nullptr, L"Rename", L"New name:", result));
        ExpectFinished(user);
        EXPECT_EQ(opened, QStringLiteral("Rename|New name:|Name A|Name A"));
        EXPECT_EQ(shown, text.left(QLineEdit().maxLength()));
        // Wide strings hold no lone surrogate: both sides meet the same conversion.
        const std::wstring typed = ulo::WString::FromQString(text).str();
        if (exact.contains(text)) {
            EXPECT_EQ(result.ToQString(), exact.value(text));
        } else {
            EXPECT_LE(result.Length(), 511u);
            EXPECT_EQ(typed.substr(0, result.Length()), result.str());
        }
    }
}

// Typed key by key, letters whose capitals are longer keep the cursor after
// them; every text of the hostile corpus is stored as the field shows it.
TEST_F(FactoryTest, PasswordIsMaskedAndStoredAsCapitals) {
    std::unique_ptr<veld::IFileReaderPasswordRequest> request(
        factory->GetDlgPasswordRequest(nullptr));
    struct Row {
        QString typed, stored;
        bool byKeys;
    };
    std::vector<Row> rows = {
        {QStringLiteral("\u00dfe"), QStringLiteral("SSE"), true},
        {QStringLiteral("\ufb00x\u0149y"), QStringLiteral("FFX\u02bcNY"), true},
        {QString(), QString(), true},  // OK at once: an empty password
    };
    QString error;
    for (const QString& text : automation::HostileTexts(&error))
        rows.push_back({text, text.toUpper().left(QLineEdit().maxLength()), false});
    ASSERT_GE(rows.size(), 33u) << error.toStdString();
    for (const Row& r : rows) {
        SCOPED_TRACE(automation::Printable(r.typed).toStdString());
        ScriptedUser user;
        QString shown;  // "unmasked" when the field shows the letters
        if (r.byKeys)
            user.Type(Password::kPassword, r.typed);
        else
            user.SetText(Password::kPassword, r.typed);
        user.Inspect([&](QWidget* w) {
            auto* e = static_cast<QLineEdit*>(ulo::FindControl(w, Password::kPassword));
            shown = e->echoMode() == QLineEdit::Password ? e->text() : QStringLiteral("unmasked");
        });
        user.Click(Password::kOk);
        ulo::WString password(L"old");
        EXPECT_TRUE(request->RequestPassword(password, L"plan.veld"));
        ExpectFinished(user);
        EXPECT_EQ(shown, r.stored);
        EXPECT_EQ(password, ulo::WString::FromQString(r.stored));  // no lone surrogate
    }
}

TEST_F(FactoryTest, PasswordOkIsEnabledUntilTheFieldFirstBecomesEmpty) {
    std::unique_ptr<veld::IFileReaderPasswordRequest> request(
        factory->GetDlgPasswordRequest(nullptr));
    ScriptedUser user;
    bool atStart = false, afterErase = true;
    user.Inspect([&](QWidget* w) { atStart = ulo::FindControl(w, Password::kOk)->isEnabled(); });
    user.Type(Password::kPassword, QStringLiteral("a")).Key(Password::kPassword, Qt::Key_Backspace);
    user.Inspect([&](QWidget* w) { afterErase = ulo::FindControl(w, Password::kOk)->isEnabled(); });
    user.Click(Password::kCancel);
    ulo::WString password(L"before");
    EXPECT_FALSE(request->RequestPassword(password, L"plan.veld"));
    ExpectFinished(user);
    EXPECT_TRUE(atStart);
    EXPECT_FALSE(afterErase);
}
