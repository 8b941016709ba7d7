// The baseline of the demo's start-up: a bare Qt main window with the same
// pieces (menus and their actions, a tool bar, a status bar with four labels,
// a hidden dock, a painted central widget), drawn once the way the demo's
// start-up check draws it, then closed. scripts/start-cost.sh times both.
#include <QAction>
#include <QApplication>
#include <QDockWidget>
#include <QLabel>
#include <QMainWindow>
#include <QMenuBar>
#include <QPainter>
#include <QPlainTextEdit>
#include <QStatusBar>
#include <QTimer>
#include <QToolBar>

namespace {

class Canvas : public QWidget {
protected:
    void paintEvent(QPaintEvent*) override {
        QPainter p(this);
        p.fillRect(rect(), Qt::black);
        p.setPen(Qt::white);
        for (int i = 0; i < 200; ++i)
            p.drawLine(i, 0, width() - i, height());
    }
};

}  // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QMainWindow window;
    window.setCentralWidget(new Canvas);
    auto* dock = new QDockWidget(QStringLiteral("Log"), &window);
    dock->setWidget(new QPlainTextEdit);
    window.addDockWidget(Qt::BottomDockWidgetArea, dock);
    dock->hide();
    for (int i = 0; i < 4; ++i)
        window.statusBar()->addWidget(new QLabel(QStringLiteral("label %1").arg(i)));
    QToolBar* tools = window.addToolBar(QStringLiteral("Dialogs"));
    for (const char* menu : {"File", "Edit", "View", "Dialogs"}) {
        QMenu* m = window.menuBar()->addMenu(QString::fromLatin1(menu));
        for (int i = 0; i < 8; ++i) {
            QAction* a = m->addAction(QStringLiteral("Action %1...").arg(i));
            if (menu[0] == 'D')
                tools->addAction(a);
        }
    }
    window.resize(480, 800);
    window.show();
    QTimer::singleShot(0, &app, [&] {
        window.grab();
        app.quit();
    });
    return app.exec();
}
