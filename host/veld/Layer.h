#pragma once
// A layer: colour index (1..255), line type, line width and the flag bits
// frozen 0x01, locked 0x04 and off 0x80.
#include "Ltype.h"
#include "TableItem.h"

namespace veld {

enum enumLineWidth : int { kLineWidthDefault = -3, kLineWidthByLayer = -2, kLineWidthByBlock = -1 };

/// True for kLineWidthDefault, kLineWidthByLayer, kLineWidthByBlock and the
/// standard pen widths in hundredths of a millimetre (0, 5, 9, ... 200, 211);
/// other values are not widths the program can show or plot.
bool IsValidLineWidth(int width);

/// What a layer's memento keeps beside its name and flags.
struct LayerState {
    unsigned short colour;
    ulo::RefPtr<CLtype> ltype;
    enumLineWidth width;
    bool operator==(const LayerState& o) const {
        return colour == o.colour && ltype.get() == o.ltype.get() && width == o.width;
    }
};

class CLayer : public CStatefulItem<LayerState> {
public:
    CLayer(const ulo::WString& name, CLtype* ltype, unsigned short colour, enumLineWidth width,
           unsigned flags);

    unsigned short GetColor() const { return s_.colour; }
    void SetColor(unsigned short colour) { s_.colour = colour; }
    CLtype* GetLtype() const { return s_.ltype.get(); }
    void SetLtype(CLtype* ltype) { s_.ltype = ulo::RefPtr<CLtype>::Share(ltype); }
    enumLineWidth GetLineWidth() const { return s_.width; }
    void SetLineWidth(enumLineWidth width) { s_.width = width; }
    bool IsOff() const { return GetFlags() & kFlagOff; }
    void SetOff(bool off) { SetFlag(kFlagOff, off); }
    bool IsFrozen() const { return GetFlags() & kFlagFrozen; }
    void SetFrozen(bool frozen) { SetFlag(kFlagFrozen, frozen); }
    bool IsLocked() const { return GetFlags() & kFlagLocked; }
    void SetLocked(bool locked) { SetFlag(kFlagLocked, locked); }
    /// Takes every property of @p other but its name.
    void SetLayer(const CLayer& other);

    /// The drawing's layer "0".
    bool IsLayer0() const { return GetName() == L"0"; }
    bool CanBeCurrent() const override { return !IsFrozen() && !IsXRef(); }
    bool CanBeRenamed() const override { return !IsLayer0() && !IsXRef(); }

    static constexpr unsigned kFlagFrozen = 0x01;
    static constexpr unsigned kFlagLocked = 0x04;
    static constexpr unsigned kFlagOff = 0x80;

private:
    void SetFlag(unsigned bit, bool on) { SetFlags(on ? (GetFlags() | bit) : (GetFlags() & ~bit)); }
};

}  // namespace veld
