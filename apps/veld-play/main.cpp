// veld-play: replays a scripted user session against the dialog factory and
// prints what happened as JSON lines. Always headless.
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTextStream>
#include <cstdio>
#include <iostream>

#include "DrawingHost.h"
#include "Player.h"
#include "automation/ScriptNumbers.h"
#include "factory/IVELDDlgFactory.h"
#include "ulo/PalmDevice.h"

namespace {
const char* kUsage =
    "usage: veld-play [--drawing FILE | --sample] [--layout 0..3] [--password TEXT] SCRIPT\n"
    "       veld-play --shots DIR\n"
    "  SCRIPT is a file of statements, or - for standard input (see docs/veld-play.md)\n"
    "  --shots takes the pictures of every built dialog in the four layouts on the\n"
    "  sample drawing: DIR/<picture>-<layout>.png\n";
}

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    QStringList args = app.arguments();
    args.removeFirst();
    QString drawing, password, scriptPath, shots;
    bool sample = false;
    int layout = -1;
    for (int i = 0; i < args.size(); ++i) {
        const QString a = args[i];
        const auto next = [&](QString& into) {
            if (i + 1 >= args.size())
                return false;
            into = args[++i];
            return true;
        };
        QString v;
        if (a == QLatin1String("--help") || a == QLatin1String("-h")) {
            std::cout << kUsage;
            return 0;
        } else if (a == QLatin1String("--drawing")) {
            if (!next(drawing))
                return std::cerr << kUsage, 2;
        } else if (a == QLatin1String("--shots")) {
            if (!next(shots))
                return std::cerr << kUsage, 2;
        } else if (a == QLatin1String("--sample")) {
            sample = true;
        } else if (a == QLatin1String("--password")) {
            if (!next(password))
                return std::cerr << kUsage, 2;
        } else if (a == QLatin1String("--layout")) {
            QString why;
            const std::optional<int> n = next(v) ? automation::ReadInt(v, why) : std::nullopt;
            if (!n || *n < 0 || *n > 3)
                return std::cerr << "veld-play: --layout needs 0..3\n", 2;
            layout = *n;
        } else if (scriptPath.isEmpty() &&
                   (a == QLatin1String("-") || !a.startsWith(QLatin1Char('-')))) {
            scriptPath = a;
        } else {
            std::cerr << "veld-play: unknown argument " << a.toStdString() << "\n" << kUsage;
            return 2;
        }
    }
    if (!shots.isEmpty()) {
        if (args.size() != 2)
            return std::cerr << "veld-play: --shots takes no other argument\n", 2;
        sample = true;
    } else if (scriptPath.isEmpty()) {
        return std::cerr << kUsage, 2;
    }
    if (!drawing.isEmpty() && sample)
        return std::cerr << "veld-play: give --drawing or --sample, not both\n", 2;

    QString script;  // for --shots, made below from the catalogue
    if (scriptPath == QLatin1String("-")) {
        QTextStream in(stdin);
        script = in.readAll();
    } else if (!scriptPath.isEmpty()) {
        QFile f(scriptPath);
        if (!f.open(QIODevice::ReadOnly | QIODevice::Text)) {
            std::cerr << "veld-play: cannot read " << scriptPath.toStdString() << "\n";
            return 2;
        }
        script = QString::fromUtf8(f.readAll());
    }
    if (layout >= 0)
        CPalmDevice::SetLayoutOverride(layout);

    IVELDDlgFactory* factory = CreateFactory();
    QTextStream out(stdout);
    veldplay::DrawingHost host;
    QString error;
    if (!host.Open(drawing, sample, password, error)) {
        const QJsonObject event{{QStringLiteral("event"), QStringLiteral("error")},
                                {QStringLiteral("line"), 0},
                                {QStringLiteral("message"), error}};
        out << QString::fromUtf8(QJsonDocument(event).toJson(QJsonDocument::Compact)) << '\n';
        return 1;
    }
    if (!shots.isEmpty()) {
        if (!QDir().mkpath(shots))
            return std::cerr << "veld-play: cannot make " << shots.toStdString() << "\n", 2;
        script = veldplay::PictureScript(veldplay::BuiltOperations(factory, host), shots);
    }
    veldplay::Player player(factory, &host, out);
    return player.Run(script) == 0 ? 0 : 1;
}
