#pragma once
// CVELD: the CAD instance. It owns the open drawing's data, its views, its
// settings (current items, line type scale, angle system, cursor sizes,
// window colours, object snap), the selection, the raster images, the running
// operation, the entity event sink and the undo list.
//
// Views and other observers subscribe with AddChangeListener; they are told
// why they should look again (a repaint request, an undo list change, the
// selection, or a notification of the drawing's tables or of the CAD
// instance's own source event).
#include <QString>
#include <functional>
#include <memory>
#include <vector>

#include "AngleConverter.h"
#include "EventNotify.h"
#include "GColor.h"
#include "ICADCmdExecuted.h"
#include "Operation.h"
#include "UndoList.h"
#include "ViewState.h"
#include "pix/VELDImage.h"
#include "veld/Data.h"

class CVELDView;

namespace veld {
class CEnt;
class CEntCollection;
class CEntText;
}  // namespace veld

class CVELD {
public:
    /// Numbers of the CAD instance's variables, as NotifyVarChanged reports
    /// them on GetVeldSourceEvent.
    enum Var : int {
        kVarCurLayer = 1,
        kVarCurLtype,
        kVarCurStyle,
        kVarLtypeScale,
        kVarAngleSystem,
        kVarCursor,
        kVarColors,
        kVarOSnap,
    };
    /// Why a change listener is called.
    enum class Change {
        Redraw,     ///< redrawAllViews
        UndoList,   ///< a command was added, undone or redone
        Selection,  ///< entities selected or deselected
        Entity,     ///< an entity was reported modified (ReflectEntModified)
        Source,     ///< the tables' or the CAD instance's source event fired
    };
    using ChangeListener = std::function<void(Change)>;

    CVELD();
    ~CVELD();
    CVELD(const CVELD&) = delete;
    CVELD& operator=(const CVELD&) = delete;

    veld::CData* GetData() { return data_.get(); }
    const veld::CData* GetData() const { return data_.get(); }
    /// The notification of changes to the CAD instance's own state.
    veld::CVeldSourceEvent* GetVeldSourceEvent() { return &event_; }

    /// Replaces the open drawing: the undo list and the selection are
    /// emptied and the current items go back to layer 0, ByLayer and the
    /// standard style.
    void SetData(std::unique_ptr<veld::CData> data);
    /// Sets the current layer, line type and style at once, holding a
    /// reference on each (no notification: for a drawing being set up).
    void SetCurrentItems(veld::CLayer* layer, veld::CLtype* ltype, veld::CStyle* style);

    // Views: the windows, and what the drawing keeps of each (its state).
    int GetNoViews() const { return static_cast<int>(views_.size()); }
    CVELDView* GetView(int i) const { return InRange(i) ? views_[i].window : nullptr; }
    CViewState* GetViewState(int i) const { return InRange(i) ? views_[i].state : nullptr; }
    /// The view made active last (the first attached one until then).
    CVELDView* GetActiveView() const;
    void SetActiveView(CVELDView* view);
    void AttachView(CVELDView* window, CViewState* state);
    void DetachView(CVELDView* window);

    // The running operation; never null (the idle operation when none runs).
    COperation* GetActiveOperation() { return &operation_; }
    const COperation* GetActiveOperation() const { return &operation_; }
    void StartOperation(const ulo::WString& name) { operation_ = COperation(name); }
    /// Ends the running operation.
    void stopExecute() {
        operation_ = COperation();
        ++stops_;
    }
    unsigned GetStopCount() const { return stops_; }

    // The entity event sink: the default one (CEventNotify) unless replaced.
    IEventNotify* GetEventNotify() { return notify_ ? notify_ : &defaultNotify_; }
    CEventNotify& GetDefaultEventNotify() { return defaultNotify_; }
    /// Replaces the sink (not owned); null puts the default one back.
    void SetEventNotify(IEventNotify* notify) { notify_ = notify; }

    // Object snap
    void SetOSnapper(bool on, unsigned mask);
    bool IsOSnapperOn() const { return osnapOn_; }
    unsigned GetOSnapperMask() const { return osnapMask_; }

    // Undo list: the CAD instance owns the commands handed to it.
    void AddChange(ulo::ICmdExecuted* command);
    bool Undo();
    bool Redo();
    bool CanUndo() const { return undo_.CanUndo(); }
    bool CanRedo() const { return undo_.CanRedo(); }
    CUndoList& GetUndoList() { return undo_; }

    // Raster images, found by name ignoring case.
    CVELDImage* AddImage(std::unique_ptr<CVELDImage> image);
    int GetNoImages() const { return static_cast<int>(images_.size()); }
    CVELDImage* GetImage(int i) const;
    CVELDImage* FindImage(const QString& name) const;
    bool RemoveImage(const CVELDImage* image);

    // Selection (GetSelectedEntCollection and the Ntfy functions below).
    veld::CEntCollection& GetSelection() { return *selection_; }
    const veld::CEntCollection& GetSelection() const { return *selection_; }
    /// Entities reported with ReflectEntModified, oldest first.
    const std::vector<const veld::CEnt*>& GetReflectedEnts() const { return reflected_; }

    // Listeners
    int AddChangeListener(ChangeListener listener);
    /// A listener that only wants to repaint, whatever the reason.
    int AddRedrawListener(std::function<void()> listener);
    void RemoveChangeListener(int id);
    void RemoveRedrawListener(int id) { RemoveChangeListener(id); }
    void NotifyChange(Change why);
    /// Repaint requests made with redrawAllViews.
    unsigned GetRedrawCount() const { return redraws_; }

