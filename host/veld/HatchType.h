#pragma once
// Legacy hatch types: the patterns numbered -1 to 67 of older drawings.
#include <memory>
#include <vector>

#include "ulo/WString.h"

namespace veld {

class CHatchType {
public:
    CHatchType(int legacyNumber, ulo::WString name)
        : number_(legacyNumber), name_(std::move(name)) {}
    int GetLegacyNumber() const { return number_; }
    const ulo::WString& GetName() const { return name_; }

private:
    int number_;
    ulo::WString name_;
};

class CHatchTypeProvider {
public:
    static const CHatchTypeProvider* GetInstance();
    /// The type of legacy number @p n (-1..67), or null.
    const CHatchType* GetLegacyHatchType(int n) const;

private:
    CHatchTypeProvider();
    std::vector<std::unique_ptr<CHatchType>> types_;
};

}  // namespace veld
