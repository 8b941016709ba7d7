#include "ReportListView.h"

#include <QFontMetrics>
#include <QHeaderView>
#include <algorithm>

#include "TableListModel.h"

CReportListView::CReportListView(QWidget* parent) : QTableView(parent) {
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    // Tab leaves the list for the dialog's next control, as in a list view.
    setTabKeyNavigation(false);
    setShowGrid(false);
    setWordWrap(false);
    setCornerButtonEnabled(false);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    // An owner that sorts keeps its own order (a column and a direction that
    // flips on a second click): the view never sorts by itself.
    setSortingEnabled(false);

    QHeaderView* rows = verticalHeader();
    rows->hide();
    rows->setSectionResizeMode(QHeaderView::Fixed);
    rows->setMinimumSectionSize(1);
    SetRowHeight(DefaultRowHeight(font()));

    QHeaderView* columns = horizontalHeader();
    columns->setHighlightSections(false);
    columns->setSectionsClickable(false);
    columns->setSortIndicatorShown(false);
    columns->setStretchLastSection(false);
    columns->setMinimumSectionSize(0);
    columns->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
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

CReportListView::~CReportListView() = default;

void CReportListView::SetTableModel(CTableListModel* model) {
    tableModel_ = model;
    setModel(model);
}

void CReportListView::SetRowHeight(int height) {
    verticalHeader()->setDefaultSectionSize(std::max(1, height));
}

int CReportListView::GetRowHeight() const {
    return verticalHeader()->defaultSectionSize();
}

int CReportListView::DefaultRowHeight(const QFont& font) {
    const QFontMetrics fm(font);
    return fm.height() + fm.leading() + 1;
}

void CReportListView::SetColumn(int column, const QString& heading, int width) {
    tableModel_->SetHeading(column, heading);
    setColumnWidth(column, std::max(0, width));
}

QRect CReportListView::CellRect(int row, int column) const {
    return visualRect(tableModel_->index(row, column));
}

int CReportListView::GetItemCount() const {
    return tableModel_->rowCount();
}

void CReportListView::DeleteAllItems() {
    DropSelection();
    tableModel_->Clear();
}

void CReportListView::RedrawAll() {
    tableModel_->AllChanged();
}

void CReportListView::SortRows(int column, int direction) {
    tableModel_->SortRows(column, direction);
}

int CReportListView::GetSelectedRow() const {
    const QModelIndexList rows = selectionModel()->selectedRows();
    return rows.isEmpty() ? -1 : rows.front().row();
}

void CReportListView::SelectRow(int row) {
    if (row < 0 || row >= tableModel_->rowCount()) {
        selectionModel()->clearSelection();
        return;
    }
    const QModelIndex index = tableModel_->index(row, CTableListModel::kColName);
    selectionModel()->setCurrentIndex(
        index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    scrollTo(index);
}

int CReportListView::GetMarkedRow() const {
    return tableModel_->RowOfItem(tableModel_->GetMarkedItem());
}

void CReportListView::DropSelection() {
    selectionModel()->clearSelection();
    selectionModel()->clearCurrentIndex();
}

void CReportListView::selectionChanged(const QItemSelection& selected,
                                       const QItemSelection& deselected) {
    QTableView::selectionChanged(selected, deselected);
    EmitForRows(deselected, false);
    EmitForRows(selected, true);
}

void CReportListView::rowsAboutToBeRemoved(const QModelIndex& parent, int start, int end) {
    // The item view would move the focus, and with it the selection, to a
    // neighbouring row: the owner would see an item chosen that the user
    // never touched. A deleted row leaves the list without a selection.
    const int current = currentIndex().row();
    if (!parent.isValid() && current >= start && current <= end)
        DropSelection();
    QTableView::rowsAboutToBeRemoved(parent, start, end);
}

void CReportListView::EmitForRows(const QItemSelection& selection, bool selected) {
    // A whole-row selection arrives as one range per row, spanning the
    // columns; a row is reported once.
    int last = -1;
    for (const QItemSelectionRange& range : selection) {
        for (int row = range.top(); row <= range.bottom(); ++row) {
            if (row == last)
                continue;
            last = row;
            veld::ITableItem* item = tableModel_->ItemAtRow(row);
            if (!item)
                continue;
            if (selected)
                Q_EMIT itemSelected(item);
            else
                Q_EMIT itemDeselected(item);
        }
    }
}
