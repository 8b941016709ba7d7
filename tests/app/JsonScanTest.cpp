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

/// Compares the value at @p v with Qt's reading of the same value.
void expectSame(const char* v, const QJsonValue& qt, const std::string& where) {
    using jsonscan::Kind;
    switch (jsonscan::KindOf(v)) {
        case Kind::Null:
            EXPECT_TRUE(qt.isNull()) << where;
            break;
        case Kind::Bool:
            EXPECT_EQ(jsonscan::ToBool(v), qt.toBool()) << where;
            break;
        case Kind::Number: {
            const double d = jsonscan::ToNumber(v);
            EXPECT_TRUE(qt.isDouble()) << where;
            // Qt keeps huge numbers as infinity or refuses them; either way
            // both readings agree on what is finite.
            if (std::isfinite(d) || std::isfinite(qt.toDouble())) {
                EXPECT_EQ(d, qt.toDouble()) << where;
            }
            EXPECT_FALSE(d == 0 && std::signbit(d)) << where << ": no signed zero";
            break;
        }
        case Kind::String:
            EXPECT_EQ(jsonscan::ToString(v), qt.toString()) << where;
            EXPECT_EQ(QString::fromStdWString(jsonscan::ToWString(v)), qt.toString()) << where;
            break;
        case Kind::Array: {
            const QJsonArray a = qt.toArray();
            jsonscan::Elements e(v);
            qsizetype i = 0;
            for (const char* x; (x = e.Next()); ++i)
                expectSame(x, a.at(i), where + "[" + std::to_string(i) + "]");
            EXPECT_EQ(i, a.size()) << where;
            break;
        }
        case Kind::Object: {
            const QJsonObject o = qt.toObject();
            jsonscan::Members m(v);
            for (const char *key, *value; m.Next(key, value);) {
                const QString k = jsonscan::ToString(key);
                EXPECT_TRUE(o.contains(k)) << where << "." << k.toStdString();
                if (o.value(k) != QJsonValue(QJsonValue::Undefined) &&
                    jsonscan::Equals(key, k.toStdString()))
                    expectSame(value, o.value(k), where + "." + k.toStdString());
            }
            break;
        }
        case Kind::Missing:
            ADD_FAILURE() << where;
    }
}

}  // namespace

TEST(JsonScan, ReadsWhatQtReads) {
    const char* docs[] = {
        "{}",
        "[]",
        " \t\r\n[1, -0, 0.5, -2.25e-3, 1E+2, 123456789012345678, 5e-324, 1.7976931348623157e308] ",
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
        const char* root = jsonscan::Blanks(bytes.constData());
        expectSame(root, qt.isObject() ? QJsonValue(qt.object()) : QJsonValue(qt.array()), "$");
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
