// The board as a player sees it, told here apart from the program: ten rows
// of ten hexagons, each row half a hexagon right of the row below, numbered
// along the diagonals from the lower left corner to the upper right.
#pragma once

#include <array>
#include <cstdlib>
#include <vector>

namespace fendle::testing {

// The rows from the top (t = 9) down, places c = 0 to 9 from the left.
inline constexpr int boardRows[10][10] = {
    {46, 56, 65, 73, 80, 86, 91, 95, 98, 100}, {37, 47, 57, 66, 74, 81, 87, 92, 96, 99},
    {29, 38, 48, 58, 67, 75, 82, 88, 93, 97},  {22, 30, 39, 49, 59, 68, 76, 83, 89, 94},
    {16, 23, 31, 40, 50, 60, 69, 77, 84, 90},  {11, 17, 24, 32, 41, 51, 61, 70, 78, 85},
    {7, 12, 18, 25, 33, 42, 52, 62, 71, 79},   {4, 8, 13, 19, 26, 34, 43, 53, 63, 72},
    {2, 5, 9, 14, 20, 27, 35, 44, 54, 64},     {1, 3, 6, 10, 15, 21, 28, 36, 45, 55},
};

struct Cell {
    int t = 0, c = 0;
};

inline Cell cellOf(int n) {
    static const auto cells = [] {
        std::array<Cell, 101> out{};
        for (int t = 0; t < 10; ++t)
            for (int c = 0; c < 10; ++c) out[static_cast<std::size_t>(boardRows[9 - t][c])] = {t, c};
        return out;
    }();
    return cells[static_cast<std::size_t>(n)];
}

// Beside it in the row, or in the row above or below on either of the two
// places that overlap it.
inline bool touching(int a, int b) {
    const int dt = cellOf(b).t - cellOf(a).t, dc = cellOf(b).c - cellOf(a).c;
    return (dt == 0 && std::abs(dc) == 1) || (dc == 0 && std::abs(dt) == 1) || (dt == -dc && std::abs(dt) == 1);
}

// The hexagons that touch n, from the highest number down.
inline const std::vector<int>& touchingFromTheTop(int n) {
    static const auto lists = [] {
        std::array<std::vector<int>, 101> out{};
        for (int a = 1; a <= 100; ++a)
            for (int b = 100; b >= 1; --b)
                if (touching(a, b)) out[static_cast<std::size_t>(a)].push_back(b);
        return out;
    }();
    return lists[static_cast<std::size_t>(n)];
}

// Whether the counters on `covered` join hexagon 1 to hexagon 100.
inline bool joinsTheEnds(const std::array<bool, 101>& covered) {
    if (!covered[1]) return false;
    std::array<bool, 101> seen{};
    std::vector<int> todo = {1};
    seen[1] = true;
    for (std::size_t k = 0; k < todo.size(); ++k)
        for (int m : touchingFromTheTop(todo[k]))
            if (covered[static_cast<std::size_t>(m)] && !seen[static_cast<std::size_t>(m)]) {
                seen[static_cast<std::size_t>(m)] = true;
                todo.push_back(m);
            }
    return seen[100];
}

}  // namespace fendle::testing
