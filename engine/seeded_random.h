// Deterministic chance for tests and benchmarks. SeededRandom is a 64-bit
// generator whose randomize() stirs in a count of reseeds in place of the
// time of day, so that a game is the same on every run of the same seed and
// a loop that reseeds before each draw still moves on.
#pragma once

#include <cstdint>
#include <vector>

#include "engine/ports.h"

namespace fendle {

class SeededRandom : public Random {
public:
    explicit SeededRandom(std::uint64_t seed = 1) : state_(seed) {}
    void randomize() override { state_ ^= 0x9E3779B97F4A7C15ull * ++reseeds_; }
    double rnd() override {
        // splitmix64
        std::uint64_t z = (state_ += 0x9E3779B97F4A7C15ull);
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
        z ^= z >> 31;
        return static_cast<double>(z >> 11) * 0x1.0p-53;
    }

private:
    std::uint64_t state_;
    std::uint64_t reseeds_ = 0;
};

// Plays back a list of draws, then falls back on a seeded generator.
class ScriptedRandom : public Random {
public:
    explicit ScriptedRandom(std::vector<double> draws = {}, std::uint64_t seed = 7)
        : draws_(std::move(draws)), fallback_(seed) {}
    void script(std::vector<double> draws) {
        draws_ = std::move(draws);
        pos_ = 0;
    }
    void randomize() override { ++reseeds; }
    double rnd() override { return pos_ < draws_.size() ? draws_[pos_++] : fallback_.rnd(); }
    std::size_t used() const { return pos_; }
    int reseeds = 0;

private:
    std::vector<double> draws_;
    std::size_t pos_ = 0;
    SeededRandom fallback_;
};

}  // namespace fendle
