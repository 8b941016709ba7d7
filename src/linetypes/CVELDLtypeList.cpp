#include "CVELDLtypeList.h"

#include "CVELDLtypeListDelegate.h"

CVELDLtypeList::CVELDLtypeList(CVELD* cad, QWidget* parent) : CTableListView(parent) {
    setItemDelegate(new CVELDLtypeListDelegate(cad, this));
    connect(this, &CReportListView::itemDeselected, this, [this](veld::ITableItem* item) {
        Q_EMIT ltypeDeselected(CVELDLtypeListModel::Typed(item));
    });
    connect(this, &CReportListView::itemSelected, this, [this](veld::ITableItem* item) {
        Q_EMIT ltypeSelected(CVELDLtypeListModel::Typed(item));
    });
}

CVELDLtypeList::~CVELDLtypeList() = default;
