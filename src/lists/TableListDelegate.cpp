#include "TableListDelegate.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QPainter>
#include <QStyleOptionFocusRect>
#include <algorithm>

#include "TableListModel.h"
#include "ulo/PalmDevice.h"

CTableListDelegate::CTableListDelegate(QObject* parent) : QStyledItemDelegate(parent) {}

QRect CTableListDelegate::TextBox(const QRect& cell, int textWidth, int multiplier) {
    const int inset = 2 * multiplier;
    const int padding = 4 * multiplier;
    // The classic box could reach 2 pixels into the next column; it stops at
    // the cell's edge here so that a long name never touches the next cell.
    const int width = std::min(textWidth + padding, cell.width() - inset);
    if (width <= padding)
        return {};
    return QRect(cell.left() + inset, cell.top(), width, cell.height());
}

QRect CTableListDelegate::PaintText(QPainter* painter, const QStyleOptionViewItem& option,
                                    const QString& text, int multiplier, bool selected) {
    if (text.isEmpty())
        return {};
    const QRect& cell = option.rect;
    const int inset = 2 * multiplier;
    // Elided against all the room the cell leaves, not against the measured
    // width: the rounded width of a text that just fits can fall a fraction
    // short of what eliding measures, and the text would lose its end.
    const int room = cell.width() - 3 * inset;
    if (room <= 0)
        return {};
    const QFontMetrics& fm = option.fontMetrics;
    const QString shown = fm.elidedText(text, Qt::ElideRight, room);
    const QRect box = TextBox(cell, fm.horizontalAdvance(shown), multiplier);
    if (box.isEmpty())
        return {};
    if (selected)
        painter->fillRect(box, option.palette.brush(QPalette::Highlight));
    painter->setPen(option.palette.color(selected ? QPalette::HighlightedText : QPalette::Text));
    painter->setFont(option.font);
    const QRect textRect(box.left() + inset, cell.top(), room, cell.height());
    painter->drawText(textRect, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, shown);
    return box;
}

void CTableListDelegate::PaintFocusFrame(QPainter* painter, const QStyleOptionViewItem& option,
                                         const QRect& box, bool selected) {
    QStyleOptionFocusRect frame;
    frame.QStyleOption::operator=(option);
    frame.rect = box;
    frame.state |= QStyle::State_KeyboardFocusChange;
    frame.backgroundColor = option.palette.color(selected ? QPalette::Highlight : QPalette::Base);
    const QStyle* style = option.widget ? option.widget->style() : QApplication::style();
    style->drawPrimitive(QStyle::PE_FrameFocusRect, &frame, painter, option.widget);
}

void CTableListDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                               const QModelIndex& index) const {
    if (index.data(CTableListModel::kItemRole).value<quintptr>() == 0)
        return;
    const int multiplier = CPalmDevice::GetResMultiplier();
    const bool marked = index.data(CTableListModel::kCurrentMarkRole).toBool();
    painter->save();
    painter->fillRect(option.rect, marked ? CTableListModel::CurrentMarkColour()
                                          : option.palette.color(QPalette::Base));
    painter->setFont(option.font);
    if (index.column() == CTableListModel::kColName) {
        const bool selected = option.state & QStyle::State_Selected;
        const QRect box = PaintText(painter, option, index.data().toString(), multiplier, selected);
        // The view gives the focus state to one cell only; the row's frame
        // goes around its name, whichever column was tapped.
        const auto* view = qobject_cast<const QAbstractItemView*>(option.widget);
        if (!box.isEmpty() && view && view->hasFocus() && view->currentIndex().row() == index.row())
            PaintFocusFrame(painter, option, box, selected);
    } else {
        PaintCell(painter, option, index, multiplier);
    }
    painter->restore();
}

void CTableListDelegate::PaintCell(QPainter* painter, const QStyleOptionViewItem& option,
                                   const QModelIndex& index, int multiplier) const {
    PaintText(painter, option, index.data().toString(), multiplier, false);
}

QSize CTableListDelegate::sizeHint(const QStyleOptionViewItem& option,
                                   const QModelIndex& index) const {
    const int multiplier = CPalmDevice::GetResMultiplier();
    return QSize(option.fontMetrics.horizontalAdvance(index.data().toString()) + 6 * multiplier,
                 option.fontMetrics.height());
}
