#pragma once
// Paints the cells of a line type list (CVELDLtypeListModel): the row's
// background (RGB(0, 150, 250) for the marked current line type), the name
// with the selection highlight and focus frame around its text, the pattern
// sample drawn by DrawLtypePreview with 2 repetitions, and the description.
// Texts keep inside their column and are elided when they do not fit; the
// offsets are base pixels times CPalmDevice::GetResMultiplier().
#include <QStyledItemDelegate>

class CVELD;

class CVELDLtypeListDelegate : public QStyledItemDelegate {
    Q_OBJECT
public:
    explicit CVELDLtypeListDelegate(CVELD* cad, QObject* parent = nullptr);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

    /// The box a text of @p textWidth pixels takes in a cell at @p cell: from
    /// 2 base pixels right of the cell's left edge, as wide as the text plus
    /// 4 base pixels but never past the cell's right edge. Empty when the
    /// cell leaves no room.
    static QRect TextBox(const QRect& cell, int textWidth, int multiplier);
    /// Draws @p text in its TextBox, elided to the cell, on the highlight when
    /// @p selected; returns the box (empty when the cell leaves no room).
    /// The layer list draws its texts alike.
    static QRect PaintText(QPainter* painter, const QStyleOptionViewItem& option,
                           const QString& text, int multiplier, bool selected);
    /// The focus frame around a text's @p box.
    static void PaintFocusFrame(QPainter* painter, const QStyleOptionViewItem& option,
                                const QRect& box, bool selected);

private:
    CVELD* cad_;
};
