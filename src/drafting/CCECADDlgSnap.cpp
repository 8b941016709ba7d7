#include "CCECADDlgSnap.h"

#include <array>
#include <cmath>
#include <string>
#include <utility>

#include "factory/RunDialog.h"
#include "res/StringIds.h"
#include "res/templates/ControlIds.h"
#include "shell/ResString.h"
#include "ulo/PalmDevice.h"
#include "ulo/Xlate.h"
#include "ulo/ctrl/FieldInput.h"

namespace veld5 {

CCECADDlgSnap::CCECADDlgSnap(CWnd* parent)
    : CExDialog(CPalmDevice::SelectIdDlgStd(11072, 11073, 11074, 11075), parent) {}

double CCECADDlgSnap::ReadField(const QString& text) {
    if (text.isEmpty())
        return kEmptyField;
    // Adding +0.0 turns a typed "-0" into 0: no point carries a negative zero.
    return ulo::ReadNumberField(text, ulo::FieldRule::Leading).value + 0.0;
}

void CCECADDlgSnap::OnInitDialog() {
    // No previous point is shown: every entry starts from blank fields.
    for (const unsigned id :
         {ctl::SnapPoint::kEast, ctl::SnapPoint::kNorth, ctl::SnapPoint::kElevation})
        SetDlgItemText(id, QString());
}

void CCECADDlgSnap::OnOK() {
    elevation_ = ReadField(GetDlgItemText(ctl::SnapPoint::kElevation));
    north_ = ReadField(GetDlgItemText(ctl::SnapPoint::kNorth));
    east_ = ReadField(GetDlgItemText(ctl::SnapPoint::kEast));
    const std::array<std::pair<unsigned, double>, 3> fields = {
        {{ctl::SnapPoint::kEast, east_},
         {ctl::SnapPoint::kNorth, north_},
         {ctl::SnapPoint::kElevation, elevation_}}};

    // An empty field, a value of 1e100 or more, +inf and NaN: a beep alone.
    for (const auto& [id, value] : fields) {
        if (!(value < kEmptyField)) {
            ulo::RefuseFieldWithBeep(GetDlgItem<QLineEdit>(id));
            return;
        }
    }
    // A negative number beyond the range of a double passes the bound above
    // but must not reach the drawing.
    for (const auto& [id, value] : fields) {
        if (!std::isfinite(value)) {
            const ulo::WString text =
                ulo::WString::FromQString(FieldLabel(id) + QLatin1Char(' ') +
                                          LoadResString(ids::kValueOutOfRange).ToQString());
            ulo::RefuseField(this, GetDlgItem<QLineEdit>(id), LoadResString(ids::kWarning), text);
            return;
        }
    }
    CExDialog::OnOK();
}

QString CCECADDlgSnap::FieldLabel(unsigned id) const {
    const wchar_t* label = L"";
    if (const ulo::DialogTemplate* t = GetTemplate()) {
        for (const ulo::CtrlTemplate& ctrl : t->controls) {
            if (ctrl.id == id)
                break;
            if (ctrl.kind == ulo::CtrlKind::Static && ctrl.label)
                label = ctrl.label;
        }
    }
    return ulo::Xlate(ulo::WString(label)).ToQString();
}

bool RunDlSnapInsertPnt(CWnd* parent, ulo::geom::PNT_3D& point) {
    return RunDialog([&] { return std::make_unique<CCECADDlgSnap>(parent); },
                     [&](const CCECADDlgSnap& dialog) { point = dialog.GetPoint(); }) == ulo::IDOK;
}

}  // namespace veld5
