#pragma once
// Scope objects of the operations: each restores what it changed on every
// exit path, exceptions included.
#include "ulo/ResourceModule.h"
#include "ulo/SourceEvent.h"

namespace veld5 {

/// Makes this library the current resource module (templates and strings are
/// taken from it) and puts the previous one back at the end.
class CModuleResourceScope {
public:
    CModuleResourceScope();
    ~CModuleResourceScope();
    CModuleResourceScope(const CModuleResourceScope&) = delete;
    CModuleResourceScope& operator=(const CModuleResourceScope&) = delete;

private:
    ulo::HINSTANCE previous_;
};

/// Brackets the changes made in its lifetime into one notification of a
/// source event (null: no bracket).
class CSourceEventScope : public ulo::CSourceEventBracket {
public:
    using ulo::CSourceEventBracket::CSourceEventBracket;
};

}  // namespace veld5
