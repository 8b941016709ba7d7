#pragma once
// Ids of the string table entries the code loads. An id is a StringId, a type
// of its own: it goes where an id is asked for (LoadResString, Warn) and
// nowhere else, never where a text or message box flags are expected. Every
// id the code loads is named here and listed in kLoadedStringIds, which a
// test checks against the table.
namespace veld5 {

enum class StringId : unsigned {
    /// The tabs of the grid and snap dialog.
    kTabSnap = 11500,
    kTabGrid = 11501,
    /// The name of a colour index that stands for no single colour.
    kVaries = 11503,
    /// The text insertion dialog's refusals (caption kWarning, the slant kError).
    kInvalidValue = 11504,
    kValueMustBePositive = 11505,
    kSlantWithin85Degrees = 11507,
    kError = 11508,
    /// The layers and line types dialogs and their controller.
    kColLayerName = 11518,  ///< 11518..11523: the layer list's columns
    kColLtypeName = 11524,  ///< 11524..11526: the line type list's columns
    kLayerNotCurrent = 11527,
    kLayerNotDeleted = 11528,
    kLayerNameEmpty = 11529,
    kLayerNameTaken = 11530,
    kLayerNameLetters = 11531,
    kCurLayerOff = 11532,
    kCurLayerNoFreeze = 11533,
    kLtypeXRefNotCurrent = 11549,
    kLtypeNotDeleted = 11550,
    kValueNotNegative = 11551,
    kValueNotPositive = 11552,
    kValueNotZero = 11553,
    kWarning = 11556,
    /// Column headings of the line type lists and the loading grid.
    kColLtype = 11571,
    kColAppearance = 11572,
    kColDescription = 11583,
    /// Why a line type definition was rejected: the first of seven, one per
    /// error code of the loader (11585 + code).
    kLtypeReasonFirst = 11586,
    kLtypeReasonLast = 11592,
    kFilterAll = 11593,  ///< 11593 "All", 11594 in use, 11595 unused
    kSelectLayerToErase = 11597,
    kSelectLtypeToErase = 11603,
    kSelectLtypeToCurrent = 11604,
    /// The object snap dialog: snap switched on with no snap type.
    kOneSnapRequired = 11605,
    kSelectRotationType = 11610,
    kWrongPasswordRetry = 11706,
    /// A typed number beyond the range of a double ("1e309", 400 digits).
    kValueOutOfRange = 11707,
};

/// The number of @p id in the string table.
constexpr unsigned Value(StringId id) {
    return static_cast<unsigned>(id);
}
/// The entry @p offset places after @p first, in a run of entries (columns,
/// filters, reasons).
constexpr StringId operator+(StringId first, unsigned offset) {
    return StringId{Value(first) + offset};
}

namespace ids {

using enum StringId;

inline constexpr StringId kLoadedStringIds[] = {
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

}  // namespace ids

}  // namespace veld5
