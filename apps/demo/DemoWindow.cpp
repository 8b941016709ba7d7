#include "DemoWindow.h"

#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QCloseEvent>
#include <QDialog>
#include <QDockWidget>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QLibrary>
#include <QMenuBar>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QStatusBar>
#include <QToolBar>
#include <memory>

#include "DemoOperations.h"
#include "LauncherListener.h"
#include "NewPasswordDialog.h"
#include "app/DrawingFile.h"
#include "app/SampleDrawing.h"
#include "app/view/VELDView.h"
#include "automation/OperationCatalogue.h"
#include "ulo/HelpTopic.h"
#include "ulo/PalmDevice.h"
#include "veld/EntCollection.h"
#include "veld/FileReaderPasswordRequest.h"

namespace {
const QString kFilter = QStringLiteral("Drawings (*.veld *.json);;All files (*)");

/// Passes the reader's questions to the library's password dialog and keeps
/// the last password given: a sealed drawing is sealed again when saved.
class RememberingRequest : public veld::IFileReaderPasswordRequest {
public:
    explicit RememberingRequest(veld::IFileReaderPasswordRequest* dialog) : dialog_(dialog) {}
    bool RequestPassword(ulo::WString& password, const ulo::WString& fileName) override {
        const bool given = dialog_ && dialog_->RequestPassword(password, fileName);
        last = given ? password.ToQString() : QString();
        return given;
    }
    bool AskRetry(const ulo::WString& fileName) override {
        return dialog_ && dialog_->AskRetry(fileName);
    }
    QString last;

private:
    veld::IFileReaderPasswordRequest* dialog_;
};
}  // namespace

DemoWindow::DemoWindow(const QString& libraryPath, const QString& drawing) {
    view_ = new CVELDView(&cad_, this);
    view_->setMinimumSize(160, 120);
    setCentralWidget(view_);

    log_ = new QPlainTextEdit(this);
    log_->setReadOnly(true);
    log_->setMaximumBlockCount(500);
    auto* dock = new QDockWidget(QStringLiteral("Log"), this);
    dock->setObjectName(QStringLiteral("log"));
    dock->setWidget(log_);
    addDockWidget(Qt::BottomDockWidgetArea, dock);
    dock->hide();

    moduleState_ = new QLabel(QStringLiteral("module: not loaded"), this);
    pointer_ = new QLabel(this);
    pointer_->setObjectName(QStringLiteral("pointer"));
    selection_ = new QLabel(this);
    helpTopic_ = new QLabel(this);
    drafting_ = new QLabel(this);
    drafting_->setObjectName(QStringLiteral("drafting"));
    statusBar()->addWidget(moduleState_);
    statusBar()->addWidget(selection_);
    statusBar()->addWidget(pointer_);
    statusBar()->addWidget(drafting_);
    statusBar()->addPermanentWidget(helpTopic_);
    ulo::SetHelpTopicListener([this](const ulo::WString& topic) {
        helpTopic_->setText(topic.IsEmpty() ? QString()
                                            : QStringLiteral("help: ") + topic.ToQString());
    });
    connect(view_, &CVELDView::PointerMoved, this, [this](double e, double n) {
        pointer_->setText(QStringLiteral("E %1  N %2").arg(e, 0, 'f', 2).arg(n, 0, 'f', 2));
        tapped_ = {e, n, 0.0};
    });
    listener_ = cad_.AddChangeListener([this](CVELD::Change why) { OnChange(why); });

    StartLauncherListener();
    const bool loaded = LoadLibrary(libraryPath);
    BuildMenus();
    if (!loaded)
        Log(QStringLiteral("the dialog library is missing: its operations are disabled"));
    resize(480, 640);
    if (drawing.isEmpty() || !OpenFile(drawing))
        NewDrawing(true);
}

DemoWindow::~DemoWindow() {
    ulo::SetHelpTopicListener({});
    cad_.RemoveChangeListener(listener_);
}

