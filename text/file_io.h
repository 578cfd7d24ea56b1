// Reading and writing the program's own small files. The code names a file
// as the game writes it, with backslashes ("text\\text.csv"); gamePath turns
// that into a path of this system, in the folder text/game_paths.h chose for
// it.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace fendle {

// "text\\text.csv" -> "text/text.csv", in the data folder; the game's own
// files ("lastgame.inf") in the user folder. A non-empty `folder` is put in
// front instead.
std::string gamePath(std::string_view gameName, std::string_view folder = {});

// The whole content of a file, or nothing when it cannot be read.
std::optional<std::string> readFileBytes(const std::string& path);

// Writes the file whole or not at all: the bytes go to a new file in the same
// folder, are flushed to the disk, and that file is then renamed over the
// old one. On any failure the old file is left as it was, the new one is
// removed, and the result is false (with the reason in `error`). The user
// folder is made at the first write into it; any other missing folder is a
// failure.
bool writeFileAtomic(const std::string& path, std::string_view bytes, std::string* error = nullptr);

}  // namespace fendle
