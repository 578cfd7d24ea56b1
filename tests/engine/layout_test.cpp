// Where the hexagons lie, which touch which, and the neighbour table file,
// each against the board as rhombus.h tells it.
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "engine/connarray.h"
#include "engine/geometry.h"
#include "rhombus.h"

namespace fendle {
namespace {

using namespace geometry;
using testing::cellOf;
using testing::touchingFromTheTop;

TEST(Layout, EveryHexagonHasItsNumberAndNeighbours) {
    const double halfWidth = 407.89796518;   // the square root of 3 times 471, halved
    for (int n = 1; n <= 100; ++n) {
        SCOPED_TRACE(n);
        EXPECT_EQ(hexNumber(cellOf(n).t, cellOf(n).c), n);
        EXPECT_EQ(neighbours(n), touchingFromTheTop(n)) << "the walk relies on rows from the highest down";
    }
    // The places of the numbers and counters, and the board picture drawn
    // round their centres, are in the approved shots of the board (tst_golden);
    // the label of 100 follows the width its font gives "100", whatever it is.
    for (const float width : {480.0f, 525.0f, 600.0f}) {
        const LabelPlace l100 = numberLabelPlace(100, width);
        EXPECT_FLOAT_EQ(l100.top, numberLabelPlace(46).top);
        // The text of 100 is centred 27 half-widths right of the centre of 1.
        EXPECT_NEAR(l100.left + width / 2, 240 + 240 + 27 * halfWidth, 0.01);
        // Its counter does not follow the wider label: 15 twips right of the rule for the others.
        EXPECT_NEAR(counterPlace(100, width).left, 240 + 27 * halfWidth - 45 + 15, 0.01);
        EXPECT_NEAR(counterPlace(100, width).top, l100.top - 90, 0.01);
    }
}

TEST(Layout, PrimesAreTheFixedList) {
    for (int n = 1; n <= 100; ++n) {
        bool prime = n > 1;
        for (int d = 2; d * d <= n; ++d) prime = prime && n % d != 0;
        EXPECT_EQ(isListedPrime(n), prime) << n;
    }
}

TEST(NeighbourTable, CommittedFileHoldsTheBoardsNeighbours) {
    std::ifstream in(std::string(FENDLE_DATA_DIR) + "/connarray.dat", std::ios::binary);
    const std::string text = (std::stringstream() << in.rdbuf()).str();
    ConnArray table{};
    Problem problem;
    ASSERT_TRUE(readConnarray(text, table, &problem)) << problem.english();
    for (int n = 1; n <= 101; ++n) {
        const std::vector<int> expected = n <= 100 ? touchingFromTheTop(n) : std::vector<int>{};
        for (std::size_t c = 0; c < 7; ++c)
            EXPECT_EQ(table[static_cast<std::size_t>(n - 1)][c], c < expected.size() ? expected[c] : 0)
                << "hexagon " << n << " slot " << c;
    }
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
        Problem problem;
        EXPECT_EQ(readConnarray(c.text, table, &problem), c.ok) << c.text.substr(0, 40);
        if (!c.ok) {
            EXPECT_EQ(table[5][5], 42);
            EXPECT_FALSE(problem.english().empty());
        }
    }
}

}  // namespace
}  // namespace fendle
