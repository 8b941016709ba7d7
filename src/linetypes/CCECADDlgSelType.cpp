#include "CCECADDlgSelType.h"

#include <QStyle>
#include <vector>

#include "CVELDLtypeList.h"
#include "app/VELD.h"
#include "res/StringIds.h"
#include "res/templates/ControlIds.h"
#include "shell/ResString.h"
#include "ulo/PalmDevice.h"
#include "veld/Data.h"

namespace veld5 {

CCECADDlgSelType::CCECADDlgSelType(CWnd* parent, CVELD* cad)
    : CExDialog(CPalmDevice::SelectIdDlgStd(11092, 11093, 11094, 11095), parent), cad_(cad) {}

CCECADDlgSelType::~CCECADDlgSelType() = default;

QWidget* CCECADDlgSelType::CreateCustomControl(const ulo::CtrlTemplate& ctrl, QWidget* parent) {
    if (ctrl.id != ctl::SelType::kList)
        return nullptr;
    list_ = new CVELDLtypeList(cad_, parent);
    return list_;
}

void CCECADDlgSelType::OnInitDialog() {
    list_->SetCurLtypeMark(preset_);
    list_->SetRowHeight(CVELDLtypeList::DefaultRowHeight(list_->font()));
    // A third each of the room inside the frame beside a vertical scroll bar:
    // the columns then never call for a horizontal one, however many rows.
    const int scrollBar = list_->style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, list_);
    const int w = (list_->width() - 2 * list_->frameWidth() - scrollBar) / 3;
    list_->SetColumn(0, LoadResString(ids::kColLtype).ToQString(), w);
    list_->SetColumn(1, LoadResString(ids::kColAppearance).ToQString(), w);
    list_->SetColumn(2, LoadResString(ids::kColDescription).ToQString(), w);

    std::vector<veld::CLtype*> rows;
    if (veld::CData* data = cad_ ? cad_->GetData() : nullptr) {
        veld::CData::CLtypeIterator it(data, true, false);
        while (veld::CLtype* ltype = it.GetNext())
            rows.push_back(ltype);
    }
    list_->SetLtypes(rows);
    list_->SelectLtype(preset_);
    list_->setFocus(Qt::OtherFocusReason);
}

void CCECADDlgSelType::OnOK() {
    if (veld::CLtype* selected = list_->GetSelectedLtype()) {
        if (selected->IsXRef())
            Warn(this, ids::kLtypeXRefNotCurrent);
        else
            chosen_ = selected;
    }
    CExDialog::OnOK();
}

}  // namespace veld5
