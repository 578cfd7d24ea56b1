#include "engine/dice_roll.h"

#include <string>

namespace fendle::diceroll {

void draw(Random& random, std::array<i16, 5>& dice) {
    for (std::size_t d = 0; d <= 3; ++d) {
        const int k = static_cast<int>(random.rnd() * 100);
        for (int i = 0; i < k; ++i) dice[d] = static_cast<i16>(static_cast<int>(random.rnd() * 6) + 1);
        if (dice[d] == 0) dice[d] = 1;
    }
}

void start(TimerBank& timers, bool sound, i16& revealed) {
    if (sound) {
        timers.setInterval(stopTimer, 1500);
        timers.setInterval(spinTimer, 1200);
    } else {
        timers.setInterval(spinTimer, 100);
        timers.setInterval(stopTimer, 300);
    }
    revealed = 0;
    timers.start(stopTimer);
    timers.start(spinTimer);
}

void spin(TimerBank& timers, Random& random, i16 revealed, std::array<ControlState, 4>& faces) {
    timers.setInterval(spinTimer, 5);
    for (int d = std::max<int>(revealed, 0); d <= 3; ++d) {
        faces[static_cast<std::size_t>(d)].enabled = true;
        faces[static_cast<std::size_t>(d)].caption = std::to_string(static_cast<int>(random.rnd() * 6) + 1);
    }
    if (revealed >= 4) timers.stop(spinTimer);
}

bool stop(TimerBank& timers, i16& revealed, const std::array<i16, 5>& dice, std::array<ControlState, 4>& faces) {
    timers.setInterval(stopTimer, 250);
    if (revealed >= 0 && revealed <= 3) {
        const auto d = static_cast<std::size_t>(revealed);
        faces[d].enabled = true;
        faces[d].caption = std::to_string(dice[d]);
    }
    revealed = static_cast<i16>(revealed + 1);
    if (revealed < 4) return false;
    timers.stop(stopTimer);
    return true;
}

}  // namespace fendle::diceroll
