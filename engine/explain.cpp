#include "engine/explain.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstdlib>
#include <functional>
#include <numeric>

namespace fendle {

namespace {

enum Op : std::uint8_t { add, sub, mul, dvd };   // in the order of rule 7
enum Kind : std::uint8_t { leaf, sum, product }; // a sum's last step is + or −, a product's × or ÷

// An expression over some of the dice, as its text reads: a leaf is a die,
// any other node is `left op right`. Only trees that their own text reads
// back are built: no sum as the right operand of +, and no product as the
// right operand of ×, whose text would be read from the left; the tree read
// from the left has the same value and is built anyway.
struct Node {
    double value;          // num / den rounded once: equal fractions have equal values
    double game;           // the value in doubles, step by step, as the game's search computes it
    std::int32_t num, den; // not in lowest terms; den > 0
    std::uint32_t rank;    // see rank()
    std::uint8_t leaves;
    Kind kind;
    Op op;
    std::int16_t left, right;
};

bool bracketsLeft(Op op, const Node& l) { return op >= mul && l.kind == sum; }
bool bracketsRight(Op op, const Node& r) { return (op != add && r.kind == sum) || (op == dvd && r.kind == product); }

// Rules 2 to 7 for l op r with the given value, in one number that is
// smaller for the better expression, among expressions over as many dice:
// from the top, 3 bits each for brackets, steps not whole, divisions and
// steps below zero; 3 bits for each die as 6 − die, the first highest; 2 bits
// for each sign, the first highest. A fraction with a denominator this small
// is whole exactly when its double is.
constexpr unsigned countsShift = 18, bracket = 1u << 27, notWhole = 1u << 24, division = 1u << 21, belowZero = 1u << 18;
constexpr std::uint32_t countsMask = ~0u << countsShift;

inline std::uint32_t rank(double value, Op op, const Node& l, const Node& r) {
    const std::uint32_t dice = (l.rank >> 6 & 0xFFF) << (3 * r.leaves) | (r.rank >> 6 & 0xFFF);
    const std::uint32_t ops = ((l.rank & 0x3F) << 2 | op) << (2 * (r.leaves - 1)) | (r.rank & 0x3F);
    return (l.rank & countsMask) + (r.rank & countsMask) + (bracketsLeft(op, l) + bracketsRight(op, r)) * bracket +
           (value != static_cast<double>(static_cast<int>(value))) * notWhole + (op == dvd) * division +
           (value < 0) * belowZero + (dice << 6 | ops);
}

double game(Op op, const Node& l, const Node& r) {
    switch (op) {
    case add: return l.game + r.game;
    case sub: return l.game - r.game;
    case mul: return l.game * r.game;
    case dvd: return l.game / r.game;
    }
    return 0;
}

// The game's mark for a value: none (0) unless 0 < v < 101, else the nearest
// whole number, a half going to the even one (0 again up to a half). Adding
// 1.5 x 2^52 rounds so and leaves the number in the low bits.
inline int gameMark(double v) {
    const auto low = static_cast<int>(std::bit_cast<std::uint64_t>(v + 6755399441055744.0) & 0xFF);
    return v > 0 && v < 101 ? low : 0;
}

// Every expression over every subset of the dice but the whole throw, built
// from two smaller ones. Of the expressions over one subset with the same
// value, kind and value in doubles only the least by rank is kept: whatever
// is built around it adds the same to each rule.
class Search {
public:
    explicit Search(const std::array<int, 4>& dice) : dice_(dice) {
        std::sort(dice_.begin(), dice_.end(), std::greater<>());
        for (std::size_t i = 0; i < 4; ++i) {
            Node& e = pool_[i];
            e = Node{};
            e.num = dice_[i];
            e.den = 1;
            e.value = e.game = e.num;
            e.rank = static_cast<std::uint32_t>(6 - e.num) << 6;
            e.leaves = 1;
            e.kind = leaf;
            e.left = e.right = -1;
            first_[1u << i] = count_;
            last_[1u << i] = ++count_;
        }
        for (int mask : {3, 5, 6, 9, 10, 12}) build(mask);
        for (int i = 0; i < 4; ++i)
            if (i == 0 || dice_[i] != dice_[i - 1]) build(15 ^ (1 << i));
    }

