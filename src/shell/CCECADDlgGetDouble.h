#pragma once
// Number entry with a sign rule.
#include "CCECADDlgGetDoubleBase.h"

namespace veld5 {

class CCECADDlgGetDouble : public CCECADDlgGetDoubleBase {
    Q_OBJECT
public:
    explicit CCECADDlgGetDouble(CWnd* parent);
};

}  // namespace veld5
