// Sealed drawing files: round trips, refusals, and the reader's question
// sequence.
#include <gtest/gtest.h>

#include <QStringList>
#include <deque>

#include "veld/SealedFile.h"

using veld::CSealedFile;

namespace {
/// A password request that answers from a script and records the calls.
struct ScriptedRequest : veld::IFileReaderPasswordRequest {
    std::deque<const wchar_t*> passwords;  // null: cancel
    std::deque<bool> retries;
    QStringList calls;
    bool RequestPassword(ulo::WString& password, const ulo::WString&) override {
        calls << QStringLiteral("password");
        if (passwords.empty() || !passwords.front())
            return false;
        password = passwords.front();
        passwords.pop_front();
        return true;
    }
    bool AskRetry(const ulo::WString&) override {
        calls << QStringLiteral("retry");
        const bool r = !retries.empty() && retries.front();
        if (!retries.empty())
            retries.pop_front();
        return r;
    }
};

const QByteArray kPlain = QByteArrayLiteral("{\"layers\":[\"0\",\"ROADS\"]}");
}  // namespace

TEST(SealedFile, RoundTripAndRefusals) {
    const QByteArray sealed = CSealedFile::Seal(kPlain, L"SECRET");
    ASSERT_TRUE(CSealedFile::IsSealed(sealed));
    EXPECT_FALSE(sealed.contains("ROADS"));
    QByteArray plain;
    EXPECT_TRUE(CSealedFile::Open(sealed, L"SECRET", plain));
    EXPECT_EQ(plain, kPlain);
    EXPECT_FALSE(CSealedFile::Open(sealed, L"secret", plain));
    EXPECT_TRUE(plain.isEmpty());

    QByteArray flipped = sealed;
    flipped[flipped.size() - 5] = char(flipped[flipped.size() - 5] ^ 0x01);
    EXPECT_FALSE(CSealedFile::Open(flipped, L"SECRET", plain));
    QByteArray header = sealed;
    header[10] = char(header[10] ^ 0x40);  // a salt byte: authenticated too
    EXPECT_FALSE(CSealedFile::Open(header, L"SECRET", plain));
    EXPECT_FALSE(CSealedFile::Open(sealed.left(40), L"SECRET", plain));
    EXPECT_NE(CSealedFile::Seal(kPlain, L"SECRET"), sealed);  // fresh salt and nonce
}

TEST(SealedFile, ReaderAsksThenRetriesInOrder) {
    const QByteArray sealed = CSealedFile::Seal(kPlain, L"PW");
    struct {
        std::deque<const wchar_t*> passwords;
        std::deque<bool> retries;
        CSealedFile::Result result;
        QStringList calls;
    } const rows[] = {
        {{L"PW"}, {}, CSealedFile::Result::Opened, {QStringLiteral("password")}},
        {{L"X", L"PW"},
         {true},
         CSealedFile::Result::Opened,
         {QStringLiteral("password"), QStringLiteral("retry"), QStringLiteral("password")}},
        {{L"X"},
         {false},
         CSealedFile::Result::WrongPassword,
         {QStringLiteral("password"), QStringLiteral("retry")}},
        {{nullptr}, {}, CSealedFile::Result::Cancelled, {QStringLiteral("password")}},
    };
    for (const auto& r : rows) {
        ScriptedRequest request;
        request.passwords = r.passwords;
        request.retries = r.retries;
        QByteArray plain;
        EXPECT_EQ(CSealedFile::Read(sealed, &request, L"plan.veld", plain), r.result);
        EXPECT_EQ(request.calls, r.calls);
        EXPECT_EQ(plain, r.result == CSealedFile::Result::Opened ? kPlain : QByteArray());
    }
    QByteArray plain;
    EXPECT_EQ(CSealedFile::Read(kPlain, nullptr, L"plain.veld", plain), CSealedFile::Result::Plain);
    EXPECT_EQ(plain, kPlain);
    EXPECT_EQ(CSealedFile::Read(sealed, nullptr, L"x", plain), CSealedFile::Result::Cancelled);
}
