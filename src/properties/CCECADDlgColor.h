#pragma once
// The colour picker: one colour index of the drawing's indexed colours, chosen
// from the standard colours, the grey shades, the full palette or (when the
// caller allows them) the logical colours ByLayer and ByBlock. The choice
// shows in a preview swatch and by name. Run it with DoModal and read
// GetSelColor: after Cancel it is the starting colour again.
#include <array>
#include <memory>

#include "ulo/ctrl/Dialog.h"

class CVELD;

namespace veld5 {

class CVELDEntColorStatic;
class CVELDMultiColorStatic;

class CCECADDlgColor : public CExDialog {
    Q_OBJECT
public:
    /// @p byLayerColour and @p byBlockColour are the colours the preview shows
    /// for ByLayer and ByBlock; @p logicalAllowed enables their buttons.
    CCECADDlgColor(const CVELD* cad, short startColour, short byLayerColour, short byBlockColour,
                   bool logicalAllowed, CWnd* parent);
    ~CCECADDlgColor() override;

    short GetSelColor() const { return chosen_; }
    /// Makes @p index the chosen colour and shows it in the preview and by name.
    void SelectColor(short index);

protected:
    void OnInitDialog() override;
    void OnCancel() override;
    bool OnCommand(unsigned id) override;
    QWidget* CreateCustomControl(const ulo::CtrlTemplate& ctrl, QWidget* parent) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    /// The strips in the order a press tests them.
    std::array<CVELDMultiColorStatic*, 4> Strips() const;

    const CVELD* cad_;
    short chosen_;
    short startColour_;
    bool logicalAllowed_;
    // Owned here from construction; the built dialog only lends them its
    // window. Deleting a child before its parent takes it off the parent.
    std::unique_ptr<CVELDMultiColorStatic> standard_;
    std::unique_ptr<CVELDMultiColorStatic> grey_;
    std::unique_ptr<CVELDMultiColorStatic> paletteEven_;
    std::unique_ptr<CVELDMultiColorStatic> paletteOdd_;
    std::unique_ptr<CVELDEntColorStatic> preview_;
};

/// ShowDlgColor: after OK @p chosen receives the colour picked and the result
/// is true; otherwise @p chosen is left as it was.
bool RunDlgColor(CWnd* parent, const CVELD* cad, short startColour, short byLayerColour,
                 short byBlockColour, bool logicalAllowed, short& chosen);

}  // namespace veld5