    // Calls visit(num, den, op, l, r) for every expression l op r over all
    // four dice, l and r being indices of nodes. A split of the dice into the
    // same numbers as one before it is left out.
    template <class Visit>
    void whole(Visit&& visit) const {
        for (int i = 0; i < 4; ++i)
            if (i == 0 || dice_[i] != dice_[i - 1]) joinBoth(1 << i, 15 ^ (1 << i), visit);
        for (int j = 1; j < 4; ++j)
            if (j == 1 || dice_[j] != dice_[j - 1]) joinBoth(1 | 1 << j, 14 ^ (1 << j), visit);
    }

    const Node& node(int k) const { return pool_[static_cast<std::size_t>(k)]; }

private:
    // Both orders of every pair of expressions over masks a and b, with each
    // operation; unreduced, the fractions stay small. x + y and x × y are one
    // value either way round; each order is taken where its text reads back.
    template <class Visit>
    void joinBoth(int a, int b, Visit& visit) const {
        for (int i = first_[a]; i < last_[a]; ++i) {
            const Node& x = node(i);
            for (int j = first_[b]; j < last_[b]; ++j) {
                const Node& y = node(j);
                const std::int32_t p = x.num * y.den, q = y.num * x.den, d = x.den * y.den;
                if (y.kind != sum) visit(p + q, d, add, i, j);
                if (x.kind != sum) visit(p + q, d, add, j, i);
                visit(p - q, d, sub, i, j);
                visit(q - p, d, sub, j, i);
                if (y.kind != product) visit(x.num * y.num, d, mul, i, j);
                if (x.kind != product) visit(x.num * y.num, d, mul, j, i);
                if (y.num != 0) visit(y.num < 0 ? -p : p, std::abs(x.den * y.num), dvd, i, j);
                if (x.num != 0) visit(x.num < 0 ? -q : q, std::abs(y.den * x.num), dvd, j, i);
            }
        }
    }

    void build(int mask) {
        first_[mask] = count_;
        table_.fill(-1);
        auto keep = [this](std::int32_t num, std::int32_t den, Op op, int l, int r) {
            Node e;
            e.value = static_cast<double>(num) / den;
            e.game = game(op, node(l), node(r));
            e.num = num;
            e.den = den;
            e.rank = rank(e.value, op, node(l), node(r));
            e.leaves = static_cast<std::uint8_t>(node(l).leaves + node(r).leaves);
            e.kind = op <= sub ? sum : product;
            e.op = op;
            e.left = static_cast<std::int16_t>(l);
            e.right = static_cast<std::int16_t>(r);
            const auto bits = std::bit_cast<std::uint64_t>(e.value);
            for (auto h = static_cast<std::size_t>((bits * 0x9E3779B97F4A7C15ull) >> 56);; h = (h + 1) & 255) {
                const int k = table_[h];
                if (k < 0) {
                    table_[h] = static_cast<std::int16_t>(count_);
                    pool_[static_cast<std::size_t>(count_++)] = e;
                    return;
                }
                Node& old = pool_[static_cast<std::size_t>(k)];
                if (old.value == e.value && old.kind == e.kind && old.game == e.game) {
                    if (e.rank < old.rank) old = e;
                    return;
                }
            }
        };
        // Each die of the mask against the rest, but a die equal to the one
        // before it (the dice are sorted); a pair once.
        const bool pair = std::popcount(static_cast<unsigned>(mask)) == 2;
        for (int i = 0, previous = 0; i < 4; ++i) {
            if ((mask >> i & 1) == 0 || dice_[static_cast<std::size_t>(i)] == previous) continue;
            previous = dice_[static_cast<std::size_t>(i)];
            joinBoth(1 << i, mask ^ (1 << i), keep);
            if (pair) break;
        }
        last_[mask] = count_;
    }

