#pragma once
// Paints the cells of the layers dialog's list (CVELDLayerListModel): the
// row's background (RGB(0, 150, 250) for the marked current layer), the name
// with the selection highlight and focus frame around its text, an icon for
// each of on/off, thawed/frozen and unlocked/locked, a swatch of the colour
// with its name, and the line type's name. Texts keep inside their column and
// are elided when they do not fit; offsets are base pixels times
// CPalmDevice::GetResMultiplier().
//
// The icons are SVG pictures compiled into the library (:/veld5/icons/),
// rendered once per size and screen density and kept, so painting a
// screenful of rows parses no SVG.
#include <QPixmap>
#include <QStyledItemDelegate>

class CVELD;

class CVELDLayerListDelegate : public QStyledItemDelegate {
    Q_OBJECT
public:
    enum class Icon { On, Off, Frozen, Thawed, Locked, Unlocked };

    /// @p cad gives the colours of the swatches.
    explicit CVELDLayerListDelegate(CVELD* cad, QObject* parent = nullptr);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

    /// The resource path of @p icon (":/veld5/icons/layer-on.svg", ...).
    static QString IconPath(Icon icon);
    /// @p icon drawn @p size logical pixels square for a device pixel ratio
    /// of @p dpr; null when the picture cannot be read.
    static QPixmap IconPixmap(Icon icon, int size, qreal dpr);
    /// Side of the state icons in logical pixels: 14 at a resolution
    /// multiplier of 1 or less, 32 above.
    static int IconSize(int multiplier);

private:
    CVELD* cad_;
};
