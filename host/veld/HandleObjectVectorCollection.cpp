#include "HandleObjectVectorCollection.h"

#include <algorithm>

namespace veld {

CHandleObjectVectorCollection::CHandleObjectVectorCollection(
    const CHandleObjectVectorCollection& other)
    : items_(other.items_) {
    for (auto* o : items_)
        o->AddReference();
}

CHandleObjectVectorCollection& CHandleObjectVectorCollection::operator=(
    const CHandleObjectVectorCollection& other) {
    if (this == &other)
        return *this;
    for (auto* o : other.items_)
        o->AddReference();
    RemoveAll();
    items_ = other.items_;
    return *this;
}

void CHandleObjectVectorCollection::Add(ulo::IHandledRefCounter* object) {
    if (!object)
        return;
    object->AddReference();
    items_.push_back(object);
}

bool CHandleObjectVectorCollection::Remove(const ulo::IHandledRefCounter* object) {
    const auto it = std::find(items_.begin(), items_.end(), object);
    if (it == items_.end())
        return false;
    items_.erase(it);
    object->SubReference();
    return true;
}

void CHandleObjectVectorCollection::RemoveAll() {
    auto items = std::move(items_);
    items_.clear();
    for (auto* o : items)
        o->SubReference();
}

bool CHandleObjectVectorCollection::IsInserted(const ulo::IHandledRefCounter* object) const {
    return std::find(items_.begin(), items_.end(), object) != items_.end();
}

}  // namespace veld
