#pragma once
// The rows of a line type list (CVELDLtypeList): one line type per row, in the
// order the owner appends them, with three columns: the name, the drawn
// appearance of the pattern (painted by CVELDLtypeListDelegate, no text) and
// the description. The model reads names and descriptions from the line
// types whenever asked, so an edited line type only needs LtypeChanged.
//
// Each row holds a reference on its line type, so a row never outlives the
// object it shows, even when the line type leaves the drawing's table before
// the list is refilled. Finding the row of a line type takes constant time.
#include <QAbstractTableModel>
#include <QColor>
#include <span>
#include <unordered_map>
#include <vector>

#include "ulo/RefCounter.h"

namespace veld {
class CLtype;
}

class CVELDLtypeListModel : public QAbstractTableModel {
    Q_OBJECT
public:
    enum Column { kColName = 0, kColAppearance = 1, kColDescription = 2, kColumnCount = 3 };
    /// The row's line type (veld::CLtype*), as a quintptr, in every column.
    static constexpr int kLtypeRole = Qt::UserRole;
    /// True in every column of the row of the marked current line type.
    static constexpr int kCurrentMarkRole = Qt::UserRole + 1;
    /// Background of the marked current line type's row: RGB(0, 150, 250).
    static QColor CurrentMarkColour() { return QColor(0, 150, 250); }

    explicit CVELDLtypeListModel(QObject* parent = nullptr);
    ~CVELDLtypeListModel() override;

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

    /// Replaces every row with @p ltypes, in order, in one reset; null
    /// entries and repeats of a line type already taken are left out.
    void SetLtypes(std::span<veld::CLtype* const> ltypes);
    /// Appends a row for @p ltype and returns it; a line type already listed
    /// keeps its row (returned), null gives -1.
    int AppendLtype(veld::CLtype* ltype);
    /// Removes the row of @p ltype; false when it has none. Linear in the
    /// number of rows after it.
    bool RemoveLtype(const veld::CLtype* ltype);
    /// Removes every row.
    void Clear();

    /// The row of @p ltype, or -1.
    int RowOf(const veld::CLtype* ltype) const;
    /// The line type of @p row, or null outside the rows.
    veld::CLtype* LtypeAt(int row) const;

    /// Tells the views that @p ltype's name, description or pattern changed.
    void LtypeChanged(const veld::CLtype* ltype);

    /// Marks @p ltype as the current line type (null: none); its row and the
    /// row marked before are redrawn.
    void SetCurLtypeMark(veld::CLtype* ltype);
    veld::CLtype* GetCurLtypeMark() const { return mark_.get(); }

    /// The text of the header of @p column.
    void SetHeading(int column, const QString& heading);

private:
    void EmitRowChanged(int row);

    std::vector<ulo::RefPtr<veld::CLtype>> rows_;
    std::unordered_map<const veld::CLtype*, int> rowOf_;
    ulo::RefPtr<veld::CLtype> mark_;
    QString headings_[kColumnCount];
};
