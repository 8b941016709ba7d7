#include "CCECADDlgPasswordDwg.h"

#include "CCECADDlgCryptDwgPassword.h"
#include "ResString.h"
#include "factory/Scopes.h"
#include "res/StringIds.h"

namespace veld5 {

bool CCECADDlgPasswordDwg::RequestPassword(ulo::WString& password, const ulo::WString&) {
    CModuleResourceScope scope;
    CCECADDlgCryptDwgPassword dialog(parent_);
    if (dialog.DoModal() != ulo::IDOK)
        return false;
    password = dialog.GetPassword();
    dialog.WipePassword();
    return true;
}

bool CCECADDlgPasswordDwg::AskRetry(const ulo::WString&) {
    return ShowOwnMessageBox(parent_, ids::kWrongPasswordRetry, ids::kError,
                             ulo::MB_YESNO | ulo::MB_ICONQUESTION) == ulo::IDYES;
}

}  // namespace veld5
