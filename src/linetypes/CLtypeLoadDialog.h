#pragma once
// The line type loading dialog: the definitions of a line type library
// (".lin") in a grid with a check box per row; OK makes new line types for the
// checked rows whose names the drawing lacks. It opens on the default library
// "support\veld.lin" of the host's support folder; "File..." picks another.
// Each definition the file rejects is shown in a message box as it loads.
//
// The dialog never changes the drawing: after IDOK the caller takes the new
// line types (GetNoNewLtypes, GetNewLtypeNo) and adds them to the table,
// adding its own reference to any it keeps beyond the dialog's life.
#include <memory>

#include "linetypes/LtypeLoader.h"
#include "ulo/WString.h"
#include "ulo/ctrl/Dialog.h"
#include "veld/HandleObjectVectorCollection.h"

class CVELD;

namespace veld {
class CData;
}

namespace veld5 {

class CLtypeLoadDialog : public CExDialog, public veld::CLtypeLoader::IErrorNotifier {
    Q_OBJECT
public:
    explicit CLtypeLoadDialog(CVELD* cad);
    ~CLtypeLoadDialog() override;

    /// The line types made on OK, in grid order; owned by the dialog.
    unsigned GetNoNewLtypes() const { return newLtypes_.GetNoElems(); }
    veld::CLtype* GetNewLtypeNo(unsigned index) const;
    /// The path of the file loaded last.
    const ulo::WString& GetPath() const { return path_; }

    void NotifyLoadError(const ulo::WString& fileName, unsigned lineNo,
                         const ulo::WString& ltypeName, int errorCode) override;
    /// The drawing's standard style, whatever the name: a library's text
    /// elements load even when the drawing lacks their style.
    veld::CStyle* GetUndefinedStyle(const ulo::WString& styleName) override;

protected:
    void OnInitDialog() override;
    void OnOK() override;
    bool OnCommand(unsigned id) override;
    QWidget* CreateCustomControl(const ulo::CtrlTemplate& ctrl, QWidget* parent) override;

private:
    /// Loads @p path into the loader and lists what loaded.
    void LoadFile(const ulo::WString& path);
    /// Lists the first @p count line types of the loader, unchecked.
    void FillGrid(unsigned count);
    void OnFile();

    CVELD* cad_;
    veld::CData* data_;
    veld::CHandleObjectVectorCollection newLtypes_;
    veld::CLtypeLoader loader_;
    ulo::WString path_;
    // Made with the dialog and deleted before it, which takes it off the
    // dialog's children.
    std::unique_ptr<CCEMSGridCtrl> grid_;
};

}  // namespace veld5
