#pragma once
// Texts of the library's string table, translated through the host's hook,
// and the warning box the dialogs build from them.
#include "res/StringIds.h"
#include "ulo/WString.h"
#include "ulo/ctrl/Win.h"

namespace veld5 {

/// Fills @p out with string @p id, passed through ulo::Xlate (empty when the
/// table has no such string).
void LoadResString(ulo::WString& out, StringId id);
ulo::WString LoadResString(StringId id);

/// The dialogs' warning: a toolkit message box over @p owner with an
/// exclamation icon and an OK button (flags 48), showing string @p text under
/// the caption string "Warning".
void Warn(CWnd* owner, StringId text);
/// The same warning with a text made at run time, under the caption string
/// @p caption. The caption is an id and the text a text: they cannot change
/// places.
void Warn(CWnd* owner, StringId caption, const ulo::WString& text);

}  // namespace veld5
