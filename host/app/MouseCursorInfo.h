#pragma once
// The drawing cursor's description and the settings singleton that holds the
// current one.
#include "GColor.h"

class CMouseCursorInfo {
public:
    void SetCursorInfo(unsigned format, GColor colour, GColor alternate, int size, int searchSize,
                       int aperture, int penWeight, bool allScreen) {
        format_ = format;
        colour_ = colour;
        alternate_ = alternate;
        size_ = size;
        searchSize_ = searchSize;
        aperture_ = aperture;
        penWeight_ = penWeight;
        allScreen_ = allScreen;
    }
    unsigned GetCursorFormat() const { return format_; }
    GColor GetCursorColor() const { return colour_; }
    GColor GetCursorAlterColor() const { return alternate_; }
    int GetCursorSize() const { return size_; }
    int GetCursorSearchSize() const { return searchSize_; }
    int GetCursorAperture() const { return aperture_; }
    int GetCursorPenWeight() const { return penWeight_; }
    bool IsCursorAllScreen() const { return allScreen_; }
    friend bool operator==(const CMouseCursorInfo&, const CMouseCursorInfo&) = default;

private:
    unsigned format_ = 0;
    GColor colour_ = 0xFFFFFF;
    GColor alternate_ = 0x000000;
    int size_ = 20;
    int searchSize_ = 5;
    int aperture_ = 5;
    int penWeight_ = 1;
    bool allScreen_ = false;
};

/// The host's system settings (one per process).
class CSystemVars {
public:
    static CSystemVars& GetInstance();
    const CMouseCursorInfo& GetMouseCursorInfo() const { return cursor_; }
    void SetMouseCursorInfo(const CMouseCursorInfo& info) { cursor_ = info; }

private:
    CSystemVars() = default;
    CMouseCursorInfo cursor_;
};
