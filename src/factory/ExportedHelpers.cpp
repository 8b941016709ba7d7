// Exported helpers that forward to the host application.
#include "IVELDDlgFactory.h"
#include "app/VELD.h"
#include "app/view/ViewAccess.h"

extern "C" {
void SetPresetViewTop(CVELDView* view) {
    SetPresetView(view, 1);
}
void SetPresetViewBottom(CVELDView* view) {
    SetPresetView(view, 2);
}
void SetPresetViewFront(CVELDView* view) {
    SetPresetView(view, 3);
}
void SetPresetViewBack(CVELDView* view) {
    SetPresetView(view, 4);
}
void SetPresetViewLeft(CVELDView* view) {
    SetPresetView(view, 5);
}
void SetPresetViewRight(CVELDView* view) {
    SetPresetView(view, 6);
}
void SetPresetViewSWIso(CVELDView* view) {
    SetPresetView(view, 7);
}
void SetPresetViewSEIso(CVELDView* view) {
    SetPresetView(view, 8);
}
void SetPresetViewNEIso(CVELDView* view) {
    SetPresetView(view, 9);
}
void SetPresetViewNWIso(CVELDView* view) {
    SetPresetView(view, 10);
}
void NtfySelectedEnt(CVELD* cad, veld::CEnt* entity, bool selected) {
    if (selected)
        NtfySelectedEnt(cad, entity);
    else
        NtfyDeselectedEnt(cad, entity);
}
}
