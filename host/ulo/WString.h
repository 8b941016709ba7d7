#pragma once
// ulo::WString: the toolkit's wide string. A value type over std::wstring with the
// handful of operations the dialogs and the line type loader use; QString
// conversions sit at the widget edge.
#include <QString>
#include <compare>
#include <cstddef>
#include <string>
#include <string_view>

namespace ulo {

/// @p c as names compare ignoring case: Unicode simple case folding, the
/// same in every locale (the process locale never changes which names are
/// the same). "À" and "à", "ſ" and "s", "Ａ" and "ａ" fold alike; "ı" and "I"
/// do not.
wchar_t FoldCase(wchar_t c);

class WString {
public:
    WString() = default;
    WString(const wchar_t* text) : s_(text ? text : L"") {}
    WString(const wchar_t* text, std::size_t count) : s_(text ? std::wstring(text, count) : L"") {}
    WString(std::wstring text) : s_(std::move(text)) {}
    WString(std::wstring_view text) : s_(text) {}

    static WString FromQString(const QString& text) { return WString(text.toStdWString()); }
    QString ToQString() const { return QString::fromStdWString(s_); }

    std::size_t Length() const { return s_.size(); }
    bool IsEmpty() const { return s_.empty(); }
    const wchar_t* c_str() const { return s_.c_str(); }
    operator const wchar_t*() const { return s_.c_str(); }
    const std::wstring& str() const { return s_; }

    /// Character at @p index, or 0 past the end.
    wchar_t ReadChar(std::size_t index) const { return index < s_.size() ? s_[index] : L'\0'; }

    WString& Concat(const WString& other) {
        s_ += other.s_;
        return *this;
    }
    WString& operator+=(const WString& other) { return Concat(other); }
    WString& operator+=(wchar_t c) {
        s_ += c;
        return *this;
    }
    friend WString operator+(WString a, const WString& b) { return a.Concat(b); }

    /// Removes leading and trailing blanks (space, tab, CR, LF).
    WString& Trim();

    /// Three-way comparison: negative, 0 or positive.
    int Compare(const WString& other) const;
    /// The same on the folded characters (FoldCase), then code point order,
    /// a prefix first.
    int CompareIgnoreCase(const WString& other) const;

    /// Resizes to @p length characters and returns the buffer, which holds
    /// length + 1 characters (room for the terminator).
    wchar_t* GetBufferSetLength(std::size_t length);

    /// Text of a number with up to @p decimals digits after the point,
    /// trailing zeros dropped ("1", "0.5", "-2.125").
    static WString ValueOf(double value, unsigned decimals);

    friend bool operator==(const WString& a, const WString& b) { return a.s_ == b.s_; }
    friend bool operator==(const WString& a, const wchar_t* b) { return a.s_ == (b ? b : L""); }
    friend auto operator<=>(const WString& a, const WString& b) { return a.s_ <=> b.s_; }

private:
    std::wstring s_;
};

}  // namespace ulo
