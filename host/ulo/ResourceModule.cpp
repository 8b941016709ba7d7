#include "ResourceModule.h"

#include <algorithm>
#include <cwchar>

namespace ulo {

CResourceModule::CResourceModule(const char* name, std::span<const StringEntry> strings,
                                 std::span<const DialogTemplate> templates)
    : name_(name), strings_(strings), templates_(templates) {}

const wchar_t* CResourceModule::FindString(unsigned id) const {
    // The tables are sorted by id; fall back to a scan if one is not.
    auto it = std::lower_bound(strings_.begin(), strings_.end(), id,
                               [](const StringEntry& e, unsigned v) { return e.id < v; });
    if (it != strings_.end() && it->id == id)
        return it->text;
    for (const auto& e : strings_)
        if (e.id == id)
            return e.text;
    return nullptr;
}

const DialogTemplate* CResourceModule::FindTemplate(unsigned id, int* variant) const {
    for (const auto& t : templates_) {
        if (id >= t.baseId && id < t.baseId + 4) {
            if (variant)
                *variant = static_cast<int>(id - t.baseId);
            return &t;
        }
    }
    return nullptr;
}

namespace {
HINSTANCE& current() {
    static HINSTANCE module = nullptr;
    return module;
}
}  // namespace

HINSTANCE AfxGetResourceHandle() {
    return current();
}
void AfxSetResourceHandle(HINSTANCE module) {
    current() = module;
}

bool CStringLoader::HasString(unsigned id) const {
    return module_ && module_->FindString(id) != nullptr;
}

unsigned CStringLoader::GetStringLength(unsigned id) const {
    const wchar_t* s = module_ ? module_->FindString(id) : nullptr;
    return s ? static_cast<unsigned>(std::wcslen(s)) : 0;
}

unsigned CStringLoader::LoadStr(unsigned id, wchar_t* buffer, unsigned size) const {
    if (!buffer || size == 0)
        return 0;
    const wchar_t* s = module_ ? module_->FindString(id) : nullptr;
    const unsigned n = s ? std::min<unsigned>(static_cast<unsigned>(std::wcslen(s)), size - 1) : 0;
    if (n)
        std::wmemcpy(buffer, s, n);
    buffer[n] = L'\0';
    return n;
}

}  // namespace ulo
