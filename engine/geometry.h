// Where the hundred hexagons lie, which touch which, and which numbers are
// prime. Plain C++: the engine, the board window and the picture generator
// all place the board from this one file, so hexagon and number never drift.
#pragma once

#include <array>
#include <cmath>
#include <vector>

namespace fendle::geometry {

// Grid steps of the board, in twips.
inline constexpr double hexside = 471.0;
inline const double hexhalfwidth = std::sqrt(3.0) * hexside / 2.0;   // 407.8979...
inline constexpr double hexrowheight = 1.5 * hexside;               // 706.5

// The number labels are 480 twips square; hexagon 1 is centred on this anchor.
inline constexpr double labelSize = 480.0;
inline constexpr double anchorX = 480.0;
inline constexpr double anchorY = 7665.0;
inline constexpr double boardleft = anchorX - 0.5 * labelSize;   // 240
inline constexpr double boardtop = anchorY - 0.4 * labelSize;    // 7473

// Width Label1(100) takes when it sizes itself to "100" in its bold 15.75 pt
// face; the window measures the real one and passes it in.
inline constexpr float defaultLabel100Width = 525.0f;

struct GridPos {
    int t = 0;   // row, 0 at the bottom
    int c = 0;   // place in the row, 0 at the left
};

// Number of the hexagon at row t, place c (both 0 to 9).
int hexNumber(int t, int c);
// Row and place of hexagon n (1 to 100).
GridPos gridOf(int n);

// The board's neighbours of hexagon n, from the highest number down.
std::vector<int> neighbours(int n);

// The 25 primes below 100, as the board paints them black. 1 is not one.
inline constexpr std::array<int, 25> primes = {2,  3,  5,  7,  11, 13, 17, 19, 23, 29, 31, 37, 41,
                                               43, 47, 53, 59, 61, 67, 71, 73, 79, 83, 89, 97};
bool isListedPrime(int n);

struct LabelPlace {
    float left = 0;   // twips, held in single precision as the controls hold them
    float top = 0;
};

// positionnumbers: Left and Top of number label n (1 to 100) and of its counter.
LabelPlace numberLabelPlace(int n, float label100Width = defaultLabel100Width);
LabelPlace counterPlace(int n, float label100Width = defaultLabel100Width);

// Centre of hexagon n on the board picture, in twips (x right, y down).
struct Point {
    double x = 0;
    double y = 0;
};
Point hexCentre(int n);

}  // namespace fendle::geometry
