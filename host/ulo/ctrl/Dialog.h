#pragma once
// Dialog bases of the toolkit. A dialog is built from a template of the
// current resource module (the variant id it was constructed with), runs
// modally with DoModal and ends with an integer code (IDOK 1, IDCANCEL 2, or
// any other code given to EndDialog).
//
// What the template says, the base applies: the help topic when the dialog
// opens (and when a page comes to the front), the OK and Cancel ids and their
// standard colours, and whether the help key reaches the host.
#include <QDialog>
#include <QPointer>
#include <unordered_map>

#include "Controls.h"
#include "Win.h"
#include "ulo/DialogTemplate.h"
#include "ulo/WString.h"

namespace ulo {

/// Converts dialog units to pixels for the dialog font.
class CDialogUnits {
public:
    /// Measures the font (costly: dialogs share the units of their template).
    explicit CDialogUnits(const QFont& font);
    int X(int du) const;
    int Y(int du) const;
    QRect Rect(const DlgRect& r) const;

private:
    int baseX_;
    int baseY_;
};

/// The font of a template (its name and size, through the font substitutions
/// the toolkit installs for names this platform lacks).
QFont DialogFont(const DialogTemplate& t);

class CWSizeDialog : public QDialog {
    Q_OBJECT
    // What the host, the scripted user and the tests read by the names of
    // WidgetProperties.h: declared, so that opening a dialog sets no dynamic
    // property (each costs a lookup and an event).
    Q_PROPERTY(unsigned veldTemplateId READ GetTemplateId)
    Q_PROPERTY(unsigned veldBaseId READ GetBaseId)
    Q_PROPERTY(int veldLayout READ GetLayoutVariant)
    Q_PROPERTY(unsigned veldOkId READ GetOkId)
    Q_PROPERTY(unsigned veldCancelId READ GetCancelId)
public:
    CWSizeDialog(unsigned templateId, CWnd* parent);
    ~CWSizeDialog() override;

    /// Builds the dialog, announces its help topic, calls OnInitDialog and
    /// runs the modal loop. Returns the end code; -1 when the template does
    /// not exist; the code given to EndDialog when OnInitDialog ended the
    /// dialog (it is then never shown).
    virtual INT_PTR DoModal();
    /// Builds the dialog as a child window of @p parent (pages of a
    /// container) and initialises it as DoModal does; false when the template
    /// does not exist or OnInitDialog ended the dialog.
    bool Create(unsigned templateId, CWnd* parent);

    unsigned GetTemplateId() const { return templateId_; }
    /// The base id N of the template (0 before it is built).
    unsigned GetBaseId() const { return template_ ? template_->baseId : 0; }
    int GetLayoutVariant() const { return variant_; }
    const DialogTemplate* GetTemplate() const { return template_; }
    unsigned GetOkId() const { return okId_; }
    unsigned GetCancelId() const { return cancelId_; }
    bool IsBuilt() const { return built_; }

    QWidget* GetDlgItem(unsigned id) const;
    template <class T>
    T* GetDlgItem(unsigned id) const {
        return qobject_cast<T*>(GetDlgItem(id));
    }
    QString GetDlgItemText(unsigned id) const;
    void SetDlgItemText(unsigned id, const QString& text);
    void EnableDlgItem(unsigned id, bool enable);
    bool IsDlgButtonChecked(unsigned id) const;
    void CheckDlgButton(unsigned id, bool checked);
    /// Checks @p id and clears the other buttons of first..last.
    void CheckRadioButton(unsigned first, unsigned last, unsigned id);
    /// The checked button of first..last, or 0.
    unsigned GetCheckedRadioButton(unsigned first, unsigned last) const;

    /// Ends the modal loop with @p code.
    void EndDialog(int code);
    QRect GetClientRect() const { return rect(); }
    const CDialogUnits& Units() const { return *units_; }

    /// Sends a command id as a button click or menu command would.
    void SendCommand(unsigned id) { OnCommand(id); }

protected:
    /// Fills the built dialog before it shows. Focus a dialog gives a control
    /// here stays; otherwise the first control of the tab order gets it. A
    /// dialog that cannot open calls EndDialog here (DoModal then returns
    /// that code without showing it).
    virtual void OnInitDialog() {}
    /// Standard OK: ends with IDOK.
    virtual void OnOK();
    /// Standard Cancel: ends with IDCANCEL.
    virtual void OnCancel();
    /// A command from a control (button click) or the help key. Returns true
    /// when handled. The default routes the OK and Cancel ids to OnOK and
    /// OnCancel and passes ID_HELP to the host's help, unless the template
    /// keeps the dialog's help to its topic.
    virtual bool OnCommand(unsigned id);
    /// Lets a dialog build its own widget for a control; null builds the
    /// toolkit's widget for the control's kind.
    virtual QWidget* CreateCustomControl(const CtrlTemplate& ctrl, QWidget* parent);
    void reject() override;
    void accept() override;
    void keyPressEvent(QKeyEvent* event) override;

    /// Geometry (pixels, parent client coordinates) for a child page; set by
    /// CExDialog::SetWindowedMode before Create.
    QRect childGeometry_;
    bool childMode_ = false;

private:
    bool Build(CWnd* parent, bool child);
    QWidget* BuildControl(const CtrlTemplate& ctrl, int variant);
    /// Announces the help topic and runs OnInitDialog; false when it ended
    /// the dialog.
    bool Initialise();

    unsigned templateId_;
    const DialogTemplate* template_ = nullptr;
    int variant_ = 0;
    bool built_ = false;
    bool ended_ = false;  // EndDialog was called
    unsigned okId_ = IDOK;
    unsigned cancelId_ = IDCANCEL;
    const CDialogUnits* units_ = nullptr;
    std::unordered_map<unsigned, QPointer<QWidget>> controls_;
};

class CExDialog : public CWSizeDialog {
    Q_OBJECT
public:
    CExDialog(unsigned templateId, CWnd* parent) : CWSizeDialog(templateId, parent) {}

    /// Page hooks of a container. SetActive brings the page to the front:
    /// its help topic is announced again, then OnSetActive fills it.
    /// KillActive writes it back as it is left.
    void SetActive();
    virtual void KillActive() {}
    /// Prepares creation as a child page placed at (left, top, width, height).
    void SetWindowedMode(bool windowed, bool child, int left, int top, int width, int height);

protected:
    virtual void OnSetActive() {}
};

/// The host's handling of the help command (ID_HELP) that a dialog does not
/// catch; the default does nothing.
void SetHelpCommandHandler(std::function<void(QWidget* dialog)> handler);
void InvokeHelpCommand(QWidget* dialog);

/// Fixed, translated font family substitutions for template fonts.
void InstallDialogFontSubstitutions();

}  // namespace ulo

using ulo::CExDialog;
using ulo::CWSizeDialog;
