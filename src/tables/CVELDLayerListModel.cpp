#include "CVELDLayerListModel.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <string>
#include <string_view>

#include "veld/Colors.h"
#include "veld/Layer.h"

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

/// The line type names of rows (@p ltypeOfRow) as ranks: rows whose line
/// types have names equal ignoring case get the same rank, a higher rank
/// sorts later. Layers share a few line types: each is folded and ranked
/// once.
std::vector<int> LtypeRanks(const std::vector<const veld::CLtype*>& ltypeOfRow) {
    std::unordered_map<const veld::CLtype*, int> slotOf;
    std::vector<const veld::CLtype*> ltypes;
    std::vector<int> slots;
    slots.reserve(ltypeOfRow.size());
    for (const veld::CLtype* ltype : ltypeOfRow) {
        const auto [it, added] = slotOf.emplace(ltype, static_cast<int>(ltypes.size()));
        if (added)
            ltypes.push_back(ltype);
        slots.push_back(it->second);
    }
    std::size_t chars = 0;
    for (const veld::CLtype* ltype : ltypes)
        chars += ltype ? ltype->GetName().Length() : 0;
    FoldedTexts names(ltypes.size(), chars);
    for (const veld::CLtype* ltype : ltypes)
        names.Add(ltype ? std::wstring_view(ltype->GetName().str()) : std::wstring_view());
    std::vector<int> order(ltypes.size());
    for (std::size_t i = 0; i < order.size(); ++i)
        order[i] = static_cast<int>(i);
    std::sort(order.begin(), order.end(), [&](int a, int b) { return names[a] < names[b]; });
    std::vector<int> rankOfSlot(ltypes.size());
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

CVELDLayerListModel::CVELDLayerListModel(QObject* parent) : QAbstractTableModel(parent) {}

CVELDLayerListModel::~CVELDLayerListModel() = default;

int CVELDLayerListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int CVELDLayerListModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : kColumnCount;
}

QVariant CVELDLayerListModel::data(const QModelIndex& index, int role) const {
    const veld::CLayer* layer = LayerAt(index.row());
    if (!layer || index.column() < 0 || index.column() >= kColumnCount)
        return {};
    switch (role) {
        case kLayerRole:
            return QVariant::fromValue(reinterpret_cast<quintptr>(layer));
        case kCurrentMarkRole:
            return layer == mark_.get();
        case Qt::BackgroundRole:
            return layer == mark_.get() ? QVariant(CurrentMarkColour()) : QVariant();
        case Qt::DisplayRole:
            switch (index.column()) {
                case kColName:
                    return layer->GetFullName().ToQString();
                case kColOn:
                    return layer->IsOff() ? QStringLiteral("off") : QStringLiteral("on");
                case kColFreeze:
                    return layer->IsFrozen() ? QStringLiteral("frozen") : QStringLiteral("thawed");
                case kColLock:
                    return layer->IsLocked() ? QStringLiteral("locked")
                                             : QStringLiteral("unlocked");
                case kColColor:
                    return veld::CColors::GetInstance()[layer->GetColor()].ToQString();
                case kColLtype:
                    return layer->GetLtype() ? layer->GetLtype()->GetFullName().ToQString()
                                             : QString();
                default:
                    return {};
            }
        case Qt::ToolTipRole:
            // The whole text where the cell elides it; the icon columns have
            // their words.
            return data(index, Qt::DisplayRole);
        default:
            return {};
    }
}

QVariant CVELDLayerListModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= kColumnCount)
        return {};
    if (role == Qt::DisplayRole)
        return headings_[section];
    if (role == Qt::TextAlignmentRole)
        return QVariant::fromValue(Qt::Alignment(Qt::AlignLeft | Qt::AlignVCenter));
    return {};
}

Qt::ItemFlags CVELDLayerListModel::flags(const QModelIndex& index) const {
    return index.isValid() ? Qt::ItemIsEnabled | Qt::ItemIsSelectable : Qt::NoItemFlags;
}

void CVELDLayerListModel::SetLayers(std::span<veld::CLayer* const> layers) {
    beginResetModel();
    rows_.clear();
    rowOf_.clear();
    rows_.reserve(layers.size());
    rowOf_.reserve(layers.size());
    for (veld::CLayer* layer : layers) {
        if (!layer || !rowOf_.emplace(layer, static_cast<int>(rows_.size())).second)
            continue;
        rows_.push_back(ulo::RefPtr<veld::CLayer>::Share(layer));
    }
    endResetModel();
}

int CVELDLayerListModel::AppendLayer(veld::CLayer* layer) {
    if (!layer)
        return -1;
    if (const int row = RowOf(layer); row >= 0)
        return row;
    const int row = static_cast<int>(rows_.size());
    beginInsertRows(QModelIndex(), row, row);
    rows_.push_back(ulo::RefPtr<veld::CLayer>::Share(layer));
    rowOf_.emplace(layer, row);
    endInsertRows();
    return row;
}

