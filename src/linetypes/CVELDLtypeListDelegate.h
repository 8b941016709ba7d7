#pragma once
// Paints the cells of a line type list (CVELDLtypeListModel): what every list
// paints (CTableListDelegate: background, name, the description) and the
// pattern sample drawn by DrawLtypePreview with 2 repetitions.
#include "lists/TableListDelegate.h"

class CVELD;

class CVELDLtypeListDelegate : public CTableListDelegate {
    Q_OBJECT
public:
    explicit CVELDLtypeListDelegate(CVELD* cad, QObject* parent = nullptr);

protected:
    void PaintCell(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index,
                   int multiplier) const override;

private:
    CVELD* cad_;
};
