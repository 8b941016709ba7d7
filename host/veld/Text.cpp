#include "Text.h"

namespace veld {

ulo::WString TEXT_3D::GetAlignName(unsigned code) {
    static const wchar_t* const names[] = {
        L"Left",     L"Center",     L"Right",     L"Aligned",     L"Middle",       L"Fit",
        L"Top left", L"Top center", L"Top right", L"Middle left", L"Middle right", L"Bottom center",
    };
    return code < 12 ? ulo::WString(names[code]) : ulo::WString();
}

}  // namespace veld
