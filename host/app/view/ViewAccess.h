#pragma once
// The host's calls on a view window, declared without the window's class so
// that code which must not see widgets (undo commands, exported helpers) can
// make them.
class CGrid;
class CVELD;
class CVELDView;

/// The CAD instance the view shows (null once it is gone).
CVELD* GetViewVELD(const CVELDView* view);
/// The grid the dialogs edit in place.
const CGrid& GetViewGrid(const CVELDView* view);
CGrid& GetViewGridForEdit(CVELDView* view);
/// Sets the preset view direction 1..10; other numbers are ignored.
void SetPresetView(CVELDView* view, int preset);
/// Whether the view draws selected entities in the selection colour.
void SetDoColorSelectedEnts(CVELDView* view, bool on);
