#pragma once
// Text entry: one line of at most 511 characters.
#include "ulo/ctrl/Dialog.h"

namespace veld5 {

class CGetStringDialog : public CExDialog {
    Q_OBJECT
public:
    /// @p result holds the initial text and receives the answer on OK (an
    /// empty field keeps the previous text).
    CGetStringDialog(CWnd* parent, const ulo::WString& caption, const ulo::WString& prompt,
                     ulo::WString& result);

    static constexpr int kMaxLength = 511;

protected:
    void OnInitDialog() override;
    void OnOK() override;

private:
    ulo::WString caption_;
    ulo::WString prompt_;
    ulo::WString* result_;
};

/// ShowDlgGetString: true after OK, with @p result as the dialog left it.
bool RunDlgGetString(CWnd* parent, const ulo::WString& caption, const ulo::WString& prompt,
                     ulo::WString& result);

}  // namespace veld5
