#include "screens/kit/units.h"

#include <algorithm>
#include <cmath>

namespace fendle::kit {

int px(double twips) { return int(std::lround(twips / twipsPerPixel)); }

int fontPixels(double points) { return std::max(1, int(std::lround(points * 20.0 / twipsPerPixel))); }

QColor toQColor(Rgb c) { return QColor(c.r, c.g, c.b); }

Rgb toRgb(const QColor& c) {
    return Rgb{std::uint8_t(c.red()), std::uint8_t(c.green()), std::uint8_t(c.blue())};
}

}  // namespace fendle::kit
