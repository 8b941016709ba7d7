#pragma once
// The text insertion dialog: up to three lines of text with a style, height,
// width factor, rotation, slant and justification. OK makes one text entity
// per non-empty line, line under line from the insertion point, without
// putting them into the drawing: the caller takes them with GetTexts. Angles
// are shown and read in the CAD instance's angle system.
#include <vector>

#include "res/StringIds.h"
#include "ulo/Geom.h"
#include "ulo/RefCounter.h"
#include "ulo/ctrl/Dialog.h"

class CVELD;

namespace veld {
class CEnt;
class CEntCollection;
class CStyle;
}  // namespace veld

namespace veld5 {

class CCECADDlgInsText : public CExDialog {
    Q_OBJECT
public:
    CCECADDlgInsText(const ulo::geom::PNT_3D& point, CVELD* cad, CWnd* parent);
    ~CCECADDlgInsText() override;

    /// The texts made at OK, in line order. The dialog holds one reference on
    /// each until it is destroyed: a caller that keeps them takes its own.
    std::vector<veld::CEnt*> GetTexts() const;

protected:
    void OnInitDialog() override;
    void OnOK() override;

private:
    /// The number typed in edit @p id; false when the text holds none.
    bool ReadNumber(unsigned id, double& value) const;
    /// Shows @p text and puts the user back into edit @p id, all selected.
    void Refuse(unsigned id, const ulo::WString& text, StringId caption);
    /// The style of the selected entry, or the current style when none is.
    veld::CStyle* ChosenStyle() const;
    /// Makes one text per filled line; false, making none, when a line would
    /// stand beyond the coordinates a drawing keeps.
    bool MakeTexts(veld::CStyle* style, double height, double widthFactor, double slant,
                   double rotation);

    ulo::geom::PNT_3D point_;
    CVELD* cad_;
    std::vector<ulo::RefPtr<veld::CEnt>> texts_;
};

/// ShowDlgInsText: empties @p ents, runs the dialog and, after OK, appends
/// the texts it made, in their order.
void RunDlgInsText(CWnd* parent, CVELD& cad, const ulo::geom::PNT_3D& point,
                   veld::CEntCollection& ents);

}  // namespace veld5
