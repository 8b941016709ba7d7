#pragma once
// Ids of the string table entries the code loads. Every id the code passes to
// LoadResString is named here and listed in kLoadedStringIds, which a test
// checks against the table.
namespace veld5::ids {

/// The name of a colour index that stands for no single colour.
constexpr unsigned kVaries = 11503;
constexpr unsigned kError = 11508;
constexpr unsigned kValueNotNegative = 11551;
constexpr unsigned kValueNotPositive = 11552;
constexpr unsigned kValueNotZero = 11553;
constexpr unsigned kWarning = 11556;
constexpr unsigned kSelectRotationType = 11610;
constexpr unsigned kWrongPasswordRetry = 11706;
/// A typed number beyond the range of a double ("1e309", 400 digits).
constexpr unsigned kValueOutOfRange = 11707;
constexpr unsigned kLtypeXRefNotCurrent = 11549;
/// Column headings of the line type lists and the loading grid.
constexpr unsigned kColLtype = 11571;
constexpr unsigned kColAppearance = 11572;
constexpr unsigned kColDescription = 11583;
/// Why a line type definition was rejected: the first of seven, one per
/// error code of the loader (11585 + code).
constexpr unsigned kLtypeReasonFirst = 11586;
constexpr unsigned kLtypeReasonLast = 11592;
/// The layers and line types dialogs and their controller.
constexpr unsigned kColLayerName = 11518;  ///< 11518..11523: the layer list's columns
constexpr unsigned kColLtypeName = 11524;  ///< 11524..11526: the line type list's columns
constexpr unsigned kLayerNotCurrent = 11527;
constexpr unsigned kLayerNotDeleted = 11528;
constexpr unsigned kLayerNameEmpty = 11529;
constexpr unsigned kLayerNameTaken = 11530;
constexpr unsigned kLayerNameLetters = 11531;
constexpr unsigned kCurLayerOff = 11532;
constexpr unsigned kCurLayerNoFreeze = 11533;
constexpr unsigned kLtypeNotDeleted = 11550;
constexpr unsigned kFilterAll = 11593;  ///< 11593 "All", 11594 in use, 11595 unused
constexpr unsigned kSelectLayerToErase = 11597;
constexpr unsigned kSelectLtypeToErase = 11603;
constexpr unsigned kSelectLtypeToCurrent = 11604;
/// The object snap dialog: snap switched on with no snap type.
constexpr unsigned kOneSnapRequired = 11605;
/// The tabs of the grid and snap dialog.
constexpr unsigned kTabSnap = 11500;
constexpr unsigned kTabGrid = 11501;
/// The text insertion dialog's refusals (caption kWarning, the slant kError).
constexpr unsigned kInvalidValue = 11504;
constexpr unsigned kValueMustBePositive = 11505;
constexpr unsigned kSlantWithin85Degrees = 11507;

inline constexpr unsigned kLoadedStringIds[] = {
    kTabSnap,
    kTabGrid,
    kInvalidValue,
    kValueMustBePositive,
    kSlantWithin85Degrees,
    kError,
    kValueNotNegative,
    kValueNotPositive,
    kValueNotZero,
    kWarning,
    kSelectRotationType,
    kWrongPasswordRetry,
    kValueOutOfRange,
    kVaries,
    kLtypeXRefNotCurrent,
    kColLtype,
    kColAppearance,
    kColDescription,
    kLtypeReasonFirst,
    kLtypeReasonFirst + 1,
    kLtypeReasonFirst + 2,
    kLtypeReasonFirst + 3,
    kLtypeReasonFirst + 4,
    kLtypeReasonFirst + 5,
    kLtypeReasonLast,
    kColLayerName,
    kColLayerName + 1,
    kColLayerName + 2,
    kColLayerName + 3,
    kColLayerName + 4,
    kColLayerName + 5,
    kColLtypeName,
    kColLtypeName + 1,
    kColLtypeName + 2,
    kLayerNotCurrent,
    kLayerNotDeleted,
    kLayerNameEmpty,
    kLayerNameTaken,
    kLayerNameLetters,
    kCurLayerOff,
    kCurLayerNoFreeze,
    kLtypeNotDeleted,
    kFilterAll,
    kFilterAll + 1,
    kFilterAll + 2,
    kSelectLayerToErase,
    kSelectLtypeToErase,
    kSelectLtypeToCurrent,
    kOneSnapRequired,
};

}  // namespace veld5::ids
