#pragma once
// Password entry for an encrypted drawing: masked, upper-case characters.
#include "ulo/ctrl/Dialog.h"

namespace veld5 {

class CCECADDlgCryptDwgPassword : public CExDialog {
    Q_OBJECT
public:
    explicit CCECADDlgCryptDwgPassword(CWnd* parent);
    ~CCECADDlgCryptDwgPassword() override;

    /// The password entered (valid after IDOK).
    const ulo::WString& GetPassword() const { return password_; }
    /// Overwrites the password held by the dialog.
    void WipePassword();

protected:
    void OnInitDialog() override;
    void OnOK() override;
    void done(int code) override;

private:
    void OnFieldChanged();
    ulo::WString password_;
};

}  // namespace veld5
