#include "saved/games_record.h"

#include <charconv>

namespace fendle {

namespace {

constexpr const char* colours[4] = {"Blue", "Red", "Green", "Yellow"};

}  // namespace

std::string gamesRecordHead() {
    return "\xEF\xBB\xBF"
           "Date and time,Game,Colour,Name,Die 1,Die 2,Die 3,Die 4,Number,Legal,Points,Bonus,Best number,Expression\r\n";
}

std::string csvField(std::string_view text) {
    if (text.find_first_of(",\"\r\n") == std::string_view::npos) return std::string(text);
    std::string out = "\"";
    for (const char c : text) {
        if (c == '"') out += '"';
        out += c;
    }
    return out + '"';
}

std::string gamesRecordLine(std::string_view when, int game, std::string_view name, const MoveRecord& move) {
    const int how = move.legal ? move.number : move.best;
    const std::optional<Explanation> e = how ? explain(move.dice, how) : std::nullopt;
    std::string line = csvField(when) + ',' + std::to_string(game) + ',' + colours[move.player & 3] + ',' + csvField(name);
    for (const int die : move.dice) line += ',' + std::to_string(die);
    line += ',' + std::to_string(move.number) + (move.legal ? ",yes," : ",no,") + std::to_string(move.points) + ',' +
            std::to_string(move.bonus) + ',' + (move.legal || !move.best ? std::string() : std::to_string(move.best)) +
            ',' + (e ? csvField(expressionWithValue(*e)) : std::string());
    return line + "\r\n";
}

int nextGameNumber(std::optional<std::string_view> tail) {
    int highest = 0;
    if (!tail) return 1;
    std::string_view rest = *tail;
    // The first line of a tail may be the end of a longer one; the last may
    // have been cut off by a crash. Only lines with a line end before and
    // after count, and the first line of the file, after its mark.
    if (rest.starts_with("\xEF\xBB\xBF")) rest.remove_prefix(3);
    else if (const auto first = rest.find('\n'); first != std::string_view::npos) rest.remove_prefix(first + 1);
    else return 1;
    for (auto end = rest.find('\n'); end != std::string_view::npos; end = rest.find('\n')) {
        std::string_view line = rest.substr(0, end);
        rest.remove_prefix(end + 1);
        // The game is the second field; the first, the time, holds no comma.
        const auto comma = line.find(',');
        if (comma == std::string_view::npos) continue;
        line.remove_prefix(comma + 1);
        int game = 0;
        const auto [ptr, ec] = std::from_chars(line.data(), line.data() + line.size(), game);
        if (ec == std::errc() && ptr != line.data() && (ptr == line.data() + line.size() || *ptr == ',') && game > highest)
            highest = game;
    }
    return highest + 1;
}

}  // namespace fendle
