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

std::string markedCounterPicture(int n, int player, bool flash, bool prime) {
    const char* mark = players[static_cast<std::size_t>(std::clamp(player, 0, 3))].prefix;
    return std::string("counters\\marked\\") + zoneOf(n).prefix + (flash ? "wh" : "") + mark + (prime ? "2" : "1") +
           ".bmp";
}

}  // namespace fendle
