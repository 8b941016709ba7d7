#pragma once
// The few window-system constants the dialogs use, with their classic values.
#include <QWidget>
#include <cstdint>

#include "WidgetProperties.h"

namespace ulo {

using CWnd = QWidget;
using BOOL = int;
using INT_PTR = std::intptr_t;

constexpr BOOL TRUE = 1;
constexpr BOOL FALSE = 0;

constexpr int IDOK = 1;
constexpr int IDCANCEL = 2;
constexpr int IDYES = 6;
constexpr int IDNO = 7;
constexpr unsigned ID_HELP = 57670;

constexpr unsigned MB_OK = 0x00;
constexpr unsigned MB_OKCANCEL = 0x01;
constexpr unsigned MB_YESNOCANCEL = 0x03;
constexpr unsigned MB_YESNO = 0x04;
constexpr unsigned MB_ICONERROR = 0x10;
constexpr unsigned MB_ICONQUESTION = 0x20;
constexpr unsigned MB_ICONEXCLAMATION = 0x30;
constexpr unsigned MB_ICONINFORMATION = 0x40;

constexpr unsigned MB_BEEP_DEFAULT = 0xFFFFFFFF;

/// Id of a control widget (0 when it has none).
unsigned GetDlgCtrlID(const QWidget* widget);
/// The descendant of @p window with control id @p id, or null.
QWidget* FindControl(const QWidget* window, unsigned id);

}  // namespace ulo

using ulo::BOOL;
using ulo::CWnd;
using ulo::FALSE;
using ulo::TRUE;
