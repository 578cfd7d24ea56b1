// The high-score table: ten rows in two sections of five, rows 0 to 4 "Open
// Play" (no computer) and rows 5 to 9 "Play against the computer", each from
// the best score down. A row is free when its score is 0. highscores.txt
// holds it as 20 lines ended by CR LF: for each row the name, then the score
// in print form (" 250 ").
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "engine/game_state.h"

namespace fendle {

inline constexpr std::string_view highscoresFile = "highscores.txt";
inline constexpr int maxNameLength = 25;   // characters, as the name box takes them

struct HighScores {
    std::array<std::string, 11> highnames;   // rows 0 to 9; row 10 is never used
    std::array<i16, 11> highpoints{};
    bool operator==(const HighScores&) const = default;
};

// Reads the file into the table, row by row, a name then a score. A missing
// file leaves the table as it was; a file that ends early leaves the rows it
// does not reach; a score too large for 16 bits leaves that row's score.
void readHighScores(std::optional<std::string_view> bytes, HighScores& table);

// A name as the table can keep it: at most 25 characters (not bytes), no
// double quote (the file cannot hold one), no line end or other control
// character, and no U+FEFF.
std::string cleanName(std::string_view name);

// The 20 lines of the file. A name with a comma or a blank at either end is
// written between double quotes, so that it reads back whole.
std::string highscoresText(const HighScores& table);

// checkhighscore: the final scores of the game's score boxes (players 1 to 4
// at 1 to 4, an empty caption as 0) and computerlevel choose a section and a
// score. Against the computer only Blue's score counts; otherwise the best
// score of the game, once. A score enters only when it is strictly above the
// section's last row, and goes below the rows of equal score. Returns
// newhighrow: 0 when nothing entered, else the 1-based row that awaits a
// name (the row still holds its old name until the entry is written).
i16 checkhighscore(HighScores& table, i16 computerlevel, const std::array<int, 5>& scorebox);

// The entry's name goes into row newhighrow - 1 (after cleanName).
void enterName(HighScores& table, i16 newhighrow, std::string_view name);

// Writes the file at `path` whole or not at all; false leaves the old file.
bool writeHighScores(const std::string& path, const HighScores& table, std::string* error = nullptr);

}  // namespace fendle
