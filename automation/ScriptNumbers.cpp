#include "ScriptNumbers.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <string>
#include <type_traits>

namespace automation {

namespace {

QString shown(const QString& text) {
    return QLatin1Char('"') + text + QLatin1Char('"');
}

/// The text as from_chars reads it: ASCII without a leading '+' (which it
/// does not take). Empty when a character is not ASCII: no number has one.
std::string digits(const QString& text) {
    std::string s;
    s.reserve(static_cast<std::size_t>(text.size()));
    for (const QChar c : text) {
        if (c.unicode() == 0 || c.unicode() > 0x7F)
            return {};
        s += static_cast<char>(c.unicode());
    }
    if (s.size() > 1 && s[0] == '+' && s[1] != '-')
        s.erase(0, 1);
    return s;
}

template <class T>
std::optional<T> readWhole(const QString& text, QString& why) {
    const std::string s = digits(text);
    // from_chars takes no '-' for an unsigned type: a negative number is out
    // of its range, which the digits after the sign are read for.
    const bool negative = std::is_unsigned_v<T> && s.size() > 1 && s[0] == '-';
    const char* const first = s.data() + (negative ? 1 : 0);
    T value{};
    auto [end, ec] = std::from_chars(first, s.data() + s.size(), value);
    if (negative && ec == std::errc())
        ec = std::errc::result_out_of_range;
    if (s.empty() || end != s.data() + s.size() ||
        (ec != std::errc() && ec != std::errc::result_out_of_range)) {
        why = QStringLiteral("%1 is not a whole number").arg(shown(text));
        return std::nullopt;
    }
    if (ec == std::errc::result_out_of_range) {
        // One pass over the placeholders: the text is the user's.
        why = QStringLiteral("%1 is out of range (%2 to %3)")
                  .arg(shown(text), QString::number(std::numeric_limits<T>::min()),
                       QString::number(std::numeric_limits<T>::max()));
        return std::nullopt;
    }
    return value;
}

}  // namespace

std::optional<short> ReadShort(const QString& text, QString& why) {
    return readWhole<short>(text, why);
}

std::optional<int> ReadInt(const QString& text, QString& why) {
    return readWhole<int>(text, why);
}

std::optional<unsigned> ReadUnsigned(const QString& text, QString& why) {
    return readWhole<unsigned>(text, why);
}

std::optional<std::uint64_t> ReadUInt64(const QString& text, QString& why) {
    return readWhole<std::uint64_t>(text, why);
}

std::optional<double> ReadDouble(const QString& text, QString& why) {
    const std::string s = digits(text);
    double value = 0.0;
    const auto [end, ec] = std::from_chars(s.data(), s.data() + s.size(), value);
    if (s.empty() || end != s.data() + s.size() ||
        (ec != std::errc() && ec != std::errc::result_out_of_range)) {
        why = QStringLiteral("%1 is not a number").arg(shown(text));
        return std::nullopt;
    }
    if (ec == std::errc::result_out_of_range) {
        why = QStringLiteral("%1 is out of range for a double").arg(shown(text));
        return std::nullopt;
    }
    // from_chars reads "nan" and "inf" too; nothing veld-play passes on may be either.
    if (!std::isfinite(value)) {
        why = QStringLiteral("%1 is not a finite number").arg(shown(text));
        return std::nullopt;
    }
    return value;
}

std::optional<bool> ReadBool(const QString& text, QString& why) {
    const QString t = text.toLower();
    if (t == QLatin1String("1") || t == QLatin1String("true") || t == QLatin1String("yes"))
        return true;
    if (t == QLatin1String("0") || t == QLatin1String("false") || t == QLatin1String("no"))
        return false;
    why = QStringLiteral("%1 is not 1 or 0 (true or false, yes or no)").arg(shown(text));
    return std::nullopt;
}

}  // namespace automation
