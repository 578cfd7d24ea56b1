// What the monkey did last, kept so that a failure can be replayed: the seed
// and the last 50 events, printed when an invariant breaks, when an event
// does not return within its time (the watchdog) and when the process dies
// of a signal or a sanitizer report. The printing on a crash uses write()
// only, on text prepared before, so that it works from a signal handler.
#pragma once

#include <array>
#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <string_view>
#include <thread>

namespace fendle::monkey {

class EventLog {
public:
    static constexpr int keptEvents = 50;
    static constexpr int lineLength = 200;
    // Lines kept: an event writes a line or two, a session's start one more.
    static constexpr int keptLines = 4 * keptEvents;

    // One log per process: the crash handlers print this one.
    EventLog(std::uint64_t seed, std::int64_t events);
    ~EventLog();
    EventLog(const EventLog&) = delete;
    EventLog& operator=(const EventLog&) = delete;

    // Event number `n` is about to run; `what` says what it is.
    void begin(std::int64_t n, std::string_view what);
    // The event has returned.
    void end();
    // A line of the running event: what it does, what it hit.
    void note(std::string_view what);

    // The seed, how to replay, and the lines of the last 50 events, oldest
    // first, to stderr.
    void print(std::string_view why) const;

    // Every line also goes to stderr as it is written (for a replay).
    void setTrace(bool on) { trace_ = on; }

    // Aborts, after printing, when one event runs longer than this.
    void startWatchdog(int seconds);

private:
    void add(std::string_view line);
    void watch();

    std::uint64_t seed_;
    std::int64_t events_;
    mutable std::mutex mutex_;
    struct Line {
        std::int64_t event = 0;
        std::array<char, lineLength> text{};
    };
    std::array<Line, keptLines> lines_{};
    bool trace_ = false;
    int next_ = 0;
    int count_ = 0;
    std::int64_t current_ = -1;

    // The watchdog: the number of the event running and when it began.
    std::thread watchdog_;
    std::mutex watchMutex_;
    std::condition_variable wake_;
    bool stop_ = false;
    int limitSeconds_ = 0;
    std::atomic<std::int64_t> running_{-1};
    std::atomic<std::int64_t> startedMs_{0};
};

}  // namespace fendle::monkey
