#include "Tables.h"

#include <algorithm>
#include <atomic>
#include <cassert>

#include "Data.h"

namespace veld {

namespace {

/// @p name with every character as WString::CompareIgnoreCase compares it:
/// two names match ignoring case exactly when their keys are equal.
std::wstring folded(const ulo::WString& name) {
    std::wstring key = name.str();
    std::transform(key.begin(), key.end(), key.begin(), ulo::FoldCase);
    return key;
}

std::uint64_t nextTableSerial() {
    static std::atomic<std::uint64_t> serial{0};
    return ++serial;
}

}  // namespace

CTableImp::CTableImp(CData* data) : data_(data), serial_(nextTableSerial()) {}

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
    bool appended = true;
    if (item->orderTable_ == serial_ && item->order_ != 0 && item->order_ < nextOrder_) {
        const auto at = Place(item->order_);
        appended = at == items_.end();
        items_.insert(at, item);
    } else {
        item->order_ = nextOrder_++;
        item->orderTable_ = serial_;
        items_.push_back(item);
    }
    Index(item, appended);
    Changed();
    return true;
}

bool CTableImp::Remove(ITableItem* item) {
    if (!Contains(item))
        return false;
    const auto at = Position(item);
    Unindex(item);
    items_.erase(at);
    if (items_.empty()) {
        // Nothing is left to keep a place among: what comes next (a file
        // read in, say) sets a new order.
        serial_ = nextTableSerial();
        nextOrder_ = 1;
    }
    item->table_ = nullptr;
    Changed();
    item->SubReference();
    return true;
}

std::vector<ITableItem*>::const_iterator CTableImp::Place(std::uint64_t order) const {
    return std::lower_bound(
        items_.begin(), items_.end(), order,
        [](const ITableItem* item, std::uint64_t o) { return item->order_ < o; });
}

std::vector<ITableItem*>::const_iterator CTableImp::Position(const ITableItem* item) const {
    const auto at = Place(item->order_);
    assert(at != items_.end() && *at == item);
    return at;
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
        std::transform(text.begin(), text.end(), buffer, ulo::FoldCase);
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
    // A renamed item, or one put back in its old place, may come before the
    // one found by that name so far.
    if (!added && !appended && item->order_ < named.first->order_)
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
        // Names taken twice are rare (the dialogs refuse them): the next one
        // in table order comes after this one.
        named.first = nullptr;
        for (auto other = Position(item) + 1; other != items_.end(); ++other)
            if (folded((*other)->GetName()) == it->first) {
                named.first = *other;
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
