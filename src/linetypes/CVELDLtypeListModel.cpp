#include "CVELDLtypeListModel.h"

CVELDLtypeListModel::CVELDLtypeListModel(QObject* parent)
    : CTableListModelOf(kColumnCount, parent) {}

CVELDLtypeListModel::~CVELDLtypeListModel() = default;

QVariant CVELDLtypeListModel::Text(const veld::CLtype& ltype, int column) const {
    if (column == kColName)
        return ltype.GetFullName().ToQString();
    // ByBlock and ByLayer stand for another row's line type: a description
    // would only repeat theirs.
    if (column == kColDescription && !ltype.IsByBlock() && !ltype.IsByLayer())
        return ltype.GetDesc().ToQString();
    return {};
}
