#include "VELDView.h"

#include "VELD.h"

CVELDView::CVELDView(CVELD* cad, QWidget* parent) : QWidget(parent), cad_(cad) {
    if (cad_)
        cad_->AttachView(this);
}

CVELDView::~CVELDView() {
    if (cad_)
        cad_->DetachView(this);
}

const CGrid& GetViewGrid(const CVELDView* view) {
    return view->GetGrid();
}
CGrid& GetViewGridForEdit(CVELDView* view) {
    return view->GetGrid();
}
void SetPresetView(CVELDView* view, int preset) {
    if (view && preset >= 1 && preset <= 10)
        view->SetPresetView(preset);
}