void CVELDLayerListModel::Clear() {
    if (rows_.empty())
        return;
    beginResetModel();
    rows_.clear();
    rowOf_.clear();
    endResetModel();
}

int CVELDLayerListModel::RowOf(const veld::CLayer* layer) const {
    const auto it = rowOf_.find(layer);
    return it == rowOf_.end() ? -1 : it->second;
}

veld::CLayer* CVELDLayerListModel::LayerAt(int row) const {
    return row >= 0 && row < static_cast<int>(rows_.size()) ? rows_[row].get() : nullptr;
}

void CVELDLayerListModel::LayerChanged(const veld::CLayer* layer) {
    EmitRowChanged(RowOf(layer));
}

void CVELDLayerListModel::AllChanged() {
    if (!rows_.empty())
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, kColumnCount - 1));
}

void CVELDLayerListModel::SetCurLayerMark(veld::CLayer* layer) {
    if (layer == mark_.get())
        return;
    const int before = RowOf(mark_.get());
    mark_ = ulo::RefPtr<veld::CLayer>::Share(layer);
    EmitRowChanged(before);
    EmitRowChanged(RowOf(layer));
}

void CVELDLayerListModel::SetHeading(int column, const QString& heading) {
    if (column < 0 || column >= kColumnCount || headings_[column] == heading)
        return;
    headings_[column] = heading;
    Q_EMIT headerDataChanged(Qt::Horizontal, column, column);
}

void CVELDLayerListModel::SortRows(int column, int direction) {
    if (column < 0 || column >= kColumnCount || rows_.size() < 2)
        return;
    const bool ascending = direction >= 0;
    const std::size_t count = rows_.size();

    // The keys are taken once, so that a comparison reads two integers and,
    // on a tie, two folded names. The layers and their names lie scattered
    // in memory: both passes ask for them some rows ahead, or waiting for
    // each in turn would cost more than the sort itself.
    constexpr std::size_t kAhead = 16;
    std::vector<std::wstring_view> texts(count);
    std::vector<int> primary(count, 0);
    std::vector<const veld::CLtype*> ltypes;
    if (column == kColLtype)
        ltypes.resize(count);
    std::size_t chars = 0;
    for (std::size_t r = 0; r < count; ++r) {
        if (r + kAhead < count)
            Prefetch(rows_[r + kAhead].get());
        const veld::CLayer& layer = *rows_[r];
        texts[r] = layer.GetName().str();
        chars += texts[r].size();
        switch (column) {
            case kColOn:
                primary[r] = layer.IsOff() ? 1 : 0;
                break;
            case kColFreeze:
                primary[r] = layer.IsFrozen() ? 1 : 0;
                break;
            case kColLock:
                primary[r] = layer.IsLocked() ? 1 : 0;
                break;
            case kColColor:
                primary[r] = layer.GetColor();
                break;
            case kColLtype:
                ltypes[r] = layer.GetLtype();
                break;
            default:
                break;
        }
    }
    if (column == kColLtype)
        primary = LtypeRanks(ltypes);
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
    const bool namesAscending = column != kColName || ascending;
    std::stable_sort(keys.begin(), keys.end(), [&](const Key& a, const Key& b) {
        if (a.primary != b.primary)
            return a.primary < b.primary;
        const int byName = names[a.row].compare(names[b.row]);
        return namesAscending ? byName < 0 : byName > 0;
    });
    bool moved = false;
    for (std::size_t r = 0; r < count && !moved; ++r)
        moved = keys[r].row != static_cast<int>(r);
    if (!moved)
        return;

    Q_EMIT layoutAboutToBeChanged({}, QAbstractItemModel::VerticalSortHint);
    std::vector<ulo::RefPtr<veld::CLayer>> sorted;
    sorted.reserve(count);
    std::vector<int> newRowOf(count);
    for (std::size_t r = 0; r < count; ++r) {
        newRowOf[keys[r].row] = static_cast<int>(r);
        sorted.push_back(std::move(rows_[keys[r].row]));
    }
    rows_ = std::move(sorted);
    // Walking the index in its own order renumbers it without a lookup.
    for (auto& entry : rowOf_)
        entry.second = newRowOf[entry.second];
    // The views hold few persistent indexes (selection, current row): moving
    // them keeps the selection on its layer without a reset.
    const QModelIndexList from = persistentIndexList();
    QModelIndexList to;
    to.reserve(from.size());
    for (const QModelIndex& old : from)
        to.push_back(index(newRowOf[old.row()], old.column()));
    changePersistentIndexList(from, to);
    Q_EMIT layoutChanged({}, QAbstractItemModel::VerticalSortHint);
}

void CVELDLayerListModel::EmitRowChanged(int row) {
    if (row >= 0)
        Q_EMIT dataChanged(index(row, 0), index(row, kColumnCount - 1));
}
