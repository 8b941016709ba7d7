#pragma once
// CReportListView: the view of a list over a drawing table (CTableListModel),
// as the library's owner-drawn report lists show it: one selected row at a
// time, no editing in place, no grid, a hidden row header and fixed, equal
// rows, so the view places any row by arithmetic and filling, sorting and
// scrolling stay flat in the number of rows. Column widths stand as the owner
// gives them, however narrow.
//
// The owner learns of the user's acts through the signals: an item selected
// or deselected (also when its row goes or the rows are replaced: the
// selection never moves by itself to a row the user did not touch), a cell
// tapped, a column header clicked (when the owner makes the headers
// clickable). A list of items of one type derives from CTableListView<T,
// Model> (below), which makes its model and gives the typed calls.
#include <QTableView>
#include <span>

class CTableListModel;

namespace veld {
class ITableItem;
}

class CReportListView : public QTableView {
    Q_OBJECT
    /// The row of the marked current item, or -1 (for tools that read the
    /// list).
    Q_PROPERTY(int markedRow READ GetMarkedRow)
public:
    explicit CReportListView(QWidget* parent = nullptr);
    ~CReportListView() override;

    CTableListModel* GetTableModel() const { return tableModel_; }

    /// Height of every row in pixels (DefaultRowHeight(font()) at first).
    void SetRowHeight(int height);
    int GetRowHeight() const;
    /// The row height of a list in @p font: its height, external leading
    /// and 1 pixel.
    static int DefaultRowHeight(const QFont& font);

    /// Sets the header text and the width in pixels of @p column.
    void SetColumn(int column, const QString& heading, int width);
    int GetColumnWidth(int column) const { return columnWidth(column); }
    /// The rectangle of @p row's cell in @p column, in the list's viewport.
    QRect CellRect(int row, int column) const;

    int GetItemCount() const;
    /// Removes every row.
    void DeleteAllItems();
    /// Redraws every row.
    void RedrawAll();
    /// Sorts the rows as CTableListModel::SortRows does; the selection
    /// follows its item.
    void SortRows(int column, int direction);

    /// The selected row, or -1.
    int GetSelectedRow() const;
    /// Selects (and focuses, and scrolls to) @p row; -1 clears the selection.
    void SelectRow(int row);
    int GetMarkedRow() const;

Q_SIGNALS:
    /// A row lost its selection. Sent before itemSelected when the selection
    /// moves.
    void itemDeselected(veld::ITableItem* item);
    void itemSelected(veld::ITableItem* item);
    /// A cell was tapped (@p twice: a double tap), after the selection moved
    /// to its row.
    void cellTapped(int row, int column, bool twice);
    /// A column header was clicked.
    void columnClicked(int column);

protected:
    /// Shows @p model, which the view takes as its child.
    void SetTableModel(CTableListModel* model);
    /// Clears the selection and the current row, with the signals: before
    /// the rows are replaced, since a reset drops them without a word.
    void DropSelection();

    void selectionChanged(const QItemSelection& selected,
                          const QItemSelection& deselected) override;
    void rowsAboutToBeRemoved(const QModelIndex& parent, int start, int end) override;

private:
    void EmitForRows(const QItemSelection& selection, bool selected);

    CTableListModel* tableModel_ = nullptr;
};

/// A report list of items of type @p T shown by @p Model (a
/// CTableListModelOf<T> made with a parent only): the typed calls.
template <class T, class Model>
class CTableListView : public CReportListView {
public:
    Model* GetListModel() const { return model_; }

    /// Replaces all rows with @p items, in order.
    void SetItems(std::span<T* const> items) {
        DropSelection();
        model_->SetItems(items);
    }
    /// Appends a row for @p item and returns it (its present row when it is
    /// listed already).
    int AppendItem(T* item) { return model_->AppendItem(item); }
    /// Removes the row of @p item; false when it has none.
    bool DeleteItem(const T* item) { return model_->RemoveItem(item); }
    /// The item of @p row, or null.
    T* GetItem(int row) const { return model_->ItemAt(row); }
    /// The row of @p item, or -1; constant time.
    int FindItem(const T* item) const { return model_->RowOf(item); }
    /// Redraws the row of @p item after a property changed.
    void ItemChanged(const T* item) { model_->ItemChanged(item); }

    /// Selects (and focuses, and scrolls to) the row of @p item; null or an
    /// unlisted item clears the selection.
    void SelectItem(const T* item) { SelectRow(model_->RowOf(item)); }
    /// The item of the selected row, or null.
    T* GetSelectedItem() const { return model_->ItemAt(GetSelectedRow()); }

    /// Marks @p item as the current one (null: none); the rows concerned are
    /// redrawn.
    void SetCurMark(T* item) { model_->SetCurMark(item); }
    T* GetCurMark() const { return model_->GetCurMark(); }

protected:
    explicit CTableListView(QWidget* parent) : CReportListView(parent), model_(new Model(this)) {
        SetTableModel(model_);
    }

private:
    Model* model_;
};
