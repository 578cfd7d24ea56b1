#include "text/game_paths.h"
#include "text/countermarks.h"
#include "text/file_io.h"
#include "text/text_tables.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

namespace fendle {
namespace {

namespace fs = std::filesystem;

struct TempTree {
    fs::path root = fs::temp_directory_path() / ("fendle_paths_" + std::to_string(::getpid()));
    TempTree() {
        fs::remove_all(root);
        fs::create_directories(root);
    }
    ~TempTree() {
        useGameFolders({});
        fs::remove_all(root);
    }
    std::string at(const std::string& rel) const { return (root / rel).lexically_normal().string(); }
    void dataIn(const std::string& rel) const {
        fs::create_directories(root / rel / "text");
        std::ofstream(root / rel / "text" / "text.csv") << "x";
    }
};

TEST(GamePaths, TheDataIsFoundBesideTheProgramOrUnderItsPrefix) {
    struct Case {
        const char* what;
        std::vector<std::string> data;   // folders under the tree that hold the game's data
        std::string program;             // the program's folder
        std::string wantData, wantUser;  // empty: no folders
        std::vector<std::string> looked;
    };
    const std::string user = "home/.local/share/fendle";
    const Case cases[] = {
        {"build tree: data and writes beside the program", {"build/game"}, "build/game", "build/game", "build/game",
         {"build/game"}},
        {"installed: data under the prefix, writes in the user folder", {"usr/share/fendle"}, "usr/bin",
         "usr/share/fendle", user, {"usr/bin", "usr/share/fendle"}},
        {"installed under another prefix", {"opt/games/share/fendle"}, "opt/games/bin", "opt/games/share/fendle", user,
         {"opt/games/bin", "opt/games/share/fendle"}},
        {"a game folder beside the program wins over the prefix", {"p/bin", "p/share/fendle"}, "p/bin", "p/bin", "p/bin",
         {"p/bin"}},
        {"no data anywhere", {"elsewhere/share/fendle"}, "usr/bin", "", "", {"usr/bin", "usr/share/fendle"}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        TempTree tree;
        for (const std::string& d : c.data) tree.dataIn(d);
        fs::create_directories(tree.at(c.program));
        // A program started through a path with "." and ".." in it.
        const FolderChoice got = chooseGameFolders(tree.at(c.program) + "/./", tree.at(user));
        ASSERT_EQ(got.folders.has_value(), !c.wantData.empty());
        if (got.folders) {
            EXPECT_EQ(got.folders->data, tree.at(c.wantData));
            EXPECT_EQ(got.folders->user, tree.at(c.wantUser));
        }
        std::vector<std::string> looked;
        for (const std::string& l : c.looked) looked.push_back(tree.at(l));
        EXPECT_EQ(got.looked, looked);
    }
}

TEST(GamePaths, OwnFilesGoToTheUserFolderWhichTheFirstWriteMakes) {
    TempTree tree;
    tree.dataIn("share/fendle");
    const std::string user = tree.at("home/.local/share/fendle");
    useGameFolders({tree.at("share/fendle"), user});

    EXPECT_EQ(gamePath("text\\text.csv"), tree.at("share/fendle/text/text.csv"));
    EXPECT_EQ(gamePath("counters\\blre2.bmp"), tree.at("share/fendle/counters/blre2.bmp"));
    for (std::string_view own : {numlangFile, countermarksFile, std::string_view("lastgame.inf"), std::string_view("highscores.txt")})
        EXPECT_EQ(gamePath(own), user + "/" + std::string(own));
    EXPECT_EQ(gamePath("lastgame.inf", "/elsewhere"), "/elsewhere/lastgame.inf");

    const auto entries = [](const std::string& folder) {
        return std::distance(fs::directory_iterator(folder), fs::directory_iterator());
    };
    ASSERT_FALSE(fs::exists(tree.at("home")));
    ASSERT_TRUE(writeNumlang(gamePath(numlangFile), 2));
    EXPECT_EQ(readFileBytes(user + "/numlang.txt"), "2\r\n");
    struct stat st {};
    ASSERT_EQ(::stat(user.c_str(), &st), 0);
    EXPECT_EQ(st.st_mode & 0777, 0700u) << "the user's folder is the user's alone";
    EXPECT_EQ(entries(tree.at("share/fendle")), 1) << "nothing is written into the data folder";
    ASSERT_TRUE(writeFileAtomic(gamePath(numlangFile), "5\r\n"));
    EXPECT_EQ(readFileBytes(user + "/numlang.txt"), "5\r\n");
    EXPECT_EQ(entries(user), 1) << "no temporary file is left beside it";
    EXPECT_FALSE(readFileBytes(user + "/missing.txt").has_value());

    // A folder where the file should be: the new file cannot take its place.
    fs::create_directories(user + "/highscores.txt/inside");
    std::string error;
    EXPECT_FALSE(writeFileAtomic(gamePath("highscores.txt"), "x\r\n", &error));
    EXPECT_FALSE(error.empty());
    EXPECT_TRUE(fs::is_directory(user + "/highscores.txt/inside"));
    EXPECT_EQ(entries(user), 2) << "nor after a failed one";
    // Only the user folder is made: a missing folder elsewhere stays a failure.
    EXPECT_FALSE(writeFileAtomic(tree.at("share/fendle/missing/lastgame.inf"), "x"));
    EXPECT_FALSE(fs::exists(tree.at("share/fendle/missing")));
}

TEST(GamePaths, TheUserFolderIsTheStateFolderAndTakesOverTheOldOne) {
    const auto env = [](const char* state) {
        return [state](const char* name) { return std::string(std::string_view(name) == "HOME" ? "/home/p" : state); };
    };
    EXPECT_EQ(userStateFolder(env("")), "/home/p/.local/state/fendle");
    EXPECT_EQ(userStateFolder(env("/var/st")), "/var/st/fendle");
    EXPECT_EQ(userStateFolder(env("rel/st")), "/home/p/.local/state/fendle") << "a relative path is not taken";

    // The old folder is also the data folder of an install under ~/.local.
    // The new folder has a high-score table already: the old one stays.
    // Moved within one file system, and onto another (/dev/shm) where there is one.
    for (const bool acrossFileSystems : {false, true}) {
        SCOPED_TRACE(acrossFileSystems ? "across file systems" : "on one file system");
        TempTree tree;
        const fs::path elsewhere = fs::path("/dev/shm") / ("fendle_paths_" + std::to_string(::getpid()));
        if (acrossFileSystems && !fs::is_directory("/dev/shm")) continue;
        const std::string old = tree.at("share/fendle");
        const std::string now = acrossFileSystems ? (elsewhere / "state/fendle").string() : tree.at("state/fendle");
        tree.dataIn("share/fendle");
        for (const char* name : {"numlang.txt", "lastgame.inf", "highscores.txt"})
            std::ofstream(old + "/" + name) << "old " << name;
        fs::create_directories(now);
        std::ofstream(now + "/highscores.txt") << "new";

        EXPECT_EQ(moveOwnFiles(old, now), (std::vector<std::string>{"numlang.txt", "lastgame.inf"}));
        EXPECT_EQ(readFileBytes(now + "/numlang.txt"), "old numlang.txt");
        EXPECT_EQ(readFileBytes(now + "/lastgame.inf"), "old lastgame.inf");
        EXPECT_EQ(readFileBytes(now + "/highscores.txt"), "new");
        EXPECT_EQ(readFileBytes(old + "/highscores.txt"), "old highscores.txt");
        EXPECT_FALSE(fs::exists(old + "/numlang.txt") || fs::exists(old + "/lastgame.inf"));
        EXPECT_TRUE(fs::exists(old + "/text/text.csv"));
        EXPECT_TRUE(moveOwnFiles(old, now).empty());
        fs::remove_all(elsewhere);
    }
}

}  // namespace
}  // namespace fendle
