#include "Colors.h"

#include <cmath>
#include <string>

namespace veld {

const CColors& CColors::GetInstance() {
    static const CColors colors;
    return colors;
}

ulo::WString CColors::operator[](int index) const {
    static const wchar_t* const named[] = {L"ByBlock", L"Red",  L"Yellow",  L"Green",
                                           L"Cyan",    L"Blue", L"Magenta", L"White"};
    if (index >= 0 && index <= 7)
        return named[index];
    if (index == 256)
        return L"ByLayer";
    if (index > 7 && index < 256)
        return ulo::WString(std::to_wstring(index));
    return ulo::WString();
}

namespace {
std::uint32_t rgb(int r, int g, int b) {
    return std::uint32_t(r) | (std::uint32_t(g) << 8) | (std::uint32_t(b) << 16);
}

std::uint32_t hsv(double hueDeg, double sat, double val) {
    const double c = val * sat;
    const double h = std::fmod(hueDeg, 360.0) / 60.0;
    const double x = c * (1 - std::fabs(std::fmod(h, 2.0) - 1));
    double r = 0, g = 0, b = 0;
    if (h < 1)
        r = c, g = x;
    else if (h < 2)
        r = x, g = c;
    else if (h < 3)
        g = c, b = x;
    else if (h < 4)
        g = x, b = c;
    else if (h < 5)
        r = x, b = c;
    else
        r = c, b = x;
    const double m = val - c;
    const auto q = [](double v) { return static_cast<int>(std::lround(v * 255)); };
    return rgb(q(r + m), q(g + m), q(b + m));
}
}  // namespace

std::uint32_t IndexToRGB(int index) {
    switch (index) {
        case 0:
        case 7:
        case 256:
            return rgb(255, 255, 255);
        case 1:
            return rgb(255, 0, 0);
        case 2:
            return rgb(255, 255, 0);
        case 3:
            return rgb(0, 255, 0);
        case 4:
            return rgb(0, 255, 255);
        case 5:
            return rgb(0, 0, 255);
        case 6:
            return rgb(255, 0, 255);
        case 8:
            return rgb(128, 128, 128);
        case 9:
            return rgb(192, 192, 192);
        default:
            break;
    }
    if (index >= 10 && index <= 249) {
        // Ten shades per hue, 24 hues 15 degrees apart: even steps full
        // colour, odd steps half saturated, darker in pairs.
        static const double values[] = {1.0, 1.0, 0.8, 0.8, 0.6, 0.6, 0.5, 0.5, 0.3, 0.3};
        const int step = index % 10;
        return hsv((index - 10) / 10 * 15.0, step % 2 ? 0.5 : 1.0, values[step]);
    }
    if (index >= 250 && index <= 255) {
        static const int greys[] = {51, 80, 105, 130, 190, 255};
        const int v = greys[index - 250];
        return rgb(v, v, v);
    }
    return 0;
}

}  // namespace veld
