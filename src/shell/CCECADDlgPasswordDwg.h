#pragma once
// The drawing reader's password request, answered with the password dialog.
#include "ulo/ctrl/Win.h"
#include "veld/FileReaderPasswordRequest.h"

namespace veld5 {

class CCECADDlgPasswordDwg : public veld::IFileReaderPasswordRequest {
public:
    explicit CCECADDlgPasswordDwg(CWnd* parent) : parent_(parent) {}
    bool RequestPassword(ulo::WString& password, const ulo::WString& fileName) override;
    bool AskRetry(const ulo::WString& fileName) override;

private:
    CWnd* parent_;
};

}  // namespace veld5
