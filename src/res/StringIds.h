#pragma once
// Ids of the string table entries the code loads. Every id the code passes to
// LoadResString is named here and listed in kLoadedStringIds, which a test
// checks against the table.
namespace veld5::ids {

constexpr unsigned kError = 11508;
constexpr unsigned kValueNotNegative = 11551;
constexpr unsigned kValueNotPositive = 11552;
constexpr unsigned kValueNotZero = 11553;
constexpr unsigned kWarning = 11556;
constexpr unsigned kSelectRotationType = 11610;
constexpr unsigned kWrongPasswordRetry = 11706;
/// A typed number beyond the range of a double ("1e309", 400 digits).
constexpr unsigned kValueOutOfRange = 11707;

inline constexpr unsigned kLoadedStringIds[] = {
    kError,   kValueNotNegative,   kValueNotPositive,   kValueNotZero,
    kWarning, kSelectRotationType, kWrongPasswordRetry, kValueOutOfRange,
};

}  // namespace veld5::ids
