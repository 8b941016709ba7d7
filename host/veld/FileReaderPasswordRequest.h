#pragma once
// What the drawing reader asks when it meets a password-protected file.
#include "ulo/WString.h"

namespace veld {

class IFileReaderPasswordRequest {
public:
    virtual ~IFileReaderPasswordRequest() = default;
    /// Asks for the password of @p fileName; true with @p password filled when
    /// the user entered one and confirmed.
    virtual bool RequestPassword(ulo::WString& password, const ulo::WString& fileName) = 0;
    /// After a wrong password: true when the user wants to try another.
    virtual bool AskRetry(const ulo::WString& fileName) = 0;
};

}  // namespace veld
