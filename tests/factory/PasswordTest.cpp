// The password request: typed letters masked and stored as capitals, OK
// enabled until the field first empties, and the retry question.
#include <QLineEdit>
#include <memory>

#include "support/FactoryFixture.h"
#include "ulo/ctrl/Dialog.h"
#include "veld/FileReaderPasswordRequest.h"

using automation::ScriptedUser;

namespace {
constexpr unsigned kOk = 11196;
constexpr unsigned kCancel = 11197;
constexpr unsigned kField = 4779;

class PasswordRequest : public FactoryTest {
protected:
    void SetUp() override {
        FactoryTest::SetUp();
        request.reset(factory->GetDlgPasswordRequest(nullptr));
        ASSERT_NE(request, nullptr);
    }
    std::unique_ptr<veld::IFileReaderPasswordRequest> request;
};
}  // namespace

TEST_F(PasswordRequest, TypedLettersAreMaskedAndStoredAsCapitals) {
    const struct {
        QString typed;
        QString stored;
    } rows[] = {
        // Letters whose capitals are longer keep the cursor after them (the
        // corpus as a whole: HostileInputTest).
        {QStringLiteral("\u00dfe"), QStringLiteral("SSE")},
        {QStringLiteral("\ufb00x\u0149y"), QStringLiteral("FFX\u02bcNY")},
        {QString(), QString()},  // OK at once: an empty password
    };
    for (const auto& r : rows) {
        ScriptedUser user;
        bool masked = false;
        QString shown;
        user.Type(kField, r.typed);
        user.Inspect([&](QWidget* w) {
            auto* e = static_cast<QLineEdit*>(ulo::FindControl(w, kField));
            masked = e->echoMode() == QLineEdit::Password;
            shown = e->text();
        });
        user.Click(kOk);
        ulo::WString password(L"old");
        EXPECT_TRUE(request->RequestPassword(password, L"plan.veld"));
        ExpectFinished(user);
        EXPECT_TRUE(masked);
        EXPECT_EQ(shown, r.stored);
        EXPECT_EQ(password.ToQString(), r.stored);
        ASSERT_EQ(user.Dialogs().size(), 1u);
        EXPECT_EQ(user.Dialogs()[0].title, QStringLiteral("Insert password"));
    }
}

TEST_F(PasswordRequest, OkIsEnabledUntilTheFieldFirstBecomesEmpty) {
    ScriptedUser user;
    bool atStart = false, afterErase = true;
    user.Inspect([&](QWidget* w) { atStart = ulo::FindControl(w, kOk)->isEnabled(); });
    user.Type(kField, QStringLiteral("a")).Key(kField, Qt::Key_Backspace);
    user.Inspect([&](QWidget* w) { afterErase = ulo::FindControl(w, kOk)->isEnabled(); });
    user.Click(kCancel);
    ulo::WString password(L"before");
    EXPECT_FALSE(request->RequestPassword(password, L"plan.veld"));
    ExpectFinished(user);
    EXPECT_TRUE(atStart);
    EXPECT_FALSE(afterErase);
    EXPECT_EQ(password, L"before");
}

TEST_F(PasswordRequest, AskRetryFollowsTheAnswer) {
    for (const int answer : {ulo::IDYES, ulo::IDNO}) {
        ScriptedUser user;
        user.Answer(answer);
        EXPECT_EQ(request->AskRetry(L"plan.veld"), answer == ulo::IDYES);
        ExpectFinished(user);
        ASSERT_EQ(user.Messages().size(), 1u);
        EXPECT_EQ(user.Messages()[0].caption, QStringLiteral("Error"));
        EXPECT_EQ(user.Messages()[0].flags, 36u);
        EXPECT_TRUE(user.Messages()[0].text.startsWith(
            QStringLiteral("The password you entered is not the one used")));
    }
}
