#pragma once
// Entity sets. Every entity belongs to one entity set (CDrawing); the sets of
// a drawing are kept, in drawing order, by its CDrawingManager. Each set has a
// type (CDrawingType): 0 "CAD" for drafting, 1 "Topog." for survey work,
// 2 "Points" for the survey point sets the program keeps itself and
// 4 "Reference" for sets attached from other drawings. For every type one set
// is the active one: new entities of that kind go into it.
#include <memory>
#include <vector>

#include "TableItem.h"

namespace veld {

class CData;
class CDrawing;
class CDrawingType;

/// Hands out the handles of a drawing's objects.
class IHandleGestor {
public:
    virtual ~IHandleGestor() = default;
    virtual unsigned long NewHandle() = 0;
};

/// Counts the entities of an entity set.
class IEntSite {
public:
    virtual ~IEntSite() = default;
    virtual unsigned GetNoEnts() const = 0;
};

/// Told about entity sets coming, going and becoming active; it may refuse a
/// removal.
class IDrawingsNotifier {
public:
    virtual ~IDrawingsNotifier() = default;
    virtual void OnDrawingAdded(CDrawing* drawing, unsigned cookie) = 0;
    virtual bool CanRemoveDrawing(CDrawing* drawing) = 0;
    virtual void OnDrawingRemoved(CDrawing* drawing) = 0;
    virtual void OnDrawingActivated(CDrawing* drawing) = 0;
};

class CDrawingType {
public:
    CDrawingType(unsigned id, ulo::WString name, int icon);
    virtual ~CDrawingType() = default;

    unsigned GetID() const { return id_; }
    const ulo::WString& GetName() const { return name_; }
    /// Resource id of the type's icon; 0 when it has none.
    int GetIcon() const { return icon_; }

    struct Permissions {
        bool deleteDrawing = true;
        bool deleteCurrent = false;
        bool deleteWithEnts = false;
        bool modify = true;
    };
    bool CanDeleteDrawing() const { return perm_.deleteDrawing; }
    bool CanDeleteDrawingCur() const { return perm_.deleteCurrent; }
    bool CanDeleteDrawingWithEnts() const { return perm_.deleteWithEnts; }
    bool CanModifyDrawing() const { return perm_.modify; }
    const Permissions& GetPermissions() const { return perm_; }
    void SetPermissions(const Permissions& p) { perm_ = p; }

    /// Asked before a new set of this type is made; @p cookie receives a
    /// value handed back to DiscardNewDrawing or OnDrawingAdded. The default
    /// accepts every name and gives out increasing cookies.
    virtual bool PrepareNewDrawing(const ulo::WString& name, unsigned& cookie);
    virtual void DiscardNewDrawing(unsigned cookie);
    unsigned GetOpenCookies() const { return openCookies_; }

    IDrawingsNotifier* GetNotifier() const { return notifier_; }
    /// Not owned; null: everything is allowed and nobody is told.
    void SetNotifier(IDrawingsNotifier* notifier) { notifier_ = notifier; }

private:
    unsigned id_;
    ulo::WString name_;
    int icon_;
    Permissions perm_;
    IDrawingsNotifier* notifier_ = nullptr;
    unsigned nextCookie_ = 1;
    unsigned openCookies_ = 0;
};

/// What an entity set's memento keeps beside its name and flags.
struct DrawingState {
    bool visible = true, locked = false, hidden = false, useColor = false;
    unsigned colour = 1;
    bool operator==(const DrawingState&) const = default;
};

class CDrawing : public CStatefulItem<DrawingState> {
public:
    CDrawing(CData* data, const ulo::WString& name, unsigned flags, IHandleGestor* gestor,
             CDrawingType* type);

