#pragma once
// CVELDLayerList: the list of the layers dialog. A report list with six
// columns: 0 the name, 1 on/off, 2 frozen/thawed, 3 locked/unlocked (icons),
// 4 the colour (a swatch and its name), 5 the line type's name. The row of
// the marked current layer has a blue background; the column headers are
// clickable, and the dialog sorts by them (SortRows).
//
// Rows are painted by CVELDLayerListDelegate over CVELDLayerListModel, only
// where visible, so 50 000 layers cost no more than a screenful.
#include "CVELDLayerListModel.h"
#include "lists/ReportListView.h"

class CVELD;

class CVELDLayerList : public CTableListView<veld::CLayer, CVELDLayerListModel> {
    Q_OBJECT
public:
    using enum CVELDLayerListModel::Column;

    /// @p cad gives the colours of the swatches.
    explicit CVELDLayerList(CVELD* cad, QWidget* parent = nullptr);
    ~CVELDLayerList() override;

    /// SetItems, SetCurMark and GetCurMark by the names the layers dialog
    /// calls them.
    void SetLayers(std::span<veld::CLayer* const> layers) { SetItems(layers); }
    void SetCurLayerMark(veld::CLayer* layer) { SetCurMark(layer); }
    veld::CLayer* GetCurLayerMark() const { return GetCurMark(); }

Q_SIGNALS:
    /// itemDeselected and itemSelected, for a layer.
    void layerDeselected(veld::CLayer* layer);
    void layerSelected(veld::CLayer* layer);
};
