#pragma once
// CData: one drawing's data: its tables, entity sets, entities, object
// factory and change notification. A new drawing holds layer "0", the line
// types ByBlock, ByLayer and Continuous, the text style "STANDARD" and one
// entity set of each of the types "CAD" and "Topog.".
//
// Iterator selections:
// - CLayerIterator(data, withXRef): every layer in table order; XRef-dependent
//   layers only when withXRef is true.
// - CLtypeIterator(data, withXRef, withLogical): line types in table order;
//   XRef-dependent ones only with withXRef, ByBlock and ByLayer only with
//   withLogical.
// - CStyleIterator(data, withXRef): text styles likewise.
// - CHandleObjectIterator(data, withHidden): the entities in drawing order
//   whose entity set is present in the drawing; entities of sets that are
//   off are left out unless withHidden is true.
#include <functional>
#include <memory>
#include <unordered_set>
#include <vector>

#include "Drawing.h"
#include "EntCollection.h"
#include "ObjectFactory.h"
#include "Tables.h"
#include "VeldSourceEvent.h"

namespace veld {

class CData {
public:
    CData();
    ~CData();
    CData(const CData&) = delete;
    CData& operator=(const CData&) = delete;

    CLayerTable& GetLayerTable() { return layers_; }
    CLtypeTable& GetLtypeTable() { return ltypes_; }
    CStyleTable& GetStyleTable() { return styles_; }
    const CObjectFactory* GetObjectFactory() const { return &factory_; }
    /// The notification of table changes (never null here).
    CVeldSourceEvent* GetDataTablesSourceEvent() { return &tablesEvent_; }
    CData* GetDataTables() { return this; }
    CDrawingManager* GetDrawingManager() { return &drawings_; }
    const CDrawingManager* GetDrawingManager() const { return &drawings_; }
    IHandleGestor* GetHandleGestor() { return &handles_; }
    /// The drawing's entities (one reference each), in drawing order.
    CEntTable& GetEntTable() { return ents_; }
    const CEntTable& GetEntTable() const { return ents_; }
    /// The next handle given out will be above @p handle.
    void ReserveHandle(unsigned long handle) { handles_.Reserve(handle); }

    /// True when something of the drawing refers to @p item: a layer to a
    /// line type, or an entity (through the registered reference tests).
    bool IsItemReferenced(const ITableItem* item) const;
    /// Adds a test that tells whether the owner refers to an item (entity
    /// containers register one).
    void AddReferenceTest(std::function<bool(const ITableItem*)> test);

    /// IsItemReferenced for many items at once: what the layers and entities
    /// refer to is gathered in one pass when it is made, so asking for each of
    /// 50 000 layers costs a lookup each instead of a walk over the drawing.
    /// It answers for the drawing as it was when made.
    class CItemUsage {
    public:
        explicit CItemUsage(const CData& data);
        bool IsUsed(const ITableItem* item) const;

    private:
        const CData& data_;
        std::unordered_set<const ITableItem*> referenced_;
    };

    class CLayerIterator {
    public:
        CLayerIterator(CData* data, bool withXRef) : data_(data), xref_(withXRef) {}
        CLayer* GetNext();

    private:
        CData* data_;
        bool xref_;
        unsigned i_ = 0;
    };
    class CLtypeIterator {
    public:
        CLtypeIterator(CData* data, bool withXRef, bool withLogical)
            : data_(data), xref_(withXRef), logical_(withLogical) {}
        CLtype* GetNext();

    private:
        CData* data_;
        bool xref_, logical_;
        unsigned i_ = 0;
    };
    class CHandleObjectIterator {
    public:
        CHandleObjectIterator(CData* data, bool withHidden) : data_(data), hidden_(withHidden) {}
        CEnt* GetNext();

    private:
        CData* data_;
        bool hidden_;
        unsigned i_ = 0;
    };
    class CStyleIterator {
    public:
        CStyleIterator(CData* data, bool withXRef) : data_(data), xref_(withXRef) {}
        CStyle* GetNext();

    private:
        CData* data_;
        bool xref_;
        unsigned i_ = 0;
    };

private:
    class Handles : public IHandleGestor {
    public:
        unsigned long NewHandle() override { return ++last_; }
        void Reserve(unsigned long h) {
            if (h > last_)
                last_ = h;
        }

    private:
        unsigned long last_ = 0;
    };
    CVeldSourceEvent tablesEvent_;
    Handles handles_;
    CObjectFactory factory_;
    CLtypeTable ltypes_;
    CLayerTable layers_;
    CStyleTable styles_;
    std::vector<std::function<bool(const ITableItem*)>> referenceTests_;
    // Entities refer to items and sets: they are declared last, to go first.
    CDrawingManager drawings_{this, &handles_};
    CEntTable ents_{&handles_};
};

CLayerTable* GetMainLayerTable(CData* data);
CLtypeTable* GetMainLtypeTable(CData* data);
CStyleTable* GetMainStyleTable(CData* data);
CStyle* GetStyleStandard(CData* data);
/// The layer of that name (ignoring case), or null.
CLayer* FindLayer(CData* data, const ulo::WString& name);

}  // namespace veld
