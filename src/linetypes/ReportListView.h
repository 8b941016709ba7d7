#pragma once
// CReportListView: what the library's owner-drawn report lists share (the
// line type lists and the layers list): one selected row at a time, no
// editing in place, no grid, a hidden row header and fixed, equal rows, so
// the view places any row by arithmetic and filling, sorting and scrolling
// stay flat in the number of rows. Column widths stand as the owner gives
// them, however narrow.
#include <QTableView>

class CReportListView : public QTableView {
    Q_OBJECT
public:
    explicit CReportListView(QWidget* parent = nullptr);

    /// Height of every row in pixels (DefaultRowHeight(font()) at first).
    void SetRowHeight(int height);
    int GetRowHeight() const;
    /// The row height of a list in @p font: its height, external leading
    /// and 1 pixel.
    static int DefaultRowHeight(const QFont& font);
};
