#pragma once
// The rows of a line type list (CVELDLtypeList): one line type per row, in the
// order the owner appends them, with three columns: the name, the drawn
// appearance of the pattern (painted by CVELDLtypeListDelegate, no text) and
// the description. The rows, the mark and the headings are
// CTableListModel's.
#include "lists/TableListModel.h"
#include "veld/Ltype.h"

class CVELDLtypeListModel : public CTableListModelOf<veld::CLtype> {
    Q_OBJECT
public:
    enum Column { kColName = 0, kColAppearance = 1, kColDescription = 2, kColumnCount = 3 };

    explicit CVELDLtypeListModel(QObject* parent = nullptr);
    ~CVELDLtypeListModel() override;

protected:
    QVariant Text(const veld::CLtype& ltype, int column) const override;
};
