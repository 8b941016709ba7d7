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

/// Brackets the changes made in its lifetime into one notification of
/// @p source (null: no bracket).
class CSourceEventScope {
public:
    explicit CSourceEventScope(ulo::CSourceEvent* source) : source_(source) {
        if (source_)
            source_->BeginEvent();
    }
    ~CSourceEventScope() {
        if (source_)
            source_->EndEvent();
    }
    CSourceEventScope(const CSourceEventScope&) = delete;
    CSourceEventScope& operator=(const CSourceEventScope&) = delete;

private:
    ulo::CSourceEvent* source_;
};

}  // namespace veld5
