#pragma once
// Line types: a description and a pattern of number elements (dash > 0,
// gap < 0, dot = 0) and text elements.
#include <memory>
#include <optional>
#include <vector>

#include "TableItem.h"
#include "Text.h"

namespace veld {

class ILtypeComplexDash {
public:
    virtual ~ILtypeComplexDash() = default;
    virtual bool IsDouble() const = 0;
    virtual double GetDouble() const = 0;
    /// The text record of a text element (null for a number element).
    virtual const TEXT_3D* GetText() const = 0;
};

class CLtypeComplexDashSeq {
public:
    void AddDashDouble(double value) { dashes_.push_back(Dash{value, std::nullopt}); }
    void AddDashText(const TEXT_3D& text) { dashes_.push_back(Dash{0.0, text}); }
    unsigned GetNoDashes() const { return static_cast<unsigned>(dashes_.size()); }
    const ILtypeComplexDash* GetDash(unsigned i) const {
        return i < dashes_.size() ? &dashes_[i] : nullptr;
    }
    bool operator==(const CLtypeComplexDashSeq& o) const { return dashes_ == o.dashes_; }

private:
    // A number element costs 24 bytes; a text element keeps its record apart.
    struct Dash : ILtypeComplexDash {
        Dash(double v, std::optional<TEXT_3D> t)
            : value(v), text(t ? std::make_unique<TEXT_3D>(std::move(*t)) : nullptr) {}
        Dash(const Dash& o)
            : value(o.value), text(o.text ? std::make_unique<TEXT_3D>(*o.text) : nullptr) {}
        Dash(Dash&&) noexcept = default;
        Dash& operator=(const Dash& o) {
            if (this != &o)
                *this = Dash(o);
            return *this;
        }
        Dash& operator=(Dash&&) noexcept = default;
        bool IsDouble() const override { return !text; }
        double GetDouble() const override { return value; }
        const TEXT_3D* GetText() const override { return text.get(); }
        bool operator==(const Dash& o) const {
            return value == o.value && (text && o.text ? *text == *o.text : !text && !o.text);
        }
        double value;
        std::unique_ptr<TEXT_3D> text;
    };
    std::vector<Dash> dashes_;
};

class CLtype : public ITableItem {
public:
    CLtype(const ulo::WString& name, const ulo::WString& desc, const CLtypeComplexDashSeq& seq,
           unsigned flags);
    CLtype(const ulo::WString& name, const ulo::WString& desc, CLtypeComplexDashSeq&& seq,
           unsigned flags);

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

    ulo::IMemento* CreateMemento() const override;
    bool HasChanged(const ulo::IMemento* memento) const override;

protected:
    void OnSetMemento(ulo::IMemento* memento) override;

private:
    struct State {
        ulo::WString desc;
        CLtypeComplexDashSeq seq;
        bool operator==(const State&) const = default;
    } s_;
};

}  // namespace veld
