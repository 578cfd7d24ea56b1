// How a throw makes a number: one expression a pupil can follow, for each
// number from 1 to 100 that the throw's search marks, and none for the others.
//
// The expression uses each die once, with + − × ÷ and brackets, and its value
// rounds to the number as the search rounds (to the nearest whole number, a
// half going to the even one). Of all such expressions the one chosen is the
// least in this order:
//   1. exact first: a value that is the number itself beats one that the game
//      rounds to it;
//   2. fewer pairs of brackets; the text has only those that precedence needs;
//   3. fewer steps whose value is not a whole number;
//   4. fewer divisions;
//   5. fewer steps whose value is below zero;
//   6. larger dice first, read from the left;
//   7. for the same dice, + before − before × before ÷, read from the left.
// A step is one operation as the text is worked out: brackets first, × and ÷
// before + and −, and otherwise from left to right.
//
// A rounded expression is chosen only where the search's own double
// arithmetic, step by step, rounds it to the number too.
#pragma once

#include <array>
#include <optional>
#include <string>

namespace fendle {

struct Explanation {
    std::string text;      // UTF-8, "6 × (4 + 2 + 1)": ×, ÷ and the minus sign U+2212, spaced
    bool rounded = false;  // the value is not a whole number; the game rounds it to the number
    long num = 0;          // the value as a fraction in lowest terms, den > 0
    long den = 1;
    bool operator==(const Explanation&) const = default;
};

// The expression for `number` from four dice of 1 to 6, in any order; none
// when the throw can't make it (or it lies outside 1 to 100).
std::optional<Explanation> explain(const std::array<int, 4>& dice, int number);

// The same for every number of the throw at once, by number; slot 0 is empty.
std::array<std::optional<Explanation>, 101> explainAll(const std::array<int, 4>& dice);

}  // namespace fendle
