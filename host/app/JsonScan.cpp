#include "JsonScan.h"

#include <locale.h>
#include <charconv>
#include <clocale>
#include <cmath>
#include <cstdlib>

namespace jsonscan {

namespace {

constexpr int kMaxDepth = 1024;

bool isBlank(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}
bool isDigit(char c) {
    return c >= '0' && c <= '9';
}
bool isHex(char c) {
    return isDigit(c) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}
unsigned hexValue(char c) {
    return isDigit(c) ? unsigned(c - '0') : unsigned((c | 0x20) - 'a' + 10);
}

/// One pass over a document, refusing what is not JSON.
class Checker {
public:
    Checker(std::string_view doc)
        : begin_(doc.data()), p_(doc.data()), end_(doc.data() + doc.size()) {}

    bool Document() {
        SkipBlanks();
        if (!Value(0))
            return false;
        SkipBlanks();
        return p_ == end_ || Fail("garbage at the end of the document");
    }
    QString error;
    qsizetype offset = 0;

private:
    bool Fail(const char* what) {
        error = QString::fromLatin1(what);
        offset = p_ - begin_;
        return false;
    }
    void SkipBlanks() {
        while (p_ < end_ && isBlank(*p_))
            ++p_;
    }
    bool Value(int depth) {
        if (p_ == end_)
            return Fail("illegal value");
        switch (*p_) {
            case '{':
            case '[':
                return depth >= kMaxDepth ? Fail("too deeply nested document")
                                          : Container(depth + 1);
            case '"':
                return String();
            case 't':
                return Literal("true");
            case 'f':
                return Literal("false");
            case 'n':
                return Literal("null");
            default:
                return *p_ == '-' || isDigit(*p_) ? Number() : Fail("illegal value");
        }
    }
    bool Literal(std::string_view word) {
        if (std::string_view(p_, std::min<std::size_t>(word.size(), end_ - p_)) != word)
            return Fail("illegal value");
        p_ += word.size();
        return true;
    }
    /// An object or an array, at its opening bracket.
    bool Container(int depth) {
        const bool object = *p_ == '{';
        const char close = object ? '}' : ']';
        const char* unterminated = object ? "unterminated object" : "unterminated array";
        ++p_;
        SkipBlanks();
        if (p_ < end_ && *p_ == close) {
            ++p_;
            return true;
        }
        for (;;) {
            if (p_ == end_)
                return Fail(unterminated);
            if (object) {
                if (*p_ != '"')
                    return Fail("expected a name in quotes");
                if (!String())
                    return false;
                SkipBlanks();
                if (p_ == end_ || *p_ != ':')
                    return Fail("missing name separator");
                ++p_;
                SkipBlanks();
            }
            if (!Value(depth))
                return false;
            SkipBlanks();
            if (p_ == end_)
                return Fail(unterminated);
            if (*p_ == close) {
                ++p_;
                return true;
            }
            if (*p_ != ',')
                return Fail("missing value separator");
            ++p_;
            SkipBlanks();
        }
    }
    bool String() {
        const char* start = p_++;
        for (;;) {
            if (p_ == end_) {
                p_ = start;
                return Fail("unterminated string");
            }
            const auto c = static_cast<unsigned char>(*p_);
            if (c == '"') {
                ++p_;
                return true;
            }
            if (c == '\\') {
                if (!Escape())
                    return false;
            } else if (c < 0x20) {
                return Fail("control character in a string");
            } else if (c < 0x80) {
                ++p_;
            } else if (!Utf8()) {
                return Fail("invalid UTF8 string");
            }
        }
    }
    bool Escape() {
        ++p_;
        if (p_ == end_)
            return Fail("unterminated string");
        switch (*p_) {
            case '"':
            case '\\':
            case '/':
            case 'b':
            case 'f':
            case 'n':
            case 'r':
            case 't':
                ++p_;
                return true;
            case 'u':
                for (int i = 1; i <= 4; ++i)
                    if (p_ + i >= end_ || !isHex(p_[i]))
                        return Fail("illegal escape sequence");
                p_ += 5;
                return true;
            default:
                return Fail("illegal escape sequence");
        }
    }
    /// One UTF-8 sequence of two to four bytes: no overlong forms, no
    /// surrogates, nothing beyond U+10FFFF.
    bool Utf8() {
        const auto b = [&](std::ptrdiff_t i) {
            return p_ + i < end_ ? static_cast<unsigned char>(p_[i]) : 0u;
        };
        const unsigned c = b(0);
        unsigned lo = 0x80, hi = 0xBF;
        int n;
        if (c >= 0xC2 && c <= 0xDF)
            n = 1;
        else if (c >= 0xE0 && c <= 0xEF)
            n = 2, lo = c == 0xE0 ? 0xA0 : 0x80, hi = c == 0xED ? 0x9F : 0xBF;
        else if (c >= 0xF0 && c <= 0xF4)
            n = 3, lo = c == 0xF0 ? 0x90 : 0x80, hi = c == 0xF4 ? 0x8F : 0xBF;
        else
            return false;
        if (b(1) < lo || b(1) > hi)
            return false;
        for (int i = 2; i <= n; ++i)
            if (b(i) < 0x80 || b(i) > 0xBF)
                return false;
        p_ += n + 1;
        return true;
    }
    bool Number() {
        if (*p_ == '-')
            ++p_;
        if (p_ == end_ || !isDigit(*p_))
            return Fail("illegal number");
        if (*p_ == '0')
            ++p_;
        else
            while (p_ < end_ && isDigit(*p_))
                ++p_;
        if (p_ < end_ && *p_ == '.') {
            ++p_;
            if (p_ == end_ || !isDigit(*p_))
                return Fail("illegal number");
            while (p_ < end_ && isDigit(*p_))
                ++p_;
        }
        if (p_ < end_ && (*p_ == 'e' || *p_ == 'E')) {
            ++p_;
            if (p_ < end_ && (*p_ == '+' || *p_ == '-'))
                ++p_;
            if (p_ == end_ || !isDigit(*p_))
                return Fail("illegal number");
            while (p_ < end_ && isDigit(*p_))
                ++p_;
        }
        return true;
    }

