#pragma once
// Reading a JSON document where it stands in its bytes. Check() goes over the
// whole document once and refuses anything that is not JSON; after that a
// value is a pointer to its first byte and is only decoded when asked for, so
// reading a document takes no memory beyond its bytes and the values kept.
//
// Every function but Check() expects a document Check() accepted.
#include <QString>
#include <string_view>

namespace jsonscan {

/// Checks that @p doc is one JSON value (with blanks around it). False with
/// @p error ("unterminated string") and @p offset (the byte it concerns)
/// set when it is not.
bool Check(std::string_view doc, QString& error, qsizetype& offset);

enum class Kind { Missing, Null, Bool, Number, String, Array, Object };

/// The kind of the value at @p v (Missing for null).
Kind KindOf(const char* v);
/// Past the value at @p v and the blanks after it.
const char* Skip(const char* v);
/// Past the blanks at @p p.
const char* Blanks(const char* p);

bool ToBool(const char* v);
/// The number at @p v: infinite when beyond a double, 0 (never -0) when
/// below the smallest one, whatever the locale.
double ToNumber(const char* v);
/// The string at @p v, escapes decoded.
QString ToString(const char* v);
/// The string at @p v, in UTF-32 when wchar_t has 32 bits (UTF-16 else).
std::wstring ToWString(const char* v);
/// True when the strings at @p a and @p b hold the same text, however
/// their escapes spell it.
bool SameString(const char* a, const char* b);
/// True when the string at @p v is @p text (ASCII, no escapes needed).
bool Equals(const char* v, std::string_view text);

/// Walks the members of the object at @p v: call Next until it gives false.
class Members {
public:
    explicit Members(const char* object) : p_(Blanks(object + 1)) {}
    /// The next member's key (a string value) and value.
    bool Next(const char*& key, const char*& value);

private:
    const char* p_;
};

/// Walks the elements of the array at @p v.
class Elements {
public:
    explicit Elements(const char* array) : p_(Blanks(array + 1)) {}
    /// The next element, or null past the last one.
    const char* Next();

private:
    const char* p_;
};

}  // namespace jsonscan
