// A colour as the game's tables give it, and the colours the rules and the
// windows share.
#pragma once

#include <cstdint>

namespace fendle {

struct Rgb {
    std::uint8_t r = 0, g = 0, b = 0;
    constexpr bool operator==(const Rgb&) const = default;
};

namespace colour {
inline constexpr Rgb black{0, 0, 0};
inline constexpr Rgb white{255, 255, 255};
inline constexpr Rgb numberGrey{224, 224, 224};   // a number that is not prime
inline constexpr Rgb noteGrey{192, 192, 192};
inline constexpr Rgb blueText{128, 128, 255};
inline constexpr Rgb blue{0, 0, 255};
inline constexpr Rgb red{255, 0, 0};
inline constexpr Rgb green{0, 255, 0};
inline constexpr Rgb yellow{255, 255, 0};
inline constexpr Rgb boardBlue{49, 135, 215};      // the board window and the backdrop
}  // namespace colour

}  // namespace fendle
