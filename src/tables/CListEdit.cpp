#include "CListEdit.h"

#include "CVELDLayerLtypeDlg.h"

namespace veld5 {

CListEdit::CListEdit(CVELDLayerLtypeDlg* owner, QWidget* parent)
    : CCEEditKeybTxt(parent), owner_(owner) {}

void CListEdit::BeginEdit(const QString& text, int item) {
    text_ = text;
    item_ = item;
    setText(text);
    // SetSel(-1, -1): no selection, the caret after the last character.
    deselect();
    setCursorPosition(static_cast<int>(text.size()));
}

void CListEdit::SetKeyb(void* keyboard) {
    const bool leaving = HasKeyb() && !keyboard && item_ >= 0;
    if (leaving) {
        // Once only, even when the owner's message box takes the focus again.
        const int item = item_;
        item_ = -1;
        hide();
        owner_->OnEndEditItem(isModified() ? text() : text_, item);
    }
    CCEEditKeybTxt::SetKeyb(keyboard);
}

}  // namespace veld5
