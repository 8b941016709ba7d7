#pragma once
// COperation: the command the user is running in the editor (drawing a line,
// picking points...). The CAD instance always has one; when nothing runs it is
// the idle operation. Event sinks receive it with every entity change so they
// can tell who made the change.
#include "ulo/WString.h"

class COperation {
public:
    COperation() = default;
    explicit COperation(ulo::WString name) : name_(std::move(name)), running_(true) {}

    const ulo::WString& GetName() const { return name_; }
    /// False for the idle operation.
    bool IsRunning() const { return running_; }

private:
    ulo::WString name_;
    bool running_ = false;
};
