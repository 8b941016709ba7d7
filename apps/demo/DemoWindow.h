#pragma once
// The demo host's main window: loads the dialog library, lists every factory
// operation in a menu and a toolbar, and shows what each returned.
#include <QLocalServer>
#include <QMainWindow>

#include "factory/IVELDDlgFactory.h"

class QLabel;
class QPlainTextEdit;

class DemoWindow : public QMainWindow {
    Q_OBJECT
public:
    explicit DemoWindow(const QString& libraryPath);

private:
    void StartLauncherListener();
    bool LoadLibrary(const QString& path);
    void BuildMenus();
    void Log(const QString& line);

    IVELDDlgFactory* factory_ = nullptr;
    QLocalServer launcher_;
    QPlainTextEdit* log_ = nullptr;
    QLabel* moduleState_ = nullptr;
    QLabel* helpTopic_ = nullptr;
};
