#pragma once
// CSourceEvent: a change notification source. Changes made between BeginEvent
// and EndEvent reach the listeners as one notification when the outermost
// bracket closes; a change outside any bracket is notified at once.
#include <vector>

namespace ulo {

class CSourceEvent;

class ISourceEventListener {
public:
    virtual ~ISourceEventListener() = default;
    virtual void OnSourceEvent(CSourceEvent& source) = 0;
};

class CSourceEvent {
public:
    CSourceEvent() = default;
    CSourceEvent(const CSourceEvent&) = delete;
    CSourceEvent& operator=(const CSourceEvent&) = delete;
    virtual ~CSourceEvent() = default;

    void BeginEvent() { ++depth_; }
    void EndEvent();
    /// Records a change; notifies now when no bracket is open.
    void Changed();

    int GetDepth() const { return depth_; }
    unsigned GetNotificationCount() const { return notifications_; }

    void AddListener(ISourceEventListener* listener);
    void RemoveListener(ISourceEventListener* listener);

private:
    void Notify();
    int depth_ = 0;
    bool pending_ = false;
    unsigned notifications_ = 0;
    std::vector<ISourceEventListener*> listeners_;
};

/// Brackets a source event for the lifetime of the object (null is allowed).
class CSourceEventBracket {
public:
    explicit CSourceEventBracket(CSourceEvent* source) : source_(source) {
        if (source_)
            source_->BeginEvent();
    }
    ~CSourceEventBracket() {
        if (source_)
            source_->EndEvent();
    }
    CSourceEventBracket(const CSourceEventBracket&) = delete;
    CSourceEventBracket& operator=(const CSourceEventBracket&) = delete;

private:
    CSourceEvent* source_;
};

}  // namespace ulo
