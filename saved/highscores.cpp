#include "saved/highscores.h"

#include "text/file_io.h"
#include "text/listinput.h"

namespace fendle {

void readHighScores(std::optional<std::string_view> bytes, HighScores& table) {
    if (!bytes) return;
    ListInput in(*bytes);
    for (int r = 0; r <= 9; ++r) {
        std::string name;
        if (!in.readString(name)) return;
        table.highnames[r] = cleanName(name);
        double points = 0;
        if (!in.readNumber(points)) return;
        points = roundHalfEven(points);
        if (points >= -32768 && points <= 32767) table.highpoints[r] = static_cast<i16>(points);
    }
}

std::string cleanName(std::string_view name) {
    // Names from the file are valid UTF-8 already; a name typed in comes as
    // UTF-8 from the window, but is made so here in any case.
    const std::string text = decodeText(name);
    std::string out;
    int characters = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        // U+FEFF is invisible, and at the start of a file it would be taken
        // for a byte order mark and lost: it is no part of a name.
        if (text.compare(i, 3, "\xEF\xBB\xBF") == 0) {
            i += 2;
            continue;
        }
        const auto b = static_cast<unsigned char>(text[i]);
        const bool continuation = (b & 0xC0) == 0x80;
        if (!continuation) {
            if (b == '"' || b < 0x20 || b == 0x7F) continue;
            if (characters == maxNameLength) break;
            ++characters;
        }
        out += text[i];
    }
    return out;
}

std::string highscoresText(const HighScores& table) {
    std::string text;
    for (int r = 0; r <= 9; ++r) {
        const std::string name = cleanName(table.highnames[r]);
        const bool quote = name.find(',') != std::string::npos ||
                           (!name.empty() && (name.front() == ' ' || name.back() == ' '));
        text += quote ? "\"" + name + "\"" : name;
        text += "\r\n";
        text += printForm(table.highpoints[r]);
        text += "\r\n";
    }
    return text;
}

i16 checkhighscore(HighScores& table, i16 computerlevel, const std::array<int, 5>& scorebox) {
    int first = 0;
    int score = 0;
    if (computerlevel != 0) {
        first = 5;
        score = scorebox[1];   // the human is Blue; the computer never enters
    } else {
        for (int i = 1; i <= 4; ++i)
            if (scorebox[i] > score) score = scorebox[i];
        if (score == 0) return 0;   // nobody scored
    }
    const int last = first + 4;
    if (!(score > table.highpoints[last])) return 0;   // equal is not enough

    if (score > 32767) score = 32767;   // a score box never holds more than 16 bits
    table.highpoints[last] = static_cast<i16>(score);
    i16 newhighrow = static_cast<i16>(last + 1);
    for (int i = 0; i <= 3; ++i) {
        if (score > table.highpoints[first + i]) {
            // Rows first + i to last - 1 move one place down; the old last
            // row drops out.
            for (int j = 0; j <= 3 - i; ++j) {
                table.highpoints[last - j] = table.highpoints[last - j - 1];
                table.highnames[last - j] = table.highnames[last - j - 1];
            }
            table.highpoints[first + i] = static_cast<i16>(score);
            newhighrow = static_cast<i16>(first + i + 1);
            break;
        }
    }
    return newhighrow;
}

void enterName(HighScores& table, i16 newhighrow, std::string_view name) {
    if (newhighrow < 1 || newhighrow > 10) return;
    table.highnames[newhighrow - 1] = cleanName(name);
}

bool writeHighScores(const std::string& path, const HighScores& table, std::string* error) {
    return writeFileAtomic(path, highscoresText(table), error);
}

}  // namespace fendle
