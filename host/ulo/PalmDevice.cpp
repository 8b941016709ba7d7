#include "PalmDevice.h"

#include <QGuiApplication>
#include <QScreen>
#include <algorithm>
#include <cmath>

namespace ulo {

namespace {
int& overrideVariant() {
    static int v = -1;
    return v;
}

int envInt(const char* name, int fallback) {
    bool ok = false;
    const int v = qEnvironmentVariableIntValue(name, &ok);
    return ok ? v : fallback;
}
}  // namespace

int CPalmDevice::LayoutForScreen(int width, int height) {
    if (width <= 0 || height <= 0)
        return 0;
    if (height >= width)
        return (double(height) / width < 1.39) ? 0 : 1;
    return (double(width) / height < 1.70) ? 2 : 3;
}

int CPalmDevice::GetLayoutVariant() {
    if (overrideVariant() >= 0)
        return overrideVariant();
    const int env = envInt("VELD_DIALOG_LAYOUT", -1);
    if (env >= 0 && env <= 3)
        return env;
    const QScreen* screen = qobject_cast<QGuiApplication*>(QCoreApplication::instance())
                                ? QGuiApplication::primaryScreen()
                                : nullptr;
    if (!screen)
        return 0;
    QRect r = screen->availableGeometry();
    if (r.isEmpty())
        r = screen->geometry();
    return LayoutForScreen(r.width(), r.height());
}

unsigned CPalmDevice::SelectIdDlgStd(unsigned id0, unsigned id1, unsigned id2, unsigned id3) {
    switch (GetLayoutVariant()) {
        case 1:
            return id1;
        case 2:
            return id2;
        case 3:
            return id3;
        default:
            return id0;
    }
}

void CPalmDevice::SetLayoutOverride(int variant) {
    overrideVariant() = (variant >= 0 && variant <= 3) ? variant : -1;
}

int CPalmDevice::GetLayoutOverride() {
    return overrideVariant();
}

int CPalmDevice::GetResMultiplier() {
    // Qt lays widgets out in device-independent pixels and scales them by the
    // screen's pixel ratio itself: a base size needs no multiplying again.
    const int env = envInt("VELD_RES_MULTIPLIER", 0);
    return env >= 1 ? env : 1;
}

}  // namespace ulo
