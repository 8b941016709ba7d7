#include "TableListModel.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace {

/// Texts folded once per sort and packed in one buffer, so that comparing
/// two rows costs neither an allocation nor a case mapping. Folding and
/// ordering are those of ulo::WString::CompareIgnoreCase.
class FoldedTexts {
public:
    /// Room for @p count texts of @p chars characters in all.
    FoldedTexts(std::size_t count, std::size_t chars) {
        starts_.reserve(count + 1);
        starts_.push_back(0);
        chars_.reserve(chars);
    }

    void Add(std::wstring_view text) {
        for (const wchar_t c : text)
            chars_.push_back(static_cast<char32_t>(ulo::FoldCase(c)));
        starts_.push_back(chars_.size());
    }
    std::u32string_view operator[](std::size_t i) const {
        return std::u32string_view(chars_.data() + starts_[i], starts_[i + 1] - starts_[i]);
    }

private:
    std::u32string chars_;
    std::vector<std::size_t> starts_;
};

/// Asks for the memory at @p p before it is read.
inline void Prefetch(const void* p) {
#if defined(__GNUC__)
    __builtin_prefetch(p);
#else
    (void)p;
#endif
}

/// The items named by rows (@p itemOfRow) as ranks: rows whose items have
/// names equal ignoring case get the same rank, a higher rank sorts later,
/// no item ranks as the empty name. Rows share a few such items (the line
/// types of layers): each is folded and ranked once.
std::vector<int> NameRanks(const std::vector<const veld::ITableItem*>& itemOfRow) {
    std::unordered_map<const veld::ITableItem*, int> slotOf;
    std::vector<const veld::ITableItem*> items;
    std::vector<int> slots;
    slots.reserve(itemOfRow.size());
    for (const veld::ITableItem* item : itemOfRow) {
        const auto [it, added] = slotOf.emplace(item, static_cast<int>(items.size()));
        if (added)
            items.push_back(item);
        slots.push_back(it->second);
    }
    std::size_t chars = 0;
    for (const veld::ITableItem* item : items)
        chars += item ? item->GetName().Length() : 0;
    FoldedTexts names(items.size(), chars);
    for (const veld::ITableItem* item : items)
        names.Add(item ? std::wstring_view(item->GetName().str()) : std::wstring_view());
    std::vector<int> order(items.size());
    for (std::size_t i = 0; i < order.size(); ++i)
        order[i] = static_cast<int>(i);
    std::sort(order.begin(), order.end(), [&](int a, int b) { return names[a] < names[b]; });
    std::vector<int> rankOfSlot(items.size());
    int rank = 0;
    for (std::size_t i = 0; i < order.size(); ++i) {
        if (i > 0 && names[order[i]] != names[order[i - 1]])
            ++rank;
        rankOfSlot[order[i]] = rank;
    }
    for (int& slot : slots)
        slot = rankOfSlot[slot];
    return slots;
}

}  // namespace

CTableListModel::CTableListModel(int columnCount, QObject* parent)
    : QAbstractTableModel(parent), columns_(columnCount), headings_(columnCount) {}

CTableListModel::~CTableListModel() = default;

int CTableListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int CTableListModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : columns_;
}

QVariant CTableListModel::data(const QModelIndex& index, int role) const {
    const veld::ITableItem* item = ItemAtRow(index.row());
    if (!item || index.column() < 0 || index.column() >= columns_)
        return {};
    switch (role) {
        case kItemRole:
            return QVariant::fromValue(ItemHandle(*item));
        case kCurrentMarkRole:
            return item == mark_.get();
        case Qt::BackgroundRole:
            return item == mark_.get() ? QVariant(CurrentMarkColour()) : QVariant();
        case Qt::DisplayRole:
        case Qt::ToolTipRole:
            // The tool tip gives the whole text where the cell elides it.
            return ItemText(*item, index.column());
        default:
            return {};
    }
}

