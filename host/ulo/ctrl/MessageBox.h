#pragma once
// Message boxes, the beep, the open-file dialog and support bitmaps: one
// function each, so a host or a test can observe and answer them.
#include <QPixmap>
#include <functional>

#include "Win.h"
#include "ulo/WString.h"

class QMessageBox;
class QFileDialog;

namespace ulo {

/// The flags of a warning: an exclamation icon and an OK button (48).
constexpr unsigned kWarningFlags = MB_OK | MB_ICONEXCLAMATION;

/// Modal message box; returns the id of the button pressed (IDOK, IDCANCEL,
/// IDYES, IDNO). Flags: MB_OK, MB_YESNO, MB_YESNOCANCEL with an icon bit.
/// The box carries its caption, text and flags in the properties
/// prop::kCaption, kText and kFlags. The one message box of the toolkit:
/// every box, whoever owns it, comes from here, the caption before the text.
int CreateMessageBox(CWnd* owner, const WString& caption, const WString& text, unsigned flags);

/// Sounds the system beep of @p type (MB_ICONEXCLAMATION, ...).
void MessageBeep(unsigned type);
/// Observers of beeps (tests record them); returns an id for removal.
int AddBeepListener(std::function<void(unsigned type)> listener);
void RemoveBeepListener(int id);

/// The system open-file dialog. @p filter is "Label|*.ext" pairs joined by '|'.
/// Returns true with the chosen path, false when cancelled.
bool GetOpenFileName(CWnd* owner, const WString& title, const WString& filter,
                     const WString& initialFolder, WString& path);

/// Loads a bitmap of the host's support folder (null pixmap when missing).
QPixmap LoadASupportBmp(const WString& name);

}  // namespace ulo
