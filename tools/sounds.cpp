#include "tools/sounds.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <numbers>

namespace fendle::sound {

namespace {

constexpr double pi = std::numbers::pi;
constexpr double twoPi = 2.0 * std::numbers::pi;
constexpr double rate = sampleRate;

using Signal = std::vector<double>;

Signal silence(double seconds) { return Signal(static_cast<std::size_t>(seconds * rate + 0.5), 0.0); }
double timeOf(std::size_t i) { return static_cast<double>(i) / rate; }
std::size_t indexOf(double t) { return static_cast<std::size_t>(std::max(0.0, t) * rate + 0.5); }

// splitmix64: the same numbers on every machine and every run.
class Noise {
public:
    explicit Noise(std::uint64_t seed) : state_(seed) {}
    double unit() {   // [0, 1)
        std::uint64_t z = (state_ += 0x9E3779B97F4A7C15ull);
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
        z ^= z >> 31;
        return static_cast<double>(z >> 11) * 0x1.0p-53;
    }
    double white() { return 2.0 * unit() - 1.0; }
    double between(double lo, double hi) { return lo + (hi - lo) * unit(); }

private:
    std::uint64_t state_;
};

// Second-order filter (the usual audio cookbook forms); coefficients can be
// changed while it runs for sweeps.
class Biquad {
public:
    static Biquad lowpass(double f, double q) { Biquad b; b.setLowpass(f, q); return b; }
    static Biquad highpass(double f, double q) { Biquad b; b.setHighpass(f, q); return b; }
    static Biquad bandpass(double f, double q) { Biquad b; b.setBandpass(f, q); return b; }

