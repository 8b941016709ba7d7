#pragma once
// Module-wide objects of the library: its module handle (the resource module
// of its templates and strings) and its string loader.
#include "ulo/ResourceModule.h"

namespace veld5 {

/// The module instance of this library.
class GModule {
public:
    void init(ulo::HINSTANCE module) { module_ = module; }
    operator ulo::HINSTANCE() const { return module_; }

private:
    ulo::HINSTANCE module_ = nullptr;
};

GModule& Module();
ulo::CStringLoader& ModuleStringLoader();

/// Notifies the launcher window that the module has loaded: message 1165
/// with wParam 1 and lParam 0 to the local socket named "Avvio_Talpa", or
/// else "Avvio_TalpaCrash", in the temporary folder ($TMPDIR or /tmp). The
/// answer is awaited at most @p timeoutMs milliseconds. Returns true when a
/// launcher took the message.
bool NotifyLauncher(int timeoutMs = 500);

/// Wire form of the notification: three little-endian 32-bit numbers
/// (message, wParam, lParam); the launcher answers with one 32-bit result.
constexpr unsigned kLauncherMessage = 1165;

}  // namespace veld5
