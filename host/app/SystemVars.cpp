#include "MouseCursorInfo.h"

CSystemVars& CSystemVars::GetInstance() {
    static CSystemVars vars;
    return vars;
}
