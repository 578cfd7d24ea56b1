// Reading and writing the program's own small files. The code names a file
// as the game writes it, with backslashes ("text\\text.csv"); gamePath turns
// that into a path of this system, in the folder text/game_paths.h chose for
// it.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
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

// The last `count` bytes of a file, or all of a shorter one; nothing when it
// cannot be read.
std::optional<std::string> readFileTail(const std::string& path, std::size_t count);

// Adds lines at the end of a file that only ever grows, each with one write
// and all flushed to the disk, so that a crash loses at most the line being
// written. A new or empty file starts with `head`; a file whose last line
// was cut short gets a line end first, so that what follows starts a line of
// its own. Returns how many lines were added: all of them, or fewer on a
// failure (the reason in `error`). The user folder is made as for any write.
std::size_t appendLines(const std::string& path, std::string_view head, std::span<const std::string> lines,
                        std::string* error = nullptr);

}  // namespace fendle
