// Units and colours of the form kit. The screens' tables give places and
// sizes in twips, 15 to the pixel of the 800 x 600 page, and font sizes in
// points. Twips become pixels in px() and pixels twips in twips(); nothing
// else in the program divides or multiplies by 15.
#pragma once

#include <QColor>

#include "engine/rgb.h"

namespace fendle::kit {

inline constexpr int twipsPerPixel = 15;

// Twips to pixels, rounded to the nearest pixel (halves away from zero).
int px(double twips);
// Pixels to twips.
constexpr double twips(double pixels) { return pixels * twipsPerPixel; }
// Font points to pixels: 15.75 pt -> 21 px, 8.25 pt -> 11 px. A layout is
// then the same whatever the screen's dpi.
int fontPixels(double points);

QColor toQColor(Rgb c);
Rgb toRgb(const QColor& c);

}  // namespace fendle::kit
