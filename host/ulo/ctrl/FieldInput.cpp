#include "FieldInput.h"

#include <QLineEdit>
#include <string>

#include "MessageBox.h"
#include "ulo/NumberText.h"

namespace ulo {

FieldNumber ReadNumberField(std::wstring_view text, FieldRule rule) {
    const NumberScan scan = ScanNumber(text);
    FieldNumber read;
    read.value = scan.value;
    // The rule's test comes before the range: "1e999 m" holds no number as a
    // whole, though its leading number is out of range.
    if (rule == FieldRule::Whole && !IsWholeNumber(text))
        return {FieldNumber::Kind::NotANumber, 0.0};
    if (scan.outOfRange)
        read.kind = FieldNumber::Kind::OutOfRange;
    else if (rule == FieldRule::LeadingZeroAlone && scan.value == 0.0 && !IsWholeNumber(text))
        return {FieldNumber::Kind::NotANumber, 0.0};
    return read;
}

FieldNumber ReadNumberField(const QString& text, FieldRule rule) {
    return ReadNumberField(text.toStdWString(), rule);
}

void ToFieldNotation(QString& text, int& cursor) {
    qsizetype point = -1;
    for (qsizetype i = 0; i < text.size(); ++i) {
        QChar& c = text[i];
        if (c == QLatin1Char('.') || c == QLatin1Char(',') || c == QChar(0x066B)) {
            c = QLatin1Char('.');
            point = i;
        } else if (c.unicode() > 0x7F && c.isDigit()) {
            c = QLatin1Char(static_cast<char>('0' + c.digitValue()));
        }
    }
    if (point >= 0 && text.indexOf(QLatin1Char('.')) != point) {
        QString kept;
        kept.reserve(text.size());
        int at = cursor;
        for (qsizetype i = 0; i < text.size(); ++i) {
            if (text[i] == QLatin1Char('.') && i != point) {
                at -= i < cursor ? 1 : 0;
                continue;
            }
            kept += text[i];
        }
        text = kept;
        cursor = at;
    }
}

namespace {
void SelectField(QLineEdit* field) {
    field->setFocus();
    field->selectAll();
}
}  // namespace

void RefuseField(CWnd* owner, QLineEdit* field, const WString& caption, const WString& text) {
    CreateMessageBox(owner, caption, text, kWarningFlags);
    if (field)
        SelectField(field);
}

void RefuseFieldWithBeep(QLineEdit* field) {
    MessageBeep(MB_ICONEXCLAMATION);
    if (field)
        SelectField(field);
}

}  // namespace ulo
