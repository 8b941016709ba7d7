#pragma once
// The device's screen shape and density, as the dialogs see them.
//
// Layout rule (logical pixels of the available area of the primary screen,
// ratio r = long side / short side):
//   portrait  (height >= width): r < 1.39 -> 0 (138 x 167), else 1 (138 x 217)
//   landscape (width > height):  r < 1.70 -> 2 (179 x 120), else 3 (229 x 120)
// The thresholds lie half way between the aspect ratios of the layouts. The
// environment variable VELD_DIALOG_LAYOUT (0..3) or SetLayoutOverride force a
// layout; the call wins over the variable.
namespace ulo {

class CPalmDevice {
public:
    /// One of the four ids, the one that suits the screen.
    static unsigned SelectIdDlgStd(unsigned id0, unsigned id1, unsigned id2, unsigned id3);
    /// Layout variant 0..3 for the current screen.
    static int GetLayoutVariant();
    /// Variant for a screen of @p width x @p height logical pixels.
    static int LayoutForScreen(int width, int height);
    /// -1 clears the override.
    static void SetLayoutOverride(int variant);
    static int GetLayoutOverride();
    /// Integer density multiplier of base pixel sizes: 1, as Qt already scales
    /// logical pixels for dense screens (VELD_RES_MULTIPLIER sets another, to
    /// see how a size rule behaves).
    static int GetResMultiplier();
    /// A base pixel size scaled for the screen: @p base x GetResMultiplier().
    static int Px(int base) { return base * GetResMultiplier(); }
};

}  // namespace ulo

using ulo::CPalmDevice;
