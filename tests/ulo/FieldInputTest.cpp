// The number fields' one way of reading a number and of refusing a field.
#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <clocale>
#include <cmath>
#include <limits>
#include <locale>
#include <string>
#include <vector>

#include "automation/ScriptedUser.h"
#include "ulo/ctrl/FieldInput.h"
#include "ulo/ctrl/Win.h"

using ulo::FieldNumber;
using ulo::FieldRule;
using Kind = FieldNumber::Kind;

namespace {
constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr FieldNumber N(double v) {
    return {Kind::Number, v};
}
constexpr FieldNumber kNone{Kind::NotANumber, 0.0};
constexpr FieldNumber Out(double v) {
    return {Kind::OutOfRange, v};
}
}  // namespace

// Each rule is the reading one dialog has always made: Leading the value entry,
// the point entry and the line type scale; LeadingZeroAlone the text insertion
// dialog; Whole the grid and snap pages. A comma locale changes nothing.
TEST(FieldInput, EachRuleReadsAFieldAsItsDialogsAlwaysHave) {
    const struct {
        std::wstring text;
        FieldNumber leading, zeroAlone, whole;
    } rows[] = {
        {L"", N(0), kNone, kNone},
        {L" 2.5 ", N(2.5), N(2.5), N(2.5)},
        {L"2.5 m", N(2.5), N(2.5), kNone},
        {L".5", N(0.5), N(0.5), N(0.5)},
        {L"+7e2", N(700), N(700), N(700)},
        {L"1e", N(1), N(1), kNone},
        {L"1,5", N(1), N(1), kNone},  // the number edits type a comma as '.'
        {L"abc", N(0), kNone, kNone},
        {L"0", N(0), N(0), N(0)},
        {L" -0 ", N(-0.0), N(-0.0), N(-0.0)},
        {L"0 m", N(0), kNone, kNone},
        {L"1e-400", N(0), N(0), N(0)},  // too small for a double: zero
        {L"1e-400x", N(0), kNone, kNone},
        {L"inf", N(0), kNone, kNone},
        {L"nan", N(0), kNone, kNone},
        {L"0x10", N(0), kNone, kNone},
        {L"-", N(0), kNone, kNone},
        {L"1 2", N(1), N(1), kNone},
        // The whole number counts, however long it is; ranges end where a double's do.
        {L"-0." + std::wstring(70, L'0') + L"1", N(-1e-71), N(-1e-71), N(-1e-71)},
        {L"1" + std::wstring(300, L'0'), N(1e300), N(1e300), N(1e300)},
        {L"4e-320", N(4e-320), N(4e-320), N(4e-320)},
        {L"1e99999999999999999999", Out(kInf), Out(kInf), Out(kInf)},
        {L"-" + std::wstring(400, L'9'), Out(-kInf), Out(-kInf), Out(-kInf)},
        {L"1e309 m", Out(kInf), Out(kInf), kNone},
        {std::wstring(L"5\0 m", 4), N(5), N(5), N(5)},  // a text ends at its NUL
    };
    const std::string before = std::setlocale(LC_ALL, nullptr);
    for (const char* locale : {"C", "it_IT.UTF-8"}) {
        if (!std::setlocale(LC_ALL, locale))
            continue;  // not on this machine; the other still runs
        const std::locale global = std::locale::global(std::locale(locale));
        for (const auto& r : rows) {
            for (const auto& [rule, expected] : {std::pair{FieldRule::Leading, r.leading},
                                                 {FieldRule::LeadingZeroAlone, r.zeroAlone},
                                                 {FieldRule::Whole, r.whole}}) {
                SCOPED_TRACE(testing::Message()
                             << locale << " rule " << int(rule) << " \""
                             << QString::fromStdWString(r.text.substr(0, 20)).toStdString());
                const FieldNumber read =
                    ulo::ReadNumberField(QString::fromStdWString(r.text), rule);
                EXPECT_EQ(read.kind, expected.kind);
                EXPECT_EQ(read.value, expected.value);
                EXPECT_EQ(std::signbit(read.value), std::signbit(expected.value));
            }
        }
        std::locale::global(global);
    }
    std::setlocale(LC_ALL, before.c_str());
}

// A refusal shows the warning, then puts the user into the field with its text
// selected; without a field the focus stays put; the beep refuses with no box.
TEST(FieldInput, ARefusalWarnsThenSelectsTheField) {
    enum class Way { Box, BoxAlone, Beep };
    for (const Way way : {Way::Box, Way::BoxAlone, Way::Beep}) {
        QWidget window;
        auto* field = new QLineEdit(QStringLiteral("12 m"), &window);
        auto* other = new QLineEdit(&window);
        window.show();
        QApplication::setActiveWindow(&window);
        other->setFocus();
        automation::ScriptedUser user;
        if (way == Way::Beep) {
            ulo::RefuseFieldWithBeep(field);
        } else {
            user.Answer(ulo::IDOK);
            ulo::RefuseField(&window, way == Way::Box ? field : nullptr, L"Warning", L"Not so");
        }
        EXPECT_TRUE(user.Finished()) << user.Report().toStdString();
        std::vector<QString> boxes;
        for (const automation::MessageRecord& m : user.Messages())
            boxes.push_back(m.caption + u'|' + m.text + u'|' + QString::number(m.flags));
        EXPECT_EQ(boxes, (way == Way::Beep ? std::vector<QString>{}
                                           : std::vector{QStringLiteral("Warning|Not so|48")}));
        EXPECT_EQ(user.Beeps(), way == Way::Beep ? 1 : 0);
        const bool selected = way != Way::BoxAlone;
        EXPECT_EQ(window.focusWidget() == field, selected);
        EXPECT_EQ(field->selectedText(), selected ? QStringLiteral("12 m") : QString());
    }
}
