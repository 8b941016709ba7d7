// Templates of the value entry dialogs (number, text, rotation).
#include "Templates.h"

namespace veld5::tpl {
using namespace ulo;

namespace {
// Layout sizes (dialog units): 0 portrait 138x167, 1 tall 138x217,
// 2 landscape 179x120, 3 wide 229x120.
const CtrlTemplate c11012[] = {
    {11138,
     CtrlKind::GroupBox,
     L"Text",
     0,
     {{6, 6, 126, 62}, {6, 6, 126, 72}, {6, 4, 124, 62}, {6, 4, 170, 62}}},
    {kStaticId,
     CtrlKind::Static,
     L"Value :",
     0,
     {{14, 38, 40, 10}, {14, 42, 40, 10}, {14, 36, 40, 10}, {14, 36, 44, 10}}},
    {11137,
     CtrlKind::Edit,
     L"",
     kNumeric | kAutoHScroll | kBorder,
     {{56, 35, 68, 14}, {56, 39, 68, 14}, {56, 33, 66, 14}, {62, 33, 106, 14}}},
    {11196,
     CtrlKind::PushButton,
     L"OK",
     kDefault,
     {{8, 141, 58, 18}, {8, 191, 58, 18}, {136, 8, 38, 18}, {184, 8, 40, 18}}},
    {11197,
     CtrlKind::PushButton,
     L"Cancel",
     0,
     {{72, 141, 58, 18}, {72, 191, 58, 18}, {136, 32, 38, 18}, {184, 32, 40, 18}}},
};

const CtrlTemplate c11016[] = {
    {11213,
     CtrlKind::Static,
     L"Insert value:",
     0,
     {{8, 10, 122, 10}, {8, 10, 122, 10}, {8, 8, 124, 10}, {8, 8, 170, 10}}},
    {11212,
     CtrlKind::Edit,
     L"",
     kAutoHScroll | kBorder,
     {{8, 24, 122, 14}, {8, 24, 122, 14}, {8, 22, 124, 14}, {8, 22, 170, 14}}},
    {11196,
     CtrlKind::PushButton,
     L"OK",
     kDefault,
     {{8, 141, 58, 18}, {8, 191, 58, 18}, {136, 8, 38, 18}, {184, 8, 40, 18}}},
    {11197,
     CtrlKind::PushButton,
     L"Cancel",
     0,
     {{72, 141, 58, 18}, {72, 191, 58, 18}, {136, 32, 38, 18}, {184, 32, 40, 18}}},
};

const CtrlTemplate c11068[] = {
    {11138,
     CtrlKind::GroupBox,
     L"Text",
     0,
     {{6, 6, 126, 100}, {6, 6, 126, 120}, {6, 4, 124, 108}, {6, 4, 170, 108}}},
    {11204,
     CtrlKind::RadioButton,
     L"1 Reference point",
     kGroupStart,
     {{14, 20, 112, 12}, {14, 24, 112, 14}, {14, 16, 112, 12}, {14, 16, 150, 12}}},
    {11205,
     CtrlKind::RadioButton,
     L"2 Reference points",
     0,
     {{14, 36, 112, 12}, {14, 44, 112, 14}, {14, 31, 112, 12}, {14, 31, 150, 12}}},
    {11206,
     CtrlKind::RadioButton,
     L"Rotation angle specification",
     0,
     {{14, 52, 116, 12}, {14, 64, 116, 14}, {14, 46, 114, 12}, {14, 46, 150, 12}}},
    {kStaticId,
     CtrlKind::Static,
     L"Value :",
     0,
     {{14, 78, 40, 10}, {14, 94, 40, 10}, {14, 70, 40, 10}, {14, 70, 44, 10}}},
    {11137,
     CtrlKind::Edit,
     L"",
     kNumeric | kAutoHScroll | kBorder,
     {{56, 75, 68, 14}, {56, 91, 68, 14}, {56, 67, 66, 14}, {62, 67, 106, 14}}},
    {11196,
     CtrlKind::PushButton,
     L"OK",
     kDefault,
     {{8, 141, 58, 18}, {8, 191, 58, 18}, {136, 8, 38, 18}, {184, 8, 40, 18}}},
    {11197,
     CtrlKind::PushButton,
     L"Cancel",
     0,
     {{72, 141, 58, 18}, {72, 191, 58, 18}, {136, 32, 38, 18}, {184, 32, 40, 18}}},
};

const CtrlTemplate c11000[] = {
    {kStaticId,
     CtrlKind::Static,
     L"Enter password to open the drawing:",
     kMultiline,
     {{8, 10, 122, 22}, {8, 10, 122, 22}, {8, 8, 124, 22}, {8, 8, 170, 12}}},
    {4779,
     CtrlKind::Edit,
     L"",
     kPassword | kUppercase | kAutoHScroll | kBorder,
     {{8, 36, 122, 14}, {8, 36, 122, 14}, {8, 34, 124, 14}, {8, 24, 170, 14}}},
    {11196,
     CtrlKind::PushButton,
     L"OK",
     kDefault,
     {{8, 141, 58, 18}, {8, 191, 58, 18}, {136, 8, 38, 18}, {184, 8, 40, 18}}},
    {11197,
     CtrlKind::PushButton,
     L"Cancel",
     0,
     {{72, 141, 58, 18}, {72, 191, 58, 18}, {136, 32, 38, 18}, {184, 32, 40, 18}}},
};
}  // namespace

const DialogTemplate k11012{11012,
                            L"Enter...",
                            L"QuadraCE.htm#Dlg InsValore",
                            false,
                            {{138, 167}, {138, 217}, {179, 120}, {229, 120}},
                            c11012};
const DialogTemplate k11016{
    11016, L"Enter...", nullptr, false, {{138, 167}, {138, 217}, {179, 120}, {229, 120}}, c11016};
const DialogTemplate k11068{11068,
                            L"Enter...",
                            L"QuadraCE.htm#Dlg ScegliRotazione",
                            false,
                            {{138, 167}, {138, 217}, {179, 120}, {229, 120}},
                            c11068};
const DialogTemplate k11000{
    11000, L"Insert password", nullptr, false, {{139, 167}, {138, 217}, {179, 120}, {229, 120}},
    c11000};

}  // namespace veld5::tpl
