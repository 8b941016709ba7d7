#pragma once
// The rows of the layers dialog's list (CVELDLayerList): one layer per row,
// six columns: the name, on/off, thawed/frozen, unlocked/locked, the colour
// and the line type. The display texts are words ("on", "frozen", "Red", ...)
// so that tools and tests can read the list; CVELDLayerListDelegate paints
// icons and a swatch instead. Texts are read from the layers whenever asked,
// so a layer edited in place only needs LayerChanged.
//
// Each row holds a reference on its layer, so a row never outlives the layer
// it shows, even when the layer leaves the drawing's table before the list is
// refilled. Finding the row of a layer takes constant time, also after a
// sort.
#include <QAbstractTableModel>
#include <QColor>
#include <span>
#include <unordered_map>
#include <vector>

#include "ulo/RefCounter.h"

namespace veld {
class CLayer;
}

class CVELDLayerListModel : public QAbstractTableModel {
    Q_OBJECT
public:
    enum Column {
        kColName = 0,
        kColOn = 1,
        kColFreeze = 2,
        kColLock = 3,
        kColColor = 4,
        kColLtype = 5,
        kColumnCount = 6
    };
    /// The row's layer (veld::CLayer*), as a quintptr, in every column.
    static constexpr int kLayerRole = Qt::UserRole;
    /// True in every column of the row of the marked current layer.
    static constexpr int kCurrentMarkRole = Qt::UserRole + 1;
    /// Background of the marked current layer's row: RGB(0, 150, 250).
    static QColor CurrentMarkColour() { return QColor(0, 150, 250); }

    explicit CVELDLayerListModel(QObject* parent = nullptr);
    ~CVELDLayerListModel() override;

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

    /// Replaces every row with @p layers, in order, in one reset; null
    /// entries and repeats of a layer already taken are left out.
    void SetLayers(std::span<veld::CLayer* const> layers);
    /// Appends a row for @p layer and returns it; a layer already listed
    /// keeps its row (returned), null gives -1.
    int AppendLayer(veld::CLayer* layer);
    /// Removes every row.
    void Clear();

    /// The row of @p layer, or -1.
    int RowOf(const veld::CLayer* layer) const;
    /// The layer of @p row, or null outside the rows.
    veld::CLayer* LayerAt(int row) const;

    /// Tells the views that a property of @p layer changed.
    void LayerChanged(const veld::CLayer* layer);
    /// Tells the views that every row may have changed.
    void AllChanged();

    /// Marks @p layer as the current layer (null: none); its row and the row
    /// marked before are redrawn.
    void SetCurLayerMark(veld::CLayer* layer);
    veld::CLayer* GetCurLayerMark() const { return mark_.get(); }

    /// The text of the header of @p column.
    void SetHeading(int column, const QString& heading);

    /// Orders the rows by @p column in @p direction (1 ascending, -1
    /// descending): names and line type names ignoring letter case, the
    /// on/freeze/lock states off/frozen/locked last, colours by index. Rows
    /// equal in a column other than the name go by name, ascending whatever
    /// the direction; rows equal in everything keep their order. Persistent
    /// indexes (the views' selection and current row) follow their layers.
    void SortRows(int column, int direction);

private:
    void EmitRowChanged(int row);

    std::vector<ulo::RefPtr<veld::CLayer>> rows_;
    std::unordered_map<const veld::CLayer*, int> rowOf_;
    ulo::RefPtr<veld::CLayer> mark_;
    QString headings_[kColumnCount];
};
