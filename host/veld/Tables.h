#pragma once
// The drawing's tables. A table holds one reference on each item; names are
// compared ignoring case. Every change is reported to the data tables' source
// event.
//
// Lookups by name go through an index of the case-folded names, kept in step
// when items come, go or are renamed (undo renames through the item's
// memento), so finding an item costs the same with 50 000 items as with ten.
//
// Table order: a table numbers each item the first time it takes it and keeps
// its items in that order, so an item taken out and put back (a cancelled
// dialog, undo) returns to its old place and the drawing reads as before. A
// table once emptied starts a new order: items then come in the order they
// are added (the file reader takes every item out, then adds them as the file
// lists them).
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "Layer.h"
#include "Ltype.h"
#include "Style.h"

namespace veld {

class CData;

class CTableImp {
public:
    explicit CTableImp(CData* data);
    virtual ~CTableImp();
    CTableImp(const CTableImp&) = delete;
    CTableImp& operator=(const CTableImp&) = delete;

    /// Makes room for @p n items (a reader that knows how many come).
    void Reserve(std::size_t n);
    /// Adds @p item (the table takes its own reference); false when present.
    /// An item this table held before (since it was last empty) goes back to
    /// its place, any other one joins the end.
    bool Add(ITableItem* item);
    /// Removes @p item and releases the table's reference; false when absent.
    bool Remove(ITableItem* item);
    /// The first item, in table order, whose name matches @p name ignoring case.
    ITableItem* FindItem(const ulo::WString& name) const;
    bool Contains(const ITableItem* item) const { return item && item->table_ == this; }
    unsigned GetNoItems() const { return static_cast<unsigned>(items_.size()); }
    ITableItem* GetItemNo(unsigned i) const { return i < items_.size() ? items_[i] : nullptr; }
    /// A name made of @p base and the smallest number from 1 that no item
    /// has ("Layer1", "Layer2", ...).
    ulo::WString GetProgName(const ulo::WString& base) const;

private:
    friend class ITableItem;  // renames go through Unindex and Index
    /// @p appended: the item is the last in table order.
    void Index(ITableItem* item, bool appended);
    void Unindex(ITableItem* item);
    void Changed() const;
    /// The first place in items_ whose item is not numbered below @p order.
    std::vector<ITableItem*>::const_iterator Place(std::uint64_t order) const;
    /// Where @p item, held by this table, stands in items_.
    std::vector<ITableItem*>::const_iterator Position(const ITableItem* item) const;

    /// The items of one folded name: the first in table order and how many.
    struct Named {
        ITableItem* first;
        unsigned count;
    };
    /// Looks folded names up without making a string of them.
    struct Hash {
        using is_transparent = void;
        std::size_t operator()(std::wstring_view key) const {
            return std::hash<std::wstring_view>()(key);
        }
    };
    CData* data_;
    /// Tells this table's numbering from another's (or from its own before it
    /// was emptied), even one at the same address.
    std::uint64_t serial_;
    std::uint64_t nextOrder_ = 1;
    std::vector<ITableItem*> items_;  // in increasing ITableItem::order_
    std::unordered_map<std::wstring, Named, Hash, std::equal_to<>> byName_;
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