    // Settings reached through the free functions below.
    struct Settings {
        veld::CLayer* curLayer = nullptr;
        veld::CLtype* curLtype = nullptr;
        veld::CStyle* curStyle = nullptr;
        double ltypeScale = 1.0;
        short angleSystem = 0;
        double angleBase = 0.0;
        bool angleClockwise = false;
        long crossDim = 20;
        long deltaPick = 5;
        GColor background = 0x000000;
        GColor grid = 0xFFFFFF;
        GColor selected = 0x0000FF;
        GColor crossHair = 0xFFFFFF;
    };
    Settings& GetSettings() { return settings_; }
    const Settings& GetSettings() const { return settings_; }
    const IAngleConverter* GetAngleConverter() const { return converter_.get(); }
    void UpdateAngleConverter();

    // Internal: used by the free functions.
    void CountRedraw() { ++redraws_; }
    void Reflect(const veld::CEnt* entity) { reflected_.push_back(entity); }

private:
    class SourceRelay : public ulo::ISourceEventListener {
    public:
        explicit SourceRelay(CVELD& cad) : cad_(cad) {}
        void OnSourceEvent(ulo::CSourceEvent&) override { cad_.NotifyChange(Change::Source); }

    private:
        CVELD& cad_;
    };

    std::unique_ptr<veld::CData> data_;
    veld::CVeldSourceEvent event_;
    SourceRelay relay_{*this};
    std::unique_ptr<veld::CEntCollection> selection_;
    std::vector<const veld::CEnt*> reflected_;
    bool InRange(int i) const { return i >= 0 && i < GetNoViews(); }
    struct View {
        CVELDView* window;
        CViewState* state;
    };
    std::vector<View> views_;
    CVELDView* activeView_ = nullptr;
    std::vector<std::unique_ptr<CVELDImage>> images_;
    CUndoList undo_;
    Settings settings_;
    std::unique_ptr<IAngleConverter> converter_;
    std::vector<std::pair<int, ChangeListener>> listeners_;
    int nextListener_ = 1;
    COperation operation_;
    CEventNotify defaultNotify_;
    IEventNotify* notify_ = nullptr;
    unsigned redraws_ = 0;
    unsigned stops_ = 0;
    bool osnapOn_ = false;
    unsigned osnapMask_ = 0x1;
};

// Current items (the CAD instance holds a reference on each).
veld::CLayer* GetCurLayer(const CVELD* cad);
void SetCurLayer(CVELD* cad, veld::CLayer* layer);
veld::CLtype* GetCurLtype(const CVELD* cad);
void SetCurLtype(CVELD* cad, veld::CLtype* ltype);
veld::CStyle* GetCurStyle(const CVELD* cad);
void SetCurStyle(CVELD* cad, veld::CStyle* style);
double GetLtypeScale(const CVELD* cad);
/// Ignores a scale outside veld::stored::kLtypeScale (not positive, not finite).
void SetLtypeScale(CVELD* cad, double scale);

// Angle system: format 0 degrees, 2 gons, 3 radians (any other code counts as
// degrees); base angle in radians from East counterclockwise.
void GetAngleSystem(const CVELD* cad, short& system, double& base, bool& clockwise);
/// Ignores a base outside veld::stored::kAngleBase.
void SetAngleSystem(CVELD* cad, short system, double base, bool clockwise);
const IAngleConverter* GetAngleConverter(const CVELD* cad);

// Cursor sizes kept by the CAD instance.
long GetCrossDim(const CVELD* cad);
void SetCrossDim(CVELD* cad, long size);
long GetDeltaPick(const CVELD* cad);
void SetDeltaPick(CVELD* cad, long size);

// Window colours.
/// RGB of a colour index of the drawing's palette.
GColor GetClrNo(const CVELD* cad, int index);
GColor GetClrGrphWndBkGrnd(const CVELD* cad);
GColor GetClrGrid(const CVELD* cad);
GColor GetClrEntSelected(const CVELD* cad);
GColor GetClrLogCrossHair(const CVELD* cad);
void SetClrGrphWndBkGrnd(CVELD* cad, const GColor& c);
void SetClrGrid(CVELD* cad, const GColor& c);
void SetClrEntSelected(CVELD* cad, const GColor& c);
void SetClrCrossHair(CVELD* cad, const GColor& c);
/// The global "draw selected entities in the selection colour" setting (a
/// view's own one is set with the view, host/app/view/ViewAccess.h).
bool DoColorSelectedEnts();
void SetDoColorSelectedEnts(bool on);

// Selection. The collection holds a reference on each selected entity.
veld::CEntCollection& GetSelectedEntCollection(const CVELD* cad);
/// Adds @p entity to the selection (once).
void NtfySelectedEnt(CVELD* cad, veld::CEnt* entity);
void NtfyDeselectedEnt(CVELD* cad, veld::CEnt* entity);
void NtfyDeselectAll(CVELD* cad);
/// Tells the CAD instance that @p entity changed, so that the views show it.
void ReflectEntModified(CVELD* cad, veld::CEnt* entity);

/// A new text entity (one reference for the caller, in no container) on the
/// current layer, line type ByLayer and colour ByLayer.
veld::CEntText* CreateEntText(const CVELD* cad, const veld::TEXT_3D& text);

/// Repaints every view of the CAD instance.
void redrawAllViews(CVELD& cad);
/// True when @p text is not a number in decimal notation: blanks around the
/// number are allowed, anything else is not. "", "abc", "-", ".", "12x",
/// "inf", "0x10" and null are not numeric; "0", " 12 ", "-0.0", "1e3" are.
/// Used to tell a typed 0 from text that converts to 0.
bool not_numeric_input(const wchar_t* text);
