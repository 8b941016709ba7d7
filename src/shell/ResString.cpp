#include "ResString.h"

#include "factory/Module.h"
#include "ulo/Xlate.h"
#include "ulo/ctrl/MessageBox.h"

namespace veld5 {

void LoadResString(ulo::WString& out, unsigned id) {
    const ulo::CStringLoader& loader = ModuleStringLoader();
    const unsigned length = loader.GetStringLength(id);
    wchar_t* buffer = out.GetBufferSetLength(length);
    loader.LoadStr(id, buffer, length + 1);
    out = ulo::Xlate(ulo::WString(buffer, length));
}

ulo::WString LoadResString(unsigned id) {
    ulo::WString s;
    LoadResString(s, id);
    return s;
}

int ShowMessageBox(CWnd* owner, unsigned captionId, unsigned textId, unsigned flags) {
    return ulo::CreateMessageBox(owner, LoadResString(captionId), LoadResString(textId), flags);
}

int ShowOwnMessageBox(CWnd* owner, unsigned textId, unsigned captionId, unsigned flags) {
    return ulo::MessageBox(owner, LoadResString(textId), LoadResString(captionId), flags);
}

}  // namespace veld5
