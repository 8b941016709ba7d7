// veld-demo [LIBRARY]: starts the demo host on the dialog library.
#include <QApplication>
#include <QFileInfo>

#include "DemoWindow.h"

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QString library = QStringLiteral(VELD5_LIBRARY_PATH);
    if (argc > 1)
        library = QString::fromLocal8Bit(argv[1]);
    DemoWindow window(library);
    window.show();
    if (qEnvironmentVariableIsSet("VELD_DEMO_SMOKE"))
        return 0;  // start-up check only
    return app.exec();
}