void DemoWindow::StartLauncherListener() {
    launcher_ = new LauncherListener(this);
    connect(launcher_, &LauncherListener::Notified, this,
            [this](quint32 message, quint32, quint32) {
                if (message != 1165)
                    return;
                moduleState_->setText(QStringLiteral("module: loaded (launcher notified)"));
                Log(QStringLiteral("launcher: message 1165 received"));
            });
}

bool DemoWindow::LoadLibrary(const QString& path) {
    auto* library = new QLibrary(path, this);
    if (!library->load()) {
        QMessageBox::critical(this, QStringLiteral("veld demo"),
                              QStringLiteral("The dialog library could not be loaded:\n%1")
                                  .arg(library->errorString()));
        return false;
    }
    auto create = reinterpret_cast<CreateFactoryFn>(library->resolve("CreateFactory"));
    factory_ = create ? create() : nullptr;
    selLtype_ = reinterpret_cast<ShowDlgSelLtypeFn>(library->resolve("ShowDlgSelLtype"));
    loadLtype_ = reinterpret_cast<ShowDlgLoadLtypeFn>(library->resolve("ShowDlgLoadLtype"));
    if (!factory_) {
        QMessageBox::critical(this, QStringLiteral("veld demo"),
                              QStringLiteral("%1 has no CreateFactory.").arg(path));
        return false;
    }
    if (moduleState_->text().endsWith(QLatin1String("not loaded")))
        moduleState_->setText(QStringLiteral("module: loaded"));
    Log(QStringLiteral("loaded %1").arg(path));
    return true;
}

void DemoWindow::Log(const QString& line) {
    log_->appendPlainText(line);
    statusBar()->showMessage(line, 4000);
}

void DemoWindow::OnChange(CVELD::Change why) {
    if (!loading_ && (why == CVELD::Change::UndoList || why == CVELD::Change::Entity ||
                      why == CVELD::Change::Source)) {
        modified_ = true;
        UpdateTitle();
    }
    UpdateActions();
}

void DemoWindow::UpdateTitle() {
    const QString name =
        path_.isEmpty() ? QStringLiteral("sample drawing") : QFileInfo(path_).fileName();
    setWindowTitle(
        QStringLiteral("%1%2 - veld demo").arg(modified_ ? QStringLiteral("*") : QString(), name));
}

void DemoWindow::UpdateActions() {
    if (undo_)
        undo_->setEnabled(cad_.CanUndo());
    if (redo_)
        redo_->setEnabled(cad_.CanRedo());
    selection_->setText(
        QStringLiteral("%1 selected").arg(GetSelectedEntCollection(&cad_).GetNoEnts()));
    drafting_->setText(DraftingState(cad_));
}

bool DemoWindow::MaybeSave() {
    if (!modified_)
        return true;
    const auto answer = QMessageBox::question(
        this, QStringLiteral("veld demo"),
        QStringLiteral("The drawing has changes that are not saved. Save them?"),
        QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, QMessageBox::Save);
    if (answer == QMessageBox::Save)
        return Save();
    return answer == QMessageBox::Discard;
}

void DemoWindow::NewDrawing(bool sample) {
    loading_ = true;
    if (sample)
        BuildSampleDrawing(cad_);
    else
        cad_.SetData(std::make_unique<veld::CData>());
    loading_ = false;
    path_.clear();
    password_.clear();
    modified_ = false;
    view_->ZoomExtents();
    UpdateTitle();
    UpdateActions();
}

bool DemoWindow::OpenFile(const QString& path) {
    std::unique_ptr<veld::IFileReaderPasswordRequest> dialog(
        factory_ ? factory_->GetDlgPasswordRequest(this) : nullptr);
    RememberingRequest request(dialog.get());
    QString error;
    loading_ = true;
    const bool ok = drawingfile::Load(cad_, path, &request, error);
    loading_ = false;
    if (!ok) {
        QMessageBox::warning(this, QStringLiteral("veld demo"), error);
        return false;
    }
    path_ = path;
    password_ = request.last;  // empty for a plain file: it is never asked
    modified_ = false;
    view_->ZoomExtents();
    UpdateTitle();
    UpdateActions();
    Log(QStringLiteral("opened %1").arg(path));
    return true;
}

