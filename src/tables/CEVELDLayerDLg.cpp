#include "CEVELDLayerDLg.h"

#include <optional>
#include <vector>

#include "CListEdit.h"
#include "CVELDLayerList.h"
#include "app/VELD.h"
#include "linetypes/CCECADDlgSelType.h"
#include "properties/CCECADDlgColor.h"
#include "res/StringIds.h"
#include "shell/ResString.h"
#include "ulo/PalmDevice.h"
#include "veld/Data.h"

namespace veld5 {

CEVELDLayerDLg::CEVELDLayerDLg(CLayerLtypeCtrlDlg* controller, CVELD* cad, CWnd* parent,
                               int templateId)
    : CVELDLayerLtypeDlg(
          controller, cad, parent, templateId,
          {ctl::Layers::kFilter, ctl::Layers::kNew, ctl::Layers::kDelete, ctl::Layers::kCurrent}) {}

CEVELDLayerDLg::~CEVELDLayerDLg() = default;

QWidget* CEVELDLayerDLg::CreateCustomControl(const ulo::CtrlTemplate& ctrl, QWidget* parent) {
    if (ctrl.id != ctl::Layers::kList)
        return CVELDLayerLtypeDlg::CreateCustomControl(ctrl, parent);
    list_ = new CVELDLayerList(cad_, parent);
    return list_;
}

void CEVELDLayerDLg::OnInitDialog() {
    CVELDLayerLtypeDlg::OnInitDialog();
    list_->SetCurLayerMark(GetCurLayer(cad_));
    list_->SetRowHeight(CVELDLayerList::DefaultRowHeight(font()));

    const int m = CPalmDevice::GetResMultiplier();
    const int width = list_->width() - 2 * list_->frameWidth();
    const int w = (width - 100 * m) / 6;
    const int widths[CVELDLayerList::kColumnCount] = {3 * w,  25 * m, 25 * m,
                                                      25 * m, 25 * m, 98 * m};
    for (int c = 0; c < CVELDLayerList::kColumnCount; ++c)
        list_->SetColumn(
            c, LoadResString(ids::kColLayerName + static_cast<unsigned>(c)).ToQString(), widths[c]);

    connect(list_, &CVELDLayerList::layerSelected, this,
            [this](veld::CLayer* layer) { controller_->AddSelLayer(layer); });
    connect(list_, &CVELDLayerList::layerDeselected, this,
            [this](veld::CLayer* layer) { controller_->RemoveSelLayer(layer); });
    connect(list_, &CVELDLayerList::cellTapped, this,
            [this](int row, int column, bool) { OnCellTapped(row, column); });
    connect(list_, &CVELDLayerList::columnClicked, this, &CEVELDLayerDLg::OnColumnClicked);
    FillList();
}

void CEVELDLayerDLg::FillList() {
    list_->DeleteAllItems();
    controller_->ClearSelLayers();
    veld::CData* data = cad_->GetData();
    list_->SetItems(ListedItems<veld::CLayer>(*data, veld::CData::CLayerIterator(data, true),
                                              data->GetLayerTable().GetNoItems()));
    list_->SortRows(sortColumn_, sortDirection_);
    changedSinceSort_ = false;
}

CReportListView* CEVELDLayerDLg::List() const {
    return list_;
}

void CEVELDLayerDLg::OnFirstAction() {
    veld::CLayer* layer = controller_->NewLayer();
    list_->SelectItem(nullptr);
    controller_->ClearSelLayers();
    list_->AppendItem(layer);
    changedSinceSort_ = true;
    list_->SelectItem(layer);
    RedrawViews();
}

void CEVELDLayerDLg::OnDelete() {
    if (controller_->GetNoSelLayers() == 0) {
        Warn(this, ids::kSelectLayerToErase);
        return;
    }
    controller_->DeleteSelLayers();
    FillList();
    RedrawViews();
}

std::optional<StringId> CEVELDLayerDLg::CurrentRefusal(const veld::ITableItem& item) const {
    const bool frozen = item.GetFlags() & veld::CLayer::kFlagFrozen;
    if (frozen || item.IsXRef())
        return ids::kLayerNotCurrent;
    return std::nullopt;
}

bool CEVELDLayerDLg::MakeSelCurrent() {
    return controller_->MakeSelLayerCurrent();
}

void CEVELDLayerDLg::OnColumnClicked(int column) {
    if (column == sortColumn_ && !changedSinceSort_) {
        sortDirection_ = -sortDirection_;
    } else {
        sortColumn_ = column;
        sortDirection_ = 1;
    }
    list_->SortRows(sortColumn_, sortDirection_);
    changedSinceSort_ = false;
}

void CEVELDLayerDLg::OnCellTapped(int row, int column) {
    veld::CLayer* layer = list_->GetItem(row);
    if (!layer)
        return;
    switch (column) {
        case CVELDLayerList::kColName:
            EditName(row);
            return;
        case CVELDLayerList::kColOn: {
            const bool off = !layer->IsOff();
            if (off && layer == list_->GetCurLayerMark())
                Warn(parentWidget() ? parentWidget() : this, ids::kCurLayerOff);
            layer->SetOff(off);
            break;
        }
        case CVELDLayerList::kColFreeze:
            if (layer == list_->GetCurLayerMark() && !layer->IsFrozen()) {
                Warn(this, ids::kCurLayerNoFreeze);
                return;
            }
            layer->SetFrozen(!layer->IsFrozen());
            break;
        case CVELDLayerList::kColLock:
            layer->SetLocked(!layer->IsLocked());
            break;
        case CVELDLayerList::kColColor:
            PickColour(layer);
            return;
        case CVELDLayerList::kColLtype:
            PickLtype(layer);
            return;
        default:
            return;
    }
    list_->ItemChanged(layer);
    RedrawViews();
}

void CEVELDLayerDLg::EditName(int row) {
    veld::CLayer* layer = list_->GetItem(row);
    // Layer 0 and the layers of external references keep their names.
    if (!layer || layer->IsLayer0() || layer->IsXRef() || !nameEdit_)
        return;
    QRect cell = list_->CellRect(row, CVELDLayerList::kColName);
    cell.moveTopLeft(list_->viewport()->mapTo(this, cell.topLeft()));
    cell.translate(-2, 0);
    nameEdit_->setGeometry(cell);
    list_->ItemChanged(layer);
    nameEdit_->BeginEdit(layer->GetName().ToQString(), row);
    nameEdit_->show();
    nameEdit_->raise();
    nameEdit_->setFocus(Qt::MouseFocusReason);
}

void CEVELDLayerDLg::OnEndEditItem(QString text, int item) {
    veld::CLayer* layer = list_->GetItem(item);
    if (!layer)
        return;
    const ulo::WString name(text.toStdWString());
    std::optional<StringId> refusal;
    if (name.IsEmpty()) {
        refusal = ids::kLayerNameEmpty;
    } else {
        // The table's index finds a name whatever its letter case.
        veld::CLayer* other = cad_->GetData()->GetLayerTable().Find(name);
        if (other && other != layer)
            refusal = ids::kLayerNameTaken;
        // A layer may keep the name it came with, even one the rule refuses.
        if (!veld::is_valid_table_name14(name, false) && controller_->IsLayerNameChanged(name))
            refusal = ids::kLayerNameLetters;
    }
    if (refusal) {
        Warn(this, *refusal);
        return;
    }
    layer->SetName(name);
    list_->ItemChanged(layer);
}

void CEVELDLayerDLg::PickColour(veld::CLayer* layer) {
    const auto colour = static_cast<short>(layer->GetColor());
    CCECADDlgColor picker(cad_, colour, -1, -1, false, this);
    if (picker.DoModal() != ulo::IDOK || picker.GetSelColor() == colour)
        return;
    layer->SetColor(static_cast<unsigned short>(picker.GetSelColor()));
    list_->ItemChanged(layer);
    RedrawViews();
}

void CEVELDLayerDLg::PickLtype(veld::CLayer* layer) {
    CCECADDlgSelType picker(this, cad_);
    picker.SetPresetLtype(layer->GetLtype());
    if (picker.DoModal() != ulo::IDOK)
        return;
    veld::CLtype* chosen = picker.GetChosenLtype();
    if (!chosen || chosen == layer->GetLtype())
        return;
    layer->SetLtype(chosen);
    list_->ItemChanged(layer);
    RedrawViews();
}

void RunDlgLayer(CWnd* parent, CVELD& cad) {
    RunTableVisit(cad, [&](CLayerLtypeCtrlDlg* controller) {
        return std::make_unique<CEVELDLayerDLg>(
            controller, &cad, parent,
            static_cast<int>(CPalmDevice::SelectIdDlgStd(11028, 11029, 11030, 11031)));
    });
}

}  // namespace veld5
