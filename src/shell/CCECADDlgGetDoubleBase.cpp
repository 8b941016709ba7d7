#include "CCECADDlgGetDoubleBase.h"

#include <cmath>
#include <optional>

#include "DialogIds.h"
#include "ResString.h"
#include "res/StringIds.h"
#include "ulo/HelpTopic.h"
#include "ulo/ctrl/FieldInput.h"

namespace veld5 {

CCECADDlgGetDoubleBase::CCECADDlgGetDoubleBase(unsigned templateId, CWnd* parent)
    : CExDialog(templateId, parent) {
    SetOkCancelIds(kIdOk, kIdCancel);
}

void CCECADDlgGetDoubleBase::SetRequest(double value, const ulo::WString& title, bool allowNegative,
                                        bool allowZero, bool allowPositive) {
    value_ = value;
    title_ = title;
    allowNegative_ = allowNegative;
    allowZero_ = allowZero;
    allowPositive_ = allowPositive;
}

BOOL CCECADDlgGetDoubleBase::OnInitDialog() {
    CExDialog::OnInitDialog();
    ulo::SetHelpTopic(L"QuadraCE.htm#Dlg InsValore");
    GetDlgItem<CColButton>(kIdOk)->SetBtnColor(0, 2);
    GetDlgItem<CColButton>(kIdCancel)->SetBtnColor(0, 2);
    SetDlgItemText(kIdFrame, title_.ToQString());
    // The field always opens on "0"; the caller's value is not shown.
    SetDlgItemText(kIdValue, QStringLiteral("0"));
    return TRUE;
}

void CCECADDlgGetDoubleBase::OnOK() {
    value_ = ulo::ReadNumberField(GetDlgItemText(kIdValue), ulo::FieldRule::Leading).value;
    std::optional<StringId> message;
    if (value_ < 0 && !allowNegative_)
        message = ids::kValueNotNegative;
    else if (value_ == 0 && !allowZero_)
        message = ids::kValueNotZero;
    else if (value_ > 0 && !allowPositive_)
        message = ids::kValueNotPositive;
    else if (!std::isfinite(value_))
        message = ids::kValueOutOfRange;  // a number too large for a double never leaves
    if (message) {
        Warn(this, *message);  // the box alone: the focus stays where the user left it
        return;
    }
    ReadControls();
    CExDialog::OnOK();
}

bool CCECADDlgGetDoubleBase::OnCommand(unsigned id) {
    if (id == ulo::ID_HELP)
        return true;  // help comes only through the topic
    return CExDialog::OnCommand(id);
}

}  // namespace veld5
