#pragma once
// The rows of the layers dialog's list (CVELDLayerList): one layer per row,
// six columns: the name, on/off, thawed/frozen, unlocked/locked, the colour
// and the line type. The display texts are words ("on", "frozen", "Red", ...)
// so that tools and tests can read the list; CVELDLayerListDelegate paints
// icons and a swatch instead. The rows, the mark, the headings and the sort
// are CTableListModel's.
#include "lists/TableListModel.h"
#include "veld/Layer.h"

class CVELDLayerListModel : public CTableListModelOf<veld::CLayer> {
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

    explicit CVELDLayerListModel(QObject* parent = nullptr);
    ~CVELDLayerListModel() override;

protected:
    QVariant Text(const veld::CLayer& layer, int column) const override;
    /// The on/freeze/lock states sort off/frozen/locked last, colours by
    /// index, line types by name ignoring letter case.
    SortKey ColumnSortKey(int column) const override;
    int Number(const veld::CLayer& layer, int column) const override;
    const veld::ITableItem* NamedItem(const veld::CLayer& layer, int column) const override;
};
