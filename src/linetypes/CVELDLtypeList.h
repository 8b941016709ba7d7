#pragma once
// CVELDLtypeList: the list of line types with a drawn sample of each pattern,
// used by the line type selection dialog and the line types dialog. A report
// list with three columns: 0 the name, 1 the pattern drawn by
// DrawLtypePreview, 2 the description (none for ByBlock and ByLayer). The row
// of the marked current line type has a blue background.
//
// The owning dialog builds it in place of its list control
// (CreateCustomControl), sets the three columns with SetColumn, fills the rows
// and reads the choice with GetSelectedItem or the ltypeSelected /
// ltypeDeselected signals. Rows are painted by CVELDLtypeListDelegate over
// CVELDLtypeListModel, only where visible, so tens of thousands of rows cost
// no more than a screenful.
#include "CVELDLtypeListModel.h"
#include "lists/ReportListView.h"

class CVELD;

class CVELDLtypeList : public CTableListView<veld::CLtype, CVELDLtypeListModel> {
    Q_OBJECT
public:
    /// @p cad is the CAD instance the listed line types belong to; the
    /// samples are drawn for it.
    explicit CVELDLtypeList(CVELD* cad, QWidget* parent = nullptr);
    ~CVELDLtypeList() override;

    /// SetItems, SelectItem, GetSelectedItem and SetCurMark by the names the
    /// line type dialogs call them.
    void SetLtypes(std::span<veld::CLtype* const> ltypes) { SetItems(ltypes); }
    void SelectLtype(const veld::CLtype* ltype) { SelectItem(ltype); }
    veld::CLtype* GetSelectedLtype() const { return GetSelectedItem(); }
    void SetCurLtypeMark(veld::CLtype* ltype) { SetCurMark(ltype); }

Q_SIGNALS:
    /// itemDeselected and itemSelected, for a line type.
    void ltypeDeselected(veld::CLtype* ltype);
    void ltypeSelected(veld::CLtype* ltype);
};
