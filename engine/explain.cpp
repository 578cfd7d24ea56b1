#include "engine/explain.h"

#include <algorithm>
#include <bit>
#include <cmath>
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
    std::uint16_t counts;  // brackets, steps not whole, divisions, steps below zero: 3 bits each
    std::uint16_t dice;    // 6 − die, 3 bits each, the first die highest
    std::uint8_t ops;      // Op, 2 bits each, the first highest
    std::uint8_t leaves;
    Kind kind;
    Op op;
    std::int16_t left, right;
};

constexpr unsigned bracketShift = 9, notWholeShift = 6, divisionShift = 3;

bool bracketsLeft(Op op, const Node& l) { return op >= mul && l.kind == sum; }
bool bracketsRight(Op op, const Node& r) { return (op != add && r.kind == sum) || (op == dvd && r.kind == product); }

// Whether the text of l op r reads back as this tree.
inline bool reads(Op op, const Node& r) { return !((op == add && r.kind == sum) || (op == mul && r.kind == product)); }

// The fraction and the game's double of l op r into e; false for ÷ 0. With
// dice up to 6 the fractions stay small unreduced.
inline bool fraction(Node& e, Op op, const Node& l, const Node& r) {
    e.den = l.den * r.den;
    switch (op) {
    case add: e.num = l.num * r.den + r.num * l.den; e.game = l.game + r.game; break;
    case sub: e.num = l.num * r.den - r.num * l.den; e.game = l.game - r.game; break;
    case mul: e.num = l.num * r.num; e.game = l.game * r.game; break;
    case dvd:
        if (r.num == 0) return false;
        e.num = r.num < 0 ? -l.num * r.den : l.num * r.den;
        e.den = r.num < 0 ? -l.den * r.num : l.den * r.num;
        e.game = l.game / r.game;
        break;
    }
    return true;
}

inline void setValue(Node& e) { e.value = static_cast<double>(e.num) / e.den; }

// Rules 2 to 7 for e = l op r, whose value is known: the smaller wins among
// expressions over the same number of dice. A fraction with a denominator
// this small is whole exactly when its double is.
inline std::uint32_t rank(const Node& e, Op op, const Node& l, const Node& r) {
    const unsigned counts = l.counts + r.counts + ((bracketsLeft(op, l) + bracketsRight(op, r)) << bracketShift) +
                            (unsigned{e.value != static_cast<double>(static_cast<int>(e.value))} << notWholeShift) +
                            (unsigned{op == dvd} << divisionShift) + unsigned{e.num < 0};
    const unsigned dice = l.dice << (3 * r.leaves) | r.dice;
    const unsigned ops = ((l.ops << 2) | op) << (2 * (r.leaves - 1)) | r.ops;
    return counts << 18 | dice << 6 | ops;
}

inline void describe(Node& e, std::uint32_t rank, Op op, const Node& l, const Node& r, int li, int ri) {
    e.counts = static_cast<std::uint16_t>(rank >> 18);
    e.dice = static_cast<std::uint16_t>((rank >> 6) & 0xFFF);
    e.ops = static_cast<std::uint8_t>(rank & 0x3F);
    e.leaves = static_cast<std::uint8_t>(l.leaves + r.leaves);
    e.kind = op <= sub ? sum : product;
    e.op = op;
    e.left = static_cast<std::int16_t>(li);
    e.right = static_cast<std::int16_t>(ri);
}

inline std::uint32_t rankOf(const Node& e) { return std::uint32_t{e.counts} << 18 | std::uint32_t{e.dice} << 6 | e.ops; }

// The game's mark for a value: 0 below 1 and from 101 up, else the nearest
// whole number, a half going to the even one. Adding 1.5 x 2^52 rounds so and
// leaves the number in the low bits.
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
            e.dice = static_cast<std::uint16_t>(6 - e.num);
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

    // Calls visit(e, op, l, r) for every expression e = l op r over all four
    // dice, with only its fraction and double known; l and r are indices of
    // nodes. A split of the dice into the same numbers as one before it is
    // left out.
    template <class Visit>
    void whole(Visit&& visit) const {
        for (int i = 0; i < 4; ++i)
            if (i == 0 || dice_[i] != dice_[i - 1]) joinBoth(1 << i, 15 ^ (1 << i), visit);
        for (int j = 1; j < 4; ++j)
            if (j == 1 || dice_[j] != dice_[j - 1]) joinBoth(1 | 1 << j, 14 ^ (1 << j), visit);
    }

    const Node& node(int k) const { return pool_[static_cast<std::size_t>(k)]; }

