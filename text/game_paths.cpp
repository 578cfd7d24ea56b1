#include "text/game_paths.h"

#include "text/file_io.h"

#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
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

constexpr std::array<std::string_view, 4> ownFiles = {"numlang.txt", "lastgame.inf", "highscores.txt",
                                                      "countermarks.txt"};

}  // namespace

bool isUserFile(std::string_view gameName) {
    for (std::string_view name : ownFiles)
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

std::string userStateFolder(const std::function<std::string(const char* variable)>& variable) {
    const std::string state = variable("XDG_STATE_HOME");
    if (!state.empty() && state.front() == '/') return (fs::path(state) / "fendle").string();
    return (fs::path(variable("HOME")) / ".local" / "state" / "fendle").string();
}

std::vector<std::string> moveOwnFiles(const std::string& from, const std::string& to) {
    std::vector<std::string> moved;
    std::error_code ec;
    if (from.empty() || fs::equivalent(from, to, ec)) return moved;
    for (std::string_view name : ownFiles) {
        const fs::path old = fs::path(from) / name;
        const fs::path now = fs::path(to) / name;
        if (!isFile(old) || fs::exists(fs::symlink_status(now, ec))) continue;
        for (fs::path step; const fs::path& part : fs::path(to).lexically_normal()) {
            step /= part;
            ::mkdir(step.c_str(), 0700);
        }
        // On one file system a rename moves the file whole; across two the
        // file is written whole beside its new name first, and only then is
        // the old one removed.
        bool done = std::rename(old.c_str(), now.c_str()) == 0;
        if (!done && errno == EXDEV) {
            const std::optional<std::string> bytes = readFileBytes(old.string());
            done = bytes && writeFileAtomic(now.string(), *bytes) && ::unlink(old.c_str()) == 0;
        }
        if (done) moved.emplace_back(name);
    }
    return moved;
}

}  // namespace fendle
