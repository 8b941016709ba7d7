#pragma once
// IEventNotify: the CAD instance's event sink for entity changes. Whoever
// changes an entity asks entityModify first (false: leave the entity alone)
// and reports the change with entityModified afterwards.
//
// CEventNotify is the default sink: it allows every change except those to
// entities put on its refusal list, and records the reported changes in order.
#include <algorithm>
#include <vector>

class COperation;
namespace veld {
class CEnt;
}

class IEventNotify {
public:
    virtual ~IEventNotify() = default;
    virtual bool entityModify(const COperation& operation, veld::CEnt* entity) = 0;
    virtual void entityModified(const COperation& operation, veld::CEnt* entity) = 0;
};

class CEventNotify : public IEventNotify {
public:
    bool entityModify(const COperation&, veld::CEnt* entity) override {
        ++asked_;
        return std::find(refused_.begin(), refused_.end(), entity) == refused_.end();
    }
    void entityModified(const COperation&, veld::CEnt* entity) override {
        modified_.push_back(entity);
    }

    /// Changes to @p entity are refused from now on (pointer identity only; no
    /// reference is held).
    void Refuse(const veld::CEnt* entity) { refused_.push_back(entity); }
    void AllowAll() { refused_.clear(); }
    unsigned GetAskedCount() const { return asked_; }
    const std::vector<veld::CEnt*>& GetModified() const { return modified_; }
    void ClearRecord() {
        modified_.clear();
        asked_ = 0;
    }

private:
    std::vector<const veld::CEnt*> refused_;
    std::vector<veld::CEnt*> modified_;
    unsigned asked_ = 0;
};