    std::array<int, 4> dice_;   // largest first
    // The leaves; 8 joins of two leaves for each pair; for each triple, 3
    // splits of 8 joins of a leaf and a pair's node. The nodes over a mask
    // are first_ to last_ of it.
    std::array<Node, 4 + 6 * 8 + 4 * 3 * 8 * 8> pool_;
    int count_ = 0;
    std::array<int, 16> first_{}, last_{};
    std::array<std::int16_t, 256> table_{};
};

// The best expression so far for each number, by rule 1 and rank.
struct Best {
    std::uint32_t key = UINT32_MAX;
    Op op{};
    std::int16_t left = 0, right = 0;
    std::int32_t num = 0, den = 1;
};
using Bests = std::array<Best, 101>;

// Offers num / den = l op r for the number it makes; `only` is that number,
// or 0 for any.
inline void offer(Bests& best, const Search& s, std::int32_t num, std::int32_t den, Op op, int l, int r, int only) {
    if (only != 0 && 2 * std::abs(num - only * den) > den) return;   // further than a half
    const double value = static_cast<double>(num) / den;
    const int n = gameMark(value);
    if (n == 0 || (only != 0 && n != only)) return;
    const bool rounded = value != n;
    if (rounded && gameMark(game(op, s.node(l), s.node(r))) != n) return;
    const std::uint32_t key = std::uint32_t{rounded} << 30 | rank(value, op, s.node(l), s.node(r));
    Best& b = best[static_cast<std::size_t>(n)];
    if (key < b.key) b = {key, op, static_cast<std::int16_t>(l), static_cast<std::int16_t>(r), num, den};
}

void write(std::string& out, const Search& s, int k, bool brackets);

void write(std::string& out, const Search& s, Op op, int l, int r) {
    static constexpr const char* signs[] = {" + ", " \u2212 ", " \u00D7 ", " \u00F7 "};
    write(out, s, l, bracketsLeft(op, s.node(l)));
    out += signs[op];
    write(out, s, r, bracketsRight(op, s.node(r)));
}

void write(std::string& out, const Search& s, int k, bool brackets) {
    const Node& e = s.node(k);
    if (e.kind == leaf) {
        out += static_cast<char>('0' + e.num);
        return;
    }
    if (brackets) out += '(';
    write(out, s, e.op, e.left, e.right);
    if (brackets) out += ')';
}

std::optional<Explanation> explanation(const Search& s, const Best& b) {
    if (b.key == UINT32_MAX) return std::nullopt;
    Explanation x;
    write(x.text, s, b.op, b.left, b.right);
    const int g = std::gcd(b.num, b.den);
    x.num = b.num / g;
    x.den = b.den / g;
    x.rounded = x.den != 1;
    return x;
}

}  // namespace

std::optional<Explanation> explain(const std::array<int, 4>& dice, int number) {
    if (number < 1 || number > 100) return std::nullopt;
    const Search s(dice);
    Bests best;
    s.whole([&](std::int32_t num, std::int32_t den, Op op, int l, int r) { offer(best, s, num, den, op, l, r, number); });
    return explanation(s, best[static_cast<std::size_t>(number)]);
}

std::array<std::optional<Explanation>, 101> explainAll(const std::array<int, 4>& dice) {
    const Search s(dice);
    Bests best;
    s.whole([&](std::int32_t num, std::int32_t den, Op op, int l, int r) { offer(best, s, num, den, op, l, r, 0); });
    std::array<std::optional<Explanation>, 101> out;
    for (std::size_t n = 1; n <= 100; ++n) out[n] = explanation(s, best[n]);
    return out;
}

}  // namespace fendle
