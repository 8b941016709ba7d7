#include "SealedFile.h"

#include <sodium.h>

#include <QtEndian>
#include <cstring>
#include <string>

namespace veld {

namespace {
constexpr char kMagic[8] = {'V', 'E', 'L', 'D', 'S', 'E', 'A', 'L'};
constexpr std::size_t kSaltSize = crypto_pwhash_SALTBYTES;  // 16
constexpr std::size_t kNonceSize = crypto_aead_xchacha20poly1305_ietf_NPUBBYTES;
constexpr std::size_t kHeaderSize = sizeof kMagic + 1 + kSaltSize + 8 + 8 + kNonceSize;
constexpr std::size_t kKeySize = crypto_aead_xchacha20poly1305_ietf_KEYBYTES;
constexpr unsigned char kVersion = 1;
// The limits the writer uses are the only ones read: a header may not make
// each attempt cost what the sensitive limits cost (seconds and a gigabyte).
constexpr quint64 kOpsLimit = crypto_pwhash_OPSLIMIT_INTERACTIVE;
constexpr quint64 kMemLimit = crypto_pwhash_MEMLIMIT_INTERACTIVE;

bool ready() {
    static const bool ok = sodium_init() >= 0;
    return ok;
}

/// UTF-8 bytes of the password, wiped when the holder goes.
class Secret {
public:
    explicit Secret(const ulo::WString& password) : bytes_(password.ToQString().toUtf8()) {}
    ~Secret() { sodium_memzero(bytes_.data(), static_cast<std::size_t>(bytes_.size())); }
    const char* data() const { return bytes_.constData(); }
    unsigned long long size() const { return static_cast<unsigned long long>(bytes_.size()); }

private:
    QByteArray bytes_;
};

bool deriveKey(const ulo::WString& password, const unsigned char* salt, unsigned char* key) {
    const Secret secret(password);
    return crypto_pwhash(key, kKeySize, secret.data(), secret.size(), salt, kOpsLimit,
                         static_cast<std::size_t>(kMemLimit), crypto_pwhash_ALG_ARGON2ID13) == 0;
}

/// False for damage the header shows without the password: too short for a
/// header and a tag, another version, or limits the writer never uses.
/// Past this, a wrong password and a changed byte cannot be told apart.
bool headerIsSound(const QByteArray& sealed) {
    if (!CSealedFile::IsSealed(sealed) ||
        sealed.size() <
            static_cast<qsizetype>(kHeaderSize + crypto_aead_xchacha20poly1305_ietf_ABYTES))
        return false;
    const auto* h = reinterpret_cast<const unsigned char*>(sealed.constData());
    const unsigned char* limits = h + sizeof kMagic + 1 + kSaltSize;
    return h[sizeof kMagic] == kVersion && qFromLittleEndian<quint64>(limits) == kOpsLimit &&
           qFromLittleEndian<quint64>(limits + 8) == kMemLimit;
}
}  // namespace

bool CSealedFile::IsSealed(const QByteArray& bytes) {
    return bytes.size() >= static_cast<qsizetype>(sizeof kMagic) &&
           std::memcmp(bytes.constData(), kMagic, sizeof kMagic) == 0;
}

QByteArray CSealedFile::Seal(const QByteArray& plain, const ulo::WString& password) {
    if (!ready())
        return {};
    QByteArray out(static_cast<qsizetype>(kHeaderSize), '\0');
    auto* h = reinterpret_cast<unsigned char*>(out.data());
    std::memcpy(h, kMagic, sizeof kMagic);
    h[sizeof kMagic] = kVersion;
    unsigned char* salt = h + sizeof kMagic + 1;
    randombytes_buf(salt, kSaltSize);
    qToLittleEndian(kOpsLimit, salt + kSaltSize);
    qToLittleEndian(kMemLimit, salt + kSaltSize + 8);
    unsigned char* nonce = salt + kSaltSize + 16;
    randombytes_buf(nonce, kNonceSize);

    unsigned char key[kKeySize];
    if (!deriveKey(password, salt, key))
        return {};
    QByteArray cipher(plain.size() + crypto_aead_xchacha20poly1305_ietf_ABYTES, '\0');
    unsigned long long cipherLen = 0;
    crypto_aead_xchacha20poly1305_ietf_encrypt(
        reinterpret_cast<unsigned char*>(cipher.data()), &cipherLen,
        reinterpret_cast<const unsigned char*>(plain.constData()),
        static_cast<unsigned long long>(plain.size()), h, kHeaderSize, nullptr, nonce, key);
    sodium_memzero(key, sizeof key);
    cipher.resize(static_cast<qsizetype>(cipherLen));
    return out + cipher;
}

bool CSealedFile::Open(const QByteArray& sealed, const ulo::WString& password, QByteArray& plain) {
    plain.clear();
    if (!ready() || !headerIsSound(sealed))
        return false;
    const auto* h = reinterpret_cast<const unsigned char*>(sealed.constData());
    const unsigned char* salt = h + sizeof kMagic + 1;
    const unsigned char* nonce = salt + kSaltSize + 16;
    unsigned char key[kKeySize];
    if (!deriveKey(password, salt, key))
        return false;
    const auto cipherLen = static_cast<unsigned long long>(sealed.size()) - kHeaderSize;
    QByteArray out(static_cast<qsizetype>(cipherLen), '\0');
    unsigned long long outLen = 0;
    const int rc = crypto_aead_xchacha20poly1305_ietf_decrypt(
        reinterpret_cast<unsigned char*>(out.data()), &outLen, nullptr, h + kHeaderSize, cipherLen,
        h, kHeaderSize, nonce, key);
    sodium_memzero(key, sizeof key);
    if (rc != 0)
        return false;
    out.resize(static_cast<qsizetype>(outLen));
    plain = out;
    return true;
}

CSealedFile::Result CSealedFile::Read(const QByteArray& bytes, IFileReaderPasswordRequest* request,
                                      const ulo::WString& fileName, QByteArray& plain) {
    plain.clear();
    if (!IsSealed(bytes)) {
        plain = bytes;
        return Result::Plain;
    }
    // Asking for a password cannot help bytes the header already gives away.
    if (!headerIsSound(bytes))
        return Result::Damaged;
    for (;;) {
        ulo::WString password;
        if (!request || !request->RequestPassword(password, fileName))
            return Result::Cancelled;
        const bool opened = Open(bytes, password, plain);
        if (!password.IsEmpty()) {
            wchar_t* p = password.GetBufferSetLength(password.Length());
            sodium_memzero(p, password.Length() * sizeof(wchar_t));
        }
        if (opened)
            return Result::Opened;
        if (!request->AskRetry(fileName))
            return Result::WrongPassword;
    }
}

}  // namespace veld
