#include "engine/game_state.h"

#include <algorithm>

namespace fendle {

const Zone& zoneOf(int n) {
    n = std::clamp(n, 1, 100);
    for (const Zone& z : zones)
        if (n <= z.high) return z;
    return zones.back();
}

std::string counterPicture(int n, const char* owner, bool prime) {
    return std::string("counters\\") + zoneOf(n).prefix + owner + (prime ? "2" : "1") + ".bmp";
}

}  // namespace fendle
