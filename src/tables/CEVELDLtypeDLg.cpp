#include "CEVELDLtypeDLg.h"

#include <QLineEdit>
#include <vector>

#include "app/VELD.h"
#include "factory/Scopes.h"
#include "linetypes/CLtypeLoadDialog.h"
#include "linetypes/CVELDLtypeList.h"
#include "res/StringIds.h"
#include "shell/ResString.h"
#include "ulo/NumberText.h"
#include "ulo/PalmDevice.h"
#include "ulo/ctrl/FieldInput.h"
#include "veld/Data.h"

namespace veld5 {

CEVELDLtypeDLg::CEVELDLtypeDLg(CLayerLtypeCtrlDlg* controller, CVELD* cad, CWnd* parent,
                               int templateId)
    : CVELDLayerLtypeDlg(
          controller, cad, parent, templateId,
          {ctl::Ltypes::kFilter, ctl::Ltypes::kLoad, ctl::Ltypes::kDelete, ctl::Ltypes::kCurrent}) {
}

CEVELDLtypeDLg::~CEVELDLtypeDLg() = default;

QWidget* CEVELDLtypeDLg::CreateCustomControl(const ulo::CtrlTemplate& ctrl, QWidget* parent) {
    if (ctrl.id != ctl::Ltypes::kList)
        return CVELDLayerLtypeDlg::CreateCustomControl(ctrl, parent);
    list_ = new CVELDLtypeList(cad_, parent);
    return list_;
}

void CEVELDLtypeDLg::OnInitDialog() {
    CVELDLayerLtypeDlg::OnInitDialog();
    list_->SetCurLtypeMark(GetCurLtype(cad_));

    // The scale as "%lf" writes it; the controller then holds what is read
    // back from that text, so OK without an edit applies the six decimals.
    auto* edit = GetDlgItem<QLineEdit>(ctl::Ltypes::kScale);
    connect(edit, &QLineEdit::textChanged, this, &CEVELDLtypeDLg::OnScaleEdited);
    scale_ = controller_->GetNewLtypeScale();
    edit->setText(ulo::CStringDaDouble(scale_, 0, 6).ToQString());
    OnScaleEdited(edit->text());

    list_->SetRowHeight(CVELDLtypeList::DefaultRowHeight(font()));
    const int width = list_->width() - 2 * list_->frameWidth();
    const int w = width / 10;
    list_->SetColumn(0, LoadResString(ids::kColLtypeName).ToQString(), 3 * w);
    list_->SetColumn(1, LoadResString(ids::kColLtypeName + 1).ToQString(), 3 * w);
    list_->SetColumn(2, LoadResString(ids::kColLtypeName + 2).ToQString(), width - 6 * w);

    connect(list_, &CVELDLtypeList::ltypeSelected, this,
            [this](veld::CLtype* ltype) { controller_->SetSelLtype(ltype); });
    connect(list_, &CVELDLtypeList::ltypeDeselected, this, [this](veld::CLtype* ltype) {
        if (controller_->GetSelLtype() == ltype)
            controller_->SetSelLtype(nullptr);
    });
    FillList();
}

void CEVELDLtypeDLg::FillList() {
    list_->DeleteAllItems();
    controller_->SetSelLtype(nullptr);
    veld::CData* data = cad_->GetData();
    list_->SetItems(
        ListedItems<veld::CLtype>(*data, veld::CData::CLtypeIterator(data, true, true)));
}

CReportListView* CEVELDLtypeDLg::List() const {
    return list_;
}

std::optional<StringId> CEVELDLtypeDLg::CurrentRefusal(const veld::ITableItem& item) const {
    if (item.IsXRef())
        return ids::kLtypeXRefNotCurrent;
    return std::nullopt;
}

bool CEVELDLtypeDLg::MakeSelCurrent() {
    return controller_->MakeSelLtypeCurrent();
}

void CEVELDLtypeDLg::OnDelete() {
    if (controller_->DeleteSelLtype()) {
        FillList();
        RedrawViews();
    }
}

void CEVELDLtypeDLg::OnFirstAction() {
    CModuleResourceScope scope;
    CLtypeLoadDialog loader(cad_);
    if (loader.DoModal() != ulo::IDOK)
        return;
    if (loader.GetNoNewLtypes() == 0)
        return;
    for (unsigned i = 0; i < loader.GetNoNewLtypes(); ++i)
        controller_->AddLtype(loader.GetNewLtypeNo(i));
    controller_->SetSelLtype(nullptr);
    FillList();
    RedrawViews();
}

void CEVELDLtypeDLg::OnScaleEdited(const QString& text) {
    // The whole text: a large scale's six-decimal text runs to 316
    // characters, and a text cut short reads as another number.
    scale_ = ulo::ReadNumberField(text, ulo::FieldRule::Leading).value;
    controller_->SetNewLtypeScale(scale_);
}

void RunDlgLtype(CWnd* parent, CVELD& cad) {
    RunTableVisit(cad, [&](CLayerLtypeCtrlDlg* controller) {
        return std::make_unique<CEVELDLtypeDLg>(
            controller, &cad, parent,
            static_cast<int>(CPalmDevice::SelectIdDlgStd(11032, 11033, 11034, 11035)));
    });
}

}  // namespace veld5
