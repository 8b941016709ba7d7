#include "CGetStringDialog.h"

#include "factory/RunDialog.h"
#include "res/templates/ControlIds.h"
#include "ulo/PalmDevice.h"

namespace veld5 {

CGetStringDialog::CGetStringDialog(CWnd* parent, const ulo::WString& caption,
                                   const ulo::WString& prompt, ulo::WString& result)
    : CExDialog(CPalmDevice::SelectIdDlgStd(11016, 11017, 11018, 11019), parent),
      caption_(caption),
      prompt_(prompt),
      result_(&result) {}

void CGetStringDialog::OnInitDialog() {
    setWindowTitle(caption_.ToQString());
    if (GetDlgItem(ctl::GetString::kPrompt))
        SetDlgItemText(ctl::GetString::kPrompt, prompt_.ToQString());
    auto* edit = GetDlgItem<CCEEditKeybTxt>(ctl::GetString::kText);
    edit->setText(result_->ToQString());
    edit->selectAll();
    edit->setFocus();
}

void CGetStringDialog::OnOK() {
    QString text = GetDlgItemText(ctl::GetString::kText).left(kMaxLength);
    // The cut never leaves half of a character made of two UTF-16 units.
    if (text.size() == kMaxLength && text.back().isHighSurrogate())
        text.chop(1);
    if (!text.isEmpty())
        *result_ = ulo::WString::FromQString(text);
    CExDialog::OnOK();
}

bool RunDlgGetString(CWnd* parent, const ulo::WString& caption, const ulo::WString& prompt,
                     ulo::WString& result) {
    return RunDialog([&] {
               return std::make_unique<CGetStringDialog>(parent, caption, prompt, result);
           }) == ulo::IDOK;
}

}  // namespace veld5