    const char* begin_;
    const char* p_;
    const char* end_;
};

/// Past the closing quote of the string at @p v.
const char* endOfString(const char* v) {
    const char* p = v + 1;
    while (*p != '"')
        p += *p == '\\' ? 2 : 1;
    return p + 1;
}

const char* endOfNumber(const char* v) {
    const char* p = v;
    while (isDigit(*p) || *p == '-' || *p == '+' || *p == '.' || *p == 'e' || *p == 'E')
        ++p;
    return p;
}

}  // namespace

bool Check(std::string_view doc, QString& error, qsizetype& offset) {
    Checker checker(doc);
    if (checker.Document())
        return true;
    error = checker.error;
    offset = checker.offset;
    return false;
}

Kind KindOf(const char* v) {
    if (!v)
        return Kind::Missing;
    switch (*v) {
        case '{':
            return Kind::Object;
        case '[':
            return Kind::Array;
        case '"':
            return Kind::String;
        case 't':
        case 'f':
            return Kind::Bool;
        case 'n':
            return Kind::Null;
        default:
            return Kind::Number;
    }
}

const char* Blanks(const char* p) {
    while (isBlank(*p))
        ++p;
    return p;
}

const char* Skip(const char* v) {
    switch (*v) {
        case '"':
            return Blanks(endOfString(v));
        case '{':
        case '[': {
            int depth = 0;
            for (const char* p = v;;) {
                const char c = *p;
                if (c == '"') {
                    p = endOfString(p);
                    continue;
                }
                if (c == '{' || c == '[')
                    ++depth;
                else if ((c == '}' || c == ']') && --depth == 0)
                    return Blanks(p + 1);
                ++p;
            }
        }
        case 't':
        case 'n':
            return Blanks(v + 4);
        case 'f':
            return Blanks(v + 5);
        default:
            return Blanks(endOfNumber(v));
    }
}

bool ToBool(const char* v) {
    return *v == 't';
}

double ToNumber(const char* v) {
    const char* end = endOfNumber(v);
    double d = 0;
    if (std::from_chars(v, end, d).ec != std::errc()) {
        // Beyond a double either way: the C library says which way, in the
        // "C" notation whatever the user's locale.
        static const locale_t c = newlocale(LC_ALL_MASK, "C", nullptr);
        d = strtod_l(v, nullptr, c);
    }
    return d == 0 ? 0.0 : d;  // "-0" is no number of its own
}

QString ToString(const char* v) {
    const char* end = endOfString(v) - 1;
    QString s;
    const char* run = v + 1;
    for (const char* p = run; p < end;) {
        if (*p != '\\') {
            ++p;
            continue;
        }
        s += QString::fromUtf8(run, p - run);
        const char e = p[1];
        p += 2;
        switch (e) {
            case 'b':
                s += QLatin1Char('\b');
                break;
            case 'f':
                s += QLatin1Char('\f');
                break;
            case 'n':
                s += QLatin1Char('\n');
                break;
            case 'r':
                s += QLatin1Char('\r');
                break;
            case 't':
                s += QLatin1Char('\t');
                break;
            case 'u': {
                unsigned code = 0;
                for (int i = 0; i < 4; ++i)
                    code = code * 16 + hexValue(p[i]);
                s += QChar(static_cast<char16_t>(code));
                p += 4;
                break;
            }
            default:
                s += QLatin1Char(e);
                break;
        }
        run = p;
    }
    if (run == v + 1)
        return QString::fromUtf8(run, end - run);
    s += QString::fromUtf8(run, end - run);
    return s;
}

std::wstring ToWString(const char* v) {
    std::wstring s;
    for (const char* p = v + 1; *p != '"'; ++p) {
        if (*p == '\\' || static_cast<unsigned char>(*p) >= 0x80)
            return ToString(v).toStdWString();
        s += static_cast<wchar_t>(*p);
    }
    return s;
}

bool SameString(const char* a, const char* b) {
    if (a[1] != b[1] && a[1] != '\\' && b[1] != '\\')
        return false;  // the common case, told by the first character
    const std::string_view ra(a, endOfString(a) - a), rb(b, endOfString(b) - b);
    if (ra == rb)
        return true;
    // The same text may be spelt with escapes; rare enough to decode.
    const auto escaped = [](std::string_view r) { return r.find('\\') != std::string_view::npos; };
    return (escaped(ra) || escaped(rb)) && ToString(a) == ToString(b);
}

bool Equals(const char* v, std::string_view text) {
    // Byte by byte: a shorter string stops at its closing quote.
    std::size_t i = 0;
    while (i < text.size() && v[1 + i] == text[i])
        ++i;
    if (i == text.size() && v[1 + i] == '"')
        return true;
    // A key may spell ASCII letters as escapes; rare enough to decode.
    const char* end = endOfString(v);
    return std::string_view(v, end - v).find('\\') != std::string_view::npos &&
           ToString(v) == QLatin1String(text.data(), static_cast<qsizetype>(text.size()));
}

bool Members::Next(const char*& key, const char*& value) {
    if (*p_ != '"')
        return false;
    key = p_;
    value = Blanks(Skip(key) + 1);  // past the ':'
    p_ = Skip(value);
    if (*p_ == ',')
        p_ = Blanks(p_ + 1);
    return true;
}

const char* Elements::Next() {
    if (*p_ == ']')
        return nullptr;
    const char* v = p_;
    p_ = Skip(v);
    if (*p_ == ',')
        p_ = Blanks(p_ + 1);
    return v;
}

}  // namespace jsonscan
