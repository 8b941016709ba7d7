#pragma once
// A clickable strip of colour cells: either a run of consecutive colour
// indices (the standard colours, the grey shades) or one half of the full
// palette, 24 columns by 5 rows. The strip paints its cells and turns a point
// into the index under it; the dialog that holds it decides which strip a
// press belongs to and calls OnLButtonDown, which reports the index with
// colorPicked.
#include <QWidget>

class CVELD;

namespace veld5 {

class CVELDMultiColorStatic : public QWidget {
    Q_OBJECT
public:
    /// A strip of @p count cells showing @p first, first + 1, ... from left to right.
    CVELDMultiColorStatic(short first, short count, QWidget* parent = nullptr);
    /// Half of the full palette. Column k holds the ten indices 10k + 10 to
    /// 10k + 19: the even half shows 10k+18, +16, +14, +12, +10 from top to
    /// bottom, the odd half 10k+11, +13, +15, +17, +19.
    explicit CVELDMultiColorStatic(bool evenHalf, QWidget* parent = nullptr);

    static constexpr int kPaletteColumns = 24;
    static constexpr int kPaletteRows = 5;

    /// The CAD instance whose colours the cells show (may be null).
    void SetCad(const CVELD* cad);

    bool IsStrip() const { return strip_; }
    /// Number of cells across and down.
    int Columns() const { return strip_ ? count_ : kPaletteColumns; }
    int Rows() const { return strip_ ? 1 : kPaletteRows; }
    /// Width and height of one cell in pixels at the present size (0 when the
    /// control is too small to hold its cells).
    int CellWidth() const;
    int CellHeight() const;
    /// The index of the cell at @p column, @p row.
    int IndexOfCell(int column, int row) const;
    /// The index of the cell painted at @p point (client pixels), or -1 where
    /// there is no cell.
    int IndexAt(const QPoint& point) const;

    /// Places the control at the top-left corner of @p area, sized to whole
    /// cells: as large as @p largestCell where the area has room for them,
    /// else the largest whole cells the area holds. The control never
    /// leaves @p area, and every pixel of it belongs to a cell.
    void FitWholeCells(const QRect& area, const QSize& largestCell);

    /// A press of the left button at @p point (client pixels): reports the
    /// index under it, if any.
    void OnLButtonDown(const QPoint& point);

Q_SIGNALS:
    void colorPicked(short index);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    const CVELD* cad_ = nullptr;
    short first_ = 0;
    short count_ = 0;
    bool strip_ = true;
    bool evenHalf_ = false;
};

}  // namespace veld5
