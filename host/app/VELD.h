#pragma once
// CVELD: the CAD instance. It owns the open drawing's data, its views, its
// settings (current items, line type scale, angle system, cursor sizes,
// window colours, object snap) and its undo list. Views repaint when told
// through the redraw listeners.
#include <functional>
#include <memory>
#include <vector>

#include "AngleConverter.h"
#include "GColor.h"
#include "ICADCmdExecuted.h"
#include "UndoList.h"
#include "VELDView.h"
#include "veld/Data.h"

class CVELD {
public:
    CVELD();
    ~CVELD();
    CVELD(const CVELD&) = delete;
    CVELD& operator=(const CVELD&) = delete;

    veld::CData* GetData() { return data_.get(); }
    const veld::CData* GetData() const { return data_.get(); }
    /// The notification of changes to the CAD instance's own state.
    veld::CVeldSourceEvent* GetVeldSourceEvent() { return &event_; }

    // Views
    int GetNoViews() const { return static_cast<int>(views_.size()); }
    CVELDView* GetView(int i) const { return i >= 0 && i < GetNoViews() ? views_[i] : nullptr; }
    CVELDView* GetActiveView() const { return views_.empty() ? nullptr : views_.front(); }
    void AttachView(CVELDView* view);
    void DetachView(CVELDView* view);

    // The running command
    void stopExecute() { ++stops_; }
    unsigned GetStopCount() const { return stops_; }

    // Object snap
    void SetOSnapper(bool on, unsigned mask) {
        osnapOn_ = on;
        osnapMask_ = mask;
    }
    bool IsOSnapperOn() const { return osnapOn_; }
    unsigned GetOSnapperMask() const { return osnapMask_; }

    // Undo list: the CAD instance owns the commands handed to it.
    void AddChange(ulo::ICmdExecuted* command);
    bool Undo();
    bool Redo();
    CUndoList& GetUndoList() { return undo_; }

    // Repainting
    using Listener = std::function<void()>;
    int AddRedrawListener(Listener listener);
    void RemoveRedrawListener(int id);
    void NotifyRedraw();
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
        bool colorSelected = true;
    };
    Settings& GetSettings() { return settings_; }
    const Settings& GetSettings() const { return settings_; }
    const IAngleConverter* GetAngleConverter() const { return converter_.get(); }
    void UpdateAngleConverter();

private:
    std::unique_ptr<veld::CData> data_;
    veld::CVeldSourceEvent event_;
    std::vector<CVELDView*> views_;
    CUndoList undo_;
    Settings settings_;
    std::unique_ptr<IAngleConverter> converter_;
    std::vector<std::pair<int, Listener>> listeners_;
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
void SetLtypeScale(CVELD* cad, double scale);

// Angle system: format 0 degrees, 2 gons, 3 radians; base angle in radians.
void GetAngleSystem(const CVELD* cad, short& system, double& base, bool& clockwise);
void SetAngleSystem(CVELD* cad, short system, double base, bool clockwise);
const IAngleConverter* GetAngleConverter(const CVELD* cad);

// Cursor sizes kept by the CAD instance.
long GetCrossDim(const CVELD* cad);
void SetCrossDim(CVELD* cad, long size);
long GetDeltaPick(const CVELD* cad);
void SetDeltaPick(CVELD* cad, long size);

// Window colours.
GColor GetClrNo(const CVELD* cad, int index);
GColor GetClrGrphWndBkGrnd(const CVELD* cad);
GColor GetClrGrid(const CVELD* cad);
GColor GetClrEntSelected(const CVELD* cad);
GColor GetClrLogCrossHair(const CVELD* cad);
void SetClrGrphWndBkGrnd(CVELD* cad, const GColor& c);
void SetClrGrid(CVELD* cad, const GColor& c);
void SetClrEntSelected(CVELD* cad, const GColor& c);
void SetClrCrossHair(CVELD* cad, const GColor& c);
/// The global "draw selected entities in the selection colour" setting.
bool DoColorSelectedEnts();
void SetDoColorSelectedEnts(bool on);
void SetDoColorSelectedEnts(CVELDView* view, bool on);

/// Repaints every view of the CAD instance.
void redrawAllViews(CVELD& cad);
/// True when @p text holds no number ("", "abc", "-"; "0", " 12x" are numbers).
bool not_numeric_input(const wchar_t* text);
