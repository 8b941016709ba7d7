// The in-place JSON reader: it reads the same strings and numbers out of a
// document as Qt's parser, and refuses what is not JSON (stricter than Qt),
// saying where.
#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <cmath>

#include "app/JsonScan.h"

namespace {

/// Whether the reader takes @p doc; @p error and @p at tell why not.
bool check(const QByteArray& doc, QString& error, qsizetype& at) {
    return jsonscan::Check(std::string_view(doc.constData(), doc.size()), error, at);
}
bool check(const QByteArray& doc) {
    QString error;
    qsizetype at = 0;
    return check(doc, error, at);
}

/// The value at @p v as Qt holds one: what the reader reads, checked on the
/// way against its other readings (wide strings, key comparison, no -0).
QJsonValue toQt(const char* v) {
    using jsonscan::Kind;
    switch (jsonscan::KindOf(v)) {
        case Kind::Null:
            return QJsonValue::Null;
        case Kind::Bool:
            return jsonscan::ToBool(v);
        case Kind::Number: {
            const double d = jsonscan::ToNumber(v);
            EXPECT_FALSE(d == 0 && std::signbit(d)) << v << ": no signed zero";
            return d;
        }
        case Kind::String:
            EXPECT_EQ(QString::fromStdWString(jsonscan::ToWString(v)), jsonscan::ToString(v));
            return jsonscan::ToString(v);
        case Kind::Array: {
            QJsonArray a;
            jsonscan::Elements e(v);
            for (const char* x; (x = e.Next());)
                a.append(toQt(x));
            return a;
        }
        case Kind::Object: {
            QJsonObject o;
            jsonscan::Members m(v);
            for (const char *key, *value; m.Next(key, value);) {
                const QString k = jsonscan::ToString(key);
                EXPECT_TRUE(jsonscan::Equals(key, k.toStdString())) << k.toStdString();
                o.insert(k, toQt(value));
            }
            return o;
        }
        case Kind::Missing:
            break;
    }
    ADD_FAILURE() << v;
    return QJsonValue::Undefined;
}

}  // namespace

TEST(JsonScan, ReadsWhatQtReads) {
    const char* docs[] = {
        "{}",
        "[]",
        " \t\r\n[1, -0, 0.5, -2.25e-3, 1E+2, 12345678901234567890, 5e-324, "
        "1.7976931348623157e308] ",
        R"({"a": "plain", "b": "\"\\\/\b\f\n\r\t", "c": "\u00e9\u4e2d\ud83d\ude00", "d": "é中😀"})",
        R"({"n\u0061me": "escaped key", "nested": {"x": [[], {}, [null, true, false]]}})",
        R"(["\u0000 inside", "a\u001fb", ""])",
        "[1e309, -1e309, 1e-400, -1e-400, -0.0]",
        "\"just a string\"",
        "17",
    };
    for (const char* doc : docs) {
        const QByteArray bytes(doc);
        QJsonParseError error{};
        const QJsonDocument qt = QJsonDocument::fromJson(bytes, &error);
        SCOPED_TRACE(doc);
        ASSERT_TRUE(check(bytes));
        if (error.error != QJsonParseError::NoError)
            continue;  // Qt refuses a top-level scalar or a number out of range
        EXPECT_EQ(toQt(jsonscan::Blanks(bytes.constData())),
                  qt.isObject() ? QJsonValue(qt.object()) : QJsonValue(qt.array()));
    }
}

TEST(JsonScan, RefusesWhatIsNotJsonAndSaysWhere) {
    const struct {
        QByteArray doc;
        const char* error;
        qsizetype at;
    } cases[] = {
        {"", "illegal value", 0},
        {"   ", "illegal value", 3},
        {"{\"a\": \"open", "unterminated string", 6},
        {"{\"a\" 1}", "missing name separator", 5},
        {"{\"a\": 1 \"b\": 2}", "missing value separator", 8},
        {"{\"a\": 1,}", "expected a name in quotes", 8},
        {"{a: 1}", "expected a name in quotes", 1},
        {"[1, 2", "unterminated array", 5},
        {"{\"a\": [1]", "unterminated object", 9},
        {"[1,]", "illegal value", 3},
        {"[01]", "missing value separator", 2},
        {"[1.]", "illegal number", 3},
        {"[-]", "illegal number", 2},
        {"[1e]", "illegal number", 3},
        {"[+1]", "illegal value", 1},
        {"[NaN]", "illegal value", 1},
        {"[tru]", "illegal value", 1},
        {"[\"\\x\"]", "illegal escape sequence", 3},
        {"[\"\\u12g4\"]", "illegal escape sequence", 3},
        {"[\"tab\there\"]", "control character in a string", 5},
        {QByteArray("[\"nul\0\"]", 8), "control character in a string", 5},
        {"[\"\xC0\xAF\"]", "invalid UTF8 string", 2},          // overlong '/'
        {"[\"\xED\xA0\x80\"]", "invalid UTF8 string", 2},      // a surrogate
        {"[\"\xF4\x90\x80\x80\"]", "invalid UTF8 string", 2},  // beyond U+10FFFF
        {"[\"\xE4\xB8\"]", "invalid UTF8 string", 2},          // cut short
        {"{} {}", "garbage at the end of the document", 3},
        {QByteArray(1025, '[') + QByteArray(1025, ']'), "too deeply nested document", 1024},
    };
    for (const auto& c : cases) {
        QString error;
        qsizetype at = -1;
        SCOPED_TRACE(c.doc.left(40).toStdString());
        EXPECT_FALSE(check(c.doc, error, at));
        EXPECT_EQ(error.toStdString(), c.error);
        EXPECT_EQ(at, c.at);
    }
    // As deep as Qt reads is fine.
    EXPECT_TRUE(check(QByteArray(1024, '[') + QByteArray(1024, ']')));
}
