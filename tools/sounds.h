// Every wave file of the game folder, synthesised from sines, envelopes and
// filtered noise. Noise comes from a seeded generator, so each sound comes
// out the same, sample for sample, on every run.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace fendle::sound {

inline constexpr int sampleRate = 22050;
// Every sound ends in this much silence: the player may cut a sound's last
// tenth of a second short.
inline constexpr double tailSeconds = 0.3;

using Pcm = std::vector<std::int16_t>;

struct Sound {
    std::string name;   // file name under wav/
    Pcm samples;        // mono, 16 bit
};

// The fourteen sounds of the game.
std::vector<Sound> allSounds();

// A canonical 44-byte-header PCM wave file, mono, 16 bit, sampleRate.
std::vector<char> waveFile(const Pcm& samples);

}  // namespace fendle::sound
