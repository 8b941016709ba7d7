#pragma once
// Conversions between numbers and the texts shown in edits. The decimal
// separator is always '.'. A text that holds no leading number reads as 0;
// NaN and infinities are written as "0" with the requested decimals so an
// edit never shows text that cannot be read back.
#include "WString.h"

namespace ulo {

/// Text of @p value with exactly @p decimals digits after the point ("%.*f").
/// @p mode is kept for the callers' signature; only 0 is used.
WString CStringDaDouble(double value, int mode, int decimals);
/// Writes the same text as CStringDaDouble into @p buffer of @p size characters
/// (cut to fit, always terminated).
void ArCharDaDouble(wchar_t* buffer, std::size_t size, double value, int mode, int decimals);
/// Leading number of @p text (leading blanks skipped, the rest ignored); 0 when none.
double DoubleDaCString(const WString& text);
double wtof(const wchar_t* text);

}  // namespace ulo

using ulo::ArCharDaDouble;
using ulo::CStringDaDouble;
using ulo::DoubleDaCString;
