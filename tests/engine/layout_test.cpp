// Where the hexagons lie, which touch which, and the neighbour table file.
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "engine/geometry.h"
#include "engine/connarray.h"

namespace fendle {
namespace {

using namespace geometry;

TEST(Layout, NumbersRunAlongTheDiagonals) {
    // Rows of the board from the top (t = 9) down, as the board shows them.
    const int rows[10][10] = {
        {46, 56, 65, 73, 80, 86, 91, 95, 98, 100}, {37, 47, 57, 66, 74, 81, 87, 92, 96, 99},
        {29, 38, 48, 58, 67, 75, 82, 88, 93, 97},  {22, 30, 39, 49, 59, 68, 76, 83, 89, 94},
        {16, 23, 31, 40, 50, 60, 69, 77, 84, 90},  {11, 17, 24, 32, 41, 51, 61, 70, 78, 85},
        {7, 12, 18, 25, 33, 42, 52, 62, 71, 79},   {4, 8, 13, 19, 26, 34, 43, 53, 63, 72},
        {2, 5, 9, 14, 20, 27, 35, 44, 54, 64},     {1, 3, 6, 10, 15, 21, 28, 36, 45, 55},
    };
    for (int t = 0; t < 10; ++t) {
        for (int c = 0; c < 10; ++c) {
            const int n = rows[9 - t][c];
            EXPECT_EQ(hexNumber(t, c), n);
            EXPECT_EQ(gridOf(n).t, t);
            EXPECT_EQ(gridOf(n).c, c);
        }
    }
}

TEST(Layout, LabelAndCounterPlaces) {
    struct Case {
        int n;
        float left, top;
    };
    const Case labels[] = {{1, 240.0f, 7473.0f}, {55, 7582.16f, 7473.0f}, {46, 3911.08f, 1114.5f}};
    for (const Case& c : labels) {
        EXPECT_NEAR(numberLabelPlace(c.n).left, c.left, 0.01) << c.n;
        EXPECT_FLOAT_EQ(numberLabelPlace(c.n).top, c.top) << c.n;
        EXPECT_FLOAT_EQ(counterPlace(c.n).left, numberLabelPlace(c.n).left - 45) << c.n;
        EXPECT_FLOAT_EQ(counterPlace(c.n).top, numberLabelPlace(c.n).top - 90) << c.n;
    }
    for (const float width : {480.0f, 525.0f, 600.0f}) {
        const LabelPlace l100 = numberLabelPlace(100, width);
        EXPECT_FLOAT_EQ(l100.top, numberLabelPlace(46).top);
        // The text of 100 is centred 27 half-widths right of the centre of 1.
        EXPECT_NEAR(l100.left + width / 2, numberLabelPlace(1).left + 240 + 27 * hexhalfwidth, 0.01);
        // Its counter does not follow the wider label: 15 twips right of the rule for the others.
        EXPECT_NEAR(counterPlace(100, width).left, boardleft + 27 * hexhalfwidth - 45 + 15, 0.01);
    }
}

TEST(Layout, NeighbourCounts) {
    int bySize[7] = {};
    for (int n = 1; n <= 100; ++n) {
        const auto list = neighbours(n);
        ++bySize[list.size()];
        EXPECT_TRUE(std::is_sorted(list.rbegin(), list.rend())) << "row " << n << " lists from the highest down";
        for (int m : list) {
            const auto back = neighbours(m);
            EXPECT_NE(std::find(back.begin(), back.end(), n), back.end()) << n << " and " << m;
        }
    }
    EXPECT_EQ(bySize[6], 64);
    EXPECT_EQ(bySize[4], 32);
    EXPECT_EQ(bySize[3], 2);
    EXPECT_EQ(bySize[2], 2);
    EXPECT_EQ(neighbours(1), (std::vector<int>{3, 2}));
    EXPECT_EQ(neighbours(100), (std::vector<int>{99, 98}));
    EXPECT_EQ(neighbours(46).size(), 3u);
    EXPECT_EQ(neighbours(55).size(), 3u);
}

TEST(Layout, PrimesAreTheFixedList) {
    int count = 0;
    for (int n = 1; n <= 100; ++n) {
        bool prime = n > 1;
        for (int d = 2; d * d <= n; ++d) prime = prime && n % d != 0;
        EXPECT_EQ(isListedPrime(n), prime) << n;
        count += isListedPrime(n);
    }
    EXPECT_EQ(count, 25);
}

std::string readDataFile(const std::string& name) {
    std::ifstream in(std::string(FENDLE_DATA_DIR) + "/" + name, std::ios::binary);
    std::stringstream s;
    s << in.rdbuf();
    return s.str();
}

TEST(NeighbourTable, CommittedFileMatchesTheLayout) {
    const std::string text = readDataFile("connarray.dat");
    EXPECT_EQ(text, connarrayText(layoutConnarray()));
    ConnArray table{};
    std::string error;
    ASSERT_TRUE(readConnarray(text, table, &error)) << error;
    for (int n = 1; n <= 100; ++n) {
        const auto expected = geometry::neighbours(n);
        for (std::size_t c = 0; c < 7; ++c) {
            const int want = c < expected.size() ? expected[c] : 0;
            EXPECT_EQ(table[static_cast<std::size_t>(n - 1)][c], want) << "hexagon " << n << " slot " << c;
        }
    }
    for (std::size_t c = 0; c < 7; ++c) EXPECT_EQ(table[100][c], 0);
}

TEST(NeighbourTable, DamagedFilesAreRefusedAndLeaveTheTable) {
    const std::string good = connarrayText(layoutConnarray());
    std::string blanks = good;   // numbers may end at blanks and line ends as well as commas
    std::replace(blanks.begin(), blanks.end(), ',', ' ');
    struct Case {
        std::string text;
        bool ok;
    };
    const Case cases[] = {
        {good, true},
        {blanks, true},
        {good.substr(0, good.size() - 2), true},            // the 600th number with no line end
        {good.substr(0, good.rfind(',')), false},           // one number short
        {good.substr(0, good.rfind(',') + 1), false},       // ... behind a comma
        {"", false},
        {"101" + good.substr(good.find(',')), false},       // a hexagon beyond the board
        {"-1" + good.substr(good.find(',')), false},
        {"2.5" + good.substr(good.find(',')), false},
        {std::string(good.size(), '\xff'), false},
    };
    for (const Case& c : cases) {
        ConnArray table{};
        table[5][5] = 42;   // a value the reader must not disturb on failure
        std::string error;
        EXPECT_EQ(readConnarray(c.text, table, &error), c.ok) << c.text.substr(0, 40);
        if (!c.ok) {
            EXPECT_EQ(table[5][5], 42);
            EXPECT_FALSE(error.empty());
        }
    }
}

}  // namespace
}  // namespace fendle
