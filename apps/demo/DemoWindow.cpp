#include "DemoWindow.h"

#include <QAction>
#include <QActionGroup>
#include <QLabel>
#include <QLibrary>
#include <QLocalSocket>
#include <QMenuBar>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QStatusBar>
#include <QToolBar>
#include <QtEndian>
#include <memory>

#include "ulo/HelpTopic.h"
#include "ulo/PalmDevice.h"
#include "veld/FileReaderPasswordRequest.h"

namespace {
// The factory operations in the order of the interface, with whether this
// build has their dialog.
struct Operation {
    const char* name;
    bool built;
};
constexpr Operation kOperations[] = {
    {"ShowDlgInsText", false},       {"ShowDlgOSnap", false},     {"ShowDlSnapInsertPnt", false},
    {"ShowDlgGridProp", false},      {"ShowDlgOptColors", false}, {"ShowDlgLayer", false},
    {"ShowDlgLtype", false},         {"ShowDlgTextStyle", false}, {"ShowDlgColor", false},
    {"ShowDlgOptCursor", false},     {"ShowDlgAngle", false},     {"ShowDlgHatch", false},
    {"ShowDlgDrawings", false},      {"ShowDlgProperty", false},  {"ShowDlgCalibraLineare", false},
    {"GetDlgPasswordRequest", true}, {"ShowDlgGetDouble", true},  {"ShowDlgGetString", true},
    {"ShowDlgRotate", true},
};
}  // namespace

DemoWindow::DemoWindow(const QString& libraryPath) {
    setWindowTitle(QStringLiteral("veld demo host"));
    log_ = new QPlainTextEdit(this);
    log_->setReadOnly(true);
    setCentralWidget(log_);
    moduleState_ = new QLabel(QStringLiteral("module: not loaded"), this);
    helpTopic_ = new QLabel(this);
    statusBar()->addWidget(moduleState_);
    statusBar()->addPermanentWidget(helpTopic_);
    ulo::SetHelpTopicListener([this](const ulo::WString& topic) {
        helpTopic_->setText(QStringLiteral("help: ") + topic.ToQString());
    });
    StartLauncherListener();
    if (LoadLibrary(libraryPath))
        BuildMenus();
    resize(480, 640);
}

void DemoWindow::StartLauncherListener() {
    // Stands in for the launcher window: the module reports itself loaded here.
    QLocalServer::removeServer(QStringLiteral("Avvio_Talpa"));
    launcher_.listen(QStringLiteral("Avvio_Talpa"));
    connect(&launcher_, &QLocalServer::newConnection, this, [this] {
        while (QLocalSocket* s = launcher_.nextPendingConnection()) {
            s->waitForReadyRead(500);
            const QByteArray msg = s->readAll();
            if (msg.size() >= 12 && qFromLittleEndian<quint32>(msg.constData()) == 1165) {
                moduleState_->setText(QStringLiteral("module: loaded (launcher notified)"));
                Log(QStringLiteral("launcher: message 1165 received"));
            }
            const quint32 answer = 0;
            s->write(reinterpret_cast<const char*>(&answer), sizeof answer);
            s->flush();
            s->disconnectFromServer();
            s->deleteLater();
        }
    });
}

bool DemoWindow::LoadLibrary(const QString& path) {
    auto* library = new QLibrary(path, this);
    if (!library->load()) {
        QMessageBox::critical(this, windowTitle(),
                              QStringLiteral("The dialog library could not be loaded:\n%1")
                                  .arg(library->errorString()));
        return false;
    }
    auto create = reinterpret_cast<CreateFactoryFn>(library->resolve("CreateFactory"));
    factory_ = create ? create() : nullptr;
    if (!factory_) {
        QMessageBox::critical(this, windowTitle(),
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
}

void DemoWindow::BuildMenus() {
    QMenu* dialogs = menuBar()->addMenu(QStringLiteral("&Dialogs"));
    QToolBar* bar = addToolBar(QStringLiteral("Dialogs"));
    bar->setToolButtonStyle(Qt::ToolButtonTextOnly);
    for (const Operation& op : kOperations) {
        QAction* a = dialogs->addAction(QString::fromLatin1(op.name));
        a->setEnabled(op.built);
        if (!op.built)
            a->setToolTip(QStringLiteral("not yet built"));
        const QString name = QString::fromLatin1(op.name);
        connect(a, &QAction::triggered, this, [this, name] {
            if (name == QLatin1String("ShowDlgGetDouble")) {
                double v = 12.5;
                const long r = factory_->ShowDlgGetDouble(this, L"Height", v, false, false, true);
                Log(QStringLiteral("ShowDlgGetDouble -> %1, value %2").arg(r).arg(v));
            } else if (name == QLatin1String("ShowDlgRotate")) {
                double angle = 0;
                const long r = factory_->ShowDlgRotate(this, angle);
                Log(QStringLiteral("ShowDlgRotate -> %1, angle %2").arg(r).arg(angle));
            } else if (name == QLatin1String("ShowDlgGetString")) {
                ulo::WString text(L"Survey point");
                const bool ok = factory_->ShowDlgGetString(this, L"Name", L"Insert value:", text);
                Log(QStringLiteral("ShowDlgGetString -> %1, \"%2\"").arg(ok).arg(text.ToQString()));
            } else if (name == QLatin1String("GetDlgPasswordRequest")) {
                std::unique_ptr<veld::IFileReaderPasswordRequest> req(
                    factory_->GetDlgPasswordRequest(this));
                ulo::WString password;
                const bool ok = req && req->RequestPassword(password, L"demo.veld");
                Log(QStringLiteral("RequestPassword -> %1 (%2 characters)")
                        .arg(ok)
                        .arg(password.Length()));
            }
        });
        if (op.built)
            bar->addAction(a);
    }

    QMenu* view = menuBar()->addMenu(QStringLiteral("&View"));
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
}
