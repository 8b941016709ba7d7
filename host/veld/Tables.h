#pragma once
// The drawing's tables. A table holds one reference on each item; names are
// compared ignoring case. Every change is reported to the data tables' source
// event.
#include <vector>

#include "Layer.h"
#include "Ltype.h"
#include "Style.h"

namespace veld {

class CData;

class CTableImp {
public:
    explicit CTableImp(CData* data) : data_(data) {}
    virtual ~CTableImp();
    CTableImp(const CTableImp&) = delete;
    CTableImp& operator=(const CTableImp&) = delete;

    /// Adds @p item (the table takes its own reference); false when present.
    bool Add(ITableItem* item);
    /// Removes @p item and releases the table's reference; false when absent.
    bool Remove(ITableItem* item);
    ITableItem* FindItem(const ulo::WString& name) const;
    bool Contains(const ITableItem* item) const;
    unsigned GetNoItems() const { return static_cast<unsigned>(items_.size()); }
    ITableItem* GetItemNo(unsigned i) const { return i < items_.size() ? items_[i] : nullptr; }
    /// A name made of @p base and the smallest number from 1 that no item
    /// has ("Layer1", "Layer2", ...).
    ulo::WString GetProgName(const ulo::WString& base) const;

private:
    void Changed() const;
    CData* data_;
    std::vector<ITableItem*> items_;
};

template <class T>
class ITable : public CTableImp {
public:
    using CTableImp::CTableImp;
    T* Find(const ulo::WString& name) const { return static_cast<T*>(FindItem(name)); }
    T* GetNo(unsigned i) const { return static_cast<T*>(GetItemNo(i)); }

    /// Walks the items in table order.
    class Iterator {
    public:
        explicit Iterator(const ITable* t) : t_(t) {}
        T* GetNext() { return t_->GetNo(i_++); }

    private:
        const ITable* t_;
        unsigned i_ = 0;
    };
    Iterator GetIterator() const { return Iterator(this); }
};

class CLayerTable : public ITable<CLayer> {
public:
    using ITable::ITable;
};

class CLtypeTable : public ITable<CLtype> {
public:
    using ITable::ITable;
    CLtype* GetLtypeByBlock() const { return Find(L"ByBlock"); }
    CLtype* GetLtypeByLayer() const { return Find(L"ByLayer"); }
    CLtype* GetLtypeContinuous() const { return Find(L"Continuous"); }
};

class CStyleTable : public ITable<CStyle> {
public:
    using ITable::ITable;
    /// The standard style ("STANDARD", else the first style).
    CStyle* GetStyleStandard() const;
};

}  // namespace veld
