#pragma once
// CLayerLtypeCtrlDlg: the model behind the layers and line types dialogs.
// Every edit those dialogs make goes to the drawing at once (items enter and
// leave the tables, properties change on the items), so every view shows the
// live state; the controller remembers the state of every layer and line type
// when it was made. At the end Rollback puts everything back, or Commit makes
// the chosen current layer, current line type and scale effective and hands
// the host one undoable command for the whole visit.
//
// It also holds the rules of what may be made current or deleted; a refusal
// is told through the notifier (caption "Warning", exclamation, OK) and
// changes nothing. Plain C++ over the drawing model: no widget here.
#include <cstddef>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

#include "res/StringIds.h"
#include "ulo/Memento.h"
#include "ulo/RefCounter.h"
#include "ulo/WString.h"
#include "veld/HandleObjectVectorCollection.h"

class CVELD;

namespace veld {
class CData;
class CLayer;
class CLayerTable;
class CLtype;
class CLtypeTable;
}  // namespace veld

namespace veld5 {

class CLayerLtypeCtrlDlg : public ulo::IRefCounter {
public:
    /// Receives the warnings of the controller's rules.
    class IMsgNotification {
    public:
        virtual ~IMsgNotification() = default;
        virtual int ShowMessage(const wchar_t* caption, const wchar_t* text, unsigned flags) {
            (void)caption;
            (void)text;
            (void)flags;
            return 0;
        }
    };

    /// Takes a memento of every layer and line type of @p cad's drawing.
    explicit CLayerLtypeCtrlDlg(CVELD* cad);

    /// The receiver of warnings (null: warnings are not shown).
    void SetNotifier(IMsgNotification* notifier) { notifier_ = notifier; }

    // Layer selection of the layers dialog, in selection order.
    void ClearSelLayers();
    void AddSelLayer(veld::CLayer* layer);
    void RemoveSelLayer(veld::CLayer* layer);
    unsigned GetNoSelLayers() const;
    veld::CLayer* GetSelLayerNo(unsigned index) const;

    /// Makes the first selected layer the one to be current after Commit;
    /// false (with a warning) for a frozen or external layer.
    bool MakeSelLayerCurrent();
    /// Adds a new layer "LayerN" modelled on the selected layer (exactly one
    /// selected) or on the current one, and returns it.
    veld::CLayer* NewLayer();
    /// Deletes the selected layers that may go (unused, not layer 0, not
    /// external, not current) and empties the selection.
    void DeleteSelLayers();
    /// Whether @p name is a new name for the one selected layer (always true
    /// for a layer made during the visit). The whole names compare: a name
    /// may hold a NUL.
    bool IsLayerNameChanged(const ulo::WString& name) const;

    veld::CLtype* GetSelLtype() const { return selLtype_; }
    void SetSelLtype(veld::CLtype* ltype) { selLtype_ = ltype; }
    /// False for null, ByBlock, ByLayer, Continuous and external line types.
    bool CanDeleteLtype(const veld::CLtype* ltype) const;
    bool MakeSelLtypeCurrent();
    bool DeleteSelLtype();
    /// Brings in a line type made by the loading dialog: a line type of that
    /// name in the drawing takes its definition, otherwise it joins the table.
    void AddLtype(veld::CLtype* ltype);

    /// The global line type scale as edited; Commit applies it only when it
    /// is greater than 0.
    void SetNewLtypeScale(double scale) { editedScale_ = scale; }
    double GetNewLtypeScale() const { return editedScale_; }

    veld::CLayer* GetCurLayer() const { return curLayer_; }
    veld::CLtype* GetCurLtype() const { return curLtype_; }

    /// Ends the visit keeping its edits: one command goes to the undo list.
    void Commit();
    /// Ends the visit undoing every edit.
    void Rollback();

protected:
    ~CLayerLtypeCtrlDlg() override;

private:
    /// One memento per item, in table order (Commit and Rollback walk them so),
    /// found by item. An item's memento may be handed on before the end.
    template <class T>
    class Mementos {
    public:
        Mementos() = default;
        Mementos(const Mementos&) = delete;
        Mementos& operator=(const Mementos&) = delete;
        ~Mementos() {
            Drain([](T*, ulo::IMemento* m) { m->SubReference(); });
        }

        void Take(T* item) {
            if (item && at_.emplace(item, entries_.size()).second)
                entries_.emplace_back(item, item->CreateMemento());
        }
        /// The memento still held for @p item, or null.
        const ulo::IMemento* Find(const T* item) const {
            const auto it = at_.find(item);
            return it == at_.end() ? nullptr : entries_[it->second].second;
        }
        /// Hands the memento of @p item (its reference) to the caller.
        ulo::IMemento* Detach(const T* item) {
            const auto it = at_.find(item);
            return it == at_.end() ? nullptr : std::exchange(entries_[it->second].second, nullptr);
        }
        /// Hands every memento still held to @p take(item, memento), in table
        /// order, and forgets them all.
        template <class F>
        void Drain(F take) {
            auto entries = std::move(entries_);
            entries_.clear();
            at_.clear();
            for (auto& [item, memento] : entries)
                if (memento)
                    take(item, memento);
        }

    private:
        std::vector<std::pair<T*, ulo::IMemento*>> entries_;
        std::unordered_map<const T*, std::size_t> at_;
    };

    void Warn(StringId text) const;
    /// Releases the collections and mementos once the visit has ended.
    void Finish();

    CVELD* cad_;
    veld::CData* data_;
    veld::CLayerTable* layers_;
    veld::CLtypeTable* ltypes_;
    IMsgNotification* notifier_ = nullptr;
    veld::CHandleObjectVectorCollection selLayers_;
    std::unordered_set<const veld::CLayer*> selected_;  // the same layers, to ask
    veld::CHandleObjectVectorCollection newLayers_;
    veld::CHandleObjectVectorCollection deletedLayers_;
    Mementos<veld::CLayer> layerMementos_;
    veld::CLayer* curLayer_;
    veld::CHandleObjectVectorCollection newLtypes_;
    veld::CHandleObjectVectorCollection deletedLtypes_;
    Mementos<veld::CLtype> ltypeMementos_;
    veld::CLtype* curLtype_;
    veld::CLtype* selLtype_ = nullptr;
    double startScale_;
    double editedScale_;
    bool ended_ = false;
};

}  // namespace veld5
