#pragma once
// Intrusive reference counting of the host objects. An object starts with one
// reference, owned by whoever created it; SubReference deletes it at zero.
#include <cassert>
#include <utility>

namespace ulo {

class IRefCounter {
public:
    IRefCounter(const IRefCounter&) = delete;
    IRefCounter& operator=(const IRefCounter&) = delete;

    void AddReference() const { ++count_; }
    void SubReference() const {
        assert(count_ > 0);
        if (--count_ == 0)
            delete this;
    }
    unsigned GetReferenceCount() const { return count_; }

protected:
    IRefCounter() = default;
    virtual ~IRefCounter() = default;

private:
    mutable unsigned count_ = 1;
};

/// Reference counting of objects that carry a handle inside a drawing (table
/// items, entities, entity sets).
class IHandledRefCounter : public IRefCounter {
public:
    unsigned long GetHandle() const { return handle_; }
    void SetHandle(unsigned long handle) { handle_ = handle; }

protected:
    IHandledRefCounter() = default;

private:
    unsigned long handle_ = 0;
};

/// Holds one reference for its lifetime (adopts the creation reference).
template <class T>
class RefPtr {
public:
    RefPtr() = default;
    static RefPtr Adopt(T* p) {
        RefPtr r;
        r.p_ = p;
        return r;
    }
    static RefPtr Share(T* p) {
        if (p)
            p->AddReference();
        return Adopt(p);
    }
    RefPtr(const RefPtr& o) : p_(o.p_) {
        if (p_)
            p_->AddReference();
    }
    RefPtr(RefPtr&& o) noexcept : p_(o.p_) { o.p_ = nullptr; }
    RefPtr& operator=(RefPtr o) noexcept {
        std::swap(p_, o.p_);
        return *this;
    }
    ~RefPtr() {
        if (p_)
            p_->SubReference();
    }
    T* get() const { return p_; }
    T* operator->() const { return p_; }
    T& operator*() const { return *p_; }
    explicit operator bool() const { return p_ != nullptr; }
    T* release() {
        T* p = p_;
        p_ = nullptr;
        return p;
    }

private:
    T* p_ = nullptr;
};

}  // namespace ulo
