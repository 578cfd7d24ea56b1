// Show me how: what the board tells a pupil who asks how the latest move was
// made, and the facts of each move that the record of a game keeps.
//
// After a number the throw makes, its expression: "42 = (6 + 1) × (4 + 2)",
// or, for a number that only the game's rounding makes, the exact value and
// that the game rounds it: "4 × (4 + 1 ÷ 6) = 50/3, which the game rounds
// to 17". After a number the throw can't make, why in plain words, then the
// best-paying number of the throw as the Level 3 computer chooses it, with
// its points and its expression.
#pragma once

#include <array>
#include <optional>
#include <string>

#include "engine/explain.h"
#include "text/messages.h"

namespace fendle {

// One move as it was played: by whom, from which throw, and what it earned.
struct MoveRecord {
    int player = 0;                 // player index 0 to 3
    bool computer = false;          // played by the computer
    std::array<int, 4> dice{};      // as thrown, die 0 to 3
    int number = 0;                 // the number claimed
    bool legal = false;
    int points = 0;                 // reward plus bonus; 0 for an illegal move
    int bonus = 0;                  // 0, 100 or 200
    int best = 0;                   // illegal: the Level 3 choice of the throw; 0 when none
    int bestPoints = 0;             // its reward plus bonus
    bool operator==(const MoveRecord&) const = default;
};

// The words around the numbers, in the board's language, with "%1" … as in
// messages.csv. The defaults are the program's own English.
struct HowWords {
    std::string cannot{msg::howCannot.english};     // number, then the four dice
    std::string best{msg::howBest.english};         // number, points, how it is made
    std::string rounded{msg::howRounded.english};   // expression, exact value, number
};

// An exact value that is not a whole number, as a fraction in lowest terms: "50/3".
std::string fractionText(long num, long den);

// The expression, and for a rounded one its exact value: "4 × (4 + 1 ÷ 6) = 50/3".
std::string expressionWithValue(const Explanation& e);

// How the throw makes `number`: "42 = (6 + 1) × (4 + 2)", or the rounded
// form; none when it can't.
std::optional<std::string> howMade(const std::array<int, 4>& dice, int number, const HowWords& words);

// What Show me how says of a move; the two parts of an illegal move's answer
// stand on two lines.
std::string howText(const MoveRecord& move, const HowWords& words);

}  // namespace fendle
