#pragma once
// Rotation entry: an angle and the way the rotation is given.
#include "CCECADDlgGetDoubleBase.h"

namespace veld5 {

class CCECADDlgRotate : public CCECADDlgGetDoubleBase {
    Q_OBJECT
public:
    explicit CCECADDlgRotate(CWnd* parent);
    /// The number entered; @p code becomes 4, 5 or 6 for the selected type.
    double GetValue(int& code) const;
    using CCECADDlgGetDoubleBase::GetValue;

protected:
    BOOL OnInitDialog() override;
    bool OnCommand(unsigned id) override;
    void ReadControls() override;

private:
    static constexpr unsigned kIdFirstType = 11204;
    static constexpr unsigned kIdLastType = 11206;
    int rotationType_ = -1;
};

}  // namespace veld5
