#include "engine/show_how.h"

#include <algorithm>
#include <functional>

namespace fendle {

std::string fractionText(long num, long den) { return std::to_string(num) + "/" + std::to_string(den); }

std::string expressionWithValue(const Explanation& e) {
    return e.rounded ? e.text + " = " + fractionText(e.num, e.den) : e.text;
}

std::optional<std::string> howMade(const std::array<int, 4>& dice, int number, const HowWords& words) {
    const std::optional<Explanation> e = explain(dice, number);
    if (!e) return std::nullopt;
    if (!e->rounded) return std::to_string(number) + " = " + e->text;
    const std::string args[] = {e->text, fractionText(e->num, e->den), std::to_string(number)};
    return fillArguments(words.rounded, args);
}

std::string howText(const MoveRecord& move, const HowWords& words) {
    if (move.legal) return howMade(move.dice, move.number, words).value_or(std::to_string(move.number));
    // The dice from the largest, as a pupil would name them.
    std::array<int, 4> dice = move.dice;
    std::sort(dice.begin(), dice.end(), std::greater<>());
    const std::string why[] = {std::to_string(move.number), std::to_string(dice[0]), std::to_string(dice[1]),
                               std::to_string(dice[2]), std::to_string(dice[3])};
    std::string text = fillArguments(words.cannot, why);
    if (const auto best = move.best ? howMade(move.dice, move.best, words) : std::nullopt) {
        const std::string args[] = {std::to_string(move.best), std::to_string(move.bestPoints), *best};
        text += "\n" + fillArguments(words.best, args);
    }
    return text;
}

}  // namespace fendle
