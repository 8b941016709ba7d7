#include "TableItem.h"

#include "Data.h"
#include "Tables.h"

namespace veld {

void ITableItem::SetName(const ulo::WString& name) {
    if (name == name_)
        return;
    if (table_)
        table_->Unindex(this);
    name_ = name;
    if (table_)
        table_->Index(this, false);
}

bool ITableItem::IsXRef() const {
    return name_.str().find(L'|') != std::wstring::npos;
}

bool ITableItem::IsItemUsed() const {
    return data_ && data_->IsItemReferenced(this);
}

bool is_valid_table_name14(const ulo::WString& name, bool) {
    if (name.IsEmpty() || name.Length() > 255)
        return false;
    for (const wchar_t c : name.str()) {
        const bool ok = (c >= L'A' && c <= L'Z') || (c >= L'a' && c <= L'z') ||
                        (c >= L'0' && c <= L'9') || c == L'$' || c == L'_' || c == L'-';
        if (!ok)
            return false;
    }
    return true;
}

}  // namespace veld
