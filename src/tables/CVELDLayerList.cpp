#include "CVELDLayerList.h"

#include <QHeaderView>
#include <algorithm>

#include "CVELDLayerListDelegate.h"
#include "CVELDLayerListModel.h"

CVELDLayerList::CVELDLayerList(CVELD* cad, QWidget* parent)
    : CReportListView(parent),
      cad_(cad),
      model_(new CVELDLayerListModel(this)),
      delegate_(new CVELDLayerListDelegate(cad, this)) {
    setModel(model_);
    setItemDelegate(delegate_);
    // The dialog keeps its own sort order (a comparator and a direction
    // that flips on a second click): the view never sorts by itself.
    setSortingEnabled(false);

    QHeaderView* columns = horizontalHeader();
    columns->setSectionsClickable(true);
    columns->setSortIndicatorShown(false);
    connect(columns, &QHeaderView::sectionClicked, this,
            [this](int column) { Q_EMIT columnClicked(column); });

    // clicked comes on the release, after the press moved the selection; a
    // double tap gives clicked for its first tap and doubleClicked for its
    // second.
    connect(this, &QAbstractItemView::clicked, this, [this](const QModelIndex& index) {
        Q_EMIT cellTapped(index.row(), index.column(), false);
    });
    connect(this, &QAbstractItemView::doubleClicked, this, [this](const QModelIndex& index) {
        Q_EMIT cellTapped(index.row(), index.column(), true);
    });
}

CVELDLayerList::~CVELDLayerList() = default;

void CVELDLayerList::SetColumn(int column, const QString& heading, int width) {
    model_->SetHeading(column, heading);
    setColumnWidth(column, std::max(0, width));
}

void CVELDLayerList::SetLayers(std::span<veld::CLayer* const> layers) {
    // A reset drops the selection without a word; clearing it first tells
    // the owner that its layer is no longer selected.
    DropSelection();
    model_->SetLayers(layers);
}

int CVELDLayerList::AppendLayer(veld::CLayer* layer) {
    return model_->AppendLayer(layer);
}

void CVELDLayerList::DeleteAllItems() {
    DropSelection();
    model_->Clear();
}

int CVELDLayerList::GetItemCount() const {
    return model_->rowCount();
}

veld::CLayer* CVELDLayerList::GetItemLayer(int row) const {
    return model_->LayerAt(row);
}

int CVELDLayerList::FindLayer(const veld::CLayer* layer) const {
    return model_->RowOf(layer);
}

void CVELDLayerList::LayerChanged(const veld::CLayer* layer) {
    model_->LayerChanged(layer);
}

void CVELDLayerList::RedrawAll() {
    model_->AllChanged();
}

void CVELDLayerList::SortRows(int column, int direction) {
    model_->SortRows(column, direction);
}

void CVELDLayerList::SelectLayer(const veld::CLayer* layer) {
    const int row = model_->RowOf(layer);
    if (row < 0) {
        selectionModel()->clearSelection();
        return;
    }
    const QModelIndex index = model_->index(row, CVELDLayerListModel::kColName);
    selectionModel()->setCurrentIndex(
        index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    scrollTo(index);
}

veld::CLayer* CVELDLayerList::GetSelectedLayer() const {
    const QModelIndexList rows = selectionModel()->selectedRows();
    return rows.isEmpty() ? nullptr : model_->LayerAt(rows.front().row());
}

void CVELDLayerList::SetCurLayerMark(veld::CLayer* layer) {
    model_->SetCurLayerMark(layer);
}

veld::CLayer* CVELDLayerList::GetCurLayerMark() const {
    return model_->GetCurLayerMark();
}

QRect CVELDLayerList::CellRect(int row, int column) const {
    return visualRect(model_->index(row, column));
}

void CVELDLayerList::selectionChanged(const QItemSelection& selected,
                                      const QItemSelection& deselected) {
    QTableView::selectionChanged(selected, deselected);
    EmitForRows(deselected, false);
    EmitForRows(selected, true);
}

void CVELDLayerList::DropSelection() {
    selectionModel()->clearSelection();
    selectionModel()->clearCurrentIndex();
}

void CVELDLayerList::EmitForRows(const QItemSelection& selection, bool selected) {
    // A whole-row selection arrives as one range per row, spanning the
    // columns; a row is reported once.
    int last = -1;
    for (const QItemSelectionRange& range : selection) {
        for (int row = range.top(); row <= range.bottom(); ++row) {
            if (row == last)
                continue;
            last = row;
            veld::CLayer* layer = model_->LayerAt(row);
            if (!layer)
                continue;
            if (selected)
                Q_EMIT layerSelected(layer);
            else
                Q_EMIT layerDeselected(layer);
        }
    }
}
