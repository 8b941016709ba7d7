#include "Tables.h"

#include <algorithm>

#include "Data.h"

namespace veld {

CTableImp::~CTableImp() {
    for (ITableItem* item : items_) {
        item->SetData(nullptr);
        item->SubReference();
    }
}

bool CTableImp::Add(ITableItem* item) {
    if (!item || Contains(item))
        return false;
    item->AddReference();
    item->SetData(data_);
    items_.push_back(item);
    Changed();
    return true;
}

bool CTableImp::Remove(ITableItem* item) {
    const auto it = std::find(items_.begin(), items_.end(), item);
    if (it == items_.end())
        return false;
    items_.erase(it);
    Changed();
    item->SubReference();
    return true;
}

ITableItem* CTableImp::FindItem(const ulo::WString& name) const {
    for (ITableItem* item : items_)
        if (item->GetName().CompareIgnoreCase(name) == 0)
            return item;
    return nullptr;
}

bool CTableImp::Contains(const ITableItem* item) const {
    return std::find(items_.begin(), items_.end(), item) != items_.end();
}

ulo::WString CTableImp::GetProgName(const ulo::WString& base) const {
    for (unsigned n = 1;; ++n) {
        const ulo::WString name = base + ulo::WString(std::to_wstring(n));
        if (!FindItem(name))
            return name;
    }
}

void CTableImp::Changed() const {
    if (data_)
        data_->GetDataTablesSourceEvent()->Changed();
}

CStyle* CStyleTable::GetStyleStandard() const {
    if (CStyle* s = Find(L"STANDARD"))
        return s;
    return GetNo(0);
}

}  // namespace veld
