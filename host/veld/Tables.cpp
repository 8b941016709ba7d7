#include "Tables.h"

#include <algorithm>
#include <cwctype>

#include "Data.h"

namespace veld {

namespace {

wchar_t fold(wchar_t c) {
    return static_cast<wchar_t>(std::towupper(static_cast<std::wint_t>(c)));
}

/// @p name with every character as WString::CompareIgnoreCase compares it:
/// two names match ignoring case exactly when their keys are equal.
std::wstring folded(const ulo::WString& name) {
    std::wstring key = name.str();
    std::transform(key.begin(), key.end(), key.begin(), fold);
    return key;
}

}  // namespace

CTableImp::~CTableImp() {
    for (ITableItem* item : items_) {
        item->table_ = nullptr;
        item->SetData(nullptr);
        item->SubReference();
    }
}

bool CTableImp::Add(ITableItem* item) {
    if (!item || item->table_)
        return false;
    item->AddReference();
    item->SetData(data_);
    item->table_ = this;
    items_.push_back(item);
    Index(item, true);
    Changed();
    return true;
}

bool CTableImp::Remove(ITableItem* item) {
    if (!Contains(item))
        return false;
    Unindex(item);
    items_.erase(std::find(items_.begin(), items_.end(), item));
    item->table_ = nullptr;
    Changed();
    item->SubReference();
    return true;
}

void CTableImp::Reserve(std::size_t n) {
    items_.reserve(n);
    byName_.reserve(n);
}

ITableItem* CTableImp::FindItem(const ulo::WString& name) const {
    // Most names are short: fold them on the stack.
    const std::wstring& text = name.str();
    wchar_t buffer[64] = {};
    std::wstring longKey;
    std::wstring_view key;
    if (text.size() <= std::size(buffer)) {
        std::transform(text.begin(), text.end(), buffer, fold);
        key = std::wstring_view(buffer, text.size());
    } else {
        longKey = folded(name);
        key = longKey;
    }
    const auto it = byName_.find(key);
    return it == byName_.end() ? nullptr : it->second.first;
}

void CTableImp::Index(ITableItem* item, bool appended) {
    auto [it, added] = byName_.try_emplace(folded(item->GetName()), Named{item, 0});
    Named& named = it->second;
    ++named.count;
    // A renamed item may come before the one found by its new name so far
    // (rare: the dialogs refuse names taken twice).
    if (!added && !appended &&
        std::find(items_.begin(), items_.end(), item) <
            std::find(items_.begin(), items_.end(), named.first))
        named.first = item;
}

void CTableImp::Unindex(ITableItem* item) {
    const auto it = byName_.find(folded(item->GetName()));
    if (it == byName_.end())
        return;
    Named& named = it->second;
    if (--named.count == 0) {
        byName_.erase(it);
    } else if (named.first == item) {
        // Names taken twice are rare (the dialogs refuse them): look for the
        // next one in table order.
        named.first = nullptr;
        for (ITableItem* other : items_)
            if (other != item && folded(other->GetName()) == it->first) {
                named.first = other;
                break;
            }
    }
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
