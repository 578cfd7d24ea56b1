#include "text/game_paths.h"

#include <unistd.h>

#include <array>
#include <filesystem>
#include <system_error>

namespace fendle {

namespace fs = std::filesystem;

namespace {

GameFolders& current() {
    static GameFolders folders;
    return folders;
}

bool isFile(const fs::path& p) {
    std::error_code ec;
    return fs::is_regular_file(p, ec);
}

bool writableFolder(const std::string& folder) { return ::access(folder.c_str(), W_OK | X_OK) == 0; }

}  // namespace

bool isUserFile(std::string_view gameName) {
    static constexpr std::array<std::string_view, 3> own = {"numlang.txt", "lastgame.inf", "highscores.txt"};
    for (std::string_view name : own)
        if (gameName == name) return true;
    // The record of games grows beside them.
    if (gameName == "games.csv") return true;
    return false;
}

void useGameFolders(GameFolders folders) { current() = std::move(folders); }

const GameFolders& gameFolders() { return current(); }

bool holdsGameData(const std::string& folder) { return isFile(fs::path(folder) / "text" / "text.csv"); }

FolderChoice chooseGameFolders(const std::string& programFolder, const std::string& userDataFolder) {
    FolderChoice choice;
    fs::path program = fs::path(programFolder).lexically_normal();
    if (!program.has_filename() && program != program.root_path()) program = program.parent_path();   // "bin/" -> "bin"
    const std::string beside = program.string();
    const std::string shared = (program / ".." / "share" / "fendle").lexically_normal().string();

    choice.looked.push_back(beside);
    if (holdsGameData(beside)) {
        choice.folders = GameFolders{beside, writableFolder(beside) ? beside : userDataFolder};
        return choice;
    }
    choice.looked.push_back(shared);
    if (holdsGameData(shared)) choice.folders = GameFolders{shared, userDataFolder};
    return choice;
}

}  // namespace fendle
