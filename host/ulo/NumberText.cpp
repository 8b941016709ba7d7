#include "NumberText.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cwchar>
#include <limits>
#include <string>

namespace ulo {

namespace {

bool isBlank(wchar_t c) {
    return c == L' ' || (c >= L'\t' && c <= L'\r');
}
bool isDigit(wchar_t c) {
    return c >= L'0' && c <= L'9';
}

/// The wide text of to_chars' ASCII output.
std::wstring widen(const char* begin, const char* end) {
    return std::wstring(begin, end);
}

}  // namespace

NumberScan ScanNumber(std::wstring_view text) {
    NumberScan scan;
    std::size_t i = 0;
    while (i < text.size() && isBlank(text[i]))
        ++i;
    const std::size_t start = i;
    const bool negative = i < text.size() && text[i] == L'-';
    if (i < text.size() && (text[i] == L'-' || text[i] == L'+'))
        ++i;
    const std::size_t mantissa = i;
    std::size_t intDigits = 0, fracDigits = 0;
    while (i < text.size() && isDigit(text[i]))
        ++i, ++intDigits;
    if (i < text.size() && text[i] == L'.') {
        ++i;
        while (i < text.size() && isDigit(text[i]))
            ++i, ++fracDigits;
    }
    if (intDigits + fracDigits == 0)
        return scan;  // no digits: not a number
    const std::size_t mantissaEnd = i;
    std::size_t end = i;
    // An exponent counts only with at least one digit ("1e" reads as 1).
    if (i < text.size() && (text[i] == L'e' || text[i] == L'E')) {
        std::size_t j = i + 1;
        if (j < text.size() && (text[j] == L'-' || text[j] == L'+'))
            ++j;
        if (j < text.size() && isDigit(text[j])) {
            while (j < text.size() && isDigit(text[j]))
                ++j;
            end = j;
        }
    }
    scan.length = end;

    // from_chars takes no '+' and only ASCII: hand it a narrow copy from the
    // sign on, the whole number however long it is.
    char small[64];
    std::string large;
    const std::size_t n = end - (negative ? start : mantissa);
    char* buf = small;
    if (n > sizeof small) {
        large.resize(n);
        buf = large.data();
    }
    std::size_t k = 0;
    if (negative)
        buf[k++] = '-';
    for (std::size_t p = mantissa; p < end; ++p)
        buf[k++] = static_cast<char>(text[p]);
    double v = 0.0;
    const auto r = std::from_chars(buf, buf + k, v);
    if (r.ec == std::errc()) {
        scan.value = v;
        return scan;
    }
    // Out of range: too large or too small. The decimal exponent of the first
    // significant digit tells which.
    long long exponent = 0;
    bool expNegative = false;
    for (std::size_t p = mantissaEnd; p < end; ++p) {
        const wchar_t c = text[p];
        if (c == L'-')
            expNegative = true;
        else if (isDigit(c))
            exponent = std::min<long long>(exponent * 10 + (c - L'0'), 1'000'000'000);
    }
    if (expNegative)
        exponent = -exponent;
    long long leading = 0;  // position of the first non-zero digit relative to the point
    std::size_t p = mantissa;
    std::size_t zeros = 0;
    while (p < mantissa + intDigits && text[p] == L'0')
        ++p, ++zeros;
    if (p < mantissa + intDigits) {
        leading = static_cast<long long>(intDigits - zeros) - 1;
    } else {
        std::size_t q = mantissa + intDigits + 1;
        long long fracZeros = 0;
        while (q < mantissa + intDigits + 1 + fracDigits && text[q] == L'0')
            ++q, ++fracZeros;
        leading = -fracZeros - 1;
    }
    if (leading + exponent > 0) {
        scan.outOfRange = true;
        scan.value = negative ? -std::numeric_limits<double>::infinity()
                              : std::numeric_limits<double>::infinity();
    } else {
        scan.value = negative ? -0.0 : 0.0;
    }
    return scan;
}

bool IsWholeNumber(std::wstring_view text) {
    text = text.substr(0, text.find(L'\0'));
    const std::size_t length = ScanNumber(text).length;
    if (length == 0)
        return false;
    return std::all_of(text.begin() + static_cast<std::ptrdiff_t>(length), text.end(), isBlank);
}

WString CStringDaDouble(double value, int /*mode*/, int decimals) {
    if (!std::isfinite(value))
        value = 0.0;
    decimals = std::clamp(decimals, 0, 17);
    char buf[400];  // 309 integer digits, a sign, the point and 17 decimals
    const auto r = std::to_chars(buf, buf + sizeof buf, value, std::chars_format::fixed, decimals);
    // A value that rounds to zero is shown without a sign ("-0.000" reads oddly).
    const char* begin = buf;
    if (buf[0] == '-' && std::none_of(buf, r.ptr, [](char c) { return c >= '1' && c <= '9'; }))
        ++begin;
    return WString(widen(begin, r.ptr));
}

void ArCharDaDouble(wchar_t* buffer, std::size_t size, double value, int mode, int decimals) {
    if (!buffer || size == 0)
        return;
    const WString text = CStringDaDouble(value, mode, decimals);
    const std::size_t n = std::min(text.Length(), size - 1);
    std::wmemcpy(buffer, text.c_str(), n);
    buffer[n] = L'\0';
}

std::wstring ExactText(double value) {
    if (!std::isfinite(value))
        return L"0";
    char buf[32];
    const auto r = std::to_chars(buf, buf + sizeof buf, value);
    return widen(buf, r.ptr);
}

double wtof(const wchar_t* text) {
    return text ? ScanNumber(text).value : 0.0;
}

double DoubleDaCString(const WString& text) {
    return ScanNumber(text.str()).value;
}

}  // namespace ulo
