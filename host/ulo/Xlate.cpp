#include "Xlate.h"

namespace ulo {

namespace {
Translator& translator() {
    static Translator t;
    return t;
}
}  // namespace

WString Xlate(const WString& source) {
    const Translator& t = translator();
    return t ? t(source) : source;
}

void SetTranslator(Translator t) {
    translator() = std::move(t);
}

namespace detail {

WString ulo_safefmt(const WString& format, unsigned count, const WString* args) {
    const std::wstring& f = format.str();
    std::wstring out;
    out.reserve(f.size());
    std::size_t i = 0;
    while (i < f.size()) {
        if (f[i] == L'{') {
            std::size_t j = i + 1;
            unsigned long n = 0;
            while (j < f.size() && f[j] >= L'0' && f[j] <= L'9' && j - i < 9) {
                n = n * 10 + static_cast<unsigned long>(f[j] - L'0');
                ++j;
            }
            if (j > i + 1 && j < f.size() && f[j] == L'}' && n >= 1 && n <= count && args) {
                out += args[n - 1].str();
                i = j + 1;
                continue;
            }
        }
        out += f[i++];
    }
    return WString(std::move(out));
}

}  // namespace detail
}  // namespace ulo
