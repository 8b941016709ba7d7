#pragma once
// Ordered collections of handle objects. A collection holds one reference on
// each object it contains; copies hold their own.
#include <vector>

#include "ulo/RefCounter.h"

namespace veld {

class CHandleObjectVectorCollection {
public:
    CHandleObjectVectorCollection() = default;
    CHandleObjectVectorCollection(const CHandleObjectVectorCollection& other);
    CHandleObjectVectorCollection& operator=(const CHandleObjectVectorCollection& other);
    ~CHandleObjectVectorCollection() { RemoveAll(); }

    /// Appends @p object (callers that must not hold an object twice ask
    /// IsInserted first).
    void Add(ulo::IHandledRefCounter* object);
    /// Removes @p object and releases the collection's reference.
    bool Remove(const ulo::IHandledRefCounter* object);
    void RemoveAll();
    void Reserve(unsigned n) { items_.reserve(n); }
    unsigned GetNoElems() const { return static_cast<unsigned>(items_.size()); }
    ulo::IHandledRefCounter* GetObjectNo(unsigned index) const {
        return index < items_.size() ? items_[index] : nullptr;
    }
    bool IsInserted(const ulo::IHandledRefCounter* object) const;

private:
    std::vector<ulo::IHandledRefCounter*> items_;
};

/// The unordered flavour keeps insertion order too.
using CHandleObjectCollection = CHandleObjectVectorCollection;

}  // namespace veld
