#include "ObjectFactory.h"

namespace veld {

CLtype* CObjectFactory::CreateLtype(const ulo::WString& name, const ulo::WString& desc,
                                    const CLtypeComplexDashSeq& seq, unsigned flags, int) const {
    return new CLtype(name, desc, seq, flags);
}

CLtype* CObjectFactory::CreateLtype(ulo::WString name, ulo::WString desc,
                                    CLtypeComplexDashSeq&& seq, unsigned flags, int) const {
    return new CLtype(std::move(name), std::move(desc), std::move(seq), flags);
}

CLayer* CObjectFactory::CreateLayer(const ulo::WString& name, CLtype* ltype, unsigned short colour,
                                    enumLineWidth width, unsigned flags, int) const {
    return new CLayer(name, ltype, colour, width, flags);
}

CStyle* CObjectFactory::CreateStyle(const ulo::WString& name, const ICADFont* font,
                                    double fixedHeight, double widthScale, double oblique,
                                    double lastHeight, unsigned flags, int) const {
    return new CStyle(name, font, fixedHeight, widthScale, oblique, lastHeight, flags);
}

}  // namespace veld
