#include "engine/reachable.h"

#include <algorithm>
#include <cmath>

namespace fendle {

namespace {

template <std::size_t N>
void step(std::array<double, N>& target, i16& count, double x, double y) {
    const auto c = static_cast<std::size_t>(count);
    target[c] = x * y;
    target[c + 1] = x + y;
    target[c + 2] = x - y;
    target[c + 3] = y - x;
    if (y != 0) target[c + 4] = x / y;   // else the slot keeps its empty value
    if (x != 0) target[c + 5] = y / x;
    count = static_cast<i16>(count + 6);
}

}  // namespace

void Reachable::allowedalg() { step(tworesults, tworesultcount, firstoperand, secondoperand); }
void Reachable::allowedalg2() { step(threeresults, threeresultcount, firstoperand, secondoperand); }
void Reachable::allowedalg3() { step(fourresults, fourresultcount, firstoperand, secondoperand); }

template <std::size_t N>
void Reachable::mark(const std::array<double, N>& results, int count) {
    for (int k = 0; k < count; ++k) {
        double v = results[static_cast<std::size_t>(k)];
        if (v <= 0 || v >= 101) continue;   // also drops the empty values 1000 and 0
        if (v - std::floor(v) < 0.0000001) v = std::floor(v);
        if (v - std::floor(v) > 0.9999999) v = std::floor(v + 1);
        // Nearest whole number, a half to the even one: 37.5 marks 38, 62.5 marks 62.
        allowed[static_cast<std::size_t>(std::nearbyint(v))] = 1.0;
    }
}

void Reachable::allowednumbers() {
    fourresultcount = 0;
    fourresults.fill(1000.0);
    std::fill(allowed.begin() + 1, allowed.end(), 0.0);
    for (int i = 0; i < 4; ++i) dicecopy[static_cast<std::size_t>(i)] = dice[static_cast<std::size_t>(i)];
    auto die = [this](int position) { return static_cast<double>(dicecopy[static_cast<std::size_t>(position)]); };

    for (int a = 0; a <= 3; ++a) {
        threeresultcount = 0;
        threeresults.fill(1000.0);
        for (int b = 0; b <= 2; ++b) {
            tworesultcount = 0;
            tworesults.fill(1000.0);
            firstoperand = die((a + b) % 4);
            secondoperand = die((a + (b + 1) % 3) % 4);
            allowedalg();
            for (int k = 0; k < tworesultcount; ++k) {
                if (tworesults[static_cast<std::size_t>(k)] < 1000.0) {
                    firstoperand = tworesults[static_cast<std::size_t>(k)];
                    secondoperand = die((a + (b + 2) % 3) % 4);
                    allowedalg2();
                }
            }
        }
        for (int k = 0; k < threeresultcount; ++k) {
            if (threeresults[static_cast<std::size_t>(k)] < 1000.0) {
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
    threeresultcount = 0;
    threeresults.fill(0.0);   // the pair form's empty value
    auto die = [this](int position) { return static_cast<double>(dicecopy[static_cast<std::size_t>(position)]); };

    for (int j = 0; j <= 1; ++j) {
        for (int i = 0; i <= 3; ++i) {
            tworesultcount = 0;
            tworesults.fill(1000.0);
            firstoperand = die(i);
            secondoperand = die((i + 1 + j) % 4);
            allowedalg();
            firstoperand = die((i + 2 - j) % 4);
            secondoperand = die((i + 3) % 4);
            allowedalg();
            for (std::size_t k = 0; k <= 5; ++k) {
                for (std::size_t l = 0; l <= 5; ++l) {
                    if (tworesults[k] < 1000.0 && tworesults[l + 6] < 1000.0) {
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