    void setLowpass(double f, double q) {
        const auto [w, cw, alpha] = prep(f, q);
        (void)w;
        set((1 - cw) / 2, 1 - cw, (1 - cw) / 2, 1 + alpha, -2 * cw, 1 - alpha);
    }
    void setHighpass(double f, double q) {
        const auto [w, cw, alpha] = prep(f, q);
        (void)w;
        set((1 + cw) / 2, -(1 + cw), (1 + cw) / 2, 1 + alpha, -2 * cw, 1 - alpha);
    }
    // Peak gain 1 at the centre.
    void setBandpass(double f, double q) {
        const auto [w, cw, alpha] = prep(f, q);
        (void)w;
        set(alpha, 0, -alpha, 1 + alpha, -2 * cw, 1 - alpha);
    }
    double operator()(double x) {
        const double y = b0_ * x + z1_;
        z1_ = b1_ * x - a1_ * y + z2_;
        z2_ = b2_ * x - a2_ * y;
        return y;
    }

private:
    struct Prep {
        double w, cw, alpha;
    };
    static Prep prep(double f, double q) {
        const double w = twoPi * std::clamp(f, 10.0, rate * 0.45) / rate;
        return {w, std::cos(w), std::sin(w) / (2 * q)};
    }
    void set(double b0, double b1, double b2, double a0, double a1, double a2) {
        b0_ = b0 / a0, b1_ = b1 / a0, b2_ = b2 / a0, a1_ = a1 / a0, a2_ = a2 / a0;
    }
    double b0_ = 1, b1_ = 0, b2_ = 0, a1_ = 0, a2_ = 0, z1_ = 0, z2_ = 0;
};

// A sawtooth with its corners smoothed (polyBLEP), free of most aliasing.
class Saw {
public:
    double operator()(double freq) {
        const double dt = freq / rate;
        phase_ += dt;
        if (phase_ >= 1.0) phase_ -= 1.0;
        double y = 2.0 * phase_ - 1.0;
        if (phase_ < dt) {
            const double x = phase_ / dt;
            y -= x + x - x * x - 1.0;
        } else if (phase_ > 1.0 - dt) {
            const double x = (phase_ - 1.0) / dt;
            y -= x * x + x + x + 1.0;
        }
        return y;
    }

private:
    double phase_ = 0;
};

// Rises from 0 to 1 over `width` seconds from `start`, as half a cosine.
double ramp(double t, double start, double width) {
    if (t <= start) return 0.0;
    if (t >= start + width) return 1.0;
    return 0.5 - 0.5 * std::cos(pi * (t - start) / width);
}

double decay(double t, double tau) { return t < 0 ? 0.0 : std::exp(-t / tau); }

// Scales to the given peak, fades the last few milliseconds, appends the
// silent tail and rounds to 16 bits.
Pcm finish(Signal s, double peak) {
    const std::size_t fade = std::min(s.size(), indexOf(0.012));
    for (std::size_t k = 0; k < fade; ++k) s[s.size() - 1 - k] *= static_cast<double>(k) / fade;
    double top = 0;
    for (double x : s) top = std::max(top, std::abs(x));
    const double gain = top > 0 ? peak * 32767.0 / top : 0.0;
    Pcm out;
    out.reserve(s.size() + indexOf(tailSeconds));
    for (double x : s)
        out.push_back(static_cast<std::int16_t>(std::clamp(std::lround(x * gain), -32767L, 32767L)));
    out.resize(out.size() + indexOf(tailSeconds), 0);
    return out;
}

// A struck hard object: two damped partials.
void addHit(Signal& s, double at, double f1, double f2, double tau, double amp) {
    const std::size_t begin = indexOf(at);
    const std::size_t end = std::min(s.size(), begin + indexOf(tau * 7));
    for (std::size_t i = begin; i < end; ++i) {
        const double u = timeOf(i - begin);
        s[i] += amp * decay(u, tau) * (std::sin(twoPi * f1 * u) + 0.6 * std::sin(twoPi * f2 * u));
    }
}

// One hand clap: a short burst of band-passed noise.
void addClap(Signal& s, Noise& rng, double at, double amp) {
    Biquad bp = Biquad::bandpass(rng.between(900, 2300), 1.4);
    const double tau = rng.between(0.005, 0.01);
    const std::size_t begin = indexOf(at);
    const std::size_t end = std::min(s.size(), begin + indexOf(0.05));
    for (std::size_t i = begin; i < end; ++i) {
        const double u = timeOf(i - begin);
        s[i] += amp * bp(rng.white()) * decay(u, tau) * ramp(u, 0, 0.0015) * 3.0;
    }
}

// Voices shouting "yay": rising sawtooth voices through two vowel formants.
void addVoices(Signal& s, Noise& rng, int count, double startLatest, double endEarliest,
               double endLatest, double amp) {
    for (int v = 0; v < count; ++v) {
        const bool high = rng.unit() < 0.5;
        const double f0 = high ? rng.between(210, 340) : rng.between(105, 175);
        const double t0 = rng.between(0.0, startLatest);
        const double t1 = rng.between(endEarliest, endLatest);
        const double rise = rng.between(1.15, 1.45);
        const double vibRate = rng.between(4.5, 6.8), vibDepth = rng.between(0.012, 0.03);
        const double vibPhase = rng.between(0, twoPi);
        const double f1 = rng.between(560, 820), f2 = rng.between(1150, 1900);
        const double level = amp * rng.between(0.5, 1.0);
        Saw saw;
        Biquad form1 = Biquad::bandpass(f1, 4.0), form2 = Biquad::bandpass(f2, 6.0);
        Biquad breath = Biquad::bandpass(2400, 1.0);
        const std::size_t begin = indexOf(t0), end = std::min(s.size(), indexOf(t1));
        for (std::size_t i = begin; i < end; ++i) {
            const double u = timeOf(i - begin), left = timeOf(end - i);
            const double glide = 1.0 + (rise - 1.0) * (1.0 - decay(u, 0.12));
            const double fall = 1.0 - 0.18 * (1.0 - std::min(1.0, left / 0.3));
            const double f =
                f0 * glide * fall * (1.0 + vibDepth * std::sin(twoPi * vibRate * u + vibPhase));
            const double src = saw(f);
            const double env = ramp(u, 0, 0.08) * std::min(1.0, left / 0.25);
            s[i] += level * env * (form1(src) + 0.7 * form2(src) + 0.25 * breath(rng.white()));
        }
    }
}

// ---- the sounds -------------------------------------------------------

Pcm click() {
    Signal s = silence(0.05);
    Noise rng(11);
    Biquad bp = Biquad::bandpass(3200, 1.2);
    for (std::size_t i = 0; i < s.size(); ++i) {
        const double t = timeOf(i);
        s[i] = bp(rng.white()) * decay(t, 0.0025) * 2.5 + 0.5 * std::sin(twoPi * 1900 * t) * decay(t, 0.006) +
               0.35 * std::sin(twoPi * 170 * t) * decay(t, 0.012);
    }
    return finish(s, 0.55);
}

// Softer and duller than click.
Pcm click1() {
    Signal s = silence(0.05);
    Noise rng(12);
    Biquad bp = Biquad::bandpass(1500, 1.0), lp = Biquad::lowpass(2800, 0.7);
    for (std::size_t i = 0; i < s.size(); ++i) {
        const double t = timeOf(i);
        s[i] = lp(bp(rng.white()) * decay(t, 0.003) * 2.0 + 0.4 * std::sin(twoPi * 1100 * t) * decay(t, 0.005) +
                  0.5 * std::sin(twoPi * 140 * t) * decay(t, 0.01));
    }
    return finish(s, 0.3);
}

// A small bell: inharmonic partials of a struck bar.
Pcm tink() {
    Signal s = silence(0.6);
    Noise rng(13);
    Biquad hp = Biquad::highpass(4000, 0.7);
    constexpr double ratio[] = {1.0, 2.76, 5.40, 8.93};
    constexpr double amp[] = {1.0, 0.45, 0.22, 0.1};
    constexpr double tau[] = {0.22, 0.1, 0.05, 0.03};
    for (std::size_t i = 0; i < s.size(); ++i) {
        const double t = timeOf(i);
        double x = 0.3 * hp(rng.white()) * decay(t, 0.0015);
        for (int k = 0; k < 4; ++k) x += amp[k] * std::sin(twoPi * 2350 * ratio[k] * t) * decay(t, tau[k]);
        s[i] = x * ramp(t, 0, 0.001);
    }
    return finish(s, 0.5);
}

// Dice shaken in a cup, then thrown down on the table.
Pcm cupdice() {
    Signal s = silence(1.2);
    Noise rng(14);
    // Shaking: bursts of rattle six or seven times a second.
    auto shake = [](double t) {
        const double pulse = 0.5 - 0.5 * std::cos(twoPi * 6.5 * t);
        return pulse * pulse * ramp(t, 0, 0.05) * (1.0 - ramp(t, 0.72, 0.12));
    };
    Biquad scrape = Biquad::bandpass(520, 0.9);
    for (std::size_t i = 0; i < s.size(); ++i) {
        const double t = timeOf(i);
        s[i] += 0.12 * shake(t) * scrape(rng.white());
        if (rng.unit() < 110.0 * shake(t) / rate)
            addHit(s, t, rng.between(2200, 4800), rng.between(3000, 6000), rng.between(0.003, 0.007),
                   rng.between(0.15, 0.5));
    }
    // The throw: a thud on the table and the dice bouncing to rest.
    Biquad thud = Biquad::lowpass(260, 0.8);
    for (std::size_t i = indexOf(0.9); i < s.size(); ++i) {
        const double u = timeOf(i) - 0.9;
        s[i] += 1.4 * thud(rng.white()) * decay(u, 0.03);
    }
    const double bounces[][2] = {{0.905, 0.9}, {0.93, 0.75}, {0.965, 0.8}, {0.995, 0.55},
                                 {1.03, 0.45}, {1.06, 0.3},  {1.085, 0.22}, {1.11, 0.12}};
    for (const auto& b : bounces)
        addHit(s, b[0], rng.between(1300, 2800), rng.between(2600, 4200), rng.between(0.008, 0.015), b[1]);
    return finish(s, 0.8);
}

// A rising shimmer with an echo.
Pcm space() {
    Signal s = silence(0.62);
    double phase = 0;
    for (std::size_t i = 0; i < s.size(); ++i) {
        const double t = timeOf(i);
        const double f = 300.0 * std::pow(2.0, 2.2 * std::min(t, 0.5) / 0.5) * (1.0 + 0.03 * std::sin(twoPi * 8 * t));
        phase += twoPi * f / rate;
        const double index = 2.5 * decay(t, 0.3) + 0.4;
        const double env = ramp(t, 0, 0.04) * (t < 0.3 ? 1.0 : decay(t - 0.3, 0.1));
        s[i] = env * std::sin(phase + index * std::sin(1.5 * phase));
    }
    const std::size_t delay = indexOf(0.11);
    for (std::size_t i = s.size(); i-- > delay;) s[i] += 0.35 * s[i - delay];
    return finish(s, 0.5);
}

// A bright two-note chime.
Pcm key() {
    Signal s = silence(0.65);
    const double notes[][2] = {{0.0, 1318.5}, {0.09, 1975.5}};
    for (const auto& note : notes) {
        for (std::size_t i = indexOf(note[0]); i < s.size(); ++i) {
            const double u = timeOf(i) - note[0];
            const double f = note[1];
            s[i] += ramp(u, 0, 0.002) * (std::sin(twoPi * f * u) * decay(u, 0.2) +
                                         0.35 * std::sin(twoPi * 2 * f * u) * decay(u, 0.09) +
                                         0.15 * std::sin(twoPi * 3 * f * u) * decay(u, 0.05));
        }
    }
    return finish(s, 0.7);
}

// A low explosion: a crack, a falling thump and a rumble.
Pcm boom() {
    Signal s = silence(0.68);
    Noise rng(15);
    Biquad crack = Biquad::highpass(2500, 0.7), rumble = Biquad::lowpass(400, 0.9);
    double phase = 0;
    for (std::size_t i = 0; i < s.size(); ++i) {
        const double t = timeOf(i);
        const double f = 35.0 + 85.0 * decay(t, 0.08);
        phase += twoPi * f / rate;
        rumble.setLowpass(80.0 + 420.0 * decay(t, 0.2), 0.9);
        const double x = 0.5 * crack(rng.white()) * decay(t, 0.006) +
                         std::sin(phase) * decay(t, 0.28) * ramp(t, 0, 0.003) +
                         2.2 * rumble(rng.white()) * decay(t, 0.22);
        s[i] = std::tanh(1.4 * x);
    }
    return finish(s, 0.88);
}

// A sonar ping and its echoes.
Pcm subping() {
    Signal s = silence(0.66);
    auto ping = [](double u) {
        if (u < 0) return 0.0;
        const double env = (1.0 - decay(u, 0.002)) * decay(u, 0.11);
        return env * (std::sin(twoPi * 1180 * u * (1.0 - 0.01 * u)) + 0.1 * std::sin(twoPi * 2372 * u));
    };
    Biquad dull = Biquad::lowpass(1600, 0.7);
    for (std::size_t i = 0; i < s.size(); ++i) {
        const double t = timeOf(i);
        s[i] = ping(t) + dull(0.4 * ping(t - 0.2) + 0.16 * ping(t - 0.4));
    }
    return finish(s, 0.8);
}

// Three falling laser shots.
Pcm laser3() {
    Signal s = silence(0.58);
    Biquad lp = Biquad::lowpass(6000, 0.7);
    for (double start : {0.0, 0.19, 0.38}) {
        double phase = 0, phase2 = 0;
        for (std::size_t i = indexOf(start); i < std::min(s.size(), indexOf(start + 0.17)); ++i) {
            const double u = timeOf(i) - start;
            const double f = 2200.0 * std::pow(280.0 / 2200.0, u / 0.17);
            phase += twoPi * f / rate;
            phase2 += twoPi * f * 1.012 / rate;
            const double env = ramp(u, 0, 0.002) * (1.0 - u / 0.17);
            s[i] += env * (std::tanh(3.0 * std::sin(phase)) + 0.5 * std::sin(phase2));
        }
    }
    for (double& x : s) x = lp(x);
    return finish(s, 0.85);
}

// A till: the drawer's clunk, the bell, a few coins.
Pcm cash() {
    Signal s = silence(0.66);
    Noise rng(16);
    Biquad clunk = Biquad::lowpass(900, 0.8);
    for (std::size_t i = 0; i < s.size(); ++i) {
        const double t = timeOf(i);
        double x = 1.2 * clunk(rng.white()) * decay(t, 0.02) + 0.5 * std::sin(twoPi * 110 * t) * decay(t, 0.03);
        const double u = t - 0.05;
        if (u > 0) {
            for (double f : {2960.0, 3950.0}) {
                const double a = f < 3000 ? 1.0 : 0.7;
                x += a * ramp(u, 0, 0.001) *
                     (std::sin(twoPi * f * u) + std::sin(twoPi * f * 1.003 * u) +
                      0.4 * std::sin(twoPi * f * 2.4 * u) * decay(u, 0.08)) *
                     decay(u, 0.25);
            }
        }
        s[i] += x;
    }
    for (int k = 0; k < 8; ++k)
        addHit(s, rng.between(0.1, 0.45), rng.between(5000, 7500), rng.between(6000, 9000), 0.003,
               rng.between(0.1, 0.25));
    return finish(s, 0.8);
}

// A group cheering, with some clapping.
Pcm cheer2() {
    Signal s = silence(1.7);
    Noise rng(17);
    addVoices(s, rng, 18, 0.15, 1.2, 1.65, 0.5);
    for (double t = 0.1; t < 1.5; t += rng.between(0.03, 0.12)) addClap(s, rng, t, rng.between(0.3, 0.7));
    Biquad roar = Biquad::bandpass(800, 0.6);
    for (std::size_t i = 0; i < s.size(); ++i) {
        const double t = timeOf(i);
        s[i] += 0.25 * roar(rng.white()) * ramp(t, 0, 0.15) * (1.0 - ramp(t, 1.2, 0.45));
    }
    return finish(s, 0.8);
}

// A comic "wrong": a spring that sags with a wobble.
Pcm boink() {
    Signal s = silence(0.62);
    double phase = 0;
    for (std::size_t i = 0; i < s.size(); ++i) {
        const double t = timeOf(i);
        const double f = (90.0 + 420.0 * decay(t, 0.12)) * (1.0 + 0.18 * decay(t, 0.25) * std::sin(twoPi * 15 * t));
        phase += twoPi * f / rate;
        const double env = ramp(t, 0, 0.005) * (1.0 - ramp(t, 0.4, 0.2));
        s[i] = env * (std::sin(phase) + 0.3 * std::sin(2 * phase));
    }
    return finish(s, 0.75);
}

// A large gong: many inharmonic partials, the low ones ringing longest.
Pcm gong() {
    Signal s = silence(1.7);
    Noise rng(18);
    constexpr double ratio[] = {1.0, 1.48, 2.02, 2.47, 2.92, 3.43, 4.13, 5.1, 6.3};
    constexpr double amp[] = {1.0, 0.7, 0.55, 0.6, 0.4, 0.35, 0.3, 0.2, 0.15};
    constexpr double tau[] = {1.6, 1.1, 0.9, 0.8, 0.6, 0.5, 0.4, 0.3, 0.25};
    Biquad mallet = Biquad::lowpass(300, 0.8);
    for (std::size_t i = 0; i < s.size(); ++i) {
        const double t = timeOf(i);
        double x = 0.5 * mallet(rng.white()) * decay(t, 0.03);
        for (int k = 0; k < 9; ++k) {
            const double f = 92.0 * ratio[k];
            x += amp[k] * decay(t, tau[k]) * (std::sin(twoPi * f * t) + 0.5 * std::sin(twoPi * f * 1.004 * t));
        }
        s[i] = x * ramp(t, 0, 0.008) * (1.0 - ramp(t, 1.45, 0.25));
    }
    return finish(s, 0.85);
}

// A crowd cheering and applauding, swelling and dying away.
Pcm crowd() {
    Signal s = silence(2.7);
    Noise rng(19);
    addVoices(s, rng, 36, 0.5, 2.0, 2.65, 0.4);
    for (double t = 0.05; t < 2.6; t += rng.between(0.015, 0.06 + 0.05 * (t > 2.0)))
        addClap(s, rng, t, rng.between(0.25, 0.6) * (t > 2.1 ? (2.6 - t) / 0.5 : 1.0));
    Biquad roar = Biquad::bandpass(700, 0.5);
    for (std::size_t i = 0; i < s.size(); ++i) {
        const double t = timeOf(i);
        s[i] += 0.4 * roar(rng.white()) * ramp(t, 0, 0.4) * (1.0 - ramp(t, 2.0, 0.65));
    }
    return finish(s, 0.85);
}

}  // namespace

std::vector<Sound> allSounds() {
    return {{"click.wav", click()},     {"click1.wav", click1()},   {"tink.wav", tink()},
            {"cupdice.wav", cupdice()}, {"space.wav", space()},     {"key.wav", key()},
            {"boom.wav", boom()},       {"subping.wav", subping()}, {"laser3.wav", laser3()},
            {"cash.wav", cash()},       {"cheer2.wav", cheer2()},   {"boink.wav", boink()},
            {"gong.wav", gong()},       {"crowd.wav", crowd()}};
}

std::vector<char> waveFile(const Pcm& samples) {
    std::vector<char> out;
    out.reserve(44 + samples.size() * 2);
    auto u32 = [&](std::uint32_t v) {
        for (int k = 0; k < 4; ++k) out.push_back(static_cast<char>((v >> (8 * k)) & 0xFF));
    };
    auto u16 = [&](std::uint16_t v) {
        out.push_back(static_cast<char>(v & 0xFF));
        out.push_back(static_cast<char>(v >> 8));
    };
    auto tag = [&](const char* t) {
        for (int k = 0; k < 4; ++k) out.push_back(t[k]);
    };
    const auto dataBytes = static_cast<std::uint32_t>(samples.size() * 2);
    tag("RIFF");
    u32(36 + dataBytes);
    tag("WAVE");
    tag("fmt ");
    u32(16);
    u16(1);                 // PCM
    u16(1);                 // mono
    u32(sampleRate);
    u32(sampleRate * 2);    // bytes per second
    u16(2);                 // bytes per frame
    u16(16);                // bits per sample
    tag("data");
    u32(dataBytes);
    for (std::int16_t v : samples) u16(static_cast<std::uint16_t>(v));
    return out;
}

}  // namespace fendle::sound
