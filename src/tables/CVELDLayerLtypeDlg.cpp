#include "CVELDLayerLtypeDlg.h"

#include "CListEdit.h"
#include "app/VELD.h"
#include "factory/RunDialog.h"
#include "lists/ReportListView.h"
#include "lists/TableListModel.h"
#include "res/StringIds.h"
#include "shell/ResString.h"
#include "ulo/ctrl/MessageBox.h"
#include "veld/Data.h"

namespace veld5 {

// One name editor for both tables.
static_assert(ctl::Layers::kNameEdit == ctl::Ltypes::kNameEdit);

namespace {

/// The "Show :" filter. It takes the focus before its list drops down, as a
/// tap on it does: the name editor ends first, and the warning of a refused
/// name comes and goes before the list opens instead of closing it under the
/// user's finger, so the item picked is still the filter.
class FilterCombo : public CCEBaseKeybCombo {
public:
    using CCEBaseKeybCombo::CCEBaseKeybCombo;

    void showPopup() override {
        if (!hasFocus())
            setFocus(Qt::OtherFocusReason);
        // The dialog may have ended while the warning was up.
        if (isVisible())
            CCEBaseKeybCombo::showPopup();
    }
};

}  // namespace

CVELDLayerLtypeDlg::CVELDLayerLtypeDlg(CLayerLtypeCtrlDlg* controller, CVELD* cad, CWnd* parent,
                                       int templateId, ControlIds ids)
    : CExDialog(static_cast<unsigned>(templateId), parent),
      cad_(cad),
      controller_(controller),
      ids_(ids) {
    controller_->AddReference();
    controller_->SetNotifier(this);
}

CVELDLayerLtypeDlg::~CVELDLayerLtypeDlg() {
    // The caller may keep the controller a moment longer: it must not call
    // back into a dialog that is gone.
    controller_->SetNotifier(nullptr);
    controller_->SubReference();
}

int CVELDLayerLtypeDlg::ShowMessage(const wchar_t* caption, const wchar_t* text, unsigned flags) {
    return ulo::CreateMessageBox(this, ulo::WString(caption), ulo::WString(text), flags);
}

void CVELDLayerLtypeDlg::OnEndEditItem(QString, int) {}

QWidget* CVELDLayerLtypeDlg::CreateCustomControl(const ulo::CtrlTemplate& ctrl, QWidget* parent) {
    if (ctrl.id == ids_.filter)
        return new FilterCombo(parent);
    if (ctrl.id != kIdNameEdit)
        return nullptr;
    nameEdit_ = new CListEdit(this, parent);
    return nameEdit_;
}

void CVELDLayerLtypeDlg::OnInitDialog() {
    for (unsigned id : {ids_.first, ids_.remove, ids_.current})
        GetDlgItem<CColButton>(id)->SetBtnColor(2, 2);

    auto* filter = GetDlgItem<CCEBaseKeybCombo>(ids_.filter);
    filter->AddString(LoadResString(ids::kFilterAll).ToQString(), kMaskInUse | kMaskUnused);
    filter->AddString(LoadResString(ids::kFilterAll + 1).ToQString(), kMaskInUse);
    filter->AddString(LoadResString(ids::kFilterAll + 2).ToQString(), kMaskUnused);
    filter->setCurrentIndex(0);
    connect(filter, &CCEBaseKeybCombo::selEndOk, this, [this](int) { FillList(); });
}

int CVELDLayerLtypeDlg::GetFilterMask() const {
    const auto* filter = GetDlgItem<CCEBaseKeybCombo>(ids_.filter);
    return filter ? static_cast<int>(filter->GetItemDataAt(filter->currentIndex())) : 0;
}

bool CVELDLayerLtypeDlg::OnCommand(unsigned id) {
    if (id == ids_.first) {
        OnFirstAction();
    } else if (id == ids_.remove) {
        OnDelete();
    } else if (id == ids_.current) {
        OnCurrent();
    } else {
        return CExDialog::OnCommand(id);
    }
    return true;
}

void CVELDLayerLtypeDlg::OnCurrent() {
    CTableListModel* model = List()->GetTableModel();
    veld::ITableItem* item = model->ItemAtRow(List()->GetSelectedRow());
    if (!item)
        return;
    if (const std::optional<StringId> refusal = CurrentRefusal(*item)) {
        Warn(this, *refusal);
        return;
    }
    if (MakeSelCurrent()) {
        model->SetMarkedItem(item);
        List()->RedrawAll();
    }
}

bool CVELDLayerLtypeDlg::IsListed(const veld::ITableItem& item,
                                  const veld::CData::CItemUsage& usage, int mask) {
    // With every item shown, the drawing need not be asked which are used.
    const bool used =
        (mask & (kMaskInUse | kMaskUnused)) == (kMaskInUse | kMaskUnused) || usage.IsUsed(&item);
    const bool take = used ? (mask & kMaskInUse) : (mask & kMaskUnused);
    return take && !item.IsPrivate();
}

void CVELDLayerLtypeDlg::RedrawViews() const {
    redrawAllViews(*cad_);
}

void RunTableVisit(CVELD& cad, const MakeTableDialog& make) {
    CSourceEventScope tables(cad.GetData()->GetDataTables()->GetDataTablesSourceEvent());
    const auto controller = ulo::RefPtr<CLayerLtypeCtrlDlg>::Adopt(new CLayerLtypeCtrlDlg(&cad));
    RunDialog([&] { return make(controller.get()); },
              [&](CVELDLayerLtypeDlg&) { controller->Commit(); },
              [&](CVELDLayerLtypeDlg&) { controller->Rollback(); });
}

}  // namespace veld5
