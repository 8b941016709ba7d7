#include "WString.h"

#include <QChar>
#include <algorithm>

#include "NumberText.h"

namespace ulo {

namespace {
bool isBlank(wchar_t c) {
    return c == L' ' || c == L'\t' || c == L'\r' || c == L'\n';
}
}  // namespace

wchar_t FoldCase(wchar_t c) {
    if (c >= 0 && c < 0x80)
        return c >= L'A' && c <= L'Z' ? static_cast<wchar_t>(c + (L'a' - L'A')) : c;
    if constexpr (sizeof(wchar_t) >= 4)
        return static_cast<wchar_t>(QChar::toCaseFolded(static_cast<char32_t>(c)));
    else
        return static_cast<wchar_t>(QChar::toCaseFolded(static_cast<char16_t>(c)));
}

WString& WString::Trim() {
    std::size_t b = 0;
    std::size_t e = s_.size();
    while (b < e && isBlank(s_[b]))
        ++b;
    while (e > b && isBlank(s_[e - 1]))
        --e;
    s_ = s_.substr(b, e - b);
    return *this;
}

int WString::Compare(const WString& other) const {
    const int c = s_.compare(other.s_);
    return c < 0 ? -1 : (c > 0 ? 1 : 0);
}

int WString::CompareIgnoreCase(const WString& other) const {
    const std::size_t n = std::min(s_.size(), other.s_.size());
    for (std::size_t i = 0; i < n; ++i) {
        const auto a = static_cast<char32_t>(FoldCase(s_[i]));
        const auto b = static_cast<char32_t>(FoldCase(other.s_[i]));
        if (a != b)
            return a < b ? -1 : 1;
    }
    if (s_.size() == other.s_.size())
        return 0;
    return s_.size() < other.s_.size() ? -1 : 1;
}

wchar_t* WString::GetBufferSetLength(std::size_t length) {
    s_.resize(length);
    return s_.data();
}

WString WString::ValueOf(double value, unsigned decimals) {
    std::wstring text = CStringDaDouble(value, 0, static_cast<int>(decimals)).str();
    if (text.find(L'.') != std::wstring::npos) {
        while (!text.empty() && text.back() == L'0')
            text.pop_back();
        if (!text.empty() && text.back() == L'.')
            text.pop_back();
    }
    if (text == L"-0")
        text = L"0";
    return WString(std::move(text));
}

}  // namespace ulo
