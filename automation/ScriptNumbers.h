#pragma once
// Numbers of the veld-play language (operation arguments and steps) and of
// the veld-play and veld-sessions command lines. A number is the whole text
// and nothing else (no blanks, no trailing letters), decimal in the "C"
// notation, with an optional leading '+', and within the range of the type it
// is read as; a double is finite.
// Each reader returns the value, or nothing and, in @p why, what is wrong
// with the text, ready to follow the name of what was read
// ("start: \"32768\" is out of range (-32768 to 32767)").
#include <QString>
#include <cstdint>
#include <optional>

namespace automation {

std::optional<short> ReadShort(const QString& text, QString& why);
std::optional<int> ReadInt(const QString& text, QString& why);
std::optional<unsigned> ReadUnsigned(const QString& text, QString& why);
std::optional<std::uint64_t> ReadUInt64(const QString& text, QString& why);
std::optional<double> ReadDouble(const QString& text, QString& why);
/// 1, true, yes or 0, false, no, in any letter case.
std::optional<bool> ReadBool(const QString& text, QString& why);

}  // namespace automation
