#pragma once
// CEntCollection: an ordered list of entities holding one reference on each
// (the selection, the texts a dialog hands back). CEntTable: the drawing's own
// entities, in drawing order, each given a handle when it enters.

#include "Ent.h"
#include "HandleObjectVectorCollection.h"

namespace veld {

class CEntCollection {
public:
    CEntCollection() = default;
    CEntCollection(const CEntCollection&) = delete;
    CEntCollection& operator=(const CEntCollection&) = delete;

    unsigned GetNoEnts() const { return ents_.GetNoElems(); }
    CEnt* GetEnt(unsigned i) const { return static_cast<CEnt*>(ents_.GetObjectNo(i)); }
    /// Appends @p ent and takes a reference on it.
    void AddEnt(CEnt* ent) { ents_.Add(ent); }
    /// Removes @p ent and releases the reference; false when absent.
    bool RemoveEnt(const CEnt* ent) { return ents_.Remove(ent); }
    bool Contains(const CEnt* ent) const { return ents_.IsInserted(ent); }
    void Reserve(unsigned n) { ents_.Reserve(n); }
    void RemoveAllEnts() { ents_.RemoveAll(); }

private:
    CHandleObjectVectorCollection ents_;
};

class CEntTable : public CEntCollection {
public:
    explicit CEntTable(IHandleGestor* gestor) : gestor_(gestor) {}
    /// Adds @p ent to the drawing; an entity without a handle gets a new one.
    void Add(CEnt* ent);
    CEnt* Find(unsigned long handle) const;
    /// Entities in @p drawing.
    unsigned CountIn(const CDrawing* drawing) const;

private:
    IHandleGestor* gestor_;
};

}  // namespace veld
