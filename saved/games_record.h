// The record of games: games.csv in the user's folder, beside
// highscores.txt, one line per move of every game, for a teacher to open in
// a spreadsheet. RFC 4180 (fields with a comma, a quote or a line end in
// double quotes, a quote doubled; lines ended by CR LF), UTF-8 with a byte
// order mark, one heading line. The file only grows: a game's lines are
// added at its end, or when it is left, and nothing is ever written over.
//
// The headings and the colours are in English whatever the pupil's
// language, so that a teacher's sheet, its filters and its formulas read
// every game of the file alike; the Name column holds the player's name as
// the board showed it, in the pupil's language.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "engine/show_how.h"

namespace fendle {

inline constexpr std::string_view gamesRecordFile = "games.csv";

// The byte order mark and the heading line.
std::string gamesRecordHead();

// One field as RFC 4180 writes it.
std::string csvField(std::string_view text);

// The line of one move, with its line end: when it was made ("2026-11-23
// 14:05:09"), the game's number, the player's colour and name, the four
// dice, the number, legal "yes" or "no", points, bonus, the best number of
// the throw (illegal moves only), and how the number is made: the number's
// expression, or the best number's for an illegal move, with the exact
// value of one that the game rounds ("4 × (4 + 1 ÷ 6) = 50/3").
std::string gamesRecordLine(std::string_view when, int game, std::string_view name, const MoveRecord& move);

// The number of the next game: one more than the highest game number on the
// whole lines of `tail`, the end of the file; 1 when there is none.
int nextGameNumber(std::optional<std::string_view> tail);

}  // namespace fendle