bool DemoWindow::SaveFile(const QString& path, const QString& password) {
    QString error;
    if (!drawingfile::Save(cad_, path, password, error)) {
        QMessageBox::warning(this, QStringLiteral("veld demo"), error);
        return false;
    }
    path_ = path;
    password_ = password;
    modified_ = false;
    UpdateTitle();
    Log(QStringLiteral("saved %1%2")
            .arg(path, password.isEmpty() ? QString() : QStringLiteral(" (sealed)")));
    return true;
}

void DemoWindow::Open() {
    if (!MaybeSave())
        return;
    const QString path =
        QFileDialog::getOpenFileName(this, QStringLiteral("Open drawing"), QString(), kFilter);
    if (!path.isEmpty())
        OpenFile(path);
}

bool DemoWindow::Save() {
    return path_.isEmpty() ? SaveAs(false) : SaveFile(path_, password_);
}

bool DemoWindow::SaveAs(bool withPassword) {
    QString password;
    if (withPassword) {
        password = NewPasswordDialog::Ask(this);
        if (password.isEmpty())
            return false;
    }
    QString path =
        QFileDialog::getSaveFileName(this, QStringLiteral("Save drawing"), path_, kFilter);
    if (path.isEmpty())
        return false;
    if (QFileInfo(path).suffix().isEmpty())
        path += QStringLiteral(".veld");
    return SaveFile(path, password);
}

void DemoWindow::closeEvent(QCloseEvent* event) {
    if (MaybeSave())
        event->accept();
    else
        event->ignore();
}

namespace {
/// Notes whether a dialog or a message box was shown while it lives.
class DialogWatch : public QObject {
public:
    DialogWatch() { qApp->installEventFilter(this); }
    ~DialogWatch() override { qApp->removeEventFilter(this); }
    bool seen = false;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        seen = seen || (event->type() == QEvent::Show && qobject_cast<QDialog*>(watched));
        return false;
    }
};
}  // namespace

// Whether an operation's dialog is built is found when its entry is first
// used: the operation runs for the user, and when no dialog appeared it is
// not built and its entry is disabled from then on. So no window ever shows
// but the one the user asked for; finding it out at start would open every
// dialog, flashing on the screen (or hidden by tricks of the window system),
// and cost every start the time of a dozen dialogs.
void DemoWindow::RunOperation(const catalogue::Operation& op, QAction* action, QToolBar* bar) {
    DemoContext context{&cad_, view_, tapped_};
    catalogue::Call call{.factory = factory_,
                         .parent = this,
                         .cad = &cad_,
                         .view = view_,
                         .selLtype = selLtype_,
                         .loadLtype = loadLtype_};
    const DemoUse use = DemoUseOf(op);
    QString line = use.before ? use.before(context, call) : QString();
    if (line.isEmpty()) {
        DialogWatch watch;
        const QJsonValue result = op.Run(call);
        if (!call.error.isEmpty()) {
            line = call.error;
        } else if (!watch.seen) {
            line = QStringLiteral("not yet built");
            action->setEnabled(false);
            action->setToolTip(line);
            bar->removeAction(action);
        } else {
            line = use.after ? use.after(context, call, result) : ReportLine(call, result);
        }
    }
    Log(QStringLiteral("%1: %2").arg(QString::fromLatin1(op.name), line));
    view_->Redraw();  // a grid edited in place comes without a notification
}

