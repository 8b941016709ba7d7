#include "HatchType.h"

#include <string>

namespace veld {

CHatchTypeProvider::CHatchTypeProvider() {
    for (int n = -1; n <= 67; ++n)
        types_.push_back(
            std::make_unique<CHatchType>(n, ulo::WString(L"HATCH" + std::to_wstring(n))));
}

const CHatchTypeProvider* CHatchTypeProvider::GetInstance() {
    static const CHatchTypeProvider provider;
    return &provider;
}

const CHatchType* CHatchTypeProvider::GetLegacyHatchType(int n) const {
    return (n >= -1 && n <= 67) ? types_[static_cast<std::size_t>(n + 1)].get() : nullptr;
}

}  // namespace veld
