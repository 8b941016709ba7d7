#pragma once
// Base of the number and rotation entry dialogs: a prompt in a frame, one
// number field and a sign rule checked on OK.
#include "res/templates/ControlIds.h"
#include "ulo/ctrl/Dialog.h"

namespace veld5 {

class CCECADDlgGetDoubleBase : public CExDialog {
    Q_OBJECT
public:
    CCECADDlgGetDoubleBase(unsigned templateId, CWnd* parent);

    /// The request of the caller: the zero rule comes before the positive rule.
    void SetRequest(double value, const ulo::WString& title, bool allowNegative, bool allowZero,
                    bool allowPositive);
    double GetValue() const { return value_; }

protected:
    void OnInitDialog() override;
    void OnOK() override;
    /// Reads the dialog's other controls when the dialog is confirmed.
    virtual void ReadControls() {}

    static constexpr unsigned kIdFrame = ctl::GetDouble::kFrame;
    static constexpr unsigned kIdValue = ctl::GetDouble::kValue;

private:
    ulo::WString title_;
    double value_ = 0.0;
    bool allowNegative_ = false;
    bool allowPositive_ = false;
    bool allowZero_ = false;
};

}  // namespace veld5
