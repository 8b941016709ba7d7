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

inline constexpr unsigned kLoadedStringIds[] = {
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
};

}  // namespace veld5::ids
