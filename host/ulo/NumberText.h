#pragma once
// Conversions between numbers and text, always in the "C" notation: the
// decimal separator is '.', whatever the user's locale, so files and edits
// read back the same everywhere.
//
// Reading takes the leading decimal number of a text (blanks before it are
// skipped, the rest is ignored); a text without one reads as 0. Only decimal
// notation counts: "inf", "nan" and hexadecimal are not numbers, so reading
// never yields NaN. A number too large for a double reads as an infinity of
// its sign (ScanNumber says so); one too small reads as zero.
//
// Writing shows NaN and infinities as "0" with the requested decimals, so an
// edit never shows text that cannot be read back.
#include <string_view>

#include "WString.h"

namespace ulo {

/// What the leading number of a text is.
struct NumberScan {
    double value = 0.0;       ///< 0 when there is no number; ±infinity when out of range
    std::size_t length = 0;   ///< characters the number takes, blanks before it included
    bool outOfRange = false;  ///< larger than any double: value is an infinity
};
NumberScan ScanNumber(std::wstring_view text);
/// True when @p text, up to its first NUL (as a C string ends), is one
/// decimal number (what ScanNumber reads) with blanks around it at most.
bool IsWholeNumber(std::wstring_view text);

/// Text of @p value with exactly @p decimals digits after the point (0 to 17).
/// @p mode is kept for the callers' signature; only 0 is used.
WString CStringDaDouble(double value, int mode, int decimals);
/// Writes the same text as CStringDaDouble into @p buffer of @p size characters
/// (cut to fit, always terminated).
void ArCharDaDouble(wchar_t* buffer, std::size_t size, double value, int mode, int decimals);
/// The shortest text that reads back to exactly @p value ("0.1", "1e+55",
/// "-0"); "0" for NaN and infinities.
std::wstring ExactText(double value);
/// Leading number of @p text; 0 when none (see ScanNumber).
double DoubleDaCString(const WString& text);
double wtof(const wchar_t* text);

}  // namespace ulo

using ulo::ArCharDaDouble;
using ulo::CStringDaDouble;
using ulo::DoubleDaCString;