QVariant CTableListModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= columns_)
        return {};
    if (role == Qt::DisplayRole)
        return headings_[section];
    if (role == Qt::TextAlignmentRole)
        return QVariant::fromValue(Qt::Alignment(Qt::AlignLeft | Qt::AlignVCenter));
    return {};
}

Qt::ItemFlags CTableListModel::flags(const QModelIndex& index) const {
    return index.isValid() ? Qt::ItemIsEnabled | Qt::ItemIsSelectable : Qt::NoItemFlags;
}

void CTableListModel::BeginReplaceRows(std::size_t count) {
    beginResetModel();
    rows_.clear();
    rowOf_.clear();
    rows_.reserve(count);
    rowOf_.reserve(count);
}

void CTableListModel::TakeRow(veld::ITableItem* item) {
    if (item && rowOf_.emplace(item, static_cast<int>(rows_.size())).second)
        rows_.push_back(ulo::RefPtr<veld::ITableItem>::Share(item));
}

void CTableListModel::EndReplaceRows() {
    endResetModel();
}

int CTableListModel::AppendItemRow(veld::ITableItem* item) {
    if (!item)
        return -1;
    if (const int row = RowOfItem(item); row >= 0)
        return row;
    const int row = static_cast<int>(rows_.size());
    beginInsertRows(QModelIndex(), row, row);
    rows_.push_back(ulo::RefPtr<veld::ITableItem>::Share(item));
    rowOf_.emplace(item, row);
    endInsertRows();
    return row;
}

bool CTableListModel::RemoveItemRow(const veld::ITableItem* item) {
    const int row = RowOfItem(item);
    if (row < 0)
        return false;
    beginRemoveRows(QModelIndex(), row, row);
    // The row's reference goes last: the views may still ask for the row
    // until the removal ends.
    ulo::RefPtr<veld::ITableItem> leaving = std::move(rows_[row]);
    rows_.erase(rows_.begin() + row);
    rowOf_.erase(item);
    for (int r = row; r < static_cast<int>(rows_.size()); ++r)
        rowOf_[rows_[r].get()] = r;
    endRemoveRows();
    return true;
}

void CTableListModel::Clear() {
    if (rows_.empty())
        return;
    beginResetModel();
    rows_.clear();
    rowOf_.clear();
    endResetModel();
}

int CTableListModel::RowOfItem(const veld::ITableItem* item) const {
    const auto it = rowOf_.find(item);
    return it == rowOf_.end() ? -1 : it->second;
}

veld::ITableItem* CTableListModel::ItemAtRow(int row) const {
    return row >= 0 && row < static_cast<int>(rows_.size()) ? rows_[row].get() : nullptr;
}

void CTableListModel::ItemRowChanged(const veld::ITableItem* item) {
    EmitRowChanged(RowOfItem(item));
}

void CTableListModel::AllChanged() {
    if (!rows_.empty())
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, columns_ - 1));
}

void CTableListModel::SetMarkedItem(veld::ITableItem* item) {
    if (item == mark_.get())
        return;
    const int before = RowOfItem(mark_.get());
    mark_ = ulo::RefPtr<veld::ITableItem>::Share(item);
    EmitRowChanged(before);
    EmitRowChanged(RowOfItem(item));
}

void CTableListModel::SetHeading(int column, const QString& heading) {
    if (column < 0 || column >= columns_ || headings_[column] == heading)
        return;
    headings_[column] = heading;
    Q_EMIT headerDataChanged(Qt::Horizontal, column, column);
}

CTableListModel::SortKey CTableListModel::ColumnSortKey(int) const {
    return SortKey::Number;
}

int CTableListModel::SortNumber(const veld::ITableItem&, int) const {
    return 0;
}

const veld::ITableItem* CTableListModel::SortItem(const veld::ITableItem&, int) const {
    return nullptr;
}

