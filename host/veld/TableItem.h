#pragma once
// ITableItem: a named, reference-counted, mementable item of a drawing table
// (layer, line type, text style, entity set).
//
// Names: an item that depends on an external reference is named
// "XREFNAME|ITEM"; GetName gives the whole name and GetFullName the same text
// (the list shows it as it stands).
#include "ulo/Memento.h"
#include "ulo/RefCounter.h"
#include "ulo/WString.h"

namespace veld {

class CData;

class ITableItem : public ulo::IHandledRefCounter, public ulo::IMementable {
public:
    const ulo::WString& GetName() const { return name_; }
    void SetName(const ulo::WString& name) { name_ = name; }
    ulo::WString GetFullName() const { return name_; }
    unsigned GetFlags() const { return flags_; }
    void SetFlags(unsigned flags) { flags_ = flags; }

    /// Depends on an external reference ("XREF|NAME").
    bool IsXRef() const;
    /// Private items are kept by the program and never listed.
    bool IsPrivate() const { return (flags_ & kFlagPrivate) != 0; }
    virtual bool CanBeCurrent() const { return !IsXRef(); }
    virtual bool CanBeRenamed() const { return !IsXRef(); }
    virtual bool CanBeSetToEnt() const { return !IsXRef(); }
    virtual bool CanBeChangedFromEnt() const { return !IsXRef(); }
    /// Referred to by an entity of the drawing (or, for line types, by a layer).
    virtual bool IsItemUsed() const;

    /// The drawing the item belongs to (set when it enters a table).
    CData* GetData() const { return data_; }
    void SetData(CData* data) { data_ = data; }

    static constexpr unsigned kFlagPrivate = 0x1000;

protected:
    ITableItem(ulo::WString name, unsigned flags) : name_(std::move(name)), flags_(flags) {}

    /// State shared by every item's memento.
    struct ItemState {
        ulo::WString name;
        unsigned flags;
    };
    ItemState SaveItem() const { return {name_, flags_}; }
    void RestoreItem(const ItemState& s) {
        name_ = s.name;
        flags_ = s.flags;
    }
    static bool SameItem(const ItemState& a, const ItemState& b) {
        return a.name == b.name && a.flags == b.flags;
    }

    /// A memento of the item's name and flags plus a class's own state @p S
    /// (a value type with ==).
    template <class S>
    struct CItemMemento : ulo::IMemento {
        ItemState item;
        S state;
        unsigned GetMemSize() const override { return sizeof(*this); }
    };
    template <class S>
    ulo::IMemento* MakeMemento(const S& state) const {
        auto* m = new CItemMemento<S>();
        m->item = SaveItem();
        m->state = state;
        return m;
    }
    template <class S>
    bool DiffersFrom(const ulo::IMemento* memento, const S& state) const {
        const auto* m = dynamic_cast<const CItemMemento<S>*>(memento);
        return !m || !SameItem(m->item, SaveItem()) || !(m->state == state);
    }
    template <class S>
    void RestoreFrom(const ulo::IMemento* memento, S& state) {
        if (const auto* m = dynamic_cast<const CItemMemento<S>*>(memento)) {
            RestoreItem(m->item);
            state = m->state;
        }
    }

private:
    ulo::WString name_;
    unsigned flags_;
    CData* data_ = nullptr;
};

/// The table name rule: 1 to 255 characters, each A-Z, a-z, 0-9 or one of
/// "$", "_", "-". The second argument is kept for callers' signature.
bool is_valid_table_name14(const ulo::WString& name, bool allowXRef);

}  // namespace veld
