// veld-gallery OUTDIR: renders every dialog template in each of its four
// layouts to OUTDIR/<base id>_<layout>.png, and the four side by side to
// OUTDIR/<base id>_all.png, so a person can look at them all.
#include <QApplication>
#include <QDir>
#include <QPainter>
#include <iostream>

#include "factory/Scopes.h"
#include "res/Resources.h"
#include "ulo/PalmDevice.h"
#include "ulo/ctrl/Dialog.h"

namespace {
class Built : public CExDialog {
public:
    explicit Built(unsigned id) : CExDialog(id, nullptr) { ok = Create(id, nullptr); }
    bool ok = false;
};
}  // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    if (argc != 2) {
        std::cerr << "usage: veld-gallery OUTDIR\n";
        return 2;
    }
    const QDir out(QString::fromLocal8Bit(argv[1]));
    if (!QDir().mkpath(out.path())) {
        std::cerr << "veld-gallery: cannot create " << argv[1] << "\n";
        return 1;
    }
    veld5::CModuleResourceScope scope;
    int written = 0;
    for (const auto& t : veld5::DialogTemplates()) {
        QList<QPixmap> layouts;
        for (int v = 0; v < 4; ++v) {
            CPalmDevice::SetLayoutOverride(v);
            Built dialog(t.baseId + v);
            if (!dialog.ok)
                continue;
            // Hidden placeholders show as dotted frames so their areas can be checked.
            QPixmap picture = dialog.grab();
            QPainter p(&picture);
            p.setPen(QPen(Qt::gray, 1, Qt::DotLine));
            for (QWidget* w : dialog.findChildren<QWidget*>())
                if (w->isHidden() && w->property(ulo::prop::kCtrlId).isValid())
                    p.drawRect(w->geometry().adjusted(0, 0, -1, -1));
            p.end();
            const QString file = out.filePath(QStringLiteral("%1_%2.png").arg(t.baseId).arg(v));
            if (picture.save(file))
                ++written;
            layouts << picture;
        }
        // The four layouts side by side, for comparing them at a glance.
        int w = 0, h = 0;
        for (const QPixmap& p : layouts) {
            w += p.width() + 8;
            h = std::max(h, p.height());
        }
        QPixmap sheet(w, h);
        sheet.fill(Qt::darkGray);
        QPainter p(&sheet);
        int x = 0;
        for (const QPixmap& l : layouts) {
            p.drawPixmap(x, 0, l);
            x += l.width() + 8;
        }
        p.end();
        sheet.save(out.filePath(QStringLiteral("%1_all.png").arg(t.baseId)));
    }
    std::cout << written << " pictures in " << out.absolutePath().toStdString() << "\n";
    return written > 0 ? 0 : 1;
}
