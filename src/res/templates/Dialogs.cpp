// The dialog templates in their four layouts.
// Written by tools/gen_templates.py: change the script and run it, never this file.
#include "Templates.h"

namespace veld5::tpl {
using namespace ulo;

// One control per line, as the script writes it.
// clang-format off
namespace {
const CtrlTemplate c11004[] = {
    {kStaticId, CtrlKind::Static, L"Scale\n( Meter/Pixel ) :", kMultiline, {{6, 6, 66, 18}, {6, 6, 66, 18}, {6, 6, 66, 18}, {6, 6, 66, 18}}},
    {11180, CtrlKind::Edit, L"", kNumeric | kAutoHScroll | kBorder, {{74, 9, 58, 12}, {74, 9, 58, 12}, {74, 9, 49, 12}, {74, 9, 99, 12}}},
    {kStaticId, CtrlKind::Static, L"Meters", kCenter, {{52, 30, 56, 9}, {52, 30, 56, 9}, {52, 30, 47, 9}, {52, 30, 97, 9}}},
    {kStaticId, CtrlKind::Static, L"Pixel", kCenter, {{112, 30, 20, 9}, {112, 30, 20, 9}, {103, 30, 20, 9}, {153, 30, 20, 9}}},
    {kStaticId, CtrlKind::Static, L"East Min :", 0, {{6, 43, 44, 9}, {6, 43, 44, 9}, {6, 43, 44, 9}, {6, 43, 44, 9}}},
    {11181, CtrlKind::Edit, L"", kNumeric | kAutoHScroll | kBorder, {{52, 41, 56, 12}, {52, 41, 56, 12}, {52, 41, 47, 12}, {52, 41, 97, 12}}},
    {kStaticId, CtrlKind::Static, L"0", kRight, {{112, 43, 20, 9}, {112, 43, 20, 9}, {103, 43, 20, 9}, {153, 43, 20, 9}}},
    {kStaticId, CtrlKind::Static, L"North Min :", 0, {{6, 57, 44, 9}, {6, 57, 44, 9}, {6, 57, 44, 9}, {6, 57, 44, 9}}},
    {11182, CtrlKind::Edit, L"", kNumeric | kAutoHScroll | kBorder, {{52, 55, 56, 12}, {52, 55, 56, 12}, {52, 55, 47, 12}, {52, 55, 97, 12}}},
    {kStaticId, CtrlKind::Static, L"0", kRight, {{112, 57, 20, 9}, {112, 57, 20, 9}, {103, 57, 20, 9}, {153, 57, 20, 9}}},
    {kStaticId, CtrlKind::Static, L"East Max :", 0, {{6, 71, 44, 9}, {6, 71, 44, 9}, {6, 71, 44, 9}, {6, 71, 44, 9}}},
    {11183, CtrlKind::Edit, L"", kNumeric | kAutoHScroll | kBorder, {{52, 69, 56, 12}, {52, 69, 56, 12}, {52, 69, 47, 12}, {52, 69, 97, 12}}},
    {11178, CtrlKind::Static, L"", kRight, {{112, 71, 20, 9}, {112, 71, 20, 9}, {103, 71, 20, 9}, {153, 71, 20, 9}}},
    {kStaticId, CtrlKind::Static, L"North Max :", 0, {{6, 85, 44, 9}, {6, 85, 44, 9}, {6, 85, 44, 9}, {6, 85, 44, 9}}},
    {11184, CtrlKind::Edit, L"", kNumeric | kAutoHScroll | kBorder, {{52, 83, 56, 12}, {52, 83, 56, 12}, {52, 83, 47, 12}, {52, 83, 97, 12}}},
    {11179, CtrlKind::Static, L"", kRight, {{112, 85, 20, 9}, {112, 85, 20, 9}, {103, 85, 20, 9}, {153, 85, 20, 9}}},
    {11176, CtrlKind::PushButton, L"Scale Calc.", 0, {{6, 123, 61, 16}, {6, 173, 61, 16}, {129, 6, 44, 16}, {179, 6, 44, 16}}},
    {11177, CtrlKind::PushButton, L"Max Dim.", 0, {{71, 123, 61, 16}, {71, 173, 61, 16}, {129, 26, 44, 16}, {179, 26, 44, 16}}},
    {11175, CtrlKind::PushButton, L"OK", kDefault, {{6, 145, 60, 16}, {6, 195, 60, 16}, {129, 78, 44, 16}, {179, 78, 44, 16}}},
    {11174, CtrlKind::PushButton, L"Cancel", 0, {{72, 145, 60, 16}, {72, 195, 60, 16}, {129, 98, 44, 16}, {179, 98, 44, 16}}},
};

const CtrlTemplate c11008[] = {
    {kStaticId, CtrlKind::GroupBox, L"Cursor settings", 0, {{6, 6, 126, 56}, {6, 6, 126, 56}, {6, 6, 117, 56}, {6, 6, 167, 56}}},
    {11158, CtrlKind::CheckBox, L"Full screen", 0, {{12, 18, 80, 11}, {12, 18, 80, 11}, {12, 18, 80, 11}, {12, 18, 80, 11}}},
    {kStaticId, CtrlKind::Static, L"Cross dimension :", 0, {{12, 34, 70, 9}, {12, 34, 70, 9}, {12, 34, 70, 9}, {12, 34, 70, 9}}},
    {11159, CtrlKind::Edit, L"", kNumeric | kAutoHScroll | kBorder, {{84, 32, 42, 12}, {84, 32, 42, 12}, {84, 32, 33, 12}, {84, 32, 83, 12}}},
    {kStaticId, CtrlKind::Static, L"Search dimension :", 0, {{12, 48, 70, 9}, {12, 48, 70, 9}, {12, 48, 70, 9}, {12, 48, 70, 9}}},
    {11160, CtrlKind::Edit, L"", kNumeric | kAutoHScroll | kBorder, {{84, 46, 42, 12}, {84, 46, 42, 12}, {84, 46, 33, 12}, {84, 46, 83, 12}}},
    {11196, CtrlKind::PushButton, L"OK", kDefault, {{6, 145, 60, 16}, {6, 195, 60, 16}, {129, 78, 44, 16}, {179, 78, 44, 16}}},
    {11197, CtrlKind::PushButton, L"Cancel", 0, {{72, 145, 60, 16}, {72, 195, 60, 16}, {129, 98, 44, 16}, {179, 98, 44, 16}}},
};

const CtrlTemplate c11020[] = {
    {11172, CtrlKind::TabControl, L"", 0, {{2, 3, 134, 14}, {2, 3, 134, 14}, {0, 0, 87, 14}, {0, 0, 137, 14}}},
    {11173, CtrlKind::Static, L"", kHidden | kBorder, {{2, 18, 134, 113}, {2, 18, 134, 167}, {0, 14, 179, 91}, {0, 14, 229, 91}}},
    {11196, CtrlKind::PushButton, L"OK", kDefault, {{6, 145, 60, 16}, {6, 195, 60, 16}, {93, 0, 38, 13}, {143, 0, 38, 13}}},
    {11197, CtrlKind::PushButton, L"Cancel", 0, {{72, 145, 60, 16}, {72, 195, 60, 16}, {137, 0, 40, 13}, {187, 0, 40, 13}}},
};

const CtrlTemplate c11024[] = {
    {kStaticId, CtrlKind::GroupBox, L"Text...", 0, {{6, 1, 126, 50}, {6, 2, 126, 57}, {6, 2, 66, 53}, {6, 2, 86, 53}}},
    {11139, CtrlKind::Edit, L"", kAutoHScroll | kBorder, {{10, 13, 118, 11}, {10, 14, 118, 12}, {10, 14, 58, 12}, {10, 14, 78, 12}}},
    {11146, CtrlKind::Edit, L"", kAutoHScroll | kBorder, {{10, 25, 118, 11}, {10, 29, 118, 12}, {10, 27, 58, 12}, {10, 27, 78, 12}}},
    {11147, CtrlKind::Edit, L"", kAutoHScroll | kBorder, {{10, 37, 118, 11}, {10, 44, 118, 12}, {10, 40, 58, 12}, {10, 40, 78, 12}}},
    {kStaticId, CtrlKind::GroupBox, L"Style...", 0, {{6, 52, 126, 87}, {6, 65, 126, 103}, {76, 2, 97, 93}, {96, 2, 127, 93}}},
    {kStaticId, CtrlKind::Static, L"Height :", 0, {{10, 66, 52, 9}, {10, 79, 52, 9}, {80, 16, 50, 9}, {100, 16, 50, 9}}},
    {11140, CtrlKind::Edit, L"", kNumeric | kAutoHScroll | kBorder, {{64, 64, 64, 11}, {64, 77, 64, 12}, {132, 14, 37, 12}, {152, 14, 67, 12}}},
    {kStaticId, CtrlKind::Static, L"Width factor :", 0, {{10, 78, 52, 9}, {10, 94, 52, 9}, {80, 29, 50, 9}, {100, 29, 50, 9}}},
    {11143, CtrlKind::Edit, L"", kNumeric | kAutoHScroll | kBorder, {{64, 76, 64, 11}, {64, 92, 64, 12}, {132, 27, 37, 12}, {152, 27, 67, 12}}},
    {kStaticId, CtrlKind::Static, L"Rotation :", 0, {{10, 90, 52, 9}, {10, 109, 52, 9}, {80, 42, 50, 9}, {100, 42, 50, 9}}},
    {11142, CtrlKind::Edit, L"", kNumeric | kAutoHScroll | kBorder, {{64, 88, 64, 11}, {64, 107, 64, 12}, {132, 40, 37, 12}, {152, 40, 67, 12}}},
    {kStaticId, CtrlKind::Static, L"Slant angle :", 0, {{10, 102, 52, 9}, {10, 124, 52, 9}, {80, 55, 50, 9}, {100, 55, 50, 9}}},
    {11141, CtrlKind::Edit, L"", kNumeric | kAutoHScroll | kBorder, {{64, 100, 64, 11}, {64, 122, 64, 12}, {132, 53, 37, 12}, {152, 53, 67, 12}}},
    {kStaticId, CtrlKind::Static, L"Justify :", 0, {{10, 114, 52, 9}, {10, 139, 52, 9}, {80, 68, 50, 9}, {100, 68, 50, 9}}},
    {11144, CtrlKind::ComboBox, L"", 0, {{64, 112, 64, 12}, {64, 137, 64, 13}, {132, 66, 37, 13}, {152, 66, 67, 13}}},
    {kStaticId, CtrlKind::Static, L"Style :", 0, {{10, 126, 52, 9}, {10, 154, 52, 9}, {80, 81, 50, 9}, {100, 81, 50, 9}}},
    {11145, CtrlKind::ComboBox, L"", 0, {{64, 124, 64, 12}, {64, 152, 64, 13}, {132, 79, 37, 13}, {152, 79, 67, 13}}},
    {11196, CtrlKind::PushButton, L"OK", kDefault, {{6, 145, 60, 16}, {6, 195, 60, 16}, {6, 78, 66, 16}, {6, 78, 86, 16}}},
    {11197, CtrlKind::PushButton, L"Cancel", 0, {{72, 145, 60, 16}, {72, 195, 60, 16}, {6, 98, 66, 16}, {6, 98, 86, 16}}},
};

const CtrlTemplate c11028[] = {
    {11133, CtrlKind::Static, L"Show :", 0, {{6, 8, 26, 9}, {6, 8, 26, 9}, {6, 8, 26, 9}, {6, 8, 26, 9}}},
    {1128, CtrlKind::ComboBox, L"", 0, {{34, 6, 98, 13}, {34, 6, 98, 13}, {34, 6, 89, 13}, {34, 6, 139, 13}}},
    {1129, CtrlKind::ListView, L"", kReportView | kSingleSel | kShowSelAlways | kOwnerDraw | kBorder, {{6, 23, 126, 96}, {6, 23, 126, 146}, {6, 23, 117, 91}, {6, 23, 167, 91}}},
    {1130, CtrlKind::PushButton, L"New", 0, {{6, 125, 39, 16}, {6, 175, 39, 16}, {129, 6, 44, 16}, {179, 6, 44, 16}}},
    {1131, CtrlKind::PushButton, L"Delete", 0, {{49, 125, 39, 16}, {49, 175, 39, 16}, {129, 26, 44, 16}, {179, 26, 44, 16}}},
    {1132, CtrlKind::PushButton, L"Current", 0, {{92, 125, 39, 16}, {92, 175, 39, 16}, {129, 46, 44, 16}, {179, 46, 44, 16}}},
    {1, CtrlKind::PushButton, L"OK", kDefault, {{6, 145, 60, 16}, {6, 195, 60, 16}, {129, 78, 44, 16}, {179, 78, 44, 16}}},
    {2, CtrlKind::PushButton, L"Cancel", 0, {{72, 145, 60, 16}, {72, 195, 60, 16}, {129, 98, 44, 16}, {179, 98, 44, 16}}},
    {11132, CtrlKind::Edit, L"", kHidden | kAutoHScroll | kBorder, {{8, 37, 60, 12}, {8, 37, 60, 12}, {8, 37, 60, 12}, {8, 37, 60, 12}}},
};

const CtrlTemplate c11032[] = {
    {11133, CtrlKind::Static, L"Show :", 0, {{6, 8, 26, 9}, {6, 8, 26, 9}, {6, 8, 26, 9}, {6, 8, 26, 9}}},
    {11125, CtrlKind::ComboBox, L"", 0, {{34, 6, 98, 13}, {34, 6, 98, 13}, {34, 6, 89, 13}, {34, 6, 139, 13}}},
    {11126, CtrlKind::ListView, L"", kReportView | kSingleSel | kShowSelAlways | kOwnerDraw | kBorder, {{6, 23, 126, 80}, {6, 23, 126, 130}, {6, 23, 117, 75}, {6, 23, 167, 75}}},
    {11131, CtrlKind::Static, L"Glob scale fact.:", 0, {{6, 109, 64, 9}, {6, 159, 64, 9}, {6, 104, 64, 9}, {6, 104, 64, 9}}},
    {11130, CtrlKind::Edit, L"", kNumeric | kAutoHScroll | kBorder, {{72, 107, 60, 12}, {72, 157, 60, 12}, {72, 102, 51, 12}, {72, 102, 101, 12}}},
    {11128, CtrlKind::PushButton, L"Load...", 0, {{6, 125, 39, 16}, {6, 175, 39, 16}, {129, 6, 44, 16}, {179, 6, 44, 16}}},
    {11127, CtrlKind::PushButton, L"Delete", 0, {{49, 125, 39, 16}, {49, 175, 39, 16}, {129, 26, 44, 16}, {179, 26, 44, 16}}},
    {11129, CtrlKind::PushButton, L"Current", 0, {{92, 125, 39, 16}, {92, 175, 39, 16}, {129, 46, 44, 16}, {179, 46, 44, 16}}},
    {1, CtrlKind::PushButton, L"OK", kDefault, {{6, 145, 60, 16}, {6, 195, 60, 16}, {129, 78, 44, 16}, {179, 78, 44, 16}}},
    {2, CtrlKind::PushButton, L"Cancel", 0, {{72, 145, 60, 16}, {72, 195, 60, 16}, {129, 98, 44, 16}, {179, 98, 44, 16}}},
    {11132, CtrlKind::Edit, L"", kHidden | kAutoHScroll | kBorder, {{8, 37, 60, 12}, {8, 37, 60, 12}, {8, 37, 60, 12}, {8, 37, 60, 12}}},
};

const CtrlTemplate c11036[] = {
    {kStaticId, CtrlKind::Static, L"Load the line types:", 0, {{6, 6, 76, 9}, {6, 6, 76, 9}, {6, 9, 76, 9}, {6, 9, 76, 9}}, 0x3, 0, nullptr, 0},
    {11134, CtrlKind::PushButton, L"File...", 0, {{6, 6, 44, 14}, {6, 6, 44, 14}, {84, 6, 39, 14}, {84, 6, 89, 14}}},
    {11135, CtrlKind::Edit, L"", kReadOnly | kAutoHScroll | kBorder, {{54, 7, 78, 12}, {54, 7, 78, 12}, {6, 23, 117, 12}, {6, 23, 167, 12}}},
    {kStaticId, CtrlKind::Static, L"Line types available:", 0, {{6, 24, 126, 9}, {6, 24, 126, 9}, {6, 38, 117, 9}, {6, 38, 167, 9}}},
    {1162, CtrlKind::Static, L"", kHidden, {{6, 35, 126, 104}, {6, 35, 126, 154}, {6, 49, 117, 65}, {6, 49, 167, 65}}},
    {2000, CtrlKind::Custom, L"", kBorder, {{6, 35, 126, 104}, {6, 35, 126, 154}, {6, 49, 117, 65}, {6, 49, 167, 65}}},
    {1, CtrlKind::PushButton, L"OK", kDefault, {{6, 145, 60, 16}, {6, 195, 60, 16}, {129, 78, 44, 16}, {179, 78, 44, 16}}},
    {2, CtrlKind::PushButton, L"Cancel", 0, {{72, 145, 60, 16}, {72, 195, 60, 16}, {129, 98, 44, 16}, {179, 98, 44, 16}}},
};

const CtrlTemplate c11040[] = {
    {kStaticId, CtrlKind::Static, L"Choice of the measuring system of the angles", kMultiline, {{3, 4, 132, 20}, {3, 4, 132, 20}, {1, 6, 177, 9}, {1, 6, 227, 9}}, 0xC, 0, nullptr, 0},
    {kStaticId, CtrlKind::GroupBox, L"Choice of the measuring system of the angles", 0, {{1, 26, 136, 59}, {1, 26, 136, 59}, {1, 6, 177, 94}, {1, 6, 227, 94}}, 0, 0, L"", 0x3},
    {11123, CtrlKind::RadioButton, L"Degrees ( 360° )\nOrigin at East - Counterclockwise", kGroupStart | kMultiline, {{3, 31, 132, 22}, {3, 31, 132, 22}, {3, 20, 173, 22}, {3, 20, 223, 22}}},
    {11124, CtrlKind::RadioButton, L"Gons ( 400° )\nOrigin at North - Clockwise", kMultiline, {{3, 57, 132, 22}, {3, 57, 132, 22}, {3, 46, 173, 22}, {3, 46, 223, 22}}},
    {11196, CtrlKind::PushButton, L"OK", kDefault, {{6, 145, 60, 16}, {6, 195, 60, 16}, {71, 102, 50, 15}, {121, 102, 50, 15}}},
    {11197, CtrlKind::PushButton, L"Cancel", 0, {{72, 145, 60, 16}, {72, 195, 60, 16}, {125, 102, 50, 15}, {175, 102, 50, 15}}},
};

const CtrlTemplate c11044[] = {
    {kStaticId, CtrlKind::GroupBox, L"Color options", 0, {{2, 1, 131, 131}, {2, 1, 131, 167}, {1, 1, 177, 118}, {1, 1, 176, 117}}},
    {kStaticId, CtrlKind::GroupBox, L"Standard color", 0, {{6, 13, 58, 26}, {6, 14, 58, 26}, {3, 13, 58, 26}, {3, 13, 58, 26}}},
    {11187, CtrlKind::Custom, L"", 0, {{9, 25, 52, 12}, {9, 26, 52, 12}, {6, 25, 52, 12}, {6, 25, 52, 12}}},
    {kStaticId, CtrlKind::GroupBox, L"Gray shades", 0, {{66, 13, 58, 26}, {66, 14, 58, 26}, {63, 13, 58, 26}, {63, 13, 58, 26}}, 0, 0, L"Gray tone", 0xC},
    {11189, CtrlKind::Custom, L"", 0, {{69, 25, 52, 12}, {69, 26, 52, 12}, {66, 25, 52, 12}, {66, 25, 52, 12}}},
    {kStaticId, CtrlKind::GroupBox, L"Logical colors", 0, {{6, 40, 74, 27}, {6, 44, 124, 27}, {123, 13, 52, 42}, {123, 13, 52, 42}}},
    {11190, CtrlKind::PushButton, L"By Layer", 0, {{8, 52, 34, 13}, {8, 56, 59, 13}, {125, 25, 48, 13}, {125, 25, 48, 13}}},
    {11191, CtrlKind::PushButton, L"By Block", 0, {{44, 52, 34, 13}, {69, 56, 59, 13}, {125, 40, 48, 13}, {125, 40, 48, 13}}},
    {kStaticId, CtrlKind::Static, L"Full palette of colors", 0, {{6, 68, 100, 9}, {6, 76, 100, 9}, {3, 46, 100, 9}, {3, 46, 100, 9}}},
    {11192, CtrlKind::Custom, L"", 0, {{6, 78, 124, 26}, {6, 86, 124, 26}, {3, 56, 124, 26}, {3, 56, 124, 26}}},
    {11193, CtrlKind::Custom, L"", 0, {{6, 104, 124, 26}, {6, 112, 124, 26}, {3, 82, 124, 26}, {3, 82, 124, 26}}},
    {kStaticId, CtrlKind::Static, L"Color :", 0, {{82, 43, 30, 9}, {6, 150, 26, 9}, {130, 59, 28, 9}, {130, 59, 28, 9}}},
    {11194, CtrlKind::Edit, L"", kReadOnly | kAutoHScroll | kBorder, {{82, 55, 48, 12}, {34, 148, 68, 12}, {130, 74, 45, 12}, {130, 74, 45, 12}}, 0, 0xC, nullptr, 0},
    {11195, CtrlKind::Custom, L"", kBorder, {{116, 40, 14, 14}, {106, 144, 20, 20}, {160, 57, 15, 15}, {160, 57, 15, 15}}},
    {11196, CtrlKind::PushButton, L"OK", kDefault, {{6, 145, 60, 16}, {6, 195, 60, 16}, {130, 88, 45, 13}, {179, 78, 44, 16}}},
    {11197, CtrlKind::PushButton, L"Cancel", 0, {{72, 145, 60, 16}, {72, 195, 60, 16}, {130, 103, 45, 13}, {179, 98, 44, 16}}},
};

const CtrlTemplate c11048[] = {
    {kStaticId, CtrlKind::Static, L"Window color ...", 0, {{6, 6, 80, 9}, {6, 6, 80, 9}, {6, 6, 80, 9}, {6, 6, 80, 9}}},
    {kStaticId, CtrlKind::Static, L"Element:", 0, {{6, 20, 34, 9}, {6, 20, 34, 9}, {6, 20, 34, 9}, {6, 20, 34, 9}}},
    {11113, CtrlKind::ComboBox, L"", 0, {{42, 18, 90, 13}, {42, 18, 90, 13}, {42, 18, 81, 13}, {42, 18, 131, 13}}},
    {11121, CtrlKind::Static, L"", kHidden, {{6, 35, 126, 26}, {6, 35, 126, 26}, {6, 35, 90, 26}, {6, 35, 90, 26}}},
    {kStaticId, CtrlKind::Static, L"R :", 0, {{6, 66, 12, 9}, {6, 66, 12, 9}, {6, 66, 12, 9}, {6, 66, 12, 9}}},
    {11120, CtrlKind::Static, L"XXX", kRight, {{19, 66, 16, 9}, {19, 66, 16, 9}, {19, 66, 16, 9}, {19, 66, 16, 9}}},
    {11114, CtrlKind::ScrollBarH, L"", 0, {{38, 65, 66, 10}, {38, 65, 66, 10}, {38, 65, 85, 10}, {38, 65, 135, 10}}},
    {kStaticId, CtrlKind::Static, L"G :", 0, {{6, 78, 12, 9}, {6, 78, 12, 9}, {6, 78, 12, 9}, {6, 78, 12, 9}}},
    {11119, CtrlKind::Static, L"XXX", kRight, {{19, 78, 16, 9}, {19, 78, 16, 9}, {19, 78, 16, 9}, {19, 78, 16, 9}}},
    {11115, CtrlKind::ScrollBarH, L"", 0, {{38, 77, 66, 10}, {38, 77, 66, 10}, {38, 77, 85, 10}, {38, 77, 135, 10}}},
    {kStaticId, CtrlKind::Static, L"B :", 0, {{6, 90, 12, 9}, {6, 90, 12, 9}, {6, 90, 12, 9}, {6, 90, 12, 9}}},
    {11118, CtrlKind::Static, L"XXX", kRight, {{19, 90, 16, 9}, {19, 90, 16, 9}, {19, 90, 16, 9}, {19, 90, 16, 9}}},
    {11116, CtrlKind::ScrollBarH, L"", 0, {{38, 89, 66, 10}, {38, 89, 66, 10}, {38, 89, 85, 10}, {38, 89, 135, 10}}},
    {11117, CtrlKind::Custom, L"", kBorder, {{108, 65, 24, 34}, {108, 65, 24, 34}, {100, 35, 23, 26}, {100, 35, 73, 26}}},
    {1133, CtrlKind::CheckBox, L"Colorize selected entities", 0, {{6, 103, 110, 11}, {6, 103, 110, 11}, {6, 103, 110, 11}, {6, 103, 110, 11}}},
    {11112, CtrlKind::PushButton, L"Default", 0, {{6, 123, 60, 16}, {6, 173, 60, 16}, {129, 6, 44, 16}, {179, 6, 44, 16}}},
    {11196, CtrlKind::PushButton, L"OK", kDefault, {{6, 145, 60, 16}, {6, 195, 60, 16}, {129, 78, 44, 16}, {179, 78, 44, 16}}},
    {11197, CtrlKind::PushButton, L"Cancel", 0, {{72, 145, 60, 16}, {72, 195, 60, 16}, {129, 98, 44, 16}, {179, 98, 44, 16}}},
};

const CtrlTemplate c11052[] = {
    {11111, CtrlKind::GroupBox, L"Title", 0, {{6, 6, 126, 44}, {6, 6, 126, 44}, {6, 6, 117, 44}, {6, 6, 167, 44}}},
    {kStaticId, CtrlKind::Static, L"Style name :", 0, {{12, 18, 60, 9}, {12, 18, 60, 9}, {12, 18, 60, 9}, {12, 18, 60, 9}}},
    {11110, CtrlKind::Edit, L"", kAutoHScroll | kBorder, {{12, 30, 114, 12}, {12, 30, 114, 12}, {12, 30, 105, 12}, {12, 30, 155, 12}}},
    {11196, CtrlKind::PushButton, L"OK", kDefault, {{6, 145, 60, 16}, {6, 195, 60, 16}, {129, 78, 44, 16}, {179, 78, 44, 16}}},
    {11197, CtrlKind::PushButton, L"Cancel", 0, {{72, 145, 60, 16}, {72, 195, 60, 16}, {129, 98, 44, 16}, {179, 98, 44, 16}}},
};

const CtrlTemplate c11056[] = {
    {kStaticId, CtrlKind::GroupBox, L"Text style", 0, {{4, 1, 130, 43}, {4, 1, 130, 43}, {2, 1, 92, 59}, {2, 1, 116, 43}}},
    {11100, CtrlKind::ComboBox, L"", 0, {{8, 13, 122, 13}, {8, 13, 122, 13}, {6, 13, 84, 13}, {6, 13, 108, 13}}},
    {11101, CtrlKind::PushButton, L"New", 0, {{7, 28, 40, 14}, {7, 28, 40, 14}, {5, 28, 42, 14}, {5, 28, 35, 14}}},
    {11102, CtrlKind::PushButton, L"Rename", 0, {{49, 28, 40, 14}, {49, 28, 40, 14}, {49, 28, 42, 14}, {42, 28, 35, 14}}},
    {11103, CtrlKind::PushButton, L"Delete", 0, {{91, 28, 40, 14}, {91, 28, 40, 14}, {5, 44, 42, 14}, {79, 28, 35, 14}}},
    {kStaticId, CtrlKind::GroupBox, L"Font", 0, {{4, 45, 130, 41}, {4, 45, 130, 41}, {2, 61, 92, 41}, {2, 45, 116, 41}}},
    {kStaticId, CtrlKind::Static, L"Name :", 0, {{8, 59, 34, 9}, {8, 59, 34, 9}, {6, 75, 34, 9}, {6, 59, 34, 9}}},
    {11104, CtrlKind::ComboBox, L"", kSorted | kOwnerDraw, {{44, 57, 68, 13}, {44, 57, 68, 13}, {42, 73, 30, 13}, {42, 57, 54, 13}}},
    {11122, CtrlKind::PushButton, L"", kIconOnly, {{114, 57, 16, 13}, {114, 57, 16, 13}, {74, 73, 16, 13}, {98, 57, 16, 13}}},
    {kStaticId, CtrlKind::Static, L"Font style:", 0, {{8, 73, 40, 9}, {8, 73, 40, 9}, {6, 89, 40, 9}, {6, 73, 40, 9}}},
    {11105, CtrlKind::ComboBox, L"", 0, {{50, 71, 80, 13}, {50, 71, 80, 13}, {48, 87, 42, 13}, {48, 71, 66, 13}}},
    {kStaticId, CtrlKind::GroupBox, L"Effects", 0, {{4, 87, 130, 52}, {4, 87, 130, 52}, {97, 1, 80, 64}, {121, 1, 106, 64}}},
    {kStaticId, CtrlKind::Static, L"Heigth:", 0, {{8, 101, 50, 9}, {8, 101, 50, 9}, {101, 15, 40, 9}, {125, 15, 50, 9}}},
    {11106, CtrlKind::Edit, L"", kNumeric | kAutoHScroll | kBorder, {{60, 99, 32, 12}, {60, 99, 32, 12}, {143, 13, 30, 12}, {177, 13, 46, 12}}},
    {kStaticId, CtrlKind::Static, L"Width factor:", 0, {{8, 114, 50, 9}, {8, 114, 50, 9}, {101, 28, 40, 9}, {125, 28, 50, 9}}, 0, 0, L"Width fact.:", 0x4},
    {11107, CtrlKind::Edit, L"", kNumeric | kAutoHScroll | kBorder, {{60, 112, 32, 12}, {60, 112, 32, 12}, {143, 26, 30, 12}, {177, 26, 46, 12}}},
    {kStaticId, CtrlKind::Static, L"Oblique ang.:", 0, {{8, 127, 50, 9}, {8, 127, 50, 9}, {101, 41, 40, 9}, {125, 41, 50, 9}}, 0, 0, L"Slant A.:", 0x4},
    {11108, CtrlKind::Edit, L"", kNumeric | kAutoHScroll | kBorder, {{60, 125, 32, 12}, {60, 125, 32, 12}, {143, 39, 30, 12}, {177, 39, 46, 12}}},
    {11109, CtrlKind::CheckBox, L"Vertical", 0, {{92, 112, 40, 11}, {92, 112, 40, 11}, {101, 52, 50, 11}, {125, 52, 50, 11}}},
    {11196, CtrlKind::PushButton, L"OK", kDefault, {{6, 145, 60, 16}, {6, 195, 60, 16}, {101, 82, 72, 16}, {125, 82, 98, 16}}},
    {11197, CtrlKind::PushButton, L"Cancel", 0, {{72, 145, 60, 16}, {72, 195, 60, 16}, {101, 102, 72, 16}, {125, 102, 98, 16}}},
};

const CtrlTemplate c11060[] = {
    {kStaticId, CtrlKind::GroupBox, L"Mode", 0, {{2, 2, 135, 49}, {2, 2, 134, 49}, {2, 1, 175, 24}, {2, 1, 225, 24}}},
    {1135, CtrlKind::RadioButton, L"Free drawing", kGroupStart, {{8, 14, 80, 11}, {8, 14, 80, 11}, {5, 13, 62, 10}, {5, 13, 62, 10}}},
    {1136, CtrlKind::RadioButton, L"Input coord.", 0, {{8, 26, 80, 11}, {8, 26, 80, 11}, {68, 13, 60, 10}, {68, 13, 60, 10}}},
    {1137, CtrlKind::RadioButton, L"Snap", 0, {{8, 38, 80, 11}, {8, 38, 80, 11}, {129, 13, 43, 10}, {129, 13, 93, 10}}},
    {kStaticId, CtrlKind::GroupBox, L"Snap type", 0, {{2, 53, 135, 81}, {2, 53, 134, 105}, {2, 26, 175, 72}, {2, 26, 225, 72}}},
    {1138, CtrlKind::CheckBox, L"End points", 0, {{4, 65, 65, 11}, {4, 65, 64, 11}, {5, 38, 83, 10}, {5, 38, 108, 10}}},
    {1139, CtrlKind::CheckBox, L"Mid point", 0, {{4, 79, 65, 11}, {4, 85, 64, 11}, {5, 50, 83, 10}, {5, 50, 108, 10}}},
    {1140, CtrlKind::CheckBox, L"Intersection", 0, {{4, 93, 65, 11}, {4, 105, 64, 11}, {5, 62, 83, 10}, {5, 62, 108, 10}}},
    {1141, CtrlKind::CheckBox, L"Center", 0, {{4, 107, 65, 11}, {4, 125, 64, 11}, {5, 74, 83, 10}, {5, 74, 108, 10}}},
    {1142, CtrlKind::CheckBox, L"Quadrant", 0, {{4, 121, 65, 11}, {4, 145, 64, 11}, {5, 86, 83, 10}, {5, 86, 108, 10}}},
    {1143, CtrlKind::CheckBox, L"Tangent", 0, {{70, 65, 65, 11}, {69, 65, 64, 11}, {90, 38, 83, 10}, {115, 38, 108, 10}}},
    {1144, CtrlKind::CheckBox, L"Perpendic.", 0, {{70, 79, 65, 11}, {69, 85, 64, 11}, {90, 50, 83, 10}, {115, 50, 108, 10}}},
    {1145, CtrlKind::CheckBox, L"Insert", 0, {{70, 93, 65, 11}, {69, 105, 64, 11}, {90, 62, 83, 10}, {115, 62, 108, 10}}},
    {1146, CtrlKind::CheckBox, L"Connect to pt.", 0, {{70, 107, 65, 11}, {69, 125, 64, 11}, {90, 74, 83, 10}, {115, 74, 108, 10}}},
    {1147, CtrlKind::CheckBox, L"Near", 0, {{70, 121, 65, 11}, {69, 145, 64, 11}, {90, 86, 83, 10}, {115, 86, 108, 10}}},
    {11196, CtrlKind::PushButton, L"OK", kDefault, {{6, 145, 60, 16}, {6, 195, 60, 16}, {71, 102, 50, 15}, {121, 102, 50, 15}}},
    {11197, CtrlKind::PushButton, L"Cancel", 0, {{72, 145, 60, 16}, {72, 195, 60, 16}, {125, 102, 50, 15}, {175, 102, 50, 15}}},
};

const CtrlTemplate c11064[] = {
    {kStaticId, CtrlKind::Static, L"Color:", 0, {{6, 10, 52, 9}, {6, 10, 52, 9}, {6, 10, 52, 9}, {6, 10, 52, 9}}},
    {1155, CtrlKind::Custom, L"", kBorder, {{60, 6, 15, 15}, {60, 6, 15, 15}, {60, 6, 15, 15}, {60, 6, 15, 15}}},
    {1154, CtrlKind::Static, L"", 0, {{78, 10, 54, 9}, {78, 10, 54, 9}, {78, 10, 45, 9}, {78, 10, 95, 9}}},
    {kStaticId, CtrlKind::Static, L"Entity set@@(no longer)", 0, {{6, 27, 126, 9}, {6, 27, 126, 9}, {6, 27, 88, 9}, {6, 27, 88, 9}}},
    {1157, CtrlKind::ComboBox, L"", 0, {{6, 37, 126, 13}, {6, 37, 126, 13}, {96, 25, 27, 13}, {96, 25, 77, 13}}},
    {kStaticId, CtrlKind::Static, L"Layer:", 0, {{6, 54, 52, 9}, {6, 57, 52, 9}, {6, 42, 52, 9}, {6, 42, 52, 9}}},
    {1158, CtrlKind::ComboBox, L"", 0, {{60, 52, 72, 13}, {60, 55, 72, 13}, {60, 40, 63, 13}, {60, 40, 113, 13}}},
    {kStaticId, CtrlKind::Static, L"Line types:", 0, {{6, 69, 52, 9}, {6, 75, 52, 9}, {6, 57, 52, 9}, {6, 57, 52, 9}}},
    {1159, CtrlKind::ComboBox, L"", 0, {{60, 67, 72, 13}, {60, 73, 72, 13}, {60, 55, 63, 13}, {60, 55, 113, 13}}},
    {kStaticId, CtrlKind::Static, L"Scale fact.:", 0, {{6, 84, 52, 9}, {6, 93, 52, 9}, {6, 72, 52, 9}, {6, 72, 52, 9}}, 0, 0, L"Scale factor:", 0x8},
    {1156, CtrlKind::Edit, L"", kNumeric | kAutoHScroll | kBorder, {{60, 82, 72, 12}, {60, 91, 72, 12}, {60, 70, 63, 12}, {60, 70, 113, 12}}},
    {11196, CtrlKind::PushButton, L"OK", kDefault, {{6, 145, 60, 16}, {6, 195, 60, 16}, {129, 78, 44, 16}, {179, 78, 44, 16}}},
    {11197, CtrlKind::PushButton, L"Cancel", 0, {{72, 145, 60, 16}, {72, 195, 60, 16}, {129, 98, 44, 16}, {179, 98, 44, 16}}},
};

const CtrlTemplate c11072[] = {
    {kStaticId, CtrlKind::GroupBox, L"Enter the coordinates", 0, {{6, 6, 126, 58}, {6, 6, 126, 58}, {6, 6, 117, 58}, {6, 6, 167, 58}}},
    {kStaticId, CtrlKind::Static, L"East :", 0, {{12, 20, 32, 9}, {12, 20, 32, 9}, {12, 20, 32, 9}, {12, 20, 32, 9}}},
    {11185, CtrlKind::Edit, L"", kNumeric | kAutoHScroll | kBorder, {{46, 18, 80, 12}, {46, 18, 80, 12}, {46, 18, 71, 12}, {46, 18, 121, 12}}},
    {kStaticId, CtrlKind::Static, L"North :", 0, {{12, 35, 32, 9}, {12, 35, 32, 9}, {12, 35, 32, 9}, {12, 35, 32, 9}}},
    {11186, CtrlKind::Edit, L"", kNumeric | kAutoHScroll | kBorder, {{46, 33, 80, 12}, {46, 33, 80, 12}, {46, 33, 71, 12}, {46, 33, 121, 12}}},
    {kStaticId, CtrlKind::Static, L"Elev. :", 0, {{12, 50, 32, 9}, {12, 50, 32, 9}, {12, 50, 32, 9}, {12, 50, 32, 9}}},
    {11188, CtrlKind::Edit, L"", kNumeric | kAutoHScroll | kBorder, {{46, 48, 80, 12}, {46, 48, 80, 12}, {46, 48, 71, 12}, {46, 48, 121, 12}}},
    {11196, CtrlKind::PushButton, L"OK", kDefault, {{6, 145, 60, 16}, {6, 195, 60, 16}, {129, 78, 44, 16}, {179, 78, 44, 16}}},
    {11197, CtrlKind::PushButton, L"Cancel", 0, {{72, 145, 60, 16}, {72, 195, 60, 16}, {129, 98, 44, 16}, {179, 98, 44, 16}}},
};

const CtrlTemplate c11076[] = {
    {1152, CtrlKind::ListView, L"", kReportView | kSingleSel | kOwnerDraw | kBorder, {{6, 6, 127, 76}, {6, 6, 126, 126}, {6, 6, 97, 108}, {6, 6, 147, 108}}},
    {kStaticId, CtrlKind::GroupBox, L"New", 0, {{6, 84, 75, 27}, {6, 134, 74, 27}, {107, 1, 66, 27}, {157, 1, 66, 27}}},
    {604, CtrlKind::PushButton, L"CAD", 0, {{9, 96, 33, 13}, {9, 146, 33, 13}, {110, 13, 29, 13}, {160, 13, 29, 13}}},
    {605, CtrlKind::PushButton, L"Topog.", 0, {{44, 96, 33, 13}, {44, 146, 33, 13}, {141, 13, 29, 13}, {191, 13, 29, 13}}},
    {kStaticId, CtrlKind::GroupBox, L"Delete", 0, {{85, 84, 48, 27}, {84, 134, 48, 27}, {107, 29, 66, 27}, {157, 29, 66, 27}}},
    {600, CtrlKind::PushButton, L"Delete", 0, {{88, 96, 42, 13}, {87, 146, 42, 13}, {110, 41, 60, 13}, {160, 41, 60, 13}}},
    {kStaticId, CtrlKind::GroupBox, L"Move", 0, {{6, 112, 127, 27}, {6, 162, 126, 27}, {107, 57, 66, 27}, {157, 57, 66, 27}}},
    {602, CtrlKind::PushButton, L"Up", 0, {{9, 124, 59, 13}, {9, 174, 59, 13}, {110, 69, 29, 13}, {160, 69, 29, 13}}},
    {603, CtrlKind::PushButton, L"Down", 0, {{70, 124, 59, 13}, {70, 174, 59, 13}, {141, 69, 29, 13}, {191, 69, 29, 13}}},
    {1, CtrlKind::PushButton, L"OK", kDefault, {{6, 145, 60, 16}, {6, 195, 60, 16}, {107, 87, 66, 14}, {157, 87, 66, 14}}},
    {2, CtrlKind::PushButton, L"Cancel", 0, {{72, 145, 60, 16}, {72, 195, 60, 16}, {107, 104, 66, 14}, {157, 104, 66, 14}}},
    {1161, CtrlKind::Edit, L"", kHidden | kAutoHScroll | kBorder, {{8, 20, 60, 12}, {8, 20, 60, 12}, {8, 20, 60, 12}, {8, 20, 60, 12}}},
};

const CtrlTemplate c11080[] = {
    {11209, CtrlKind::TabControl, L"", 0, {{6, 4, 126, 14}, {6, 4, 126, 14}, {6, 4, 117, 14}, {6, 4, 167, 14}}},
    {11210, CtrlKind::ListView, L"", kIconView | kSingleSel | kShowSelAlways | kBorder, {{6, 19, 126, 120}, {6, 19, 126, 170}, {6, 19, 117, 95}, {6, 19, 167, 95}}},
    {11207, CtrlKind::PushButton, L"OK", kDefault, {{6, 145, 60, 16}, {6, 195, 60, 16}, {129, 78, 44, 16}, {179, 78, 44, 16}}},
    {11208, CtrlKind::PushButton, L"Cancel", 0, {{72, 145, 60, 16}, {72, 195, 60, 16}, {129, 98, 44, 16}, {179, 98, 44, 16}}},
};

const CtrlTemplate c11084[] = {
    {11168, CtrlKind::CheckBox, L"Enable Grid", 0, {{6, 4, 70, 11}, {6, 4, 70, 11}, {6, 4, 70, 11}, {6, 4, 70, 11}}},
    {kStaticId, CtrlKind::GroupBox, L"Settings...", 0, {{4, 17, 125, 92}, {4, 17, 125, 147}, {4, 17, 170, 70}, {4, 17, 221, 70}}},
    {11164, CtrlKind::RadioButton, L"Grid free", kGroupStart, {{10, 29, 60, 11}, {10, 29, 60, 11}, {10, 29, 60, 11}, {10, 29, 60, 11}}},
    {kStaticId, CtrlKind::Static, L"Interval N :", 0, {{18, 45, 44, 9}, {18, 45, 44, 9}, {18, 45, 44, 9}, {18, 45, 44, 9}}},
    {11170, CtrlKind::Edit, L"", kNumeric | kAutoHScroll | kBorder, {{64, 43, 63, 12}, {64, 43, 63, 12}, {64, 43, 50, 12}, {64, 43, 50, 12}}},
    {kStaticId, CtrlKind::Static, L"Interval E :", 0, {{18, 59, 44, 9}, {18, 59, 44, 9}, {18, 59, 44, 9}, {18, 59, 44, 9}}},
    {11171, CtrlKind::Edit, L"", kNumeric | kAutoHScroll | kBorder, {{64, 57, 63, 12}, {64, 57, 63, 12}, {64, 57, 50, 12}, {64, 57, 50, 12}}},
    {11166, CtrlKind::RadioButton, L"From snap", 0, {{10, 73, 60, 11}, {10, 73, 60, 11}, {120, 29, 50, 11}, {120, 29, 101, 11}}},
};

const CtrlTemplate c11088[] = {
    {11161, CtrlKind::CheckBox, L"Enable Snap", 0, {{6, 4, 70, 11}, {6, 4, 70, 11}, {6, 4, 70, 11}, {6, 4, 70, 11}}},
    {kStaticId, CtrlKind::GroupBox, L"Settings...", 0, {{4, 17, 125, 93}, {4, 17, 125, 147}, {4, 17, 171, 72}, {4, 17, 221, 72}}},
    {kStaticId, CtrlKind::Static, L"Interval N :", 0, {{10, 31, 44, 9}, {10, 31, 44, 9}, {10, 31, 44, 9}, {10, 31, 44, 9}}},
    {11162, CtrlKind::Edit, L"", kNumeric | kAutoHScroll | kBorder, {{56, 29, 69, 12}, {56, 29, 69, 12}, {56, 29, 31, 12}, {56, 29, 56, 12}}},
    {kStaticId, CtrlKind::Static, L"Interval E :", 0, {{10, 45, 44, 9}, {10, 51, 44, 9}, {10, 45, 44, 9}, {10, 45, 44, 9}}},
    {11165, CtrlKind::Edit, L"", kNumeric | kAutoHScroll | kBorder, {{56, 43, 69, 12}, {56, 49, 69, 12}, {56, 43, 31, 12}, {56, 43, 56, 12}}},
    {kStaticId, CtrlKind::Static, L"Angle :", 0, {{10, 59, 44, 9}, {10, 71, 44, 9}, {10, 59, 44, 9}, {10, 59, 44, 9}}},
    {11167, CtrlKind::Edit, L"", kNumeric | kAutoHScroll | kBorder, {{56, 57, 69, 12}, {56, 69, 69, 12}, {56, 57, 31, 12}, {56, 57, 56, 12}}},
    {kStaticId, CtrlKind::Static, L"Base N :", 0, {{10, 73, 44, 9}, {10, 91, 44, 9}, {93, 31, 44, 9}, {118, 31, 44, 9}}},
    {11163, CtrlKind::Edit, L"", kNumeric | kAutoHScroll | kBorder, {{56, 71, 69, 12}, {56, 89, 69, 12}, {139, 29, 31, 12}, {164, 29, 56, 12}}},
    {kStaticId, CtrlKind::Static, L"Base E :", 0, {{10, 87, 44, 9}, {10, 111, 44, 9}, {93, 45, 44, 9}, {118, 45, 44, 9}}},
    {11169, CtrlKind::Edit, L"", kNumeric | kAutoHScroll | kBorder, {{56, 85, 69, 12}, {56, 109, 69, 12}, {139, 43, 31, 12}, {164, 43, 56, 12}}},
};

const CtrlTemplate c11092[] = {
    {kStaticId, CtrlKind::Static, L"Select a line from those loaded:", 0, {{6, 6, 126, 9}, {6, 6, 126, 9}, {6, 6, 117, 9}, {6, 6, 167, 9}}},
    {11203, CtrlKind::ListView, L"List1", kReportView | kSingleSel | kShowSelAlways | kOwnerDraw | kBorder, {{6, 18, 126, 121}, {6, 18, 126, 171}, {6, 18, 117, 96}, {6, 18, 167, 96}}},
    {1163, CtrlKind::PushButton, L"OK", kDefault, {{6, 145, 60, 16}, {6, 195, 60, 16}, {129, 78, 44, 16}, {179, 78, 44, 16}}},
    {1164, CtrlKind::PushButton, L"Cancel", 0, {{72, 145, 60, 16}, {72, 195, 60, 16}, {129, 98, 44, 16}, {179, 98, 44, 16}}},
};

}  // namespace

const DialogTemplate k11004{11004, L"Image calibration", L"QuadraCE.htm#Dlg Calibra Immagine", false, {{138, 167}, {138, 217}, {179, 120}, {229, 120}}, c11004, 11175, 11174};
const DialogTemplate k11008{11008, L"Cursor option", L"QuadraCE.htm#Dlg OpzCursore", false, {{138, 167}, {138, 217}, {179, 120}, {229, 120}}, c11008, 11196, 11197};
const DialogTemplate k11020{11020, L"Grid & Snap", nullptr, false, {{138, 167}, {138, 217}, {179, 120}, {229, 120}}, c11020, 11196, 11197};
const DialogTemplate k11024{11024, L"Text insert", L"QuadraCE.htm#Dlg InsGrafText", false, {{138, 167}, {138, 217}, {179, 120}, {229, 120}}, c11024, 11196, 11197, true};
const DialogTemplate k11028{11028, L"Layers", L"QuadraCE.htm#Dlg OpzPiano", false, {{138, 167}, {138, 217}, {179, 120}, {229, 120}}, c11028, 1, 2};
const DialogTemplate k11032{11032, L"Lines", L"QuadraCE.htm#Dlg OpzTipoLinea", false, {{138, 167}, {138, 217}, {179, 120}, {229, 120}}, c11032, 1, 2};
const DialogTemplate k11036{11036, L"Loading Line Type", L"QuadraCE.htm#Dlg LoadTipoLinea", false, {{138, 167}, {138, 217}, {179, 120}, {229, 120}}, c11036, 1, 2};
const DialogTemplate k11040{11040, L"Angle system", L"QuadraCE.htm#Dlg AngleSystem", false, {{138, 167}, {138, 217}, {179, 120}, {229, 120}}, c11040, 11196, 11197, true};
const DialogTemplate k11044{11044, L"Color options", L"QuadraCE.htm#Dlg OpzColori", false, {{138, 167}, {138, 217}, {179, 120}, {229, 120}}, c11044, 11196, 11197, true};
const DialogTemplate k11048{11048, L"General options", L"QuadraCE.htm#Dlg OpzGeneriche", false, {{138, 167}, {138, 217}, {179, 120}, {229, 120}}, c11048, 11196, 11197};
const DialogTemplate k11052{11052, L"New style", nullptr, false, {{138, 167}, {138, 217}, {179, 120}, {229, 120}}, c11052, 11196, 11197};
const DialogTemplate k11056{11056, L"Text style", L"QuadraCE.htm#Dlg OpzStili", false, {{138, 167}, {138, 217}, {179, 120}, {229, 120}}, c11056, 11196, 11197};
const DialogTemplate k11060{11060, L"Snap type selection", L"QuadraCE.htm#Dlg SelTypeSnap", false, {{139, 167}, {138, 217}, {179, 120}, {229, 120}}, c11060, 11196, 11197};
const DialogTemplate k11064{11064, L"Entity property", nullptr, false, {{138, 167}, {138, 217}, {179, 120}, {229, 120}}, c11064, 11196, 11197};
const DialogTemplate k11072{11072, L"Snap - Enter the coordinates", L"QuadraCE.htm#Dlg InsGrafCoord", false, {{138, 167}, {138, 217}, {179, 120}, {229, 120}}, c11072, 11196, 11197};
const DialogTemplate k11076{11076, L"Entity sets", nullptr, false, {{139, 167}, {138, 217}, {179, 120}, {229, 120}}, c11076, 1, 2};
const DialogTemplate k11080{11080, L"Edit hatch", nullptr, false, {{138, 167}, {138, 217}, {179, 120}, {229, 120}}, c11080, 11207, 11208};
const DialogTemplate k11084{11084, L"", L"QuadraCE.htm#Dlg OpzGrid", true, {{133, 112}, {133, 167}, {178, 90}, {229, 90}}, c11084, 0, 0, true};
const DialogTemplate k11088{11088, L"", L"QuadraCE.htm#Dlg OpzSnap", true, {{133, 113}, {133, 167}, {179, 92}, {229, 92}}, c11088, 0, 0, true};
const DialogTemplate k11092{11092, L"Select Type Line", nullptr, false, {{138, 167}, {138, 217}, {179, 120}, {229, 120}}, c11092, 1163, 1164};
// clang-format on

}  // namespace veld5::tpl
