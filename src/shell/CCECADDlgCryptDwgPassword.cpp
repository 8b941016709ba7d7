#include "CCECADDlgCryptDwgPassword.h"

#include <algorithm>

#include "DialogIds.h"
#include "ulo/PalmDevice.h"

namespace veld5 {

namespace {
constexpr unsigned kIdPassword = 4779;

void wipe(ulo::WString& s) {
    if (s.IsEmpty())
        return;
    wchar_t* p = s.GetBufferSetLength(s.Length());
    std::fill(p, p + s.Length(), L'\0');
    s = ulo::WString();
}
}  // namespace

CCECADDlgCryptDwgPassword::CCECADDlgCryptDwgPassword(CWnd* parent)
    : CExDialog(CPalmDevice::SelectIdDlgStd(11000, 11001, 11002, 11003), parent) {
    SetOkCancelIds(kIdOk, kIdCancel);
}

CCECADDlgCryptDwgPassword::~CCECADDlgCryptDwgPassword() {
    WipePassword();
}

void CCECADDlgCryptDwgPassword::WipePassword() {
    wipe(password_);
}

BOOL CCECADDlgCryptDwgPassword::OnInitDialog() {
    if (!CExDialog::OnInitDialog())
        return FALSE;
    GetDlgItem<CColButton>(kIdOk)->SetBtnColor(0, 2);
    GetDlgItem<CColButton>(kIdCancel)->SetBtnColor(0, 2);
    // OK stays enabled until the field first changes.
    auto* edit = GetDlgItem<CCEEditKeybTxt>(kIdPassword);
    connect(edit, &QLineEdit::textChanged, this, &CCECADDlgCryptDwgPassword::OnFieldChanged);
    return TRUE;
}

void CCECADDlgCryptDwgPassword::OnFieldChanged() {
    password_ = ulo::WString::FromQString(GetDlgItemText(kIdPassword));
    EnableDlgItem(kIdOk, !password_.IsEmpty());
}

void CCECADDlgCryptDwgPassword::OnOK() {
    password_ = ulo::WString::FromQString(GetDlgItemText(kIdPassword));
    CExDialog::OnOK();
}

void CCECADDlgCryptDwgPassword::done(int code) {
    // Leave no copy of the password in the widgets once the dialog closes.
    if (auto* edit = GetDlgItem<QLineEdit>(kIdPassword)) {
        const QSignalBlocker block(edit);
        edit->clear();
    }
    CExDialog::done(code);
}

}  // namespace veld5
