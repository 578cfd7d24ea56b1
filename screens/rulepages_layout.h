// The rule pages as they were drawn, and how each language's set of pages
// differs from the plain one. Sets 0 to 6: plain, fr, ge, sp, it, du, we
// (the numbers of the languages).
#pragma once

#include <array>
#include <vector>

#include "engine/rgb.h"
#include "screens/kit/row.h"

namespace fendle::rules {

inline constexpr int ruleSets = 7;
inline constexpr int rulePages = 5;
inline constexpr Rgb pageBlue{0, 0, 255};

// Label3: the page buttons.
inline constexpr int exitButton = 0;
inline constexpr int nextButton = 1;   // the previous page on page 5
inline constexpr int previousButton = 2;

// The rows of a page as the plain set has them, before any set's changes.
std::vector<kit::Row> plainRows(int page);

// Rule texts that follow each other down the page, by Label1 index; the
// rest of a page stands where its set puts it.
std::vector<int> flowingTexts(int page);

struct Span {
    double left, width;
};

// How a set differs from the plain one, beside its texts.
struct SetLayout {
    Span exit, next, previous;
    Span cheatChart;
    double cheatChartTop;
    Span throwDice;
    double throwDiceTop;
    std::array<double, 2> diceLefts, diceTops;
    double textPage1, textPage4, textPage5, foot;   // points of the plain rule text
    double zoneTop, rangesLeft, coloursLeft, rewardsLeft;
    Span page5Previous;                           // Label3(1) on page 5
    const char* startPicture;
};

extern const std::array<SetLayout, ruleSets> setLayouts;

inline constexpr int du = 5, it = 4, we = 6;
// Page 3 of the du set has the wider page buttons of ge.
inline constexpr Span duPage3Next{9240, 2655}, duPage3Previous{6480, 2655};
// Page 4 of the it set has a narrower Exit.
inline constexpr Span itPage4Exit{10920, 975};
// On page 5 of the we set the picture and its path stand this much higher.
inline constexpr double wePage5Lift = 120;

// Page 3's table of zones, by zone (1 to 15 first): the Label1 index of its
// colour name, its range and its reward.
inline constexpr std::array<int, 7> zoneReward = {28, 27, 26, 25, 24, 23, 30};
inline constexpr double zoneRowGap = 240;
inline constexpr double zoneHeadingsAbove = 360;

}  // namespace fendle::rules
