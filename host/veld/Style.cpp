#include "Style.h"

namespace veld {

CStyle::CStyle(const ulo::WString& name, const ICADFont* font, double fixedHeight,
               double widthScale, double oblique, double lastHeight, unsigned flags)
    : CStatefulItem(name, flags, {font, fixedHeight, lastHeight, widthScale, oblique}) {}

}  // namespace veld
