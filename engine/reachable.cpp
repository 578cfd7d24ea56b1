#include "engine/reachable.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>

namespace fendle {

namespace {

// One step writes all six slots; a quotient by zero is not formed and its
// slot holds the array's empty value. Since every slot below the count is
// written this way, no array needs refilling before a search: nothing reads
// past its count.
template <std::size_t N>
void step(std::array<double, N>& target, i16& count, double x, double y, double empty) {
    const auto c = static_cast<std::size_t>(count);
    target[c] = x * y;
    target[c + 1] = x + y;
    target[c + 2] = x - y;
    target[c + 3] = y - x;
    target[c + 4] = y != 0 ? x / y : empty;
    target[c + 5] = x != 0 ? y / x : empty;
    count = static_cast<i16>(count + 6);
}

constexpr double emptySlot = 1000.0;       // the empty value of every array ...
constexpr double emptyPairSlot = 0.0;      // ... but threeresults in the pair form

}  // namespace

void Reachable::allowedalg() { step(tworesults, tworesultcount, firstoperand, secondoperand, emptySlot); }
void Reachable::allowedalg2() {
    step(threeresults, threeresultcount, firstoperand, secondoperand, pairForm_ ? emptyPairSlot : emptySlot);
}
void Reachable::allowedalg3() { step(fourresults, fourresultcount, firstoperand, secondoperand, emptySlot); }

// Adding 1.5 x 2^52 to a value below 2^51 rounds it to a whole number by the
// processor's rounding, to the nearest with a half going to the even one, and
// leaves that number in the low bits: the mark without a conversion.
constexpr double roundingShift = 6755399441055744.0;

template <std::size_t N>
void Reachable::mark(const std::array<double, N>& results, int count) {
    constexpr std::uint64_t spareSlot = 255;
    std::array<unsigned char, 256> hit{};
    for (int k = 0; k < count; ++k) {
        const double v = results[static_cast<std::size_t>(k)];
        // Only 0 < v < 101 marks (which also drops the empty values 1000 and
        // 0); the others go to a spare slot. About a third of the values are
        // out of range in no order a branch could predict, so this is a select.
        const bool inRange = (v > 0) & (v < 101);
        // The nearest whole number, a half going to the even one: 37.5 marks
        // 38, 62.5 marks 62. A value within a ten-millionth of a whole number
        // is taken as that number, which is the nearest one too. (Taking the
        // ten-millionth below as floor(v + 1) could differ from the nearest
        // only for a value one unit in the last place below a power of two;
        // no throw of four dice makes one, as the comparison with a search
        // that applies the rule step by step to every expression shows.)
        const std::uint64_t shifted = std::bit_cast<std::uint64_t>(v + roundingShift) & 0xFFu;
        hit[inRange ? shifted : spareSlot] = 1;
    }
    for (std::size_t n = 0; n <= 100; ++n)
        if (hit[n]) allowed[n] = 1.0;
}

void Reachable::allowednumbers() {
    pairForm_ = false;
    fourresultcount = 0;
    std::fill(allowed.begin() + 1, allowed.end(), 0.0);
    for (int i = 0; i < 4; ++i) dicecopy[static_cast<std::size_t>(i)] = dice[static_cast<std::size_t>(i)];
    auto die = [this](int position) { return static_cast<double>(dicecopy[static_cast<std::size_t>(position)]); };

    for (int a = 0; a <= 3; ++a) {
        threeresultcount = 0;
        for (int b = 0; b <= 2; ++b) {
            tworesultcount = 0;
            firstoperand = die((a + b) % 4);
            secondoperand = die((a + (b + 1) % 3) % 4);
            allowedalg();
            for (int k = 0; k < tworesultcount; ++k) {
                if (tworesults[static_cast<std::size_t>(k)] < emptySlot) {
                    firstoperand = tworesults[static_cast<std::size_t>(k)];
                    secondoperand = die((a + (b + 2) % 3) % 4);
                    allowedalg2();
                }
            }
        }
        for (int k = 0; k < threeresultcount; ++k) {
            if (threeresults[static_cast<std::size_t>(k)] < emptySlot) {
                firstoperand = threeresults[static_cast<std::size_t>(k)];
                secondoperand = die((a + 3) % 4);
                allowedalg3();
            }
        }
    }
    mark(fourresults, fourresultcount);
}

void Reachable::allowednumbers2() {
    for (int i = 0; i < 4; ++i) dicecopy[static_cast<std::size_t>(i)] = dice[static_cast<std::size_t>(i)];
    pairForm_ = true;
    threeresultcount = 0;
    auto die = [this](int position) { return static_cast<double>(dicecopy[static_cast<std::size_t>(position)]); };

    for (int j = 0; j <= 1; ++j) {
        for (int i = 0; i <= 3; ++i) {
            tworesultcount = 0;
            firstoperand = die(i);
            secondoperand = die((i + 1 + j) % 4);
            allowedalg();
            firstoperand = die((i + 2 - j) % 4);
            secondoperand = die((i + 3) % 4);
            allowedalg();
            for (std::size_t k = 0; k <= 5; ++k) {
                for (std::size_t l = 0; l <= 5; ++l) {
                    if (tworesults[k] < emptySlot && tworesults[l + 6] < emptySlot) {
                        firstoperand = tworesults[k];
                        secondoperand = tworesults[l + 6];
                        allowedalg2();
                    }
                }
            }
        }
    }
    mark(threeresults, threeresultcount);
}

void Reachable::clearForButton() {
    tworesultcount = 0;
    threeresultcount = 0;
    fourresultcount = 0;
    std::fill(allowed.begin() + 1, allowed.end(), 0.0);
    std::fill(tworesults.begin() + 1, tworesults.end(), 0.0);
    std::fill(threeresults.begin() + 1, threeresults.end(), 0.0);
    std::fill(fourresults.begin() + 1, fourresults.end(), 0.0);
}

}  // namespace fendle
