// Colours of the generated pictures. The zone colours are chosen so that the
// light grey numbers (224, 224, 224) and the black prime numbers both stay
// readable on them, and so that each zone stands apart from its neighbours and
// from the blue of the window behind the board.
#pragma once

#include <array>

#include "engine/game_state.h"

namespace fendle::art {

inline constexpr Rgb background = colour::boardBlue;   // 49, 135, 215
inline constexpr Rgb primeBorder{168, 168, 168};        // inner ring of a prime hexagon
inline constexpr Rgb hexOutline{22, 34, 60};            // thin line between hexagons
inline constexpr Rgb pathEnd{255, 214, 64};             // outline of hexagons 1 and 100
inline constexpr Rgb markEdge{22, 34, 60};              // edge of a counter's mark; the mark on a white counter

// By zone, in the order of fendle::zones: co, cy, ye, bl, gr, ma, re.
inline constexpr std::array<Rgb, 7> zoneColours = {{
    {216, 96, 18},    // orange
    {0, 146, 146},    // turquoise
    {172, 138, 0},    // yellow, deep enough for the grey numbers
    {82, 84, 214},    // blue, deeper than the window
    {34, 142, 58},    // green
    {144, 56, 168},   // purple
    {198, 34, 42},    // red
}};

inline int zoneIndex(int n) { return static_cast<int>(&zoneOf(n) - zones.data()); }
inline Rgb zoneColour(int n) { return zoneColours[static_cast<std::size_t>(zoneIndex(n))]; }

}  // namespace fendle::art
