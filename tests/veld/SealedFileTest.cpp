// Sealed drawing files: the reader's question sequence and refusals.
#include <gtest/gtest.h>

#include <QtEndian>
#include <deque>
#include <string>

#include "veld/SealedFile.h"

using veld::CSealedFile;

namespace {
/// A password request that answers from a script (null: cancel; then "retry"
/// while there are passwords left) and records the calls.
struct ScriptedRequest : veld::IFileReaderPasswordRequest {
    std::deque<const wchar_t*> passwords;
    std::string calls;
    bool RequestPassword(ulo::WString& password, const ulo::WString&) override {
        calls += calls.empty() ? "password" : " password";
        if (passwords.empty() || !passwords.front())
            return false;
        password = passwords.front();
        passwords.pop_front();
        return true;
    }
    bool AskRetry(const ulo::WString&) override {
        calls += " retry";
        return !passwords.empty();
    }
};

const QByteArray kPlain = QByteArrayLiteral("{\"layers\":[\"0\",\"ROADS\"]}");

// Where the header keeps the version and the Argon2id limits.
constexpr qsizetype kVersionAt = 8;
constexpr qsizetype kOpsAt = kVersionAt + 1 + 16;
constexpr qsizetype kMemAt = kOpsAt + 8;

QByteArray withLimits(QByteArray sealed, quint64 ops, quint64 mem) {
    qToLittleEndian(ops, sealed.data() + kOpsAt);
    qToLittleEndian(mem, sealed.data() + kMemAt);
    return sealed;
}
}  // namespace

// A sealed file opens with its password only, case and all (the plain text of a sealed
// drawing never shows, the first password opens it, a cancel refuses it:
// DrawingFileTest.SaveAndLoadGiveTheSameDrawingPlainAndSealed and
// RefusalsNameTheFileAndTheFaultAndNeverOpen, which also change the version byte
// and flip a ciphertext byte).
TEST(SealedFile, ReaderAsksThenRetriesInOrder) {
    const QByteArray sealed = CSealedFile::Seal(kPlain, L"PW");
    using R = CSealedFile::Result;
    struct {
        std::deque<const wchar_t*> passwords;
        R result;
        const char* calls;
    } const rows[] = {
        {{L"pw", L"PW"}, R::Opened, "password retry password"},
        {{L"pw"}, R::WrongPassword, "password retry"},
    };
    for (const auto& r : rows) {
        ScriptedRequest request;
        request.passwords = r.passwords;
        QByteArray plain;
        EXPECT_EQ(CSealedFile::Read(sealed, &request, L"plan.veld", plain), r.result) << r.calls;
        EXPECT_EQ(request.calls, r.calls);
        EXPECT_EQ(plain, r.result == R::Opened ? kPlain : QByteArray()) << r.calls;
    }
    QByteArray plain;
    EXPECT_EQ(CSealedFile::Read(kPlain, nullptr, L"plain.veld", plain), R::Plain);
    EXPECT_EQ(plain, kPlain);
    EXPECT_EQ(CSealedFile::Read(sealed, nullptr, L"x", plain), R::Cancelled);
    EXPECT_NE(CSealedFile::Seal(kPlain, L"PW"), sealed);  // fresh salt and nonce
}

TEST(SealedFile, DamageTheHeaderShowsIsReportedBeforeAnyPassword) {
    using R = CSealedFile::Result;
    const QByteArray sealed = CSealedFile::Seal(kPlain, L"PW");
    const quint64 ops = qFromLittleEndian<quint64>(sealed.constData() + kOpsAt);
    const quint64 mem = qFromLittleEndian<quint64>(sealed.constData() + kMemAt);
    QByteArray salt = sealed;  // authenticated too
    salt[kVersionAt + 4] = char(salt[kVersionAt + 4] ^ 0x40);
    // libsodium's "sensitive" Argon2id limits: 4 passes over 1 GiB, seconds per attempt.
    const quint64 sensitiveOps = 4, sensitiveMem = quint64(1) << 30;

    const struct {
        const char* what;
        QByteArray bytes;
        R result;
        bool asked;
    } rows[] = {
        {"limits raised to sensitive", withLimits(sealed, sensitiveOps, sensitiveMem), R::Damaged,
         false},
        {"one more pass", withLimits(sealed, ops + 1, mem), R::Damaged, false},
        {"less memory", withLimits(sealed, ops, mem / 2), R::Damaged, false},
        {"truncated into the header", sealed.left(30), R::Damaged, false},
        {"truncated to the header", sealed.left(kMemAt + 8 + 24), R::Damaged, false},
        // Only the password can tell these from a wrong one.
        {"truncated ciphertext", sealed.left(sealed.size() - 3), R::WrongPassword, true},
        {"flipped salt byte", salt, R::WrongPassword, true},
    };
    for (const auto& r : rows) {
        ScriptedRequest request;
        request.passwords = {L"PW"};
        QByteArray plain;
        EXPECT_EQ(CSealedFile::Read(r.bytes, &request, L"plan.veld", plain), r.result) << r.what;
        EXPECT_EQ(request.calls, r.asked ? "password retry" : "") << r.what;
        EXPECT_TRUE(plain.isEmpty()) << r.what;
        EXPECT_FALSE(CSealedFile::Open(r.bytes, L"PW", plain)) << r.what;
    }
}
