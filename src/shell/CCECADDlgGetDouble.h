#pragma once
// Number entry with a sign rule.
#include "CCECADDlgGetDoubleBase.h"

namespace veld5 {

class CCECADDlgGetDouble : public CCECADDlgGetDoubleBase {
    Q_OBJECT
public:
    explicit CCECADDlgGetDouble(CWnd* parent);
};

/// ShowDlgGetDouble: the end code; after IDOK @p value holds the number
/// entered, otherwise it is left as it was.
long RunDlgGetDouble(CWnd* parent, const wchar_t* title, double& value, bool allowNegative,
                     bool allowZero, bool allowPositive);

}  // namespace veld5
