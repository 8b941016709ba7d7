#include "CEVELDLtypeDLg.h"

#include <QLineEdit>
#include <vector>

#include "app/VELD.h"
#include "factory/Scopes.h"
#include "linetypes/CLtypeLoadDialog.h"
#include "linetypes/CVELDLtypeList.h"
#include "res/StringIds.h"
#include "shell/ResString.h"
#include "ulo/HelpTopic.h"
#include "ulo/NumberText.h"
#include "ulo/ctrl/MessageBox.h"
#include "veld/Data.h"

namespace veld5 {

CEVELDLtypeDLg::CEVELDLtypeDLg(CLayerLtypeCtrlDlg* controller, CVELD* cad, CWnd* parent,
                               int templateId)
    : CVELDLayerLtypeDlg(controller, cad, parent, templateId,
                         {kIdFilter, kIdLoad, kIdDelete, kIdCurrent}) {}

CEVELDLtypeDLg::~CEVELDLtypeDLg() = default;

QWidget* CEVELDLtypeDLg::CreateCustomControl(const ulo::CtrlTemplate& ctrl, QWidget* parent) {
    if (ctrl.id != kIdList)
        return CVELDLayerLtypeDlg::CreateCustomControl(ctrl, parent);
    list_ = new CVELDLtypeList(cad_, parent);
    return list_;
}

BOOL CEVELDLtypeDLg::OnInitDialog() {
    ulo::SetHelpTopic(L"QuadraCE.htm#Dlg OpzTipoLinea");
    if (!CVELDLayerLtypeDlg::OnInitDialog())
        return FALSE;
    list_->SetCurLtypeMark(GetCurLtype(cad_));

    // The scale as "%lf" writes it; the controller then holds what is read
    // back from that text, so OK without an edit applies the six decimals.
    auto* edit = GetDlgItem<QLineEdit>(kIdScale);
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
    return TRUE;
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

unsigned CEVELDLtypeDLg::CurrentRefusal(const veld::ITableItem& item) const {
    return item.IsXRef() ? ids::kLtypeXRefNotCurrent : 0;
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
    const std::wstring read = text.toStdWString();
    scale_ = ulo::wtof(read.c_str());
    controller_->SetNewLtypeScale(scale_);
}

}  // namespace veld5
