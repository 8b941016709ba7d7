#pragma once
// Fonts the drawing's text styles use: TrueType fonts and shape fonts, each
// with three whole-number metrics (ascent, descent, line gap, in font units;
// a text's height corresponds to the ascent).
#include <memory>
#include <vector>

#include "ulo/WString.h"

namespace veld {

class ICADFont {
public:
    virtual ~ICADFont() = default;
    virtual ulo::WString GetName() const = 0;
    virtual int GetAscent() const = 0;
    virtual int GetDescent() const = 0;
    virtual int GetLineGap() const = 0;
    virtual bool IsTrueType() const = 0;
};

class CFontTable {
public:
    static const CFontTable& GetInstance();
    unsigned Size() const { return static_cast<unsigned>(fonts_.size()); }
    const ICADFont* operator[](unsigned index) const {
        return index < fonts_.size() ? fonts_[index].get() : nullptr;
    }
    /// The font of that name (ignoring case), or null.
    const ICADFont* Find(const ulo::WString& name) const;

private:
    CFontTable();
    std::vector<std::unique_ptr<ICADFont>> fonts_;
};

}  // namespace veld