private:
    // Both orders of every pair of expressions over masks a and b, with each operation.
    template <class Visit>
    void joinBoth(int a, int b, Visit& visit) const {
        Node e;
        for (int i = first_[a]; i < last_[a]; ++i) {
            for (int j = first_[b]; j < last_[b]; ++j) {
                for (Op op : {add, mul}) {   // one value for both orders
                    const bool ij = reads(op, node(j)), ji = reads(op, node(i));
                    if (!ij && !ji) continue;
                    fraction(e, op, node(i), node(j));
                    if (ij) visit(e, op, i, j);
                    if (ji) visit(e, op, j, i);
                }
                for (Op op : {sub, dvd}) {
                    if (fraction(e, op, node(i), node(j))) visit(e, op, i, j);
                    if (fraction(e, op, node(j), node(i))) visit(e, op, j, i);
                }
            }
        }
    }

    void build(int mask) {
        first_[mask] = count_;
        table_.fill(-1);
        auto keep = [this](Node& e, Op op, int l, int r) {
            setValue(e);
            const std::uint32_t rank = fendle::rank(e, op, node(l), node(r));
            const auto bits = std::bit_cast<std::uint64_t>(e.value);
            const Kind kind = op <= sub ? sum : product;
            for (auto h = static_cast<std::size_t>((bits * 0x9E3779B97F4A7C15ull) >> 56);; h = (h + 1) & 255) {
                const int k = table_[h];
                if (k < 0) {
                    table_[h] = static_cast<std::int16_t>(count_);
                    describe(pool_[static_cast<std::size_t>(count_++)] = e, rank, op, node(l), node(r), l, r);
                    return;
                }
                Node& old = pool_[static_cast<std::size_t>(k)];
                if (old.value == e.value && old.kind == kind && old.game == e.game) {
                    if (rank < rankOf(old)) describe(old = e, rank, op, node(l), node(r), l, r);
                    return;
                }
            }
        };
        // Each die of the mask against the rest, but a die equal to the one
        // before it (the dice are sorted); a pair once.
        for (int i = 0, previous = 0; i < 4; ++i) {
            if ((mask >> i & 1) == 0 || dice_[static_cast<std::size_t>(i)] == previous) continue;
            previous = dice_[static_cast<std::size_t>(i)];
            joinBoth(1 << i, mask ^ (1 << i), keep);
            if (std::popcount(static_cast<unsigned>(mask)) == 2) break;
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

// Offers e = l op r, whose fraction is known, for the number it makes;
// `only` is that number, or 0 for any.
inline void offer(Bests& best, const Search& s, Node& e, Op op, int l, int r, int only) {
    if (only != 0 && 2 * std::abs(e.num - only * e.den) > e.den) return;   // further than a half
    setValue(e);
    const int n = gameMark(e.value);
    if (n == 0 || (only != 0 && n != only)) return;
    const bool rounded = e.value != n;
    if (rounded && gameMark(e.game) != n) return;
    const std::uint32_t key = std::uint32_t{rounded} << 30 | rank(e, op, s.node(l), s.node(r));
    Best& b = best[static_cast<std::size_t>(n)];
    if (key < b.key) b = {key, op, static_cast<std::int16_t>(l), static_cast<std::int16_t>(r), e.num, e.den};
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
    s.whole([&](Node& e, Op op, int l, int r) { offer(best, s, e, op, l, r, number); });
    return explanation(s, best[static_cast<std::size_t>(number)]);
}

std::array<std::optional<Explanation>, 101> explainAll(const std::array<int, 4>& dice) {
    const Search s(dice);
    Bests best;
    s.whole([&](Node& e, Op op, int l, int r) { offer(best, s, e, op, l, r, 0); });
    std::array<std::optional<Explanation>, 101> out;
    for (std::size_t n = 1; n <= 100; ++n) out[n] = explanation(s, best[n]);
    return out;
}

}  // namespace fendle
