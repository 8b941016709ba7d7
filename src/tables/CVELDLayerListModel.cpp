#include "CVELDLayerListModel.h"

#include "veld/Colors.h"

CVELDLayerListModel::CVELDLayerListModel(QObject* parent)
    : CTableListModelOf(kColumnCount, parent) {}

CVELDLayerListModel::~CVELDLayerListModel() = default;

QVariant CVELDLayerListModel::Text(const veld::CLayer& layer, int column) const {
    // The icon columns' tool tips are their words.
    switch (column) {
        case kColName:
            return layer.GetFullName().ToQString();
        case kColOn:
            return layer.IsOff() ? QStringLiteral("off") : QStringLiteral("on");
        case kColFreeze:
            return layer.IsFrozen() ? QStringLiteral("frozen") : QStringLiteral("thawed");
        case kColLock:
            return layer.IsLocked() ? QStringLiteral("locked") : QStringLiteral("unlocked");
        case kColColor:
            return veld::CColors::GetInstance()[layer.GetColor()].ToQString();
        case kColLtype:
            return layer.GetLtype() ? layer.GetLtype()->GetFullName().ToQString() : QString();
        default:
            return {};
    }
}

CTableListModel::SortKey CVELDLayerListModel::ColumnSortKey(int column) const {
    return column == kColLtype ? SortKey::ItemName : SortKey::Number;
}

int CVELDLayerListModel::Number(const veld::CLayer& layer, int column) const {
    switch (column) {
        case kColOn:
            return layer.IsOff() ? 1 : 0;
        case kColFreeze:
            return layer.IsFrozen() ? 1 : 0;
        case kColLock:
            return layer.IsLocked() ? 1 : 0;
        case kColColor:
            return layer.GetColor();
        default:
            return 0;
    }
}

const veld::ITableItem* CVELDLayerListModel::NamedItem(const veld::CLayer& layer, int) const {
    return layer.GetLtype();
}
