#include "CCECADDlgColor.h"

#include <QMouseEvent>

#include "CVELDEntColorStatic.h"
#include "CVELDMultiColorStatic.h"
#include "factory/RunDialog.h"
#include "res/templates/ControlIds.h"
#include "ulo/PalmDevice.h"

namespace veld5 {

namespace {
// The cells in pixels at a multiplier of 1: the nine standard colours 10 x 20
// and the six greys 15 x 20 (both strips 90 x 20), the palette's 24 x 5
// cells 9 x 9 (each half 216 x 45).
constexpr QSize kStandardCell(10, 20);
constexpr QSize kGreyCell(15, 20);
constexpr QSize kPaletteCell(9, 9);
}  // namespace

CCECADDlgColor::CCECADDlgColor(const CVELD* cad, short startColour, short byLayerColour,
                               short byBlockColour, bool logicalAllowed, CWnd* parent)
    : CExDialog(CPalmDevice::SelectIdDlgStd(11044, 11045, 11046, 11047), parent),
      cad_(cad),
      chosen_(startColour),
      startColour_(startColour),
      logicalAllowed_(logicalAllowed),
      standard_(std::make_unique<CVELDMultiColorStatic>(short(1), short(9))),
      grey_(std::make_unique<CVELDMultiColorStatic>(short(250), short(6))),
      paletteEven_(std::make_unique<CVELDMultiColorStatic>(true)),
      paletteOdd_(std::make_unique<CVELDMultiColorStatic>(false)),
      preview_(
          std::make_unique<CVELDEntColorStatic>(cad, startColour, byLayerColour, byBlockColour)) {
    for (CVELDMultiColorStatic* strip : Strips()) {
        strip->SetCad(cad_);
        connect(strip, &CVELDMultiColorStatic::colorPicked, this, &CCECADDlgColor::SelectColor);
    }
}

CCECADDlgColor::~CCECADDlgColor() = default;

std::array<CVELDMultiColorStatic*, 4> CCECADDlgColor::Strips() const {
    return {standard_.get(), grey_.get(), paletteEven_.get(), paletteOdd_.get()};
}

QWidget* CCECADDlgColor::CreateCustomControl(const ulo::CtrlTemplate& ctrl, QWidget*) {
    switch (ctrl.id) {
        case ctl::Color::kStandard:
            return standard_.get();
        case ctl::Color::kGrey:
            return grey_.get();
        case ctl::Color::kPaletteEven:
            return paletteEven_.get();
        case ctl::Color::kPaletteOdd:
            return paletteOdd_.get();
        case ctl::Color::kPreview:
            if (ctrl.style & ulo::kBorder)
                preview_->setFrameStyle(QFrame::Box | QFrame::Plain);
            return preview_.get();
        default:
            return nullptr;
    }
}

void CCECADDlgColor::OnInitDialog() {
    // Whole cells only, so that every pixel of a strip belongs to a cell. The
    // cells grow with the multiplier only as far as the rectangle the layout
    // gave the strip allows: a strip that outgrew it would lie over its
    // neighbours and take their presses.
    const int m = CPalmDevice::GetResMultiplier();
    const auto fit = [m](CVELDMultiColorStatic* strip, QSize cell) {
        strip->FitWholeCells(strip->geometry(), cell * m);
    };
    fit(standard_.get(), kStandardCell);
    fit(grey_.get(), kGreyCell);
    fit(paletteEven_.get(), kPaletteCell);
    fit(paletteOdd_.get(), kPaletteCell);

    for (unsigned id : {ctl::Color::kByLayer, ctl::Color::kByBlock}) {
        GetDlgItem<CColButton>(id)->SetBtnColor(2, 3);
        EnableDlgItem(id, logicalAllowed_);
    }
    SelectColor(startColour_);
}

void CCECADDlgColor::SelectColor(short index) {
    chosen_ = index;
    preview_->SetColorIndex(static_cast<unsigned short>(index));
    SetDlgItemText(ctl::Color::kName, CVELDEntColorStatic::NameOf(index));
}

bool CCECADDlgColor::OnCommand(unsigned id) {
    switch (id) {
        case ctl::Color::kByLayer:
            SelectColor(CVELDEntColorStatic::kByLayer);
            return true;
        case ctl::Color::kByBlock:
            SelectColor(CVELDEntColorStatic::kByBlock);
            return true;
        default:
            return CExDialog::OnCommand(id);
    }
}

void CCECADDlgColor::OnCancel() {
    // A caller that reads the colour after Cancel finds the one it gave.
    chosen_ = startColour_;
    CExDialog::OnCancel();
}

void CCECADDlgColor::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) {
        CExDialog::mousePressEvent(event);
        return;
    }
    // The strips are tested in their order and the last that holds the point
    // takes it: the two palette halves may meet on a shared pixel row.
    const QPoint point = event->position().toPoint();
    CVELDMultiColorStatic* hit = nullptr;
    for (CVELDMultiColorStatic* strip : Strips())
        if (strip->parentWidget() == this && strip->geometry().contains(point))
            hit = strip;
    if (hit)
        hit->OnLButtonDown(point - hit->pos());
    event->accept();
}

bool RunDlgColor(CWnd* parent, const CVELD* cad, short startColour, short byLayerColour,
                 short byBlockColour, bool logicalAllowed, short& chosen) {
    const auto make = [&] {
        return std::make_unique<CCECADDlgColor>(cad, startColour, byLayerColour, byBlockColour,
                                                logicalAllowed, parent);
    };
    return RunDialog(make, [&](const CCECADDlgColor& dialog) { chosen = dialog.GetSelColor(); }) ==
           ulo::IDOK;
}

}  // namespace veld5