    CDrawingType* GetDrawingType() const { return type_; }
    IHandleGestor* GetHandleGestor() const { return gestor_; }
    bool IsVisible() const { return s_.visible; }
    void SetVisible(bool on) { s_.visible = on; }
    bool IsLocked() const { return s_.locked; }
    void SetLocked(bool locked) { s_.locked = locked; }
    bool IsHidden() const { return s_.hidden; }
    void SetHidden(bool hidden) { s_.hidden = hidden; }
    bool UseColor() const { return s_.useColor; }
    void SetUseColor(bool use) { s_.useColor = use; }
    unsigned GetColor() const { return s_.colour; }
    void SetColor(unsigned colour) { s_.colour = colour; }
    /// References to the set from outside its drawing (other drawings
    /// attaching it); a referenced set cannot be deleted.
    unsigned GetNoRef() const { return noRef_; }
    void SetNoRef(unsigned n) { noRef_ = n; }
    /// The set's entities, counted in the drawing's entity table.
    const IEntSite* GetEntTable() const { return &site_; }

private:
    class Site : public IEntSite {
    public:
        explicit Site(const CDrawing* d) : d_(d) {}
        unsigned GetNoEnts() const override;

    private:
        const CDrawing* d_;
    };
    CDrawingType* type_;
    IHandleGestor* gestor_;
    unsigned noRef_ = 0;
    Site site_{this};
};

using CDrawingList = std::vector<CDrawing*>;

class CDrawingManager {
public:
    CDrawingManager(CData* data, IHandleGestor* gestor);
    ~CDrawingManager();
    CDrawingManager(const CDrawingManager&) = delete;
    CDrawingManager& operator=(const CDrawingManager&) = delete;

    CData* GetData() const { return data_; }
    IHandleGestor* GetHandleGestor() const { return gestor_; }

    // Types: 0 "CAD", 1 "Topog.", 2 "Points", 4 "Reference".
    unsigned GetNoDrawingTypes() const { return static_cast<unsigned>(types_.size()); }
    CDrawingType* GetDrawingTypeAtPos(unsigned i) const;
    CDrawingType* GetDrawingType(unsigned id) const;

    // The sets in drawing order (first drawn first).
    unsigned GetNoDrawings() const { return static_cast<unsigned>(drawings_.size()); }
    CDrawing* GetDrawingAtPos(unsigned i) const;
    bool IsDrawingPresent(const CDrawing* drawing) const;
    /// The set of that type and name (ignoring case), or null.
    CDrawing* FindDrawing(unsigned typeId, const ulo::WString& name) const;
    void GetAllDrawingsForType(unsigned typeId, CDrawingList& list) const;

    /// A new set appended to the drawing order (or put first with
    /// @p atEnd false); null for an unknown type. The manager holds it.
    CDrawing* AddDrawing(unsigned typeId, const ulo::WString& name, bool visible, bool locked,
                         bool hidden, bool atEnd);
    /// Puts back a set made earlier (undo); false when already present.
    bool AddDrawing(CDrawing* drawing);
    /// Takes a set out of the drawing (its entities go with it and come back
    /// when it is added again). When it was active, the first remaining set
    /// of its type becomes active.
    bool RemoveDrawing(CDrawing* drawing);
    /// The new drawing order: the sets of @p order first, in that order, then
    /// any present set it leaves out, in their previous order.
    void ChangeOrder(const CDrawingList& order);

    CDrawing* GetActiveDrawing(unsigned typeId) const;
    /// The active set of every type that has one, in type order.
    CDrawingList GetActiveDrawings() const;
    /// Makes a present set the active one of its type.
    bool SetActiveDrawing(CDrawing* drawing);

    /// A name for a new set of @p typeId that none of @p names has (ignoring
    /// case): the type's base name and the smallest number from 1, "CAD1",
    /// "Topog1", ...
    ulo::WString GetNewSuitableName(unsigned typeId, const std::vector<ulo::WString>& names) const;

private:
    /// Where the active set of @p type is kept (null for a foreign type).
    CDrawing** ActiveSlot(const CDrawingType* type);
    /// Makes @p drawing the active set of its type when the type has none.
    void ActivateIfNone(CDrawing* drawing);

    CData* data_;
    IHandleGestor* gestor_;
    std::vector<std::unique_ptr<CDrawingType>> types_;
    std::vector<CDrawing*> drawings_;  // one reference each
    std::vector<CDrawing*> active_;    // parallel to types_, may be null
};

}  // namespace veld
