// Every text of the hostile corpus typed into every field of the built
// dialogs, as a user types it: nothing aborts, text fields hand back what
// they hold, and no number field ever hands back NaN or an infinity.
#include <QLineEdit>
#include <cmath>
#include <memory>

#include "automation/HostileTexts.h"
#include "support/FactoryFixture.h"
#include "ulo/ctrl/Dialog.h"
#include "ulo/ctrl/Win.h"
#include "veld/FileReaderPasswordRequest.h"

using automation::Printable;
using automation::ScriptedUser;

namespace {
constexpr unsigned kOk = 11196;
constexpr unsigned kCancel = 11197;

class HostileInput : public FactoryTest {
protected:
    void SetUp() override {
        FactoryTest::SetUp();
        QString error;
        texts = automation::HostileTexts(&error);
        ASSERT_GE(texts.size(), 30) << error.toStdString();
    }

    /// Types @p text into @p field and presses OK; a refusal is answered and
    /// the dialog cancelled. What the field showed before OK lands in shown.
    void TypeAndConfirm(ScriptedUser& user, unsigned field, const QString& text) {
        user.SetText(field, text);
        user.Inspect([this, field](QWidget* w) {
            shown = static_cast<QLineEdit*>(ulo::FindControl(w, field))->text();
        });
        user.Click(kOk).Answer(ulo::IDOK).Click(kCancel);
    }
    QString shown;
    QStringList texts;
};

/// The refusals a number field may answer a text with.
bool isNumberRefusal(const QString& text) {
    return text == QLatin1String("The value is out of range") ||
           text.startsWith(QLatin1String("The value can not be"));
}
}  // namespace

TEST_F(HostileInput, NumberFieldsNeverReturnANonFiniteNumber) {
    for (const QString& text : texts) {
        for (const bool rotate : {false, true}) {
            ScriptedUser user;
            TypeAndConfirm(user, 11137, text);
            double value = 7.0;
            const long result =
                rotate ? factory->ShowDlgRotate(nullptr, value)
                       : factory->ShowDlgGetDouble(nullptr, L"", value, true, true, true);
            const std::string name = Printable(text).toStdString() + (rotate ? " (rotation)" : "");
            EXPECT_TRUE(user.Failures().empty()) << name << ": " << user.Report().toStdString();
            EXPECT_TRUE(std::isfinite(value)) << name;
            // The rotation dialog answers OK with the code of its rotation type.
            if (result != ulo::IDCANCEL) {
                EXPECT_TRUE(user.Messages().empty()) << name;
                EXPECT_EQ(user.PendingSteps(), 2u)
                    << name;  // the answer and Cancel were not needed
            } else {
                EXPECT_EQ(value, 7.0) << name;
                ASSERT_EQ(user.Messages().size(), 1u) << name;
                EXPECT_TRUE(isNumberRefusal(user.Messages()[0].text))
                    << name << ": " << user.Messages()[0].text.toStdString();
            }
        }
    }
}

TEST_F(HostileInput, TextFieldsHandBackWhatTheyHold) {
    for (const QString& text : texts) {
        ScriptedUser user;
        TypeAndConfirm(user, 11212, text);
        ulo::WString result(L"before");
        EXPECT_TRUE(factory->ShowDlgGetString(nullptr, L"t", L"p", result));
        const std::string name = Printable(text).toStdString();
        EXPECT_TRUE(user.Failures().empty()) << name << ": " << user.Report().toStdString();
        // As typed, up to the most a line edit holds.
        EXPECT_EQ(shown, text.left(QLineEdit().maxLength())) << name;
        // Wide strings hold no lone surrogate: both sides meet the same conversion.
        const std::wstring typed = ulo::WString::FromQString(text).str();
        if (text.isEmpty()) {
            EXPECT_EQ(result, L"before") << name;
        } else {
            EXPECT_LE(result.Length(), 511u) << name;
            EXPECT_EQ(typed.substr(0, result.Length()), result.str()) << name;
        }
    }
}

TEST_F(HostileInput, PasswordFieldsStoreWhatTheyShow) {
    std::unique_ptr<veld::IFileReaderPasswordRequest> request(
        factory->GetDlgPasswordRequest(nullptr));
    for (const QString& text : texts) {
        ScriptedUser user;
        TypeAndConfirm(user, 4779, text);
        ulo::WString password(L"unchanged");
        const bool ok = request->RequestPassword(password, L"plan.veld");
        const std::string name = Printable(text).toStdString();
        EXPECT_TRUE(user.Failures().empty()) << name << ": " << user.Report().toStdString();
        EXPECT_EQ(shown, text.toUpper().left(QLineEdit().maxLength())) << name;
        EXPECT_TRUE(ok) << name;
        EXPECT_EQ(password, ulo::WString::FromQString(shown)) << name;
    }
}
