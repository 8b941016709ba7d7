#pragma once
// CTableListModel: the rows of a list over a drawing table, one table item
// (layer, line type, text style, entity set) per row, in the order the owner
// gives. It holds what every such list has: the rows, each with a reference
// on its item (a row never outlives the item it shows, even when the item
// leaves the drawing's table before the list is refilled); the row of an
// item found in constant time, also after a sort; one item marked as the
// current one (RGB(0, 150, 250) behind its row); the column headings; rows
// appended and removed; the sort by a column with the views' persistent
// indexes following their items.
//
// A list over a table derives from CTableListModelOf<T> (below) and says only
// what its own columns show and how they order. Texts are read from the
// items whenever asked, so an item edited in place only needs ItemChanged.
#include <QAbstractTableModel>
#include <QColor>
#include <QString>
#include <cstddef>
#include <span>
#include <unordered_map>
#include <vector>

#include "ulo/RefCounter.h"
#include "veld/TableItem.h"

class CTableListModel : public QAbstractTableModel {
    Q_OBJECT
public:
    /// The row's item, as a quintptr to the list's item type, in every column.
    static constexpr int kItemRole = Qt::UserRole;
    /// True in every column of the row of the marked current item.
    static constexpr int kCurrentMarkRole = Qt::UserRole + 1;
    /// Background of the marked current item's row: RGB(0, 150, 250).
    static QColor CurrentMarkColour() { return QColor(0, 150, 250); }
    /// Every list shows the items' names in its first column.
    static constexpr int kColName = 0;

    ~CTableListModel() override;

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

    /// Removes every row.
    void Clear();
    /// The row of @p item, or -1.
    int RowOfItem(const veld::ITableItem* item) const;
    /// The item of @p row, or null outside the rows.
    veld::ITableItem* ItemAtRow(int row) const;
    /// The marked current item, or null.
    veld::ITableItem* GetMarkedItem() const { return mark_.get(); }
    /// Marks @p item as the current one (null: none); its row and the row
    /// marked before are redrawn.
    void SetMarkedItem(veld::ITableItem* item);
    /// Tells the views that every row may have changed.
    void AllChanged();
    /// The text of the header of @p column.
    void SetHeading(int column, const QString& heading);

    /// Orders the rows by @p column in @p direction (1 ascending, -1
    /// descending). The name column orders by name ignoring letter case
    /// (ulo::FoldCase, as ulo::WString::CompareIgnoreCase); another column
    /// by its sort key (SortNumber, or the folded name of SortItem), rows
    /// equal in it going by name, ascending whatever the direction. Rows
    /// equal in everything keep their order. Persistent indexes (the views'
    /// selection and current row) follow their items.
    void SortRows(int column, int direction);

protected:
    CTableListModel(int columnCount, QObject* parent);

    /// Appends a row for @p item and returns it; an item already listed
    /// keeps its row (returned), null gives -1.
    int AppendItemRow(veld::ITableItem* item);
    /// Removes the row of @p item; false when it has none. Linear in the
    /// number of rows after it.
    bool RemoveItemRow(const veld::ITableItem* item);
    /// Tells the views that the row of @p item changed.
    void ItemRowChanged(const veld::ITableItem* item);
    /// Replacing every row in one reset: BeginReplaceRows, TakeRow for each
    /// item in order (null entries and repeats of an item already taken are
    /// left out), EndReplaceRows.
    void BeginReplaceRows(std::size_t count);
    void TakeRow(veld::ITableItem* item);
    void EndReplaceRows();

    /// What @p column shows for @p item (display and tool tip).
    virtual QVariant ItemText(const veld::ITableItem& item, int column) const = 0;
    /// @p item as the quintptr kItemRole gives.
    virtual quintptr ItemHandle(const veld::ITableItem& item) const = 0;
    /// How @p column sorts besides the name.
    enum class SortKey {
        Number,    ///< SortNumber, lower first
        ItemName,  ///< the name of SortItem (null: empty), folded
    };
    virtual SortKey ColumnSortKey(int column) const;
    virtual int SortNumber(const veld::ITableItem& item, int column) const;
    virtual const veld::ITableItem* SortItem(const veld::ITableItem& item, int column) const;

private:
    void EmitRowChanged(int row);
    /// Moves the rows into the order of @p from (the old row of each new row).
    void Reorder(const std::vector<int>& from);

    const int columns_;
    std::vector<ulo::RefPtr<veld::ITableItem>> rows_;
    std::unordered_map<const veld::ITableItem*, int> rowOf_;
    ulo::RefPtr<veld::ITableItem> mark_;
    std::vector<QString> headings_;
};

/// The rows of a list of items of type @p T (a veld::ITableItem): the typed
/// face of CTableListModel. A list derives from it with its own columns:
/// ItemText for each, and how a column other than the name sorts.
template <class T>
class CTableListModelOf : public CTableListModel {
public:
    /// Replaces every row with @p items, in order, in one reset; null entries
    /// and repeats of an item already taken are left out.
    void SetItems(std::span<T* const> items) {
        BeginReplaceRows(items.size());
        for (T* item : items)
            TakeRow(item);
        EndReplaceRows();
    }
    /// Appends a row for @p item and returns it; an item already listed keeps
    /// its row (returned), null gives -1.
    int AppendItem(T* item) { return AppendItemRow(item); }
    /// Removes the row of @p item; false when it has none.
    bool RemoveItem(const T* item) { return RemoveItemRow(item); }
    /// The row of @p item, or -1; constant time.
    int RowOf(const T* item) const { return RowOfItem(item); }
    /// The item of @p row, or null outside the rows.
    T* ItemAt(int row) const { return Typed(ItemAtRow(row)); }
    /// Tells the views that a property of @p item changed.
    void ItemChanged(const T* item) { ItemRowChanged(item); }
    void SetCurMark(T* item) { SetMarkedItem(item); }
    T* GetCurMark() const { return Typed(GetMarkedItem()); }

    /// @p item, one of this list's (as the generic calls and signals give
    /// them), as its own type.
    static T* Typed(veld::ITableItem* item) { return static_cast<T*>(item); }
    /// The item of the row of @p index (kItemRole), or null.
    static const T* ItemOf(const QModelIndex& index) {
        return reinterpret_cast<const T*>(index.data(kItemRole).value<quintptr>());
    }

protected:
    using CTableListModel::CTableListModel;

    virtual QVariant Text(const T& item, int column) const = 0;
    virtual int Number(const T& item, int column) const {
        (void)item;
        (void)column;
        return 0;
    }
    virtual const veld::ITableItem* NamedItem(const T& item, int column) const {
        (void)item;
        (void)column;
        return nullptr;
    }

private:
    QVariant ItemText(const veld::ITableItem& item, int column) const final {
        return Text(static_cast<const T&>(item), column);
    }
    quintptr ItemHandle(const veld::ITableItem& item) const final {
        return reinterpret_cast<quintptr>(static_cast<const T*>(&item));
    }
    int SortNumber(const veld::ITableItem& item, int column) const final {
        return Number(static_cast<const T&>(item), column);
    }
    const veld::ITableItem* SortItem(const veld::ITableItem& item, int column) const final {
        return NamedItem(static_cast<const T&>(item), column);
    }
};
