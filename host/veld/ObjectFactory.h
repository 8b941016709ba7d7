#pragma once
// Makes new table items. Each comes with one reference for the caller and
// belongs to no table yet.
#include "Layer.h"
#include "Ltype.h"
#include "Style.h"

namespace veld {

class CObjectFactory {
public:
    CLtype* CreateLtype(const ulo::WString& name, const ulo::WString& desc,
                        const CLtypeComplexDashSeq& seq, unsigned flags, int reserved) const;
    /// The same, taking over the texts and the pattern instead of copying them.
    CLtype* CreateLtype(ulo::WString name, ulo::WString desc, CLtypeComplexDashSeq&& seq,
                        unsigned flags, int reserved) const;
    CLayer* CreateLayer(const ulo::WString& name, CLtype* ltype, unsigned short colour,
                        enumLineWidth width, unsigned flags, int reserved) const;
    CStyle* CreateStyle(const ulo::WString& name, const ICADFont* font, double fixedHeight,
                        double widthScale, double oblique, double lastHeight, unsigned flags,
                        int reserved) const;
};

}  // namespace veld
