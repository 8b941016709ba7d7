#include "CCECADDlgGetDouble.h"

#include "ulo/PalmDevice.h"

namespace veld5 {

CCECADDlgGetDouble::CCECADDlgGetDouble(CWnd* parent)
    : CCECADDlgGetDoubleBase(CPalmDevice::SelectIdDlgStd(11012, 11013, 11014, 11015), parent) {}

}  // namespace veld5
