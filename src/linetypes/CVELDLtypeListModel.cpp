#include "CVELDLtypeListModel.h"

#include "veld/Ltype.h"

namespace {

/// ByBlock and ByLayer stand for another row's line type: a description
/// would only repeat theirs.
bool ShowsDescription(const veld::CLtype& ltype) {
    return !ltype.IsByBlock() && !ltype.IsByLayer();
}

}  // namespace

CVELDLtypeListModel::CVELDLtypeListModel(QObject* parent) : QAbstractTableModel(parent) {}

CVELDLtypeListModel::~CVELDLtypeListModel() = default;

int CVELDLtypeListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int CVELDLtypeListModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : kColumnCount;
}

QVariant CVELDLtypeListModel::data(const QModelIndex& index, int role) const {
    const veld::CLtype* ltype = LtypeAt(index.row());
    if (!ltype || index.column() < 0 || index.column() >= kColumnCount)
        return {};
    switch (role) {
        case kLtypeRole:
            return QVariant::fromValue(reinterpret_cast<quintptr>(ltype));
        case kCurrentMarkRole:
            return ltype == mark_.get();
        case Qt::BackgroundRole:
            return ltype == mark_.get() ? QVariant(CurrentMarkColour()) : QVariant();
        case Qt::DisplayRole:
        case Qt::ToolTipRole:
            // The tool tip gives the whole text where the cell elides it.
            if (index.column() == kColName)
                return ltype->GetFullName().ToQString();
            if (index.column() == kColDescription && ShowsDescription(*ltype))
                return ltype->GetDesc().ToQString();
            return {};
        default:
            return {};
    }
}

QVariant CVELDLtypeListModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= kColumnCount)
        return {};
    if (role == Qt::DisplayRole)
        return headings_[section];
    if (role == Qt::TextAlignmentRole)
        return QVariant::fromValue(Qt::Alignment(Qt::AlignLeft | Qt::AlignVCenter));
    return {};
}

Qt::ItemFlags CVELDLtypeListModel::flags(const QModelIndex& index) const {
    return index.isValid() ? Qt::ItemIsEnabled | Qt::ItemIsSelectable : Qt::NoItemFlags;
}

void CVELDLtypeListModel::SetLtypes(std::span<veld::CLtype* const> ltypes) {
    beginResetModel();
    rows_.clear();
    rowOf_.clear();
    rows_.reserve(ltypes.size());
    rowOf_.reserve(ltypes.size());
    for (veld::CLtype* ltype : ltypes) {
        if (!ltype || !rowOf_.emplace(ltype, static_cast<int>(rows_.size())).second)
            continue;
        rows_.push_back(ulo::RefPtr<veld::CLtype>::Share(ltype));
    }
    endResetModel();
}

int CVELDLtypeListModel::AppendLtype(veld::CLtype* ltype) {
    if (!ltype)
        return -1;
    if (const int row = RowOf(ltype); row >= 0)
        return row;
    const int row = static_cast<int>(rows_.size());
    beginInsertRows(QModelIndex(), row, row);
    rows_.push_back(ulo::RefPtr<veld::CLtype>::Share(ltype));
    rowOf_.emplace(ltype, row);
    endInsertRows();
    return row;
}

bool CVELDLtypeListModel::RemoveLtype(const veld::CLtype* ltype) {
    const int row = RowOf(ltype);
    if (row < 0)
        return false;
    beginRemoveRows(QModelIndex(), row, row);
    // The row's reference goes last: the views may still ask for the row
    // until the removal ends.
    ulo::RefPtr<veld::CLtype> leaving = std::move(rows_[row]);
    rows_.erase(rows_.begin() + row);
    rowOf_.erase(ltype);
    for (int r = row; r < static_cast<int>(rows_.size()); ++r)
        rowOf_[rows_[r].get()] = r;
    endRemoveRows();
    return true;
}

void CVELDLtypeListModel::Clear() {
    if (rows_.empty())
        return;
    beginResetModel();
    rows_.clear();
    rowOf_.clear();
    endResetModel();
}

int CVELDLtypeListModel::RowOf(const veld::CLtype* ltype) const {
    const auto it = rowOf_.find(ltype);
    return it == rowOf_.end() ? -1 : it->second;
}

veld::CLtype* CVELDLtypeListModel::LtypeAt(int row) const {
    return row >= 0 && row < static_cast<int>(rows_.size()) ? rows_[row].get() : nullptr;
}

void CVELDLtypeListModel::LtypeChanged(const veld::CLtype* ltype) {
    EmitRowChanged(RowOf(ltype));
}

void CVELDLtypeListModel::SetCurLtypeMark(veld::CLtype* ltype) {
    if (ltype == mark_.get())
        return;
    const int before = RowOf(mark_.get());
    mark_ = ulo::RefPtr<veld::CLtype>::Share(ltype);
    EmitRowChanged(before);
    EmitRowChanged(RowOf(ltype));
}

void CVELDLtypeListModel::SetHeading(int column, const QString& heading) {
    if (column < 0 || column >= kColumnCount || headings_[column] == heading)
        return;
    headings_[column] = heading;
    Q_EMIT headerDataChanged(Qt::Horizontal, column, column);
}

void CVELDLtypeListModel::EmitRowChanged(int row) {
    if (row >= 0)
        Q_EMIT dataChanged(index(row, 0), index(row, kColumnCount - 1));
}
