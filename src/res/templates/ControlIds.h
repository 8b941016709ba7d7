#pragma once
// The ids of the controls of every dialog template, by name: one namespace per
// dialog (ctl::InsText::kHeight); kOk and kCancel are the buttons that act as OK
// and Cancel; kTemplate is the dialog's own id (its template's base id, the one a
// shown dialog reports). Code and tests address a control by these names, never by
// its number.
// Written by tools/gen_templates.py: change the script and run it, never this file.

namespace veld5::ctl {

/// 11000 Insert password
namespace Password {
inline constexpr unsigned kTemplate = 11000;
inline constexpr unsigned kOk = 11196;
inline constexpr unsigned kCancel = 11197;
inline constexpr unsigned kPassword = 4779;
}  // namespace Password

/// 11004 Image calibration
namespace Calibration {
inline constexpr unsigned kTemplate = 11004;
inline constexpr unsigned kOk = 11175;
inline constexpr unsigned kCancel = 11174;
inline constexpr unsigned kScale = 11180;
inline constexpr unsigned kEastMin = 11181;
inline constexpr unsigned kNorthMin = 11182;
inline constexpr unsigned kEastMax = 11183;
inline constexpr unsigned kPixelEastMax = 11178;
inline constexpr unsigned kNorthMax = 11184;
inline constexpr unsigned kPixelNorthMax = 11179;
inline constexpr unsigned kScaleCalc = 11176;
inline constexpr unsigned kMaxDim = 11177;
}  // namespace Calibration

/// 11008 Cursor option
namespace Cursor {
inline constexpr unsigned kTemplate = 11008;
inline constexpr unsigned kOk = 11196;
inline constexpr unsigned kCancel = 11197;
inline constexpr unsigned kFullScreen = 11158;
inline constexpr unsigned kCrossSize = 11159;
inline constexpr unsigned kSearchSize = 11160;
}  // namespace Cursor

/// 11012 Enter...
namespace GetDouble {
inline constexpr unsigned kTemplate = 11012;
inline constexpr unsigned kOk = 11196;
inline constexpr unsigned kCancel = 11197;
inline constexpr unsigned kFrame = 11138;
inline constexpr unsigned kValue = 11137;
}  // namespace GetDouble

/// 11016 Enter...
namespace GetString {
inline constexpr unsigned kTemplate = 11016;
inline constexpr unsigned kOk = 11196;
inline constexpr unsigned kCancel = 11197;
inline constexpr unsigned kPrompt = 11213;
inline constexpr unsigned kText = 11212;
}  // namespace GetString

/// 11020 Grid & Snap
namespace GridSnap {
inline constexpr unsigned kTemplate = 11020;
inline constexpr unsigned kOk = 11196;
inline constexpr unsigned kCancel = 11197;
inline constexpr unsigned kTabs = 11172;
inline constexpr unsigned kPageArea = 11173;
}  // namespace GridSnap

/// 11024 Text insert
namespace InsText {
inline constexpr unsigned kTemplate = 11024;
inline constexpr unsigned kOk = 11196;
inline constexpr unsigned kCancel = 11197;
inline constexpr unsigned kLine1 = 11139;
inline constexpr unsigned kLine2 = 11146;
inline constexpr unsigned kLine3 = 11147;
inline constexpr unsigned kHeight = 11140;
inline constexpr unsigned kWidth = 11143;
inline constexpr unsigned kRotation = 11142;
inline constexpr unsigned kSlant = 11141;
inline constexpr unsigned kJustify = 11144;
inline constexpr unsigned kStyle = 11145;
}  // namespace InsText

/// 11028 Layers
namespace Layers {
inline constexpr unsigned kTemplate = 11028;
inline constexpr unsigned kOk = 1;
inline constexpr unsigned kCancel = 2;
inline constexpr unsigned kFilterLabel = 11133;
inline constexpr unsigned kFilter = 1128;
inline constexpr unsigned kList = 1129;
inline constexpr unsigned kNew = 1130;
inline constexpr unsigned kDelete = 1131;
inline constexpr unsigned kCurrent = 1132;
inline constexpr unsigned kNameEdit = 11132;
}  // namespace Layers

/// 11032 Lines
namespace Ltypes {
inline constexpr unsigned kTemplate = 11032;
inline constexpr unsigned kOk = 1;
inline constexpr unsigned kCancel = 2;
inline constexpr unsigned kFilterLabel = 11133;
inline constexpr unsigned kFilter = 11125;
inline constexpr unsigned kList = 11126;
inline constexpr unsigned kScaleLabel = 11131;
inline constexpr unsigned kScale = 11130;
inline constexpr unsigned kLoad = 11128;
inline constexpr unsigned kDelete = 11127;
inline constexpr unsigned kCurrent = 11129;
inline constexpr unsigned kNameEdit = 11132;
}  // namespace Ltypes

/// 11036 Loading Line Type
namespace LtypeLoad {
inline constexpr unsigned kTemplate = 11036;
inline constexpr unsigned kOk = 1;
inline constexpr unsigned kCancel = 2;
inline constexpr unsigned kFile = 11134;
inline constexpr unsigned kPath = 11135;
inline constexpr unsigned kPlaceholder = 1162;
inline constexpr unsigned kGrid = 2000;
}  // namespace LtypeLoad

/// 11040 Angle system
namespace Angle {
inline constexpr unsigned kTemplate = 11040;
inline constexpr unsigned kOk = 11196;
inline constexpr unsigned kCancel = 11197;
inline constexpr unsigned kDegrees = 11123;
inline constexpr unsigned kGons = 11124;
}  // namespace Angle

/// 11044 Color options
namespace Color {
inline constexpr unsigned kTemplate = 11044;
inline constexpr unsigned kOk = 11196;
inline constexpr unsigned kCancel = 11197;
inline constexpr unsigned kStandard = 11187;
inline constexpr unsigned kGrey = 11189;
inline constexpr unsigned kByLayer = 11190;
inline constexpr unsigned kByBlock = 11191;
inline constexpr unsigned kPaletteEven = 11192;
inline constexpr unsigned kPaletteOdd = 11193;
inline constexpr unsigned kName = 11194;
inline constexpr unsigned kPreview = 11195;
}  // namespace Color

/// 11048 General options
namespace GeneralOptions {
inline constexpr unsigned kTemplate = 11048;
inline constexpr unsigned kOk = 11196;
inline constexpr unsigned kCancel = 11197;
inline constexpr unsigned kElement = 11113;
inline constexpr unsigned kPalette = 11121;
inline constexpr unsigned kRedValue = 11120;
inline constexpr unsigned kRed = 11114;
inline constexpr unsigned kGreenValue = 11119;
inline constexpr unsigned kGreen = 11115;
inline constexpr unsigned kBlueValue = 11118;
inline constexpr unsigned kBlue = 11116;
inline constexpr unsigned kSwatch = 11117;
inline constexpr unsigned kColorizeSelected = 1133;
inline constexpr unsigned kDefault = 11112;
}  // namespace GeneralOptions

/// 11052 New style
namespace NewStyle {
inline constexpr unsigned kTemplate = 11052;
inline constexpr unsigned kOk = 11196;
inline constexpr unsigned kCancel = 11197;
inline constexpr unsigned kFrame = 11111;
inline constexpr unsigned kName = 11110;
}  // namespace NewStyle

/// 11056 Text style
namespace TextStyle {
inline constexpr unsigned kTemplate = 11056;
inline constexpr unsigned kOk = 11196;
inline constexpr unsigned kCancel = 11197;
inline constexpr unsigned kStyle = 11100;
inline constexpr unsigned kNew = 11101;
inline constexpr unsigned kRename = 11102;
inline constexpr unsigned kDelete = 11103;
inline constexpr unsigned kFont = 11104;
inline constexpr unsigned kFontFile = 11122;
inline constexpr unsigned kFontStyle = 11105;
inline constexpr unsigned kHeight = 11106;
inline constexpr unsigned kWidth = 11107;
inline constexpr unsigned kOblique = 11108;
inline constexpr unsigned kVertical = 11109;
}  // namespace TextStyle

/// 11060 Snap type selection
namespace OSnap {
inline constexpr unsigned kTemplate = 11060;
inline constexpr unsigned kOk = 11196;
inline constexpr unsigned kCancel = 11197;
inline constexpr unsigned kFree = 1135;
inline constexpr unsigned kCoordInput = 1136;
inline constexpr unsigned kSnap = 1137;
inline constexpr unsigned kEndPoints = 1138;
inline constexpr unsigned kMidPoint = 1139;
inline constexpr unsigned kIntersection = 1140;
inline constexpr unsigned kCenter = 1141;
inline constexpr unsigned kQuadrant = 1142;
inline constexpr unsigned kTangent = 1143;
inline constexpr unsigned kPerpendicular = 1144;
inline constexpr unsigned kInsert = 1145;
inline constexpr unsigned kConnect = 1146;
inline constexpr unsigned kNear = 1147;
}  // namespace OSnap

/// 11064 Entity property
namespace EntProperty {
inline constexpr unsigned kTemplate = 11064;
inline constexpr unsigned kOk = 11196;
inline constexpr unsigned kCancel = 11197;
inline constexpr unsigned kColorSwatch = 1155;
inline constexpr unsigned kColorName = 1154;
inline constexpr unsigned kEntitySet = 1157;
inline constexpr unsigned kLayer = 1158;
inline constexpr unsigned kLtype = 1159;
inline constexpr unsigned kScale = 1156;
}  // namespace EntProperty

/// 11068 Enter...
namespace Rotate {
inline constexpr unsigned kTemplate = 11068;
inline constexpr unsigned kOk = 11196;
inline constexpr unsigned kCancel = 11197;
inline constexpr unsigned kFrame = 11138;
inline constexpr unsigned kOnePoint = 11204;
inline constexpr unsigned kTwoPoints = 11205;
inline constexpr unsigned kAngle = 11206;
inline constexpr unsigned kValue = 11137;
}  // namespace Rotate

/// 11072 Snap - Enter the coordinates
namespace SnapPoint {
inline constexpr unsigned kTemplate = 11072;
inline constexpr unsigned kOk = 11196;
inline constexpr unsigned kCancel = 11197;
inline constexpr unsigned kEast = 11185;
inline constexpr unsigned kNorth = 11186;
inline constexpr unsigned kElevation = 11188;
}  // namespace SnapPoint

/// 11076 Entity sets
namespace EntitySets {
inline constexpr unsigned kTemplate = 11076;
inline constexpr unsigned kOk = 1;
inline constexpr unsigned kCancel = 2;
inline constexpr unsigned kList = 1152;
inline constexpr unsigned kNewCad = 604;
inline constexpr unsigned kNewTopog = 605;
inline constexpr unsigned kDelete = 600;
inline constexpr unsigned kUp = 602;
inline constexpr unsigned kDown = 603;
inline constexpr unsigned kNameEdit = 1161;
}  // namespace EntitySets

/// 11080 Edit hatch
namespace Hatch {
inline constexpr unsigned kTemplate = 11080;
inline constexpr unsigned kOk = 11207;
inline constexpr unsigned kCancel = 11208;
inline constexpr unsigned kTabs = 11209;
inline constexpr unsigned kList = 11210;
}  // namespace Hatch

/// 11084 (page)
namespace GridPage {
inline constexpr unsigned kTemplate = 11084;
inline constexpr unsigned kEnable = 11168;
inline constexpr unsigned kFree = 11164;
inline constexpr unsigned kIntervalNorth = 11170;
inline constexpr unsigned kIntervalEast = 11171;
inline constexpr unsigned kFromSnap = 11166;
}  // namespace GridPage

/// 11088 (page)
namespace SnapPage {
inline constexpr unsigned kTemplate = 11088;
inline constexpr unsigned kEnable = 11161;
inline constexpr unsigned kIntervalNorth = 11162;
inline constexpr unsigned kIntervalEast = 11165;
inline constexpr unsigned kAngle = 11167;
inline constexpr unsigned kBaseNorth = 11163;
inline constexpr unsigned kBaseEast = 11169;
}  // namespace SnapPage

/// 11092 Select Type Line
namespace SelType {
inline constexpr unsigned kTemplate = 11092;
inline constexpr unsigned kOk = 1163;
inline constexpr unsigned kCancel = 1164;
inline constexpr unsigned kList = 11203;
}  // namespace SelType

}  // namespace veld5::ctl
