#pragma once
// ITableItem: a named, reference-counted, mementable item of a drawing table
// (layer, line type, text style, entity set).
//
// Names: an item that depends on an external reference is named
// "XREFNAME|ITEM"; GetName gives the whole name and GetFullName the same text
// (the list shows it as it stands).
#include <cstdint>

#include "ulo/Memento.h"
#include "ulo/RefCounter.h"
#include "ulo/WString.h"

namespace veld {

class CData;
class CTableImp;

class ITableItem : public ulo::IHandledRefCounter, public ulo::IMementable {
public:
    const ulo::WString& GetName() const { return name_; }
    /// Renames the item; the table holding it finds it by the new name.
    void SetName(const ulo::WString& name);
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

private:
    friend class CTableImp;
    ulo::WString name_;
    unsigned flags_;
    CData* data_ = nullptr;
    CTableImp* table_ = nullptr;  // the table holding the item
    // The item's place in table order, numbered by the table that first took
    // it (orderTable_: that table's serial number; 0: none yet).
    std::uint64_t order_ = 0;
    std::uint64_t orderTable_ = 0;
};

/// A table item whose memento holds its name, its flags and its own state
/// @p S (a value type with ==): an item class only says what its state is and
/// keeps it in s_.
template <class S>
class CStatefulItem : public ITableItem {
public:
    ulo::IMemento* CreateMemento() const override {
        return new Memento(Snapshot{{GetName(), GetFlags()}, s_});
    }
    bool HasChanged(const ulo::IMemento* memento) const override {
        const auto* m = dynamic_cast<const Memento*>(memento);
        return !m || m->state.item.name != GetName() || m->state.item.flags != GetFlags() ||
               !(m->state.own == s_);
    }
    /// The name kept in @p memento, one of this item class's; null for any
    /// other memento.
    static const ulo::WString* GetMementoName(const ulo::IMemento* memento) {
        const auto* m = dynamic_cast<const Memento*>(memento);
        return m ? &m->state.item.name : nullptr;
    }

protected:
    CStatefulItem(ulo::WString name, unsigned flags, S state)
        : ITableItem(std::move(name), flags), s_(std::move(state)) {}

    void OnSetMemento(ulo::IMemento* memento) override {
        if (const auto* m = dynamic_cast<const Memento*>(memento)) {
            SetName(m->state.item.name);
            SetFlags(m->state.item.flags);
            s_ = m->state.own;
        }
    }

    S s_;

private:
    struct ItemState {
        ulo::WString name;
        unsigned flags;
    };
    struct Snapshot {
        ItemState item;
        S own;
    };
    using Memento = ulo::CValueMemento<Snapshot>;
};

/// The table name rule: 1 to 255 characters, each A-Z, a-z, 0-9 or one of
/// "$", "_", "-". The second argument is kept for callers' signature.
bool is_valid_table_name14(const ulo::WString& name, bool allowXRef);

}  // namespace veld
