// Where the game's files are. The game reads its texts, pictures, sounds and
// connarray.dat from one data folder, which it never writes, and writes its
// own files (numlang.txt, countermarks.txt, lastgame.inf, highscores.txt
// and the record of games, games.csv) into one user folder. Both are decided
// here, once, when the program starts; gamePath() in text/file_io.h then
// resolves every name the game uses.
//
// Until folders are set, every name stays relative to the working directory,
// as the tests that run in a copy of the game folder expect.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace fendle {

struct GameFolders {
    std::string data;   // read only: text/, Images/, images/, Balls/, counters/, wav/, connarray.dat
    std::string user;   // numlang.txt, countermarks.txt, lastgame.inf, highscores.txt, games.csv
};

// Whether the game writes this file itself, by the game's name of it
// ("lastgame.inf"). Those live in the user folder; every other file in the
// data folder.
bool isUserFile(std::string_view gameName);

// The folders that gamePath() resolves names in from now on. Empty strings
// leave names relative to the working directory.
void useGameFolders(GameFolders folders);
const GameFolders& gameFolders();

// A folder that holds the game's data: its texts are there.
bool holdsGameData(const std::string& folder);

// Where the program's data is, for a program in `programFolder`:
//  - beside it, as in the game folder of a build: the program writes its own
//    files there too, unless that folder cannot be written, when they go to
//    `userDataFolder`;
//  - in ../share/fendle from it, as installed under any prefix: its own files
//    go to `userDataFolder`.
// `looked` lists the folders tried, in order, for a message when none holds
// the data.
struct FolderChoice {
    std::optional<GameFolders> folders;
    std::vector<std::string> looked;
};
FolderChoice chooseGameFolders(const std::string& programFolder, const std::string& userDataFolder);

// The user folder of an installed game: "fendle" in XDG's state folder,
// $XDG_STATE_HOME when that is an absolute path, else ~/.local/state, which
// no install prefix reaches. `variable` gives the value of an environment
// variable, empty when it is not set.
std::string userStateFolder(const std::function<std::string(const char* variable)>& variable);

// Moves the game's own files from the user folder of earlier versions
// (~/.local/share/fendle) into `to`, made with mode 0700 if it is not there.
// A file is never lost: one that `to` already has of the same name stays
// where it is, and one that cannot be moved is left in place. Gives the
// names of the files moved.
std::vector<std::string> moveOwnFiles(const std::string& from, const std::string& to);

}  // namespace fendle
