#pragma once
// Password sealing of drawing files: the file's bytes encrypted with a key
// derived from the password (Argon2id) and authenticated (XChaCha20-Poly1305).
//
// Layout: "VELDSEAL" | version 1 (1 byte) | salt (16) | opslimit (8, LE) |
// memlimit (8, LE) | nonce (24) | ciphertext with its 16-byte tag. The header
// is authenticated with the ciphertext, so a changed byte anywhere is refused.
// Only the limits the writer uses (libsodium's interactive ones) are read:
// anything else is damage, found before a password is asked.
#include <QByteArray>
#include <QString>

#include "FileReaderPasswordRequest.h"
#include "ulo/WString.h"

namespace veld {

class CSealedFile {
public:
    /// True when @p bytes start like a sealed file.
    static bool IsSealed(const QByteArray& bytes);
    /// Seals @p plain with @p password.
    static QByteArray Seal(const QByteArray& plain, const ulo::WString& password);
    /// Opens sealed bytes; false for a wrong password or damaged bytes.
    /// Bytes whose header is damaged are refused without deriving a key.
    static bool Open(const QByteArray& sealed, const ulo::WString& password, QByteArray& plain);

    /// WrongPassword: the last password given did not open the bytes; the
    /// content may as well be damaged, as authentication cannot tell which.
    /// Damaged: the header shows the damage; no password was asked.
    enum class Result { Plain, Opened, Cancelled, WrongPassword, Damaged };
    /// Reads @p bytes as the drawing reader does: plain bytes pass through;
    /// sealed bytes with a damaged header are Damaged at once; otherwise
    /// @p request is asked for the password and, after a wrong one, whether
    /// to try again, in that order, until the bytes open, the user cancels,
    /// or declines to retry. No password is kept.
    static Result Read(const QByteArray& bytes, IFileReaderPasswordRequest* request,
                       const ulo::WString& fileName, QByteArray& plain);
};

}  // namespace veld