void CTableListModel::SortRows(int column, int direction) {
    if (column < 0 || column >= columns_ || rows_.size() < 2)
        return;
    const bool ascending = direction >= 0;
    const std::size_t count = rows_.size();
    const bool byName = column == kColName;
    const bool byItemName = !byName && ColumnSortKey(column) == SortKey::ItemName;

    // The keys are taken once, so that a comparison reads two integers and,
    // on a tie, two folded names. The items and their names lie scattered
    // in memory: both passes ask for them some rows ahead, or waiting for
    // each in turn would cost more than the sort itself.
    constexpr std::size_t kAhead = 16;
    std::vector<std::wstring_view> texts(count);
    std::vector<int> primary(count, 0);
    std::vector<const veld::ITableItem*> named;
    if (byItemName)
        named.resize(count);
    std::size_t chars = 0;
    for (std::size_t r = 0; r < count; ++r) {
        if (r + kAhead < count)
            Prefetch(rows_[r + kAhead].get());
        const veld::ITableItem& item = *rows_[r];
        texts[r] = item.GetName().str();
        chars += texts[r].size();
        if (byItemName)
            named[r] = SortItem(item, column);
        else if (!byName)
            primary[r] = SortNumber(item, column);
    }
    if (byItemName)
        primary = NameRanks(named);
    FoldedTexts names(count, chars);
    for (std::size_t r = 0; r < count; ++r) {
        if (r + kAhead < count)
            Prefetch(texts[r + kAhead].data());
        names.Add(texts[r]);
    }
    // Each key beside its row, negated for a descending order, keeps the
    // comparisons in cache. The name decides a tie in ascending order,
    // except in the name column itself, where it is the key and takes the
    // direction.
    struct Key {
        int primary;
        int row;
    };
    std::vector<Key> keys(count);
    for (std::size_t r = 0; r < count; ++r)
        keys[r] = {ascending ? primary[r] : -primary[r], static_cast<int>(r)};
    const bool namesAscending = !byName || ascending;
    std::stable_sort(keys.begin(), keys.end(), [&](const Key& a, const Key& b) {
        if (a.primary != b.primary)
            return a.primary < b.primary;
        const int order = names[a.row].compare(names[b.row]);
        return namesAscending ? order < 0 : order > 0;
    });
    std::vector<int> from(count);
    bool moved = false;
    for (std::size_t r = 0; r < count; ++r) {
        from[r] = keys[r].row;
        moved = moved || keys[r].row != static_cast<int>(r);
    }
    if (moved)
        Reorder(from);
}

void CTableListModel::Reorder(const std::vector<int>& from) {
    const std::size_t count = rows_.size();
    Q_EMIT layoutAboutToBeChanged({}, QAbstractItemModel::VerticalSortHint);
    std::vector<ulo::RefPtr<veld::ITableItem>> sorted;
    sorted.reserve(count);
    std::vector<int> newRowOf(count);
    for (std::size_t r = 0; r < count; ++r) {
        newRowOf[from[r]] = static_cast<int>(r);
        sorted.push_back(std::move(rows_[from[r]]));
    }
    rows_ = std::move(sorted);
    // Walking the index in its own order renumbers it without a lookup.
    for (auto& entry : rowOf_)
        entry.second = newRowOf[entry.second];
    // The views hold few persistent indexes (selection, current row): moving
    // them keeps the selection on its item without a reset.
    const QModelIndexList before = persistentIndexList();
    QModelIndexList after;
    after.reserve(before.size());
    for (const QModelIndex& old : before)
        after.push_back(index(newRowOf[old.row()], old.column()));
    changePersistentIndexList(before, after);
    Q_EMIT layoutChanged({}, QAbstractItemModel::VerticalSortHint);
}

void CTableListModel::EmitRowChanged(int row) {
    if (row >= 0)
        Q_EMIT dataChanged(index(row, 0), index(row, columns_ - 1));
}
