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
