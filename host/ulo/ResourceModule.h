#pragma once
// A resource module: the string table and dialog templates of one library.
// The toolkit looks texts and templates up in the current resource module,
// which a library makes itself for the duration of its calls.
#include <span>

#include "DialogTemplate.h"
#include "WString.h"

namespace ulo {

struct StringEntry {
    unsigned id;
    const wchar_t* text;
};

class CResourceModule {
public:
    CResourceModule(const char* name, std::span<const StringEntry> strings,
                    std::span<const DialogTemplate> templates);
    const char* GetName() const { return name_; }
    /// Text of string @p id, or null.
    const wchar_t* FindString(unsigned id) const;
    /// Template of variant id @p id (any of N..N+3); @p variant receives 0..3.
    const DialogTemplate* FindTemplate(unsigned id, int* variant = nullptr) const;
    std::span<const StringEntry> Strings() const { return strings_; }
    std::span<const DialogTemplate> Templates() const { return templates_; }

private:
    const char* name_;
    std::span<const StringEntry> strings_;
    std::span<const DialogTemplate> templates_;
};

using HINSTANCE = const CResourceModule*;

/// The module templates and strings are taken from (null before any is set).
HINSTANCE AfxGetResourceHandle();
void AfxSetResourceHandle(HINSTANCE module);

/// Loads strings of one module by id.
class CStringLoader {
public:
    void Init(HINSTANCE module) { module_ = module; }
    HINSTANCE GetModule() const { return module_; }
    /// Length of string @p id in characters; 0 when it does not exist.
    unsigned GetStringLength(unsigned id) const;
    /// Copies string @p id into @p buffer of @p size characters (terminated);
    /// returns the characters copied.
    unsigned LoadStr(unsigned id, wchar_t* buffer, unsigned size) const;
    bool HasString(unsigned id) const;

private:
    HINSTANCE module_ = nullptr;
};

}  // namespace ulo
