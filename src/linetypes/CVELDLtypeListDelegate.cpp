#include "CVELDLtypeListDelegate.h"

#include "CVELDLtypeListModel.h"
#include "LtypePreview.h"

CVELDLtypeListDelegate::CVELDLtypeListDelegate(CVELD* cad, QObject* parent)
    : CTableListDelegate(parent), cad_(cad) {}

void CVELDLtypeListDelegate::PaintCell(QPainter* painter, const QStyleOptionViewItem& option,
                                       const QModelIndex& index, int multiplier) const {
    if (index.column() != CVELDLtypeListModel::kColAppearance) {
        CTableListDelegate::PaintCell(painter, option, index, multiplier);
        return;
    }
    const QRect& cell = option.rect;
    DrawLtypePreview(cad_, painter, CVELDLtypeListModel::ItemOf(index), cell.left(),
                     cell.left() + cell.width(), cell.top(), cell.top() + cell.height(), 2, true);
}
