#pragma once
// CViewState: what the CAD instance and its drawing files know of a view: its
// grid and snap, its preset direction and whether it draws selected entities
// in the selection colour. The view window (CVELDView, host/app/view) is one;
// the model reaches views through this class only, never through a widget.
#include "Grid.h"

class CViewState {
public:
    CViewState() = default;
    CViewState(const CViewState&) = delete;
    CViewState& operator=(const CViewState&) = delete;

    CGrid& GetGrid() { return grid_; }
    const CGrid& GetGrid() const { return grid_; }
    /// Preset view 1..10 (top, bottom, front, back, left, right, SW, SE, NE,
    /// NW isometric); 1 at start.
    int GetPresetView() const { return preset_; }
    void SetPresetView(int preset) { preset_ = preset; }
    bool GetColorSelected() const { return colorSelected_; }
    void SetColorSelected(bool on) { colorSelected_ = on; }

    /// The CAD instance is going away before the view.
    virtual void ForgetVELD() = 0;

protected:
    ~CViewState() = default;

private:
    CGrid grid_;
    int preset_ = 1;
    bool colorSelected_ = true;
};
