// The roll of four dice that the board's Throw Dice and the demonstration
// of the rules share: the throw is drawn at once; then the dice spin on one
// timer and stop one by one, on their thrown values, on another.
#pragma once

#include <array>

#include "engine/game_state.h"
#include "engine/ports.h"

namespace fendle::diceroll {

inline constexpr int stopTimer = 5;   // Timer5: stops the next die on its thrown value
inline constexpr int spinTimer = 8;   // Timer8: spins the dice not yet stopped

// The four dice of a throw, 0 to 3, each the last of a chance number of
// draws.
void draw(Random& random, std::array<i16, 5>& dice);
// Starts the spin and the stops, none stopped yet; slower with the sound
// of the cup, so that the dice land with it.
void start(TimerBank& timers, bool sound, i16& revealed);
// A tick of the spin: each die not yet stopped shows a face by chance. The
// spin ends once all four have stopped.
void spin(TimerBank& timers, Random& random, i16 revealed, std::array<ControlState, 4>& faces);
// A tick of the stops: the next die shows its thrown value. True when that
// was the fourth; the stops end then.
bool stop(TimerBank& timers, i16& revealed, const std::array<i16, 5>& dice, std::array<ControlState, 4>& faces);

}  // namespace fendle::diceroll
