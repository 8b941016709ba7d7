// The value entry dialogs (password, number, text, rotation) in their four layouts.
// Written by tools/gen_templates.py: change the script and run it, never this file.
#include "Templates.h"

namespace veld5::tpl {
using namespace ulo;

// One control per line, as the script writes it.
// clang-format off
namespace {
const CtrlTemplate c11000[] = {
    {kStaticId, CtrlKind::Static, L"Enter password to open the drawing:", kMultiline, {{6, 8, 127, 20}, {6, 8, 126, 20}, {6, 8, 117, 20}, {6, 8, 167, 9}}},
    {4779, CtrlKind::Edit, L"", kPassword | kUppercase | kAutoHScroll | kBorder, {{6, 32, 127, 12}, {6, 32, 126, 12}, {6, 32, 117, 12}, {6, 21, 167, 12}}},
    {11196, CtrlKind::PushButton, L"OK", kDefault, {{6, 145, 60, 16}, {6, 195, 60, 16}, {129, 78, 44, 16}, {179, 78, 44, 16}}},
    {11197, CtrlKind::PushButton, L"Cancel", 0, {{72, 145, 60, 16}, {72, 195, 60, 16}, {129, 98, 44, 16}, {179, 98, 44, 16}}},
};

const CtrlTemplate c11012[] = {
    {11138, CtrlKind::GroupBox, L"Text", 0, {{6, 6, 126, 32}, {6, 6, 126, 32}, {6, 6, 117, 32}, {6, 6, 167, 32}}},
    {kStaticId, CtrlKind::Static, L"Value :", 0, {{12, 23, 40, 9}, {12, 23, 40, 9}, {12, 23, 40, 9}, {12, 23, 40, 9}}},
    {11137, CtrlKind::Edit, L"", kNumeric | kAutoHScroll | kBorder, {{54, 21, 72, 12}, {54, 21, 72, 12}, {54, 21, 63, 12}, {54, 21, 113, 12}}},
    {11196, CtrlKind::PushButton, L"OK", kDefault, {{6, 145, 60, 16}, {6, 195, 60, 16}, {129, 78, 44, 16}, {179, 78, 44, 16}}},
    {11197, CtrlKind::PushButton, L"Cancel", 0, {{72, 145, 60, 16}, {72, 195, 60, 16}, {129, 98, 44, 16}, {179, 98, 44, 16}}},
};

const CtrlTemplate c11016[] = {
    {11213, CtrlKind::Static, L"Insert value:", 0, {{6, 8, 126, 9}, {6, 8, 126, 9}, {6, 8, 117, 9}, {6, 8, 167, 9}}},
    {11212, CtrlKind::Edit, L"", kAutoHScroll | kBorder, {{6, 19, 126, 12}, {6, 19, 126, 12}, {6, 19, 117, 12}, {6, 19, 167, 12}}},
    {11196, CtrlKind::PushButton, L"OK", kDefault, {{6, 145, 60, 16}, {6, 195, 60, 16}, {129, 78, 44, 16}, {179, 78, 44, 16}}},
    {11197, CtrlKind::PushButton, L"Cancel", 0, {{72, 145, 60, 16}, {72, 195, 60, 16}, {129, 98, 44, 16}, {179, 98, 44, 16}}},
};

const CtrlTemplate c11068[] = {
    {11138, CtrlKind::GroupBox, L"Text", 0, {{6, 6, 126, 71}, {6, 6, 126, 71}, {6, 6, 117, 71}, {6, 6, 167, 71}}},
    {11204, CtrlKind::RadioButton, L"1 Reference point", kGroupStart, {{9, 18, 120, 11}, {9, 18, 120, 11}, {9, 18, 111, 11}, {9, 18, 161, 11}}},
    {11205, CtrlKind::RadioButton, L"2 Reference points", 0, {{9, 31, 120, 11}, {9, 31, 120, 11}, {9, 31, 111, 11}, {9, 31, 161, 11}}},
    {11206, CtrlKind::RadioButton, L"Rotation angle specification", 0, {{9, 44, 120, 11}, {9, 44, 120, 11}, {9, 44, 111, 11}, {9, 44, 161, 11}}},
    {kStaticId, CtrlKind::Static, L"Value :", 0, {{12, 62, 40, 9}, {12, 62, 40, 9}, {12, 62, 40, 9}, {12, 62, 40, 9}}},
    {11137, CtrlKind::Edit, L"", kNumeric | kAutoHScroll | kBorder, {{54, 60, 72, 12}, {54, 60, 72, 12}, {54, 60, 63, 12}, {54, 60, 113, 12}}},
    {11196, CtrlKind::PushButton, L"OK", kDefault, {{6, 145, 60, 16}, {6, 195, 60, 16}, {129, 78, 44, 16}, {179, 78, 44, 16}}},
    {11197, CtrlKind::PushButton, L"Cancel", 0, {{72, 145, 60, 16}, {72, 195, 60, 16}, {129, 98, 44, 16}, {179, 98, 44, 16}}},
};

}  // namespace

const DialogTemplate k11000{11000, L"Insert password", nullptr, false, {{139, 167}, {138, 217}, {179, 120}, {229, 120}}, c11000, 11196, 11197};
const DialogTemplate k11012{11012, L"Enter...", L"QuadraCE.htm#Dlg InsValore", false, {{138, 167}, {138, 217}, {179, 120}, {229, 120}}, c11012, 11196, 11197, true};
const DialogTemplate k11016{11016, L"Enter...", nullptr, false, {{138, 167}, {138, 217}, {179, 120}, {229, 120}}, c11016, 11196, 11197};
const DialogTemplate k11068{11068, L"Enter...", L"QuadraCE.htm#Dlg ScegliRotazione", false, {{138, 167}, {138, 217}, {179, 120}, {229, 120}}, c11068, 11196, 11197, true};
// clang-format on

}  // namespace veld5::tpl
