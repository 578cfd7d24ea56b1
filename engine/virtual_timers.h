// Simulated time for tests and benchmarks: timers that tick when the clock is
// advanced, never on their own, in the single-thread order of the real
// program. A timer started inside a handler ticks only after that handler
// has returned (its first tick is due an interval later), a new interval
// restarts the count, and ticks due at the same moment come in a fixed order:
// first the bank made first, then the lower timer number.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "engine/ports.h"

namespace fendle {

class VirtualClock {
public:
    VirtualClock();
    ~VirtualClock();
    VirtualClock(const VirtualClock&) = delete;
    VirtualClock& operator=(const VirtualClock&) = delete;

    std::unique_ptr<TimerBank> makeBank();

    std::int64_t now() const { return now_; }
    // Moment of the next tick of any running timer.
    std::optional<std::int64_t> nextDue() const;
    // Runs the next tick if it is due within `limit` ms from now; advances the
    // clock to it. False when nothing is due by then.
    bool runNext(std::int64_t limit);
    // Runs every tick due within ms, then sets the clock to now + ms.
    void advance(std::int64_t ms);
    // Ticks run so far.
    std::int64_t ticks() const { return ticks_; }

private:
    class Bank;
    friend class Bank;
    std::int64_t now_ = 0;
    std::int64_t ticks_ = 0;
    std::uint64_t nextSerial_ = 0;
    std::vector<Bank*> banks_;
};

}  // namespace fendle
