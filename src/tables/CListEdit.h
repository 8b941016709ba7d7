#pragma once
// CListEdit: the in-place name editor of the layers dialog, a keyboard text
// edit laid over a list cell. BeginEdit shows the text with the caret at its
// end; when the keyboard is taken away (the user left the edit, or pressed
// Return) the editor hides and tells its owner what was typed, or, when
// nothing was, the text it was given whole (an edit holds only so many
// characters of a name).
#include <QString>

#include "ulo/ctrl/Controls.h"

namespace veld5 {

class CVELDLayerLtypeDlg;

class CListEdit : public CCEEditKeybTxt {
    Q_OBJECT
public:
    CListEdit(CVELDLayerLtypeDlg* owner, QWidget* parent);

    void BeginEdit(const QString& text, int item);
    /// The row being edited, or -1 when no edit is under way.
    int GetItem() const { return item_; }

    void SetKeyb(void* keyboard) override;

private:
    CVELDLayerLtypeDlg* owner_;
    QString text_;
    int item_ = -1;
};

}  // namespace veld5
