// libFuzzer target: any bytes as a drawing file. Whatever the reader's syntax
// check accepts is walked to its last value, and opened; a refusal must leave
// the open drawing as it was.
#include <cstdint>

#include "app/DrawingFile.h"
#include "app/JsonScan.h"
#include "app/VELD.h"

namespace {

/// Reads every value under @p v.
void walk(const char* v) {
    switch (jsonscan::KindOf(v)) {
        case jsonscan::Kind::Object: {
            jsonscan::Members m(v);
            for (const char *key, *value; m.Next(key, value);) {
                (void)jsonscan::ToString(key);
                walk(value);
            }
            break;
        }
        case jsonscan::Kind::Array: {
            jsonscan::Elements e(v);
            while (const char* x = e.Next())
                walk(x);
            break;
        }
        case jsonscan::Kind::String:
            (void)jsonscan::ToWString(v);
            break;
        case jsonscan::Kind::Number:
            (void)jsonscan::ToNumber(v);
            break;
        default:
            break;
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    const QByteArray doc(reinterpret_cast<const char*>(bytes), static_cast<qsizetype>(size));
    QString error;
    qsizetype at = 0;
    if (jsonscan::Check(std::string_view(doc.constData(), size), error, at))
        walk(jsonscan::Blanks(doc.constData()));
    else if (at < 0 || at > static_cast<qsizetype>(size))
        __builtin_trap();
    static CVELD cad;
    static const QByteArray before = drawingfile::Write(cad);
    if (!drawingfile::Read(cad, doc, error)) {
        if (drawingfile::Write(cad) != before)
            __builtin_trap();
    } else {
        cad.SetData(std::make_unique<veld::CData>());
    }
    return 0;
}
