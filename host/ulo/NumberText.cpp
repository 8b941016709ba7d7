#include "NumberText.h"

#include <cmath>
#include <cstdio>
#include <cwchar>

namespace ulo {

WString CStringDaDouble(double value, int /*mode*/, int decimals) {
    if (!std::isfinite(value))
        value = 0.0;
    if (decimals < 0)
        decimals = 0;
    if (decimals > 17)
        decimals = 17;
    char buf[400];
    std::snprintf(buf, sizeof buf, "%.*f", decimals, value);
    std::wstring out;
    bool nonZero = false;
    for (const char* p = buf; *p; ++p) {
        out += static_cast<wchar_t>(*p);
        nonZero = nonZero || (*p >= '1' && *p <= '9');
    }
    // A value that rounds to zero is shown without a sign ("-0.000" reads oddly).
    if (!nonZero && !out.empty() && out[0] == L'-')
        out.erase(0, 1);
    return WString(std::move(out));
}

void ArCharDaDouble(wchar_t* buffer, std::size_t size, double value, int mode, int decimals) {
    if (!buffer || size == 0)
        return;
    const WString text = CStringDaDouble(value, mode, decimals);
    const std::size_t n = std::min(text.Length(), size - 1);
    std::wmemcpy(buffer, text.c_str(), n);
    buffer[n] = L'\0';
}

double wtof(const wchar_t* text) {
    if (!text)
        return 0.0;
    wchar_t* end = nullptr;
    const double v = std::wcstod(text, &end);
    return end == text ? 0.0 : v;
}

double DoubleDaCString(const WString& text) {
    return wtof(text.c_str());
}

}  // namespace ulo
