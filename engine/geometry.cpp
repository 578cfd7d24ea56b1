#include "engine/geometry.h"

#include <algorithm>

namespace fendle::geometry {

int hexNumber(int t, int c) {
    const int d = t + c;   // the diagonal, 0 at hexagon 1, 18 at hexagon 100
    if (d <= 9) return d * (d + 1) / 2 + 1 + (d - t);
    return 100 - (19 - d) * (20 - d) / 2 + 1 + (9 - t);
}

GridPos gridOf(int n) {
    static const std::array<GridPos, 101> table = [] {
        std::array<GridPos, 101> g{};
        for (int t = 0; t < 10; ++t)
            for (int c = 0; c < 10; ++c) g[static_cast<std::size_t>(hexNumber(t, c))] = {t, c};
        return g;
    }();
    return table[static_cast<std::size_t>(std::clamp(n, 1, 100))];
}

std::vector<int> neighbours(int n) {
    const GridPos p = gridOf(n);
    static constexpr int steps[6][2] = {{0, -1}, {0, 1}, {-1, 0}, {-1, 1}, {1, -1}, {1, 0}};
    std::vector<int> out;
    for (const auto& s : steps) {
        const int t = p.t + s[0];
        const int c = p.c + s[1];
        if (t >= 0 && t < 10 && c >= 0 && c < 10) out.push_back(hexNumber(t, c));
    }
    std::sort(out.begin(), out.end(), std::greater<>());
    return out;
}

bool isListedPrime(int n) { return std::find(primes.begin(), primes.end(), n) != primes.end(); }

LabelPlace numberLabelPlace(int n, float label100Width) {
    if (n == 100) {
        const double left = boardleft + 27 * hexhalfwidth - (label100Width - labelSize) / 2;
        return {static_cast<float>(left), static_cast<float>(boardtop - 9 * hexrowheight)};
    }
    const GridPos p = gridOf(n);
    return {static_cast<float>(boardleft + (p.t + 2 * p.c) * hexhalfwidth),
            static_cast<float>(boardtop - p.t * hexrowheight)};
}

LabelPlace counterPlace(int n, float label100Width) {
    const LabelPlace label = numberLabelPlace(n, label100Width);
    LabelPlace img{label.left - 45, label.top - 90};
    // The counter of 100 does not follow its wider label.
    if (n == 100) img.left = static_cast<float>(boardleft + 27 * hexhalfwidth - 30);
    return img;
}

Point hexCentre(int n) {
    const GridPos p = gridOf(n);
    return {anchorX + (p.t + 2 * p.c) * hexhalfwidth, anchorY - p.t * hexrowheight};
}

}  // namespace fendle::geometry
