#include "CCECADDlgCryptDwgPassword.h"

#include <algorithm>

#include "res/templates/ControlIds.h"
#include "ulo/PalmDevice.h"

namespace veld5 {

namespace {
void wipe(ulo::WString& s) {
    if (s.IsEmpty())
        return;
    wchar_t* p = s.GetBufferSetLength(s.Length());
    std::fill(p, p + s.Length(), L'\0');
    s = ulo::WString();
}
}  // namespace

CCECADDlgCryptDwgPassword::CCECADDlgCryptDwgPassword(CWnd* parent)
    : CExDialog(CPalmDevice::SelectIdDlgStd(11000, 11001, 11002, 11003), parent) {}

CCECADDlgCryptDwgPassword::~CCECADDlgCryptDwgPassword() {
    WipePassword();
}

void CCECADDlgCryptDwgPassword::WipePassword() {
    wipe(password_);
}

void CCECADDlgCryptDwgPassword::OnInitDialog() {
    // OK stays enabled until the field first changes.
    auto* edit = GetDlgItem<CCEEditKeybTxt>(ctl::Password::kPassword);
    connect(edit, &QLineEdit::textChanged, this, &CCECADDlgCryptDwgPassword::OnFieldChanged);
}

void CCECADDlgCryptDwgPassword::OnFieldChanged() {
    password_ = ulo::WString::FromQString(GetDlgItemText(ctl::Password::kPassword));
    EnableDlgItem(ctl::Password::kOk, !password_.IsEmpty());
}

void CCECADDlgCryptDwgPassword::OnOK() {
    password_ = ulo::WString::FromQString(GetDlgItemText(ctl::Password::kPassword));
    CExDialog::OnOK();
}

void CCECADDlgCryptDwgPassword::done(int code) {
    // Leave no copy of the password in the widgets once the dialog closes.
    if (auto* edit = GetDlgItem<QLineEdit>(ctl::Password::kPassword)) {
        const QSignalBlocker block(edit);
        edit->clear();
    }
    CExDialog::done(code);
}

}  // namespace veld5
