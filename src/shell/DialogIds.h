#pragma once
// Control ids shared by several dialogs.
namespace veld5 {

constexpr unsigned kIdOk = 11196;      // OK of most dialogs
constexpr unsigned kIdCancel = 11197;  // Cancel of most dialogs

}  // namespace veld5
