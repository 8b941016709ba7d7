#pragma once
// A drawing view: a window of the host showing the drawing, with its own grid
// and snap settings and preset view direction.
#include <QWidget>

#include "Grid.h"

class CVELD;

class CVELDView : public QWidget {
    Q_OBJECT
public:
    explicit CVELDView(CVELD* cad, QWidget* parent = nullptr);
    ~CVELDView() override;
    CVELD* GetVELD() const { return cad_; }
    /// The CAD instance is going away before the view.
    void ForgetVELD() { cad_ = nullptr; }
    CGrid& GetGrid() { return grid_; }
    const CGrid& GetGrid() const { return grid_; }
    /// Preset view 1..10 (top, bottom, front, back, left, right, SW, SE, NE,
    /// NW isometric); 1 at start.
    int GetPresetView() const { return preset_; }
    void SetPresetView(int preset) { preset_ = preset; }
    bool GetColorSelected() const { return colorSelected_; }
    void SetColorSelected(bool on) { colorSelected_ = on; }

private:
    CVELD* cad_;
    CGrid grid_;
    int preset_ = 1;
    bool colorSelected_ = true;
};

/// The grid the dialogs edit in place.
const CGrid& GetViewGrid(const CVELDView* view);
CGrid& GetViewGridForEdit(CVELDView* view);
/// Sets the preset view direction 1..10; other numbers are ignored.
void SetPresetView(CVELDView* view, int preset);
