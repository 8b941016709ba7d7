#pragma once
// Texts of the library's string table, translated through the host's hook,
// and the message boxes built from them.
#include "ulo/WString.h"
#include "ulo/ctrl/Win.h"

namespace veld5 {

/// Fills @p out with string @p id, passed through ulo::Xlate.
void LoadResString(ulo::WString& out, unsigned id);
ulo::WString LoadResString(unsigned id);

/// Message box of the toolkit with caption and text loaded by id
/// (CreateMessageBox: owner, caption, text, flags). Returns the answer.
int ShowMessageBox(CWnd* owner, unsigned captionId, unsigned textId, unsigned flags);
/// The owner window's own message box with texts loaded by id.
int ShowOwnMessageBox(CWnd* owner, unsigned textId, unsigned captionId, unsigned flags);

}  // namespace veld5
