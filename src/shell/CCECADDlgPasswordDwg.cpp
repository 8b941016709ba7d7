#include "CCECADDlgPasswordDwg.h"

#include "CCECADDlgCryptDwgPassword.h"
#include "ResString.h"
#include "factory/RunDialog.h"
#include "res/StringIds.h"
#include "ulo/ctrl/MessageBox.h"

namespace veld5 {

bool CCECADDlgPasswordDwg::RequestPassword(ulo::WString& password, const ulo::WString&) {
    return RunDialog([&] { return std::make_unique<CCECADDlgCryptDwgPassword>(parent_); },
                     [&](CCECADDlgCryptDwgPassword& dialog) {
                         password = dialog.GetPassword();
                         dialog.WipePassword();
                     }) == ulo::IDOK;
}

bool CCECADDlgPasswordDwg::AskRetry(const ulo::WString&) {
    return ulo::CreateMessageBox(parent_, LoadResString(ids::kError),
                                 LoadResString(ids::kWrongPasswordRetry),
                                 ulo::MB_YESNO | ulo::MB_ICONQUESTION) == ulo::IDYES;
}

}  // namespace veld5
