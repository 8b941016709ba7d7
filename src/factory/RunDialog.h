#pragma once
// How the library runs a dialog: the one way of every factory operation (and
// of the library's other entries that show one).
//
//     return RunDialog([&] { return std::make_unique<CMyDialog>(parent); },
//                      [&](CMyDialog& dialog) { result = dialog.GetResult(); }) == ulo::IDOK;
#include <memory>

#include "Scopes.h"
#include "ulo/ctrl/Win.h"

namespace veld5 {

/// The step of an outcome that asks for nothing.
struct NoStep {
    template <class Dialog>
    void operator()(Dialog&) const {}
};

/// Runs one modal dialog of this library. The library's resources are current
/// from @p make, which builds the dialog (a std::unique_ptr) and gives it the
/// caller's request, until the dialog is destroyed. @p afterOk sees the dialog
/// when it ended with IDOK, @p otherwise when it ended any other way. Returns
/// the end code.
template <class Make, class AfterOk = NoStep, class Otherwise = NoStep>
ulo::INT_PTR RunDialog(Make make, AfterOk afterOk = {}, Otherwise otherwise = {}) {
    CModuleResourceScope scope;
    const auto dialog = make();
    const ulo::INT_PTR code = dialog->DoModal();
    if (code == ulo::IDOK)
        afterOk(*dialog);
    else
        otherwise(*dialog);
    return code;
}

}  // namespace veld5
