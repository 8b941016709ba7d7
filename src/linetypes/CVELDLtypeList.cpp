#include "CVELDLtypeList.h"

#include <QHeaderView>
#include <algorithm>

#include "CVELDLtypeListDelegate.h"
#include "CVELDLtypeListModel.h"

CVELDLtypeList::CVELDLtypeList(CVELD* cad, QWidget* parent)
    : CReportListView(parent),
      cad_(cad),
      model_(new CVELDLtypeListModel(this)),
      delegate_(new CVELDLtypeListDelegate(cad, this)) {
    setModel(model_);
    setItemDelegate(delegate_);
}

CVELDLtypeList::~CVELDLtypeList() = default;

void CVELDLtypeList::SetColumn(int column, const QString& heading, int width) {
    model_->SetHeading(column, heading);
    setColumnWidth(column, std::max(0, width));
}

void CVELDLtypeList::SetLtypes(std::span<veld::CLtype* const> ltypes) {
    model_->SetLtypes(ltypes);
}

int CVELDLtypeList::InsertItem(veld::CLtype* ltype) {
    return model_->AppendLtype(ltype);
}

bool CVELDLtypeList::DeleteItem(const veld::CLtype* ltype) {
    return model_->RemoveLtype(ltype);
}

void CVELDLtypeList::DeleteAllItems() {
    model_->Clear();
}

int CVELDLtypeList::GetItemCount() const {
    return model_->rowCount();
}

veld::CLtype* CVELDLtypeList::GetItemLtype(int row) const {
    return model_->LtypeAt(row);
}

int CVELDLtypeList::FindLtype(const veld::CLtype* ltype) const {
    return model_->RowOf(ltype);
}

void CVELDLtypeList::LtypeChanged(const veld::CLtype* ltype) {
    model_->LtypeChanged(ltype);
}

veld::CLtype* CVELDLtypeList::GetSelectedLtype() const {
    const QModelIndexList rows = selectionModel()->selectedRows();
    return rows.isEmpty() ? nullptr : model_->LtypeAt(rows.front().row());
}

void CVELDLtypeList::SelectLtype(const veld::CLtype* ltype) {
    const int row = model_->RowOf(ltype);
    if (row < 0) {
        selectionModel()->clearSelection();
        return;
    }
    const QModelIndex index = model_->index(row, CVELDLtypeListModel::kColName);
    selectionModel()->setCurrentIndex(
        index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    scrollTo(index);
}

void CVELDLtypeList::SetCurLtypeMark(veld::CLtype* ltype) {
    model_->SetCurLtypeMark(ltype);
}

veld::CLtype* CVELDLtypeList::GetCurLtypeMark() const {
    return model_->GetCurLtypeMark();
}

void CVELDLtypeList::selectionChanged(const QItemSelection& selected,
                                      const QItemSelection& deselected) {
    QTableView::selectionChanged(selected, deselected);
    EmitForRows(deselected, false);
    EmitForRows(selected, true);
}

void CVELDLtypeList::rowsAboutToBeRemoved(const QModelIndex& parent, int start, int end) {
    // The item view would move the focus, and with it the selection, to a
    // neighbouring row: the owner would see a line type chosen that the user
    // never touched. A deleted row leaves the list without a selection.
    const int current = currentIndex().row();
    if (!parent.isValid() && current >= start && current <= end) {
        selectionModel()->clearSelection();
        selectionModel()->clearCurrentIndex();
    }
    QTableView::rowsAboutToBeRemoved(parent, start, end);
}

void CVELDLtypeList::EmitForRows(const QItemSelection& selection, bool selected) {
    // A whole-row selection arrives as one range per row, spanning the
    // columns; a row is reported once.
    int last = -1;
    for (const QItemSelectionRange& range : selection) {
        for (int row = range.top(); row <= range.bottom(); ++row) {
            if (row == last)
                continue;
            last = row;
            veld::CLtype* ltype = model_->LtypeAt(row);
            if (!ltype)
                continue;
            if (selected)
                Q_EMIT ltypeSelected(ltype);
            else
                Q_EMIT ltypeDeselected(ltype);
        }
    }
}
