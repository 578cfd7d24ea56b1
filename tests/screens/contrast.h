// How well one colour stands out from another, by the WCAG measure:
// relative luminance of each colour, and the ratio (lighter + 0.05) /
// (darker + 0.05), from 1 (no difference) to 21 (black on white).
#pragma once

#include <QColor>

#include <algorithm>
#include <cmath>

namespace fendle::testing {

inline double relativeLuminance(QColor c) {
    auto channel = [](int v) {
        const double s = v / 255.0;
        return s <= 0.04045 ? s / 12.92 : std::pow((s + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * channel(c.red()) + 0.7152 * channel(c.green()) + 0.0722 * channel(c.blue());
}

inline double contrastRatio(QColor a, QColor b) {
    const double la = relativeLuminance(a), lb = relativeLuminance(b);
    return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}

}  // namespace fendle::testing
