#include "CVELDLayerList.h"

#include <QHeaderView>

#include "CVELDLayerListDelegate.h"

CVELDLayerList::CVELDLayerList(CVELD* cad, QWidget* parent) : CTableListView(parent) {
    setItemDelegate(new CVELDLayerListDelegate(cad, this));
    horizontalHeader()->setSectionsClickable(true);
    connect(this, &CReportListView::itemDeselected, this, [this](veld::ITableItem* item) {
        Q_EMIT layerDeselected(CVELDLayerListModel::Typed(item));
    });
    connect(this, &CReportListView::itemSelected, this, [this](veld::ITableItem* item) {
        Q_EMIT layerSelected(CVELDLayerListModel::Typed(item));
    });
}

CVELDLayerList::~CVELDLayerList() = default;
