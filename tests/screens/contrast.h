// How well a text stands out on a rendered image, by the WCAG measure:
// relative luminance of each colour, and the ratio (lighter + 0.05) /
// (darker + 0.05), from 1 (no difference) to 21 (black on white).
#pragma once

#include <QColor>
#include <QImage>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <vector>

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

// The contrast between the text of colour `text` in `area` of `img` and what
// borders it. For each pixel of the text's own colour at the text's edge, the
// pixel within two pixels of it that differs most from the text; the median
// over the edge. A text drawn straight on a background measures as that
// background; an outlined text as its outline. 0 when no pixel of the text's
// colour is found.
inline double edgeContrast(const QImage& img, QRect area, QColor text) {
    auto isText = [&](int x, int y) {
        const QColor c = img.pixelColor(x, y);
        return std::abs(c.red() - text.red()) <= 8 && std::abs(c.green() - text.green()) <= 8 &&
               std::abs(c.blue() - text.blue()) <= 8;
    };
    area &= img.rect().adjusted(2, 2, -2, -2);
    std::vector<double> edge;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            if (!isText(x, y)) continue;
            bool atEdge = false;
            double most = 1;
            for (int dy = -2; dy <= 2; ++dy) {
                for (int dx = -2; dx <= 2; ++dx) {
                    if (isText(x + dx, y + dy)) continue;
                    atEdge = true;
                    most = std::max(most, contrastRatio(text, img.pixelColor(x + dx, y + dy)));
                }
            }
            if (atEdge) edge.push_back(most);
        }
    }
    if (edge.empty()) return 0;
    std::nth_element(edge.begin(), edge.begin() + std::ptrdiff_t(edge.size() / 2), edge.end());
    return edge[edge.size() / 2];
}

}  // namespace fendle::testing
