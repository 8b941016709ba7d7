#include "CCECADDlgPasswordDwg.h"

#include "CCECADDlgCryptDwgPassword.h"
#include "ResString.h"
#include "factory/Scopes.h"
#include "res/StringIds.h"
#include "ulo/ctrl/MessageBox.h"

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
    return ulo::CreateMessageBox(parent_, LoadResString(ids::kError),
                                 LoadResString(ids::kWrongPasswordRetry),
                                 ulo::MB_YESNO | ulo::MB_ICONQUESTION) == ulo::IDYES;
}

}  // namespace veld5
