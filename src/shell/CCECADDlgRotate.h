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
    void OnInitDialog() override;
    bool OnCommand(unsigned id) override;
    void ReadControls() override;

private:
    int rotationType_ = -1;
};

/// ShowDlgRotate: after OK the code of the rotation type (4, 5 or 6) with
/// @p angle the number entered; otherwise the end code, @p angle as it was.
long RunDlgRotate(CWnd* parent, double& angle);

}  // namespace veld5
