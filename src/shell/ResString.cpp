#include "ResString.h"

#include "factory/Module.h"
#include "ulo/Xlate.h"
#include "ulo/ctrl/MessageBox.h"

namespace veld5 {

void LoadResString(ulo::WString& out, StringId id) {
    const ulo::CStringLoader& loader = ModuleStringLoader();
    const unsigned length = loader.GetStringLength(Value(id));
    wchar_t* buffer = out.GetBufferSetLength(length);
    loader.LoadStr(Value(id), buffer, length + 1);
    out = ulo::Xlate(ulo::WString(buffer, length));
}

ulo::WString LoadResString(StringId id) {
    ulo::WString s;
    LoadResString(s, id);
    return s;
}

void Warn(CWnd* owner, StringId text) {
    Warn(owner, ids::kWarning, LoadResString(text));
}

void Warn(CWnd* owner, StringId caption, const ulo::WString& text) {
    ulo::CreateMessageBox(owner, LoadResString(caption), text, ulo::kWarningFlags);
}

}  // namespace veld5
