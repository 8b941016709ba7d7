// The library's string table (English), sorted by id.
#include "Resources.h"

namespace veld5 {

namespace {
const ulo::StringEntry kStrings[] = {
    {11508, L"Error"},
    {11551, L"The value can not be negative"},
    {11552, L"The value can not be positive"},
    {11553, L"The value can not be zero"},
    {11556, L"Warning"},
    {11610, L"Select the rotation type"},
    {11706,
     L"The password you entered is not the one used for the encryption of the drawing. "
     L"\n\nDo you want to try again with a new password?"},
};
}  // namespace

std::span<const ulo::StringEntry> StringTable() {
    return kStrings;
}

}  // namespace veld5
