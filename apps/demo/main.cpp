// veld-demo [--library PATH] [DRAWING]: starts the demo host on the dialog
// library, with DRAWING open (or the built-in sample drawing). VELD_DEMO_SHOT=FILE.png
// saves a picture of the window after start-up and quits; VELD_DEMO_SMOKE=1 quits at once.
#include <QApplication>
#include <QDir>
#include <QTimer>

#include "DemoWindow.h"

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    // The library stands in <prefix>/lib beside <prefix>/bin, in the build
    // tree as where it is installed.
    QString library = QDir::cleanPath(QCoreApplication::applicationDirPath() +
                                      QStringLiteral("/../lib/libveld5DlgCE.so"));
    QString drawing;
    QStringList args = app.arguments();
    args.removeFirst();
    for (int i = 0; i < args.size(); ++i) {
        if (args[i] == QLatin1String("--library") && i + 1 < args.size())
            library = args[++i];
        else if (args[i].endsWith(QLatin1String(".so")))
            library = args[i];  // the old form: the library as the only argument
        else
            drawing = args[i];
    }
    DemoWindow window(library, drawing);
    window.show();
    const QString shot = qEnvironmentVariable("VELD_DEMO_SHOT");
    if (!shot.isEmpty()) {
        // A picture of the window as it starts (for documentation), then leave.
        QTimer::singleShot(300, &app, [&] {
            window.grab().save(shot);
            app.quit();
        });
        return app.exec();
    }
    if (qEnvironmentVariableIsSet("VELD_DEMO_SMOKE")) {
        // Start-up check: draw the window once, then leave.
        QTimer::singleShot(0, &app, [&] {
            window.grab();
            app.quit();
        });
        return app.exec();
    }
    return app.exec();
}
