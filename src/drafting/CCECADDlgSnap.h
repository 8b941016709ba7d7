#pragma once
// Coordinate entry: the user types East, North and elevation of a point that
// the host asked for. The dialog always opens blank; on OK all three fields
// must hold a number.
#include "ulo/Geom.h"
#include "ulo/ctrl/Dialog.h"

namespace veld5 {

class CCECADDlgSnap : public CExDialog {
    Q_OBJECT
public:
    explicit CCECADDlgSnap(CWnd* parent);

    /// The point entered (x East, y North, z elevation); valid after OK.
    ulo::geom::PNT_3D GetPoint() const { return {east_, north_, elevation_}; }

    /// What an empty field reads as, and the bound every coordinate stays below.
    static constexpr double kEmptyField = 1e100;
    /// The number a field's text reads as: its leading decimal number in the
    /// "C" notation (0 when it has none: "inf", "nan" and "0x10" read as 0,
    /// kEmptyField when it is empty). A number beyond a double reads as an
    /// infinity of its sign, for OK to refuse.
    static double ReadField(const QString& text);

protected:
    void OnInitDialog() override;
    void OnOK() override;

private:
    /// The label the template puts before the edit @p id ("East :").
    QString FieldLabel(unsigned id) const;

    double east_ = kEmptyField;
    double north_ = kEmptyField;
    double elevation_ = kEmptyField;
};

/// The factory's ShowDlSnapInsertPnt: after OK @p point receives the point
/// entered and the result is true; otherwise @p point is left as it was.
bool RunDlSnapInsertPnt(CWnd* parent, ulo::geom::PNT_3D& point);

}  // namespace veld5
