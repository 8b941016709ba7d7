#include "CGetStringDialog.h"

#include "DialogIds.h"
#include "ulo/PalmDevice.h"

namespace veld5 {

namespace {
constexpr unsigned kIdPrompt = 11213;
constexpr unsigned kIdText = 11212;
}  // namespace

CGetStringDialog::CGetStringDialog(CWnd* parent, const ulo::WString& caption,
                                   const ulo::WString& prompt, ulo::WString& result)
    : CExDialog(CPalmDevice::SelectIdDlgStd(11016, 11017, 11018, 11019), parent),
      caption_(caption),
      prompt_(prompt),
      result_(&result) {
    SetOkCancelIds(kIdOk, kIdCancel);
}

BOOL CGetStringDialog::OnInitDialog() {
    CExDialog::OnInitDialog();
    GetDlgItem<CColButton>(kIdOk)->SetBtnColor(0, 2);
    GetDlgItem<CColButton>(kIdCancel)->SetBtnColor(0, 2);
    setWindowTitle(caption_.ToQString());
    if (GetDlgItem(kIdPrompt))
        SetDlgItemText(kIdPrompt, prompt_.ToQString());
    auto* edit = GetDlgItem<CCEEditKeybTxt>(kIdText);
    edit->setText(result_->ToQString());
    edit->selectAll();
    edit->setFocus();
    return FALSE;
}

void CGetStringDialog::OnOK() {
    QString text = GetDlgItemText(kIdText).left(kMaxLength);
    // The cut never leaves half of a character made of two UTF-16 units.
    if (text.size() == kMaxLength && text.back().isHighSurrogate())
        text.chop(1);
    if (!text.isEmpty())
        *result_ = ulo::WString::FromQString(text);
    CExDialog::OnOK();
}

}  // namespace veld5
