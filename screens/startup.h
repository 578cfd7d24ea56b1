// What the program does before its first screen: answers its command line,
// names itself to the desktop, and finds its folders.
#pragma once

#include <QIcon>

#include <optional>

namespace fendle {

// The id of the desktop entry, the metainfo file and the icon, as the build
// names them.
inline constexpr const char* applicationId = FENDLE_APP_ID;

struct CommandLine {
    std::optional<double> scale;   // --scale
};

// Reads the command line without opening a display. --help and --version
// print to stdout and give 0; an unknown option, a stray argument or a
// --scale that is no scale print the reason and the usage to stderr and give
// 2. Nothing when the game is to start.
std::optional<int> readCommandLine(int argc, char** argv, CommandLine& out);

// The program's names: "fendle" for its files and folders (the user folder of
// earlier versions was ~/.local/share/fendle), "Fendle!" where a title shows,
// and its version.
void nameApplication();

// Finds the data folder and the user folder (text/game_paths.h) for the
// program where it runs, and uses them. Without a data folder it tells the
// user where it looked, and gives false.
bool findGameFolders();

// The program's icon, from the files installed beside its data
// (<data>/../icons/hicolor/<n>x<n>/apps/), read when a window first shows
// it; no icon theme is searched. Null when none is there.
QIcon applicationIcon();

}  // namespace fendle
