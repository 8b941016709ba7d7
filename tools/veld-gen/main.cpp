// veld-gen: writes a large drawing file, the same bytes for the same options,
// and times opening one.
//   veld-gen OUT [--layers N] [--entities N] [--seed N] [--side UNITS]
//   veld-gen --open FILE [--parse-only]
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QJsonDocument>
#include <QStringList>
#include <cstdio>

#include "app/DrawingFile.h"
#include "app/LargeDrawing.h"
#include "app/VELD.h"

namespace {

const char* kUsage =
    "usage: veld-gen OUT [--layers N] [--entities N] [--seed N] [--side UNITS]\n"
    "  writes a drawing with N layers (default 1000) and N entities (default 10000)\n"
    "  spread over a square plot of UNITS (default 10000) to OUT\n"
    "usage: veld-gen --open FILE [--parse-only]\n"
    "  reads FILE and opens it as a drawing (or only parses its JSON) and prints the\n"
    "  seconds each step took; run it under /usr/bin/time -v for the memory\n";

/// Reads @p path and opens it (or only parses it); prints the times.
int open(const QString& path, bool parseOnly) {
    QElapsedTimer clock;
    clock.start();
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "veld-gen: cannot read %s\n", qPrintable(path));
        return 1;
    }
    const QByteArray bytes = f.readAll();
    const double read = clock.nsecsElapsed() / 1e9;
    clock.restart();
    if (parseOnly) {
        QJsonParseError error{};
        const QJsonDocument doc = QJsonDocument::fromJson(bytes, &error);
        std::printf("read %.3f s, parse %.3f s (%s)\n", read, clock.nsecsElapsed() / 1e9,
                    error.error == QJsonParseError::NoError ? "ok" : "not JSON");
        return error.error == QJsonParseError::NoError ? 0 : 1;
    }
    CVELD cad;
    QString error;
    const bool ok = drawingfile::Read(cad, bytes, error);
    std::printf("read %.3f s, open %.3f s (%s)\n", read, clock.nsecsElapsed() / 1e9,
                ok ? "ok" : qPrintable(error));
    return ok ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    const QStringList args = app.arguments().mid(1);
    if (args.size() >= 2 && args[0] == QLatin1String("--open"))
        return open(args[1], args.size() == 3 && args[2] == QLatin1String("--parse-only"));
    LargeDrawingSize size;
    QString out;
    for (qsizetype i = 0; i < args.size(); ++i) {
        const QString& a = args[i];
        if (!a.startsWith(QLatin1String("--"))) {
            if (!out.isEmpty())
                return std::fputs(kUsage, stderr), 2;
            out = a;
            continue;
        }
        bool ok = i + 1 < args.size();
        const QString value = ok ? args[++i] : QString();
        if (a == QLatin1String("--side")) {
            size.side = value.toDouble(&ok);
            ok = ok && size.side > 0 && size.side < 1e9;
        } else {
            const unsigned n = value.toUInt(&ok);
            if (a == QLatin1String("--layers"))
                size.layers = n;
            else if (a == QLatin1String("--entities"))
                size.entities = n;
            else if (a == QLatin1String("--seed"))
                size.seed = n;
            else
                ok = false;
        }
        if (!ok) {
            std::fprintf(stderr, "veld-gen: bad option %s\n%s", qPrintable(a), kUsage);
            return 2;
        }
    }
    if (out.isEmpty())
        return std::fputs(kUsage, stderr), 2;
    CVELD cad;
    BuildLargeDrawing(cad, size);
    QString error;
    if (!drawingfile::Save(cad, out, QString(), error)) {
        std::fprintf(stderr, "veld-gen: %s\n", qPrintable(error));
        return 1;
    }
    return 0;
}
