#pragma once
// Paints the cells of the layers dialog's list (CVELDLayerListModel): what
// every list paints (CTableListDelegate: background, name, the line type's
// name), an icon for each of on/off, thawed/frozen and unlocked/locked, and a
// swatch of the colour with its name.
//
// The icons are SVG pictures compiled into the library (:/veld5/icons/),
// rendered once per size and screen density and kept, so painting a
// screenful of rows parses no SVG.
#include <QPixmap>

#include "lists/TableListDelegate.h"

class CVELD;

class CVELDLayerListDelegate : public CTableListDelegate {
    Q_OBJECT
public:
    enum class Icon { On, Off, Frozen, Thawed, Locked, Unlocked };

    /// @p cad gives the colours of the swatches.
    explicit CVELDLayerListDelegate(CVELD* cad, QObject* parent = nullptr);

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

    /// The resource path of @p icon (":/veld5/icons/layer-on.svg", ...).
    static QString IconPath(Icon icon);
    /// @p icon drawn @p size logical pixels square for a device pixel ratio
    /// of @p dpr; null when the picture cannot be read.
    static QPixmap IconPixmap(Icon icon, int size, qreal dpr);
    /// Side of the state icons in logical pixels: 14 at a resolution
    /// multiplier of 1 or less, 32 above.
    static int IconSize(int multiplier);

protected:
    void PaintCell(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index,
                   int multiplier) const override;

private:
    CVELD* cad_;
};
