#pragma once
// Line types: a description and a pattern of number elements (dash > 0,
// gap < 0, dot = 0) and text elements.
#include <memory>
#include <optional>
#include <vector>

#include "TableItem.h"
#include "Text.h"

namespace veld {

/// One element of a pattern: a number (dash > 0, gap < 0, dot = 0) or a text
/// record. Elements are plain values (16 bytes for a number): a library of
/// many line types holds millions of them.
class ILtypeComplexDash {
public:
    explicit ILtypeComplexDash(double value) : value_(value) {}
    explicit ILtypeComplexDash(const TEXT_3D& text) : text_(std::make_unique<TEXT_3D>(text)) {}
    explicit ILtypeComplexDash(TEXT_3D&& text)
        : text_(std::make_unique<TEXT_3D>(std::move(text))) {}
    ILtypeComplexDash(const ILtypeComplexDash& o)
        : value_(o.value_), text_(o.text_ ? std::make_unique<TEXT_3D>(*o.text_) : nullptr) {}
    ILtypeComplexDash(ILtypeComplexDash&&) noexcept = default;
    ILtypeComplexDash& operator=(const ILtypeComplexDash& o) {
        if (this != &o)
            *this = ILtypeComplexDash(o);
        return *this;
    }
    ILtypeComplexDash& operator=(ILtypeComplexDash&&) noexcept = default;

    bool IsDouble() const { return !text_; }
    double GetDouble() const { return value_; }
    /// The text record of a text element (null for a number element).
    const TEXT_3D* GetText() const { return text_.get(); }
    bool operator==(const ILtypeComplexDash& o) const {
        return value_ == o.value_ && (text_ && o.text_ ? *text_ == *o.text_ : !text_ && !o.text_);
    }

private:
    double value_ = 0.0;
    std::unique_ptr<TEXT_3D> text_;
};

class CLtypeComplexDashSeq {
public:
    void AddDashDouble(double value) { dashes_.emplace_back(Kept(value)); }
    void AddDashText(const TEXT_3D& text) { dashes_.emplace_back(text); }
    void AddDashText(TEXT_3D&& text) { dashes_.emplace_back(std::move(text)); }
    /// Room for @p n elements, so that a pattern of known length takes no more.
    void Reserve(unsigned n) { dashes_.reserve(n); }
    unsigned GetNoDashes() const { return static_cast<unsigned>(dashes_.size()); }
    const ILtypeComplexDash* GetDash(unsigned i) const {
        return i < dashes_.size() ? &dashes_[i] : nullptr;
    }
    bool operator==(const CLtypeComplexDashSeq& o) const { return dashes_ == o.dashes_; }

private:
    std::vector<ILtypeComplexDash> dashes_;
};

/// What a line type's memento keeps beside its name and flags.
struct LtypeState {
    ulo::WString desc;
    CLtypeComplexDashSeq seq;
    bool operator==(const LtypeState&) const = default;
};

class CLtype : public CStatefulItem<LtypeState> {
public:
    CLtype(const ulo::WString& name, const ulo::WString& desc, const CLtypeComplexDashSeq& seq,
           unsigned flags);
    /// Takes over the name, description and pattern.
    CLtype(ulo::WString name, ulo::WString desc, CLtypeComplexDashSeq&& seq, unsigned flags);

    const ulo::WString& GetDesc() const { return s_.desc; }
    void SetDesc(const ulo::WString& desc) { s_.desc = desc; }
    unsigned GetNoDashes() const { return s_.seq.GetNoDashes(); }
    const ILtypeComplexDash* GetDash(unsigned i) const { return s_.seq.GetDash(i); }
    const CLtypeComplexDashSeq& GetLtypeComplexDashSeq() const { return s_.seq; }
    /// Sum of the absolute values of the number elements.
    double GetPatternLen() const;
    /// Takes the description and pattern of @p other (not its name).
    void Copy(const CLtype& other);

    bool IsByBlock() const;
    bool IsByLayer() const;
    bool IsContinuous() const;
    bool CanBeRenamed() const override;
    bool CanBeCurrent() const override { return !IsXRef(); }
};

}  // namespace veld
