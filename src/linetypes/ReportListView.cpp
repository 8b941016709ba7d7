#include "ReportListView.h"

#include <QFontMetrics>
#include <QHeaderView>
#include <algorithm>

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

    QHeaderView* rows = verticalHeader();
    rows->hide();
    rows->setSectionResizeMode(QHeaderView::Fixed);
    rows->setMinimumSectionSize(1);
    SetRowHeight(DefaultRowHeight(font()));

    QHeaderView* columns = horizontalHeader();
    columns->setHighlightSections(false);
    columns->setSectionsClickable(false);
    columns->setStretchLastSection(false);
    columns->setMinimumSectionSize(0);
    columns->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
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
