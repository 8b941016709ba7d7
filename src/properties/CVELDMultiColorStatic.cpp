#include "CVELDMultiColorStatic.h"

#include <QMouseEvent>
#include <QPainter>
#include <algorithm>

#include "app/VELD.h"
#include "ulo/ctrl/Controls.h"

namespace veld5 {

namespace {

// Each cell is painted the way the classic Rectangle call draws
// (left, top, right, bottom): the outline on the pixels left..right-1 and
// top..bottom-1, the inside filled. A cell one pixel wider than its pitch
// then draws its right border on its neighbour's first column, so the two
// share one line instead of doubling it.
void drawCell(QPainter& p, int left, int top, int right, int bottom, const QColor& fill,
              const QColor& pen) {
    if (right - left < 1 || bottom - top < 1)
        return;
    p.fillRect(QRect(QPoint(left, top), QPoint(right - 1, bottom - 1)), pen);
    if (right - left > 2 && bottom - top > 2)
        p.fillRect(QRect(QPoint(left + 1, top + 1), QPoint(right - 2, bottom - 2)), fill);
}

}  // namespace

CVELDMultiColorStatic::CVELDMultiColorStatic(short first, short count, QWidget* parent)
    : QWidget(parent), first_(first), count_(count > 0 ? count : 0), strip_(true) {}

CVELDMultiColorStatic::CVELDMultiColorStatic(bool evenHalf, QWidget* parent)
    : QWidget(parent), strip_(false), evenHalf_(evenHalf) {}

void CVELDMultiColorStatic::SetCad(const CVELD* cad) {
    if (cad == cad_)
        return;
    cad_ = cad;
    update();
}

int CVELDMultiColorStatic::CellWidth() const {
    const int columns = Columns();
    return columns > 0 ? width() / columns : 0;
}

int CVELDMultiColorStatic::CellHeight() const {
    return height() / Rows();
}

int CVELDMultiColorStatic::IndexOfCell(int column, int row) const {
    if (strip_)
        return first_ + column;
    return evenHalf_ ? 18 - 2 * row + 10 * column : 11 + 2 * row + 10 * column;
}

int CVELDMultiColorStatic::IndexAt(const QPoint& point) const {
    const int cw = CellWidth();
    const int ch = CellHeight();
    if (cw <= 0 || ch <= 0 || point.x() < 0 || point.y() < 0)
        return -1;
    // The cells as painted: a control wider or taller than its whole cells
    // keeps an unpainted margin, and a press there picks nothing.
    const int column = point.x() / cw;
    const int row = point.y() / ch;
    if (column >= Columns() || row >= Rows())
        return -1;
    return IndexOfCell(column, row);
}

void CVELDMultiColorStatic::FitWholeCells(const QRect& area, const QSize& largestCell) {
    const int columns = Columns();
    const int rows = Rows();
    const int cw =
        columns > 0 ? std::max(0, std::min(area.width() / columns, largestCell.width())) : 0;
    const int ch = std::max(0, std::min(area.height() / rows, largestCell.height()));
    setGeometry(QRect(area.topLeft(), QSize(cw * columns, ch * rows)));
}

void CVELDMultiColorStatic::OnLButtonDown(const QPoint& point) {
    const int index = IndexAt(point);
    if (index >= 0)
        Q_EMIT colorPicked(static_cast<short>(index));
}

void CVELDMultiColorStatic::paintEvent(QPaintEvent*) {
    const int cw = CellWidth();
    const int ch = CellHeight();
    if (cw <= 0 || ch <= 0)
        return;
    QPainter p(this);
    const QColor pen = palette().color(QPalette::Dark);
    const auto colour = [this](int index) {
        return ulo::ColorFromRef(GetClrNo(cad_, index).value);
    };
    if (strip_) {
        for (int i = 0; i < count_; ++i) {
            const int x = i * cw;
            const int right = x + cw + (i + 1 < count_ ? 1 : 0);
            drawCell(p, x, 0, right, height(), colour(first_ + i), pen);
        }
        return;
    }
    for (int row = 0; row < kPaletteRows; ++row)
        for (int column = 0; column < kPaletteColumns; ++column) {
            const int x = column * cw;
            const int y = row * ch;
            drawCell(p, x, y, x + cw + 1, y + ch + 1, colour(IndexOfCell(column, row)), pen);
        }
}

void CVELDMultiColorStatic::mousePressEvent(QMouseEvent* event) {
    // The dialog decides which strip a press belongs to (the last of its
    // strips that holds the point), so the press goes on to it.
    event->ignore();
}

}  // namespace veld5
