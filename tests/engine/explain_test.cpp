// The expression shown for each number a throw makes.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <map>
#include <numeric>
#include <set>
#include <string_view>
#include <vector>

#include "engine/explain.h"
#include "engine/reachable.h"

namespace fendle {
namespace {

struct Q { long n = 0, d = 1; bool operator==(const Q&) const = default; };   // in lowest terms, d > 0
Q q(long n, long d) { const long g = std::gcd(n, d) * (d < 0 ? -1 : 1); return {n / g, d / g}; }
Q operator+(Q a, Q b) { return q(a.n * b.d + b.n * a.d, a.d * b.d); }
Q operator-(Q a, Q b) { return q(a.n * b.d - b.n * a.d, a.d * b.d); }
Q operator*(Q a, Q b) { return q(a.n * b.n, a.d * b.d); }
Q operator/(Q a, Q b) { return q(a.n * b.d, a.d * b.n); }

// Reads an expression: one-digit numbers, brackets, and the four signs with a
// space on each side. `ok` is false for any other text.
struct Reader {
    std::string_view s;
    std::vector<int> numbers{};
    bool ok = true;
    bool eat(std::string_view t) { return s.starts_with(t) && (s.remove_prefix(t.size()), true); }
    Q all() { const Q v = sum(); ok = ok && s.empty(); return v; }
    Q sum() {
        Q v = product();
        while (ok) {
            if (eat(" + ")) v = v + product();
            else if (eat(" \u2212 ")) v = v - product();
            else break;
        }
        return v;
    }
    Q product() {
        Q v = factor();
        while (ok) {
            if (eat(" \u00D7 ")) v = v * factor();
            else if (!eat(" \u00F7 ")) break;
            else if (const Q r = factor(); (ok = ok && r.n != 0)) v = v / r;
        }
        return v;
    }
    Q factor() {
        if (eat("(")) { const Q v = sum(); ok = ok && eat(")"); return v; }
        if (!(ok = ok && !s.empty() && s[0] >= '0' && s[0] <= '9')) return {};
        numbers.push_back(s[0] - '0');
        s.remove_prefix(1);
        return {numbers.back()};
    }
};

// An independent search: the whole numbers some expression makes exactly.
std::set<long> exactly(const std::vector<Q>& vals) {
    std::set<long> out;
    if (vals.size() == 1 && vals[0].d == 1) out.insert(vals[0].n);
    for (std::size_t i = 0; i < vals.size(); ++i)
        for (std::size_t j = 0; j < vals.size(); ++j)
            for (int op = 0; i != j && op < (vals[j].n != 0 ? 4 : 3); ++op) {
                std::vector<Q> rest;
                for (std::size_t k = 0; k < vals.size(); ++k)
                    if (k != i && k != j) rest.push_back(vals[k]);
                const Q x = vals[i], y = vals[j];
                rest.push_back(op == 0 ? x + y : op == 1 ? x - y : op == 2 ? x * y : x / y);
                out.merge(exactly(rest));
            }
    return out;
}

// For all ordered throws: an expression exactly for the numbers the game
// accepts, which reads back as the dice once each, with the stated value: the
// number, or when no expression makes it exactly, a value rounded to it.
// Removing a pair of brackets changes the value, or fewer brackets would do.
TEST(Explain, EveryNumberOfEveryThrowReadsBackAsItsNumber) {
    std::map<std::vector<int>, std::set<long>> exact;
    for (int code = 0; code < 1296; ++code) {
        std::array<int, 4> dice{};
        Reachable game;
        for (std::size_t k = 0, c = static_cast<std::size_t>(code); k < 4; ++k, c /= 6)
            game.dice[k] = static_cast<i16>(dice[k] = 1 + static_cast<int>(c % 6));
        game.allowednumbers();
        game.allowednumbers2();
        std::vector<int> sorted(dice.begin(), dice.end());
        std::sort(sorted.begin(), sorted.end());
        auto [made, fresh] = exact.try_emplace(sorted);
        if (fresh) made->second = exactly({{sorted[0]}, {sorted[1]}, {sorted[2]}, {sorted[3]}});

        const auto all = explainAll(dice);
        const int one = 1 + code % 100;
        EXPECT_EQ(explain(dice, one), all[static_cast<std::size_t>(one)]) << code;
        for (int n = 1; n <= 100; ++n) {
            const auto& x = all[static_cast<std::size_t>(n)];
            SCOPED_TRACE(testing::Message() << code << " " << n << " " << (x ? x->text : ""));
            ASSERT_EQ(x.has_value(), game.marked(n));
            if (!x) continue;
            Reader r{x->text};
            const Q v = r.all();
            ASSERT_TRUE(r.ok);
            std::sort(r.numbers.begin(), r.numbers.end());
            EXPECT_EQ(r.numbers, sorted);
            EXPECT_EQ(v, (Q{x->num, x->den}));
            EXPECT_EQ(x->rounded, v.d != 1);
            EXPECT_EQ(x->rounded, !made->second.contains(n));
            const long off = 2 * std::abs(v.n - n * v.d);   // the rules' rounding: nearest, a half to even
            EXPECT_TRUE(off < v.d || (off == v.d && n % 2 == 0));
            for (std::size_t open = x->text.find('('); open != std::string::npos; open = x->text.find('(', open + 1)) {
                std::string text = x->text;
                std::size_t close = open + 1;
                for (int depth = 1; (depth += (text[close] == '(') - (text[close] == ')')) > 0;) ++close;
                text.erase(close, 1).erase(open, 1);
                EXPECT_NE(Reader{text}.all(), v) << text;
            }
        }
    }
}

// Throws worked by hand: fewest brackets, whole steps, fewest divisions, no
// step below zero, larger dice first, and + before − before × before ÷.
TEST(Explain, HandWorkedThrows) {
    struct Case { std::array<int, 4> dice; int number; const char* text; } const cases[] = {
        {{6, 4, 2, 1}, 42, "6 \u00D7 (4 + 2 + 1)"},         // no expression without brackets makes 42
        {{1, 3, 6, 4}, 26, "6 \u00D7 4 + 3 \u2212 1"},
        {{1, 1, 3, 1}, 4, "3 + 1 + 1 \u2212 1"},            // not 3 + 1 × 1 × 1
        {{2, 5, 5, 5}, 38, "5 \u00D7 (5 + 5 \u00F7 2)"},    // 37.5, rounded to the even 38
        {{5, 2, 5, 5}, 62, "5 \u00D7 5 \u00D7 5 \u00F7 2"}, // 62.5, rounded to the even 62
        {{1, 4, 4, 6}, 17, "4 \u00D7 (4 + 1 \u00F7 6)"},    // 50/3: no value from 16.5 to 17.5 without brackets
        {{2, 2, 2, 2}, 16, "2 \u00D7 2 \u00D7 2 \u00D7 2"},
        {{1, 2, 2, 3}, 1, "2 + 2 \u2212 3 \u00D7 1"},       // from 3 only with ÷; 2 − 3 goes below zero
        {{1, 2, 2, 3}, 5, "3 \u00D7 2 \u2212 2 + 1"},       // not 3 + 2 ÷ 2 + 1
        {{6, 2, 4, 2}, 5, "6 \u00D7 2 \u00F7 4 + 2"},       // all even: one ÷; not 6 ÷ 4 × 2 + 2
        {{1, 1, 2, 3}, 11, nullptr},                        // none
    };
    for (const Case& c : cases)
        EXPECT_EQ(explain(c.dice, c.number).value_or(Explanation{"none"}).text, c.text ? c.text : "none") << c.number;
}

}  // namespace
}  // namespace fendle
