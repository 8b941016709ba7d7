#include "CCECADDlgGetDoubleBase.h"

#include <cmath>
#include <optional>

#include "ResString.h"
#include "res/StringIds.h"
#include "res/templates/ControlIds.h"
#include "ulo/ctrl/FieldInput.h"

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

}  // namespace veld5
