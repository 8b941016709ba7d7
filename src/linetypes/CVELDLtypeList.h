#pragma once
// CVELDLtypeList: the list of line types with a drawn sample of each pattern,
// used by the line type selection dialog and the line types dialog. A report
// view with single row selection: column 0 the name, column 1 the pattern
// drawn by DrawLtypePreview, column 2 the description (none for ByBlock and
// ByLayer). The row of the marked current line type has a blue background.
//
// The owning dialog builds it in place of its list control
// (CreateCustomControl), sets the three columns with SetColumn, fills the rows
// (SetLtypes in one go, or InsertItem one by one) and reads the choice with
// GetSelectedLtype or the ltypeSelected / ltypeDeselected signals. Rows are
// painted by CVELDLtypeListDelegate over CVELDLtypeListModel, only where
// visible, so tens of thousands of rows cost no more than a screenful.
#include <span>

#include "ReportListView.h"

class CVELD;
class CVELDLtypeListDelegate;
class CVELDLtypeListModel;

namespace veld {
class CLtype;
}

class CVELDLtypeList : public CReportListView {
    Q_OBJECT
    /// The row of the marked current line type, or -1 (for tools that read
    /// the list).
    Q_PROPERTY(int markedRow READ GetMarkedRow)
public:
    /// @p cad is the CAD instance the listed line types belong to; the
    /// samples are drawn for it.
    explicit CVELDLtypeList(CVELD* cad, QWidget* parent = nullptr);
    ~CVELDLtypeList() override;

    CVELD* GetCad() const { return cad_; }
    CVELDLtypeListModel* GetListModel() const { return model_; }

    /// Sets the header text and the width in pixels of @p column (0 name,
    /// 1 appearance, 2 description).
    void SetColumn(int column, const QString& heading, int width);
    int GetColumnWidth(int column) const { return columnWidth(column); }

    /// Replaces all rows with @p ltypes, in order (the quick way to fill).
    void SetLtypes(std::span<veld::CLtype* const> ltypes);
    /// Appends a row for @p ltype and returns it (its present row if it is
    /// listed already).
    int InsertItem(veld::CLtype* ltype);
    /// Removes the row of @p ltype; false when it has none.
    bool DeleteItem(const veld::CLtype* ltype);
    void DeleteAllItems();
    int GetItemCount() const;
    /// The line type of @p row, or null.
    veld::CLtype* GetItemLtype(int row) const;
    /// The row of @p ltype, or -1; constant time.
    int FindLtype(const veld::CLtype* ltype) const;
    /// Redraws the row of @p ltype after its name, description or pattern
    /// changed.
    void LtypeChanged(const veld::CLtype* ltype);

    /// The line type of the selected row, or null.
    veld::CLtype* GetSelectedLtype() const;
    /// Selects and focuses the row of @p ltype and scrolls it into view;
    /// null or an unlisted line type clears the selection.
    void SelectLtype(const veld::CLtype* ltype);

    /// Marks @p ltype as the current line type (null: none); the rows
    /// concerned are redrawn.
    void SetCurLtypeMark(veld::CLtype* ltype);
    veld::CLtype* GetCurLtypeMark() const;
    int GetMarkedRow() const { return FindLtype(GetCurLtypeMark()); }

Q_SIGNALS:
    /// A row lost its selection (also when the row is deleted while
    /// selected). Sent before ltypeSelected when the selection moves.
    void ltypeDeselected(veld::CLtype* ltype);
    /// A row became selected.
    void ltypeSelected(veld::CLtype* ltype);

protected:
    void selectionChanged(const QItemSelection& selected,
                          const QItemSelection& deselected) override;
    void rowsAboutToBeRemoved(const QModelIndex& parent, int start, int end) override;

private:
    void EmitForRows(const QItemSelection& selection, bool selected);

    CVELD* cad_;
    CVELDLtypeListModel* model_;
    CVELDLtypeListDelegate* delegate_;
};
