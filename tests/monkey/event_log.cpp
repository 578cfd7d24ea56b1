#include "event_log.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <unistd.h>

// Present when the process runs under AddressSanitizer or UBSan: called on
// the way out of a sanitizer report.
extern "C" void __sanitizer_set_death_callback(void (*callback)(void)) __attribute__((weak));

namespace fendle::monkey {

namespace {

EventLog* active = nullptr;
std::atomic<bool> printed{false};

// Signal-safe: no allocation, no locale, no stdio.
void put(std::string_view s) {
    while (!s.empty()) {
        const ssize_t n = ::write(STDERR_FILENO, s.data(), s.size());
        if (n <= 0) return;
        s.remove_prefix(std::size_t(n));
    }
}

void putNumber(std::uint64_t v) {
    char digits[24];
    int i = sizeof digits;
    do {
        digits[--i] = char('0' + v % 10);
        v /= 10;
    } while (v != 0);
    put(std::string_view(digits + i, sizeof digits - std::size_t(i)));
}

std::int64_t nowMs() {
    using namespace std::chrono;
    return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

void printOnce(const char* why) {
    if (active && !printed.exchange(true)) active->print(why);
}

void onSignal(int sig) {
    printOnce(sig == SIGABRT ? "the process aborted" : "the process crashed on a signal");
    std::signal(sig, SIG_DFL);
    std::raise(sig);
}

void onSanitizerDeath() { printOnce("a sanitizer stopped the process"); }

}  // namespace

EventLog::EventLog(std::uint64_t seed, std::int64_t events) : seed_(seed), events_(events) {
    active = this;
    printed = false;
    if (__sanitizer_set_death_callback) {
        // The sanitizer reports the crash itself and calls back on its way out.
        __sanitizer_set_death_callback(onSanitizerDeath);
        std::signal(SIGABRT, onSignal);
    } else {
        for (int sig : {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT}) std::signal(sig, onSignal);
    }
}

EventLog::~EventLog() {
    {
        std::lock_guard lock(watchMutex_);
        stop_ = true;
    }
    wake_.notify_all();
    if (watchdog_.joinable()) watchdog_.join();
    if (__sanitizer_set_death_callback) __sanitizer_set_death_callback(nullptr);
    for (int sig : {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT}) std::signal(sig, SIG_DFL);
    active = nullptr;
}

void EventLog::add(std::string_view line) {
    if (trace_) {
        put(line);
        put("\n");
    }
    std::lock_guard lock(mutex_);
    Line& slot = lines_[std::size_t(next_)];
    slot.event = current_;
    const std::size_t n = std::min(line.size(), slot.text.size() - 1);
    std::memcpy(slot.text.data(), line.data(), n);
    slot.text[n] = '\0';
    next_ = (next_ + 1) % keptLines;
    count_ = std::min(count_ + 1, keptLines);
}

void EventLog::begin(std::int64_t n, std::string_view what) {
    char line[lineLength];
    const int head = std::snprintf(line, sizeof line, "#%lld ", static_cast<long long>(n));
    const std::size_t room = sizeof line - std::size_t(head) - 1;
    const std::size_t len = std::min(what.size(), room);
    std::memcpy(line + head, what.data(), len);
    line[std::size_t(head) + len] = '\0';
    current_ = n;
    add(line);
    startedMs_ = nowMs();
    running_ = n;
}

void EventLog::end() { running_ = -1; }

void EventLog::note(std::string_view what) { add(what); }

void EventLog::print(std::string_view why) const {
    // No lock: this also runs from a signal handler or while the main thread
    // hangs in an event; a line being written at that moment may be torn.
    put("\n==== monkey: ");
    put(why);
    put("\n==== seed ");
    putNumber(seed_);
    put(", event ");
    putNumber(std::uint64_t(current_ < 0 ? 0 : current_));
    put(" of ");
    putNumber(std::uint64_t(events_));
    put("\n==== replay: FENDLE_MONKEY_SEED=");
    putNumber(seed_);
    put(" FENDLE_MONKEY_EVENTS=");
    putNumber(std::uint64_t(current_ < 1 ? 1 : current_));
    put(" tst_monkey\n==== the last events, oldest first:\n");
    for (int i = 0; i < count_; ++i) {
        const Line& slot = lines_[std::size_t((next_ - count_ + i + keptLines) % keptLines)];
        if (slot.event <= current_ - keptEvents) continue;
        put(std::string_view(slot.text.data(), ::strnlen(slot.text.data(), slot.text.size())));
        put("\n");
    }
    put("==== end of the monkey's log\n");
}

void EventLog::startWatchdog(int seconds) {
    limitSeconds_ = seconds;
    watchdog_ = std::thread([this] { watch(); });
}

void EventLog::watch() {
    std::unique_lock lock(watchMutex_);
    while (!stop_) {
        wake_.wait_for(lock, std::chrono::milliseconds(250));
        const std::int64_t n = running_;
        if (n < 0 || nowMs() - startedMs_ < std::int64_t(limitSeconds_) * 1000) continue;
        if (running_ != n) continue;   // it returned meanwhile
        if (!printed.exchange(true)) print("an event did not return (a hang)");
        std::abort();
    }
}

}  // namespace fendle::monkey
