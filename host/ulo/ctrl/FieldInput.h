#pragma once
// Number fields of the dialogs: the notation their text is kept in, reading
// the number a field holds, and refusing a field the user must correct. Every
// dialog reads its number fields here, each under the rule it has always read
// them by. Numbers are in the "C" notation, '.' as the decimal point, whatever
// the process locale; "inf", "nan" and hexadecimal are not numbers, so no
// field ever reads as NaN.
#include <QString>
#include <string_view>

#include "Win.h"
#include "ulo/WString.h"

class QLineEdit;

namespace ulo {

/// How a field's text becomes a number.
enum class FieldRule {
    /// The leading number, as wtof reads it: blanks before it are skipped,
    /// what follows it is ignored, and a text without one reads as 0
    /// ("2.5 m" is 2.5, "abc" and "" are 0).
    Leading,
    /// The leading number, but a zero only from a text that is that zero
    /// alone: "5 m" is 5, "0" and " -0.0 " are zero, while "0 m", "abc" and
    /// "" hold no number.
    LeadingZeroAlone,
    /// The whole text is one number, with blanks around it at most: " 5 " is
    /// 5, "5 m" and "" hold no number.
    Whole,
};

/// What a field holds under a rule.
struct FieldNumber {
    enum class Kind {
        Number,
        NotANumber,  ///< never under FieldRule::Leading
        OutOfRange,  ///< a number beyond the range of a double
    };
    Kind kind = Kind::Number;
    /// The number read: 0 when the text holds none, an infinity of its sign
    /// when it is out of range (a number too small for a double reads as 0).
    double value = 0.0;

    bool IsNumber() const { return kind == Kind::Number; }
};

/// Turns what a keyboard of any locale types into the notation fields are
/// read in (the number edits do it as the user types): digits of other
/// scripts become 0-9, and a decimal separator ('.', ',' or the Arabic U+066B)
/// becomes '.'. A number holds one point, the separator typed last; those
/// before it were thousands separators and go ("1.234,5" and "1,234.5" become
/// "1234.5"), so a field never shows two points and is never read as the
/// number before the second. @p cursor follows the characters removed.
void ToFieldNotation(QString& text, int& cursor);

/// Reads @p text under @p rule. A text ends at its first NUL.
FieldNumber ReadNumberField(std::wstring_view text, FieldRule rule);
FieldNumber ReadNumberField(const QString& text, FieldRule rule);

/// Refuses what a field holds: the warning box (caption @p caption, text
/// @p text, flags kWarningFlags) over @p owner; once it is answered the focus
/// goes into @p field with its whole text selected, ready to be typed over.
/// With a null @p field the box alone: the focus stays where it was.
void RefuseField(CWnd* owner, QLineEdit* field, const WString& caption, const WString& text);
/// Refuses what a field holds with the warning beep alone, then puts the
/// focus into @p field with its whole text selected.
void RefuseFieldWithBeep(QLineEdit* field);

}  // namespace ulo
