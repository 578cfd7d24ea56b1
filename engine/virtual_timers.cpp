#include "engine/virtual_timers.h"

#include <algorithm>
#include <array>

namespace fendle {

class VirtualClock::Bank final : public TimerBank {
public:
    Bank(VirtualClock& clock, std::uint64_t serial) : clock_(&clock), serial_(serial) {
        intervals_.fill(1000);
    }
    ~Bank() override {
        if (clock_) std::erase(clock_->banks_, this);
    }

    void bind(Handler handler) override { handler_ = std::move(handler); }
    void setInterval(int timer, int ms) override {
        if (!valid(timer)) return;
        intervals_[idx(timer)] = std::max(ms, 1);
        if (running_[idx(timer)]) due_[idx(timer)] = now() + intervals_[idx(timer)];
    }
    int interval(int timer) const override { return valid(timer) ? intervals_[idx(timer)] : 0; }
    void start(int timer) override {
        if (!valid(timer) || running_[idx(timer)]) return;
        running_[idx(timer)] = true;
        due_[idx(timer)] = now() + intervals_[idx(timer)];
    }
    void stop(int timer) override {
        if (valid(timer)) running_[idx(timer)] = false;
    }
    bool running(int timer) const override { return valid(timer) && running_[idx(timer)]; }

    // Earliest due running timer of this bank, or 0.
    int earliest(std::int64_t& due) const {
        int best = 0;
        for (int t = 1; t < maxTimers; ++t) {
            if (running_[idx(t)] && (best == 0 || due_[idx(t)] < due)) {
                best = t;
                due = due_[idx(t)];
            }
        }
        return best;
    }
    void fire(int timer) {
        due_[idx(timer)] = now() + intervals_[idx(timer)];   // the timer repeats
        if (handler_) {
            Handler h = handler_;   // the handler may rebind or destroy nothing else of ours
            h(timer);
        }
    }
    std::uint64_t serial() const { return serial_; }
    void detach() { clock_ = nullptr; }

private:
    static bool valid(int t) { return t >= 1 && t < maxTimers; }
    static std::size_t idx(int t) { return static_cast<std::size_t>(t); }
    std::int64_t now() const { return clock_ ? clock_->now_ : 0; }

    VirtualClock* clock_;
    std::uint64_t serial_;
    Handler handler_;
    std::array<int, maxTimers> intervals_{};
    std::array<bool, maxTimers> running_{};
    std::array<std::int64_t, maxTimers> due_{};
};

VirtualClock::VirtualClock() = default;

VirtualClock::~VirtualClock() {
    for (Bank* b : banks_) b->detach();
}

std::unique_ptr<TimerBank> VirtualClock::makeBank() {
    auto bank = std::make_unique<Bank>(*this, nextSerial_++);
    banks_.push_back(bank.get());
    return bank;
}

std::optional<std::int64_t> VirtualClock::nextDue() const {
    std::optional<std::int64_t> best;
    for (const Bank* b : banks_) {
        std::int64_t due = 0;
        if (b->earliest(due) != 0 && (!best || due < *best)) best = due;
    }
    return best;
}

bool VirtualClock::runNext(std::int64_t limit) {
    Bank* bestBank = nullptr;
    int bestTimer = 0;
    std::int64_t bestDue = 0;
    for (Bank* b : banks_) {   // banks_ is in order of making
        std::int64_t due = 0;
        const int t = b->earliest(due);
        if (t != 0 && (bestBank == nullptr || due < bestDue)) {
            bestBank = b;
            bestTimer = t;
            bestDue = due;
        }
    }
    if (bestBank == nullptr || bestDue > now_ + limit) return false;
    now_ = std::max(now_, bestDue);
    ++ticks_;
    bestBank->fire(bestTimer);
    return true;
}

void VirtualClock::advance(std::int64_t ms) {
    const std::int64_t end = now_ + ms;
    while (runNext(end - now_)) {
    }
    now_ = std::max(now_, end);
}

}  // namespace fendle
