// lastgame.inf: the game left with Exit, 215 lines of one value each, ended
// by CR LF:
//   2i - 1, 2i   hexagon i (1 to 100) and who holds it, 0 to 4
//   201 nplayers, 202 computerlevel, 203 turn of the board
//   204 the target score caption, 205-208 the score captions of players 1-4
//   209 timeallowed, 210-213 the clock captions of players 1-4
//   214 soundon, 215 greyback
// Lines 204 to 208 and 210 to 213 hold what a caption held: an empty caption
// is an empty line, which reads back as 0 when the game is restored.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "engine/fen1.h"
#include "engine/game_state.h"

namespace fendle {

inline constexpr std::string_view lastgameFile = "lastgame.inf";
inline constexpr int lastgameLines = 215;

struct SavedGame {
    std::array<i16, 101> boardowner{};   // by hexagon 1 to 100; element 0 unused
    i16 nplayers = 1;
    i16 computerlevel = 0;
    i16 turn = 0;
    // Captions: nothing for an empty caption.
    std::optional<i16> targetscore;
    std::array<std::optional<i16>, 5> scores{};    // players 1 to 4 at 1 to 4
    i16 timeallowed = 0;
    std::array<std::optional<i16>, 5> seconds{};   // players 1 to 4 at 1 to 4
    i16 soundon = 1;
    i16 greyback = 0;

    bool operator==(const SavedGame&) const = default;
};

// The game to save, from the module variables, the board's turn and the
// captions of its score boxes (Label6(1) to (4)), clock boxes (Label12(0) to
// (3)) and target score (Label5(5)).
SavedGame makeSavedGame(const ModuleState& module, i16 turn, const BoardModel& model);
inline SavedGame makeSavedGame(const ModuleState& module, const Fen1& board) {
    return makeSavedGame(module, board.turn, board.model);
}

// The 215 lines of the file.
std::string lastgameText(const SavedGame& game);

// Reads the bytes of the file. Nothing when the file is missing, ends early,
// holds a number too large for 16 bits, or holds values that no saved game
// can hold (see the checks in lastgame.cpp): such a file is treated as
// unreadable, and restoring it changes nothing.
std::optional<SavedGame> readLastgame(std::optional<std::string_view> bytes);

// Puts a game that was read into the module variables that the board window
// rebuilds from: boardowner, nplayers, computerlevel, savedturn, targetscore,
// savedscores, timeallowed, savedseconds, soundon, greyback. An empty
// caption line gives 0.
void applySavedGame(const SavedGame& game, ModuleState& module);

// Reads and applies in one step: true when the game was restored; false, with
// the module variables untouched, when the file is missing or unreadable.
bool restoreLastgame(std::optional<std::string_view> bytes, ModuleState& module);

// Writes the file at `path` whole or not at all; false leaves the old file.
bool writeLastgame(const std::string& path, const SavedGame& game, std::string* error = nullptr);

}  // namespace fendle
