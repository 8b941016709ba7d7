#pragma once
// The demo host's main window: a small editor on one drawing. It loads the
// dialog library at run time and reaches it only through the factory, draws
// the drawing in a view (pan, zoom, tap to select), offers every operation of
// the catalogue from a menu and a toolbar, keeps the undo list, and opens and
// saves drawing files, sealed with a password when asked.
#include <QMainWindow>
#include <memory>

#include "app/VELD.h"
#include "factory/IVELDDlgFactory.h"
#include "linetypes/LtypePickers.h"

class CVELDView;
class LauncherListener;
class QAction;
class QLabel;
class QPlainTextEdit;
class QToolBar;
namespace catalogue {
struct Operation;
}

class DemoWindow : public QMainWindow {
    Q_OBJECT
public:
    /// Starts on @p drawing, or on the sample drawing when it is empty.
    DemoWindow(const QString& libraryPath, const QString& drawing);
    ~DemoWindow() override;

    CVELD& GetCAD() { return cad_; }
    CVELDView* GetView() const { return view_; }
    bool IsModified() const { return modified_; }
    /// Opens a drawing file; false (with a message box) when it cannot be opened.
    bool OpenFile(const QString& path);
    bool SaveFile(const QString& path, const QString& password);

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void StartLauncherListener();
    bool LoadLibrary(const QString& path);
    void BuildMenus();
    /// Runs @p op from its menu entry @p action (and toolbar button).
    void RunOperation(const catalogue::Operation& op, QAction* action, QToolBar* bar);
    void Log(const QString& line);
    void OnChange(CVELD::Change why);
    void UpdateTitle();
    void UpdateActions();
    /// Asks about unsaved changes; false when the user cancels.
    bool MaybeSave();
    void NewDrawing(bool sample);
    void Open();
    bool Save();
    bool SaveAs(bool withPassword);

    CVELD cad_;
    CVELDView* view_ = nullptr;
    IVELDDlgFactory* factory_ = nullptr;
    ShowDlgSelLtypeFn selLtype_ = nullptr;
    ShowDlgLoadLtypeFn loadLtype_ = nullptr;
    LauncherListener* launcher_ = nullptr;
    QPlainTextEdit* log_ = nullptr;
    QLabel* moduleState_ = nullptr;
    QLabel* helpTopic_ = nullptr;
    QLabel* pointer_ = nullptr;
    QLabel* selection_ = nullptr;
    QLabel* drafting_ = nullptr;  // object snap and angle system
    QAction* undo_ = nullptr;
    QAction* redo_ = nullptr;
    QString path_;
    QString password_;
    bool modified_ = false;
    bool loading_ = false;
    int listener_ = 0;
    ulo::geom::PNT_3D tapped_{};
};
