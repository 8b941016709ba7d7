#include "CCECADDlgGetDouble.h"

#include "factory/RunDialog.h"
#include "ulo/PalmDevice.h"

namespace veld5 {

CCECADDlgGetDouble::CCECADDlgGetDouble(CWnd* parent)
    : CCECADDlgGetDoubleBase(CPalmDevice::SelectIdDlgStd(11012, 11013, 11014, 11015), parent) {}

long RunDlgGetDouble(CWnd* parent, const wchar_t* title, double& value, bool allowNegative,
                     bool allowZero, bool allowPositive) {
    const auto make = [&] {
        auto dialog = std::make_unique<CCECADDlgGetDouble>(parent);
        dialog->SetRequest(value, ulo::WString(title), allowNegative, allowZero, allowPositive);
        return dialog;
    };
    return static_cast<long>(
        RunDialog(make, [&](const CCECADDlgGetDouble& dialog) { value = dialog.GetValue(); }));
}

}  // namespace veld5
