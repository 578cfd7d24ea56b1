// The engine's ports as the running program has them: timers on QTimer,
// chance from the time of day, sound through QSoundEffect. Tests put the
// VirtualClock's banks, a SeededRandom and a SoundRecorder in their place.
#pragma once

#include <QObject>

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "engine/ports.h"

class QIODevice;
class QSoundEffect;
class QTimer;

namespace fendle {

// The timers of one form, one QTimer per number. A new interval restarts a
// running timer's count; starting a running timer changes nothing. An
// interval below minimumInterval counts as minimumInterval: the dice's 5 ms
// flicker would repaint far more often than any screen shows a frame.
class QtTimerBank final : public TimerBank {
public:
    static constexpr int minimumInterval = 15;   // ms, about one frame at 60 Hz
    QtTimerBank();
    ~QtTimerBank() override;
    void bind(Handler handler) override { handler_ = std::move(handler); }
    void setInterval(int timer, int ms) override;
    int interval(int timer) const override;
    void start(int timer) override;
    void stop(int timer) override;
    bool running(int timer) const override;

private:
    QTimer* at(int timer) const;
    std::unique_ptr<QObject> owner_;   // parent of the timers
    std::array<QTimer*, maxTimers> timers_{};
    Handler handler_;
};

// Uniform [0, 1) from a 64-bit generator. randomize() reseeds from the time
// of day to the nanosecond, mixed with a count of reseeds, so two reseeds in
// the same tick of a coarse clock still give different sequences.
class ClockRandom final : public Random {
public:
    using Clock = std::function<std::int64_t()>;   // nanoseconds since midnight
    explicit ClockRandom(Clock clock = {});
    void randomize() override;
    double rnd() override;

private:
    Clock clock_;
    std::uint64_t state_ = 0;
    std::uint64_t reseeds_ = 0;
};

// Whether a wave file is one that QSoundEffect plays whole: RIFF/WAVE with a
// PCM `fmt ` chunk (1 or 2 channels, 8, 16, 24 or 32 bits, a block size
// that agrees) and a `data` chunk that the file really holds.
bool isPlayableWave(QIODevice& file);
bool isPlayableWave(const QString& path);

// playwave on QSoundEffect. A new sound cuts off the one playing. A file
// that is missing, damaged or in a format QSoundEffect cannot play stops the
// sound playing and plays nothing. Never waits for the sound.
class QtSound final : public Sound {
public:
    QtSound();
    ~QtSound() override;
    void playwave(std::string_view filename) override { play(filename); }
    // True when the sound was handed to the player.
    bool play(std::string_view filename);

private:
    std::unique_ptr<QSoundEffect> effect_;
};

// Remembers what was asked to play, for tests.
class SoundRecorder final : public Sound {
public:
    void playwave(std::string_view filename) override { played.emplace_back(filename); }
    std::vector<std::string> played;
};

// Hands out each form's timer bank; unload() stops a bank and lets it start
// nothing more. Wraps the factory's bank, whichever it is.
class FormTimers final : public TimerBank {
public:
    explicit FormTimers(std::unique_ptr<TimerBank> bank) : bank_(std::move(bank)) {}
    void bind(Handler handler) override { bank_->bind(std::move(handler)); }
    void setInterval(int timer, int ms) override { bank_->setInterval(timer, ms); }
    int interval(int timer) const override { return bank_->interval(timer); }
    void start(int timer) override {
        if (!closed_) bank_->start(timer);
    }
    void stop(int timer) override { bank_->stop(timer); }
    bool running(int timer) const override { return bank_->running(timer); }
    // Stops every timer at once; later starts do nothing.
    void close();
    bool closed() const { return closed_; }

private:
    std::unique_ptr<TimerBank> bank_;
    bool closed_ = false;
};

}  // namespace fendle
