#pragma once
// CVELDLayerList: the list of the layers dialog. A report view with single
// row selection and six columns: 0 the name, 1 on/off, 2 frozen/thawed,
// 3 locked/unlocked (icons), 4 the colour (a swatch and its name), 5 the line
// type's name. The row of the marked current layer has a blue background.
//
// The dialog fills the rows (SetLayers in one go, AppendLayer one by one),
// sorts them (SortRows) and learns of the user's acts through the signals:
// a row selected or deselected, a cell tapped, a column header clicked. Rows
// are painted by CVELDLayerListDelegate over CVELDLayerListModel, only where
// visible, so 50 000 layers cost no more than a screenful; finding the row of
// a layer takes constant time.
#include <span>

#include "linetypes/ReportListView.h"

class CVELD;
class CVELDLayerListDelegate;
class CVELDLayerListModel;

namespace veld {
class CLayer;
}

class CVELDLayerList : public CReportListView {
    Q_OBJECT
    /// The row of the marked current layer, or -1 (for tools that read the
    /// list).
    Q_PROPERTY(int markedRow READ GetMarkedRow)
public:
    enum Column { kColName, kColOn, kColFreeze, kColLock, kColColor, kColLtype, kColumnCount };

    /// @p cad gives the colours of the swatches.
    explicit CVELDLayerList(CVELD* cad, QWidget* parent = nullptr);
    ~CVELDLayerList() override;

    CVELDLayerListModel* GetListModel() const { return model_; }

    /// Sets the header text and the width in pixels of @p column.
    void SetColumn(int column, const QString& heading, int width);

    /// Replaces all rows with @p layers, in order.
    void SetLayers(std::span<veld::CLayer* const> layers);
    /// Appends a row for @p layer and returns it (its present row when it is
    /// listed already).
    int AppendLayer(veld::CLayer* layer);
    void DeleteAllItems();
    int GetItemCount() const;
    veld::CLayer* GetItemLayer(int row) const;
    /// The row of @p layer, or -1.
    int FindLayer(const veld::CLayer* layer) const;
    /// Redraws the row of @p layer after a property changed.
    void LayerChanged(const veld::CLayer* layer);
    /// Redraws every row.
    void RedrawAll();

    /// Sorts the rows by @p column (name, on, freeze, lock, colour, line
    /// type) in @p direction (1 ascending, -1 descending). Ties of the other
    /// columns go by name, ascending whatever the direction. The selection
    /// follows its layer.
    void SortRows(int column, int direction);

    /// Selects (and focuses, and scrolls to) the row of @p layer; null
    /// clears the selection.
    void SelectLayer(const veld::CLayer* layer);
    veld::CLayer* GetSelectedLayer() const;

    void SetCurLayerMark(veld::CLayer* layer);
    veld::CLayer* GetCurLayerMark() const;
    int GetMarkedRow() const { return FindLayer(GetCurLayerMark()); }

    /// The rectangle of @p row's cell in @p column, in the list's viewport.
    QRect CellRect(int row, int column) const;

Q_SIGNALS:
    /// A row lost its selection (also when the rows are replaced). Sent
    /// before layerSelected when the selection moves.
    void layerDeselected(veld::CLayer* layer);
    void layerSelected(veld::CLayer* layer);
    /// A cell was tapped (@p twice: a double tap), after the selection moved
    /// to its row.
    void cellTapped(int row, int column, bool twice);
    /// A column header was clicked.
    void columnClicked(int column);

protected:
    void selectionChanged(const QItemSelection& selected,
                          const QItemSelection& deselected) override;

private:
    /// Clears the selection and the current row, with the signals.
    void DropSelection();
    void EmitForRows(const QItemSelection& selection, bool selected);

    CVELD* cad_;
    CVELDLayerListModel* model_;
    CVELDLayerListDelegate* delegate_;
};
