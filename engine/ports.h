// The few ways the engine reaches outside: timers, chance, sound and screens.
// The window gives it Qt-backed ports; tests give it virtual ones.
#pragma once

#include <functional>
#include <string_view>

namespace fendle {

// The timers of one form, numbered 1 to maxTimers - 1. A timer repeats until
// stopped. Setting the interval restarts the count of a running timer;
// starting a running timer changes nothing. A timer started inside a handler
// ticks only after that handler has returned.
class TimerBank {
public:
    static constexpr int maxTimers = 12;
    using Handler = std::function<void(int timer)>;
    virtual ~TimerBank() = default;
    virtual void bind(Handler handler) = 0;
    virtual void setInterval(int timer, int ms) = 0;
    virtual int interval(int timer) const = 0;
    virtual void start(int timer) = 0;
    virtual void stop(int timer) = 0;
    virtual bool running(int timer) const = 0;
};

// A uniform generator of [0, 1) that can be reseeded from the time of day.
class Random {
public:
    virtual ~Random() = default;
    virtual void randomize() = 0;   // reseed from the clock
    virtual double rnd() = 0;       // a draw in [0, 1)
};

class Sound {
public:
    virtual ~Sound() = default;
    // Plays a wave file ("wav\click.wav") in the background; never waits.
    virtual void playwave(std::string_view filename) = 0;
};

// What the board asks of the screens around it.
class Screens {
public:
    virtual ~Screens() = default;
    virtual void show(std::string_view form) = 0;
    // Unloading the board from inside one of its own handlers stops its
    // timers at once; the board itself goes when the handler has returned.
    virtual void unload(std::string_view form) = 0;
    // Exit with a game worth keeping: write lastgame.inf from this board.
    virtual void savegame() = 0;
    // The game has ended: look at the final scores for the high-score table.
    virtual void checkhighscore() = 0;
};

}  // namespace fendle
