#include "Font.h"

namespace veld {

namespace {
class CFont : public ICADFont {
public:
    CFont(const wchar_t* name, int ascent, int descent, int gap, bool trueType)
        : name_(name), ascent_(ascent), descent_(descent), gap_(gap), trueType_(trueType) {}
    ulo::WString GetName() const override { return name_; }
    int GetAscent() const override { return ascent_; }
    int GetDescent() const override { return descent_; }
    int GetLineGap() const override { return gap_; }
    bool IsTrueType() const override { return trueType_; }

private:
    ulo::WString name_;
    int ascent_, descent_, gap_;
    bool trueType_;
};
}  // namespace

CFontTable::CFontTable() {
    fonts_.push_back(std::make_unique<CFont>(L"Arial", 1854, 434, 67, true));
    fonts_.push_back(std::make_unique<CFont>(L"Times New Roman", 1825, 443, 87, true));
    fonts_.push_back(std::make_unique<CFont>(L"Courier New", 1705, 615, 0, true));
    fonts_.push_back(std::make_unique<CFont>(L"Verdana", 2059, 430, 0, true));
    fonts_.push_back(std::make_unique<CFont>(L"txt", 6, 2, 2, false));
    fonts_.push_back(std::make_unique<CFont>(L"simplex", 21, 7, 5, false));
    fonts_.push_back(std::make_unique<CFont>(L"romans", 21, 7, 5, false));
}

const CFontTable& CFontTable::GetInstance() {
    static const CFontTable table;
    return table;
}

const ICADFont* CFontTable::Find(const ulo::WString& name) const {
    for (const auto& f : fonts_)
        if (f->GetName().CompareIgnoreCase(name) == 0)
            return f.get();
    return nullptr;
}

}  // namespace veld