void DemoWindow::BuildMenus() {
    QMenu* file = menuBar()->addMenu(QStringLiteral("&File"));
    file->addAction(QStringLiteral("&New"), QKeySequence::New, this, [this] {
        if (MaybeSave())
            NewDrawing(false);
    });
    file->addAction(QStringLiteral("New from &sample"), this, [this] {
        if (MaybeSave())
            NewDrawing(true);
    });
    file->addAction(QStringLiteral("&Open..."), QKeySequence::Open, this, [this] { Open(); });
    file->addAction(QStringLiteral("&Save"), QKeySequence::Save, this, [this] { Save(); });
    file->addAction(QStringLiteral("Save &as..."), QKeySequence::SaveAs, this,
                    [this] { SaveAs(false); });
    file->addAction(QStringLiteral("Save with &password..."), this, [this] { SaveAs(true); });
    file->addSeparator();
    file->addAction(QStringLiteral("&Quit"), QKeySequence::Quit, this, [this] { close(); });

    QToolBar* bar = addToolBar(QStringLiteral("Tools"));
    bar->setObjectName(QStringLiteral("tools"));
    bar->setToolButtonStyle(Qt::ToolButtonTextOnly);
    bar->setStyleSheet(QStringLiteral("QToolButton { min-height: 28px; padding: 2px 6px; }"));

    QMenu* edit = menuBar()->addMenu(QStringLiteral("&Edit"));
    undo_ = edit->addAction(QStringLiteral("&Undo"), QKeySequence::Undo, this, [this] {
        if (cad_.Undo())
            Log(QStringLiteral("undone"));
    });
    redo_ = edit->addAction(QStringLiteral("&Redo"), QKeySequence::Redo, this, [this] {
        if (cad_.Redo())
            Log(QStringLiteral("redone"));
    });
    edit->addAction(QStringLiteral("&Deselect all"), this, [this] { NtfyDeselectAll(&cad_); });
    bar->addAction(undo_);
    bar->addAction(redo_);

    QMenu* dialogs = menuBar()->addMenu(QStringLiteral("&Dialogs"));
    for (const catalogue::Operation& op : catalogue::Operations()) {
        QAction* a = dialogs->addAction(QString::fromLatin1(op.label));
        a->setObjectName(QString::fromLatin1(op.name));
        a->setEnabled(factory_ != nullptr);
        a->setToolTip(a->objectName());
        connect(a, &QAction::triggered, this, [this, a, bar, &op] { RunOperation(op, a, bar); });
        if (factory_)
            bar->addAction(a);
    }
    dialogs->setToolTipsVisible(true);

    QMenu* view = menuBar()->addMenu(QStringLiteral("&View"));
    view->addAction(QStringLiteral("Zoom &extents"), this, [this] { view_->ZoomExtents(); });
    view->addAction(QStringLiteral("Zoom &in"), QKeySequence::ZoomIn, this, [this] {
        view_->ZoomAt(QPointF(view_->width() / 2.0, view_->height() / 2.0), 1.5);
    });
    view->addAction(QStringLiteral("Zoom &out"), QKeySequence::ZoomOut, this, [this] {
        view_->ZoomAt(QPointF(view_->width() / 2.0, view_->height() / 2.0), 1 / 1.5);
    });
    QMenu* screen = view->addMenu(QStringLiteral("Device screen"));
    auto* group = new QActionGroup(this);
    const char* names[] = {"Portrait", "Tall portrait", "Landscape", "Wide landscape"};
    const QSize sizes[] = {{240, 320}, {240, 400}, {320, 240}, {400, 210}};
    for (int i = 0; i < 4; ++i) {
        QAction* a = screen->addAction(QString::fromLatin1(names[i]));
        a->setCheckable(true);
        group->addAction(a);
        connect(a, &QAction::triggered, this, [this, i, sizes] {
            CPalmDevice::SetLayoutOverride(i);
            resize(sizes[i] * 2);
            Log(QStringLiteral("dialogs now open in layout %1").arg(i));
        });
    }
    view->addAction(findChild<QDockWidget*>(QStringLiteral("log"))->toggleViewAction());
    UpdateActions();
}
