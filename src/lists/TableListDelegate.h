#pragma once
// CTableListDelegate: paints the cells of a list over a drawing table
// (CTableListModel) as every such list does: the row's background
// (RGB(0, 150, 250) for the marked current item), the name with the
// selection highlight and the focus frame around its text, and plain texts.
// A list derives from it to paint its other columns (PaintCell): icons,
// swatches, pattern samples. Texts keep inside their column and are elided
// when they do not fit; offsets are base pixels times
// CPalmDevice::GetResMultiplier().
#include <QStyledItemDelegate>

class CTableListDelegate : public QStyledItemDelegate {
    Q_OBJECT
public:
    explicit CTableListDelegate(QObject* parent = nullptr);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    /// Rows have the fixed height the list sets; the width is the text's
    /// and 6 base pixels.
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

    /// The box a text of @p textWidth pixels takes in a cell at @p cell: from
    /// 2 base pixels right of the cell's left edge, as wide as the text plus
    /// 4 base pixels but never past the cell's right edge. Empty when the
    /// cell leaves no room.
    static QRect TextBox(const QRect& cell, int textWidth, int multiplier);
    /// Draws @p text in its TextBox, elided to the cell, on the highlight when
    /// @p selected; returns the box (empty when the cell leaves no room).
    static QRect PaintText(QPainter* painter, const QStyleOptionViewItem& option,
                           const QString& text, int multiplier, bool selected);
    /// The focus frame around a text's @p box.
    static void PaintFocusFrame(QPainter* painter, const QStyleOptionViewItem& option,
                                const QRect& box, bool selected);

protected:
    /// Paints the cell of @p index, a column other than the name, over its
    /// background, with the option's font set: by default its text.
    virtual void PaintCell(QPainter* painter, const QStyleOptionViewItem& option,
                           const QModelIndex& index, int multiplier) const;
};
