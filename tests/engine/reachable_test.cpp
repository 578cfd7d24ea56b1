// The numbers a throw can make.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <map>
#include <set>

#include "engine/reachable.h"

namespace fendle {
namespace {

std::set<int> marks(std::array<int, 4> dice) {
    Reachable r;
    for (int i = 0; i < 4; ++i) r.dice[static_cast<std::size_t>(i)] = static_cast<i16>(dice[static_cast<std::size_t>(i)]);
    r.allowednumbers();
    r.allowednumbers2();
    std::set<int> out;
    for (int n = 1; n <= 100; ++n)
        if (r.marked(n)) out.insert(n);
    return out;
}

std::set<int> range(int lo, int hi, std::initializer_list<int> more = {}) {
    std::set<int> s(more);
    for (int n = lo; n <= hi; ++n) s.insert(n);
    return s;
}

// The worked throws of the rules, whose marks are written out there in full.
TEST(Reachable, WorkedThrowsMarkExactlyTheirNumbers) {
    struct Case {
        std::array<int, 4> dice;
        std::set<int> expected;
    };
    const Case cases[] = {
        {{1, 1, 2, 3}, range(1, 10, {12})},
        {{6, 4, 3, 1}, range(1, 33, {35, 36, 37, 40, 41, 42, 43, 45, 48, 49, 54, 60, 66, 68, 69, 71, 72, 73, 75,
                                     76, 78, 84, 90, 96})},
        // 38 and 62 come from 37.5 and 62.5, rounded to the even neighbour.
        {{2, 5, 5, 5}, range(1, 13, {15, 17, 18, 20, 22, 23, 25, 27, 28, 30, 32, 35, 38, 40, 45, 48, 52, 55, 60, 62,
                                     70, 75, 100})},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(marks(c.dice), c.expected) << c.dice[0] << c.dice[1] << c.dice[2] << c.dice[3];
    }
}

// An independent search: every expression tree over every order of the dice,
// evaluated recursively, marked by the same rounding rule.
std::set<int> oracle(std::array<int, 4> dice) {
    std::set<int> out;
    auto markValue = [&](double v) {
        if (v <= 0 || v >= 101) return;
        if (v - std::floor(v) < 1e-7) v = std::floor(v);
        if (v - std::floor(v) > 0.9999999) v = std::floor(v + 1);
        out.insert(static_cast<int>(std::nearbyint(v)));
    };
    std::function<void(std::vector<double>)> combine = [&](std::vector<double> vals) {
        if (vals.size() == 1) { markValue(vals[0]); return; }
        for (std::size_t i = 0; i < vals.size(); ++i) {
            for (std::size_t j = 0; j < vals.size(); ++j) {
                if (i == j) continue;
                std::vector<double> rest;
                for (std::size_t k = 0; k < vals.size(); ++k)
                    if (k != i && k != j) rest.push_back(vals[k]);
                const double x = vals[i], y = vals[j];
                std::vector<double> results = {x * y, x + y, x - y};
                if (y != 0) results.push_back(x / y);
                for (double r : results) {
                    rest.push_back(r);
                    combine(rest);
                    rest.pop_back();
                }
            }
        }
    };
    combine({double(dice[0]), double(dice[1]), double(dice[2]), double(dice[3])});
    out.erase(0);
    return out;
}

// Every throw in every order of its dice marks what the independent search
// finds for it: the order of the dice does not matter. Over all throws, the
// largest and smallest sets and the rarest numbers are those the rules name.
TEST(Reachable, TheTwoFormsCoverEveryExpressionInEveryOrder) {
    std::map<std::array<int, 4>, std::set<int>> expected;
    std::map<int, std::vector<std::array<int, 4>>> makers;
    for (int code = 0; code < 1296; ++code) {
        std::array<int, 4> dice{};
        for (int d = 0, c = code; d < 4; ++d, c /= 6) dice[static_cast<std::size_t>(d)] = 1 + c % 6;
        auto sorted = dice;
        std::sort(sorted.begin(), sorted.end());
        auto [it, fresh] = expected.try_emplace(sorted);
        if (fresh) {
            it->second = oracle(sorted);
            for (int n : it->second) makers[n].push_back(sorted);
        }
        ASSERT_EQ(marks(dice), it->second) << dice[0] << dice[1] << dice[2] << dice[3];
    }
    const auto [smallest, largest] = std::minmax_element(
        expected.begin(), expected.end(), [](const auto& a, const auto& b) { return a.second.size() < b.second.size(); });
    EXPECT_EQ(largest->second.size(), 69u);
    EXPECT_EQ(largest->first, (std::array<int, 4>{3, 4, 5, 6}));
    EXPECT_EQ(smallest->second, (std::set<int>{1, 2, 3, 4}));
    EXPECT_EQ(smallest->first, (std::array<int, 4>{1, 1, 1, 1}));
    EXPECT_EQ(makers.size(), 100u) << "every number on the board can be made by some throw";
    EXPECT_EQ(makers[83], (std::vector<std::array<int, 4>>{{3, 4, 4, 5}}));
    EXPECT_EQ(makers[89], (std::vector<std::array<int, 4>>{{1, 3, 5, 6}}));
}

}  // namespace
}  // namespace fendle
