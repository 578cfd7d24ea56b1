// countermarks.txt: whether the counters carry their players' marks, the
// user's choice kept beside the language. One line, the digit and CR LF:
// "1" for marks, "0" for none.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace fendle {

inline constexpr std::string_view countermarksFile = "countermarks.txt";

// True only when the file's first field is the number 1. A missing, empty or
// damaged file means no marks: the board as it was drawn.
bool readCountermarks(std::optional<std::string_view> bytes);

// The file's one line for a choice.
std::string countermarksText(bool on);

}  // namespace fendle
