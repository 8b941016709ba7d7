#include "CCECADDlgGetDoubleBase.h"

#include <cmath>

#include "ResString.h"
#include "res/StringIds.h"
#include "res/templates/ControlIds.h"
#include "ulo/NumberText.h"

namespace veld5 {

// The number and the rotation entry share the frame and the field.
static_assert(ctl::GetDouble::kFrame == ctl::Rotate::kFrame &&
              ctl::GetDouble::kValue == ctl::Rotate::kValue);

CCECADDlgGetDoubleBase::CCECADDlgGetDoubleBase(unsigned templateId, CWnd* parent)
    : CExDialog(templateId, parent) {}

void CCECADDlgGetDoubleBase::SetRequest(double value, const ulo::WString& title, bool allowNegative,
                                        bool allowZero, bool allowPositive) {
    value_ = value;
    title_ = title;
    allowNegative_ = allowNegative;
    allowZero_ = allowZero;
    allowPositive_ = allowPositive;
}

void CCECADDlgGetDoubleBase::OnInitDialog() {
    SetDlgItemText(kIdFrame, title_.ToQString());
    // The field always opens on "0"; the caller's value is not shown.
    SetDlgItemText(kIdValue, QStringLiteral("0"));
}

void CCECADDlgGetDoubleBase::OnOK() {
    value_ = ulo::DoubleDaCString(ulo::WString::FromQString(GetDlgItemText(kIdValue)));
    unsigned message = 0;
    if (value_ < 0 && !allowNegative_)
        message = ids::kValueNotNegative;
    else if (value_ == 0 && !allowZero_)
        message = ids::kValueNotZero;
    else if (value_ > 0 && !allowPositive_)
        message = ids::kValueNotPositive;
    else if (!std::isfinite(value_))
        message = ids::kValueOutOfRange;  // a number too large for a double never leaves
    if (message) {
        ShowMessageBox(this, ids::kWarning, message, ulo::MB_OK | ulo::MB_ICONEXCLAMATION);
        return;
    }
    ReadControls();
    CExDialog::OnOK();
}

}  // namespace veld5
