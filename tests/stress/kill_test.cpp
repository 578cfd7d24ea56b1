// A save killed with SIGKILL at random moments, hundreds of times: the file
// on disk is always one whole game, the old one or the new one.
#include <gtest/gtest.h>

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <random>
#include <string>

#include "saved/lastgame.h"
#include "text/file_io.h"

namespace fendle {
namespace {

SavedGame gameWithTurn(int turn, int owner) {
    SavedGame g;
    g.nplayers = 2;
    g.turn = static_cast<i16>(turn);
    for (int n = 1; n <= 100; n += 3) g.boardowner[static_cast<std::size_t>(n)] = static_cast<i16>(owner);
    g.scores[1] = static_cast<i16>(10 * turn);
    for (auto& s : g.seconds) s = 2000;
    return g;
}

TEST(KilledWhileSaving, TheFileIsAlwaysOneWholeGame) {
    char folder[] = "/tmp/fendle-kill-XXXXXX";
    ASSERT_NE(::mkdtemp(folder), nullptr);
    const std::string path = std::string(folder) + "/lastgame.inf";
    const SavedGame a = gameWithTurn(7, 1), b = gameWithTurn(8, 2);
    const std::string textA = lastgameText(a), textB = lastgameText(b);
    ASSERT_TRUE(writeLastgame(path, a));

    std::mt19937 rng(29);
    int sawA = 0, sawB = 0;
    for (int round = 0; round < 300; ++round) {
        int ready[2];
        ASSERT_EQ(::pipe(ready), 0);
        const pid_t child = ::fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            // Saves the two games in turn until it is killed, and says so
            // once the first save is on disk.
            for (int i = 0;; ++i) {
                writeLastgame(path, i % 2 ? a : b);
                if (i == 0 && ::write(ready[1], "x", 1) != 1) ::_exit(1);
            }
        }
        char byte = 0;
        ASSERT_EQ(::read(ready[0], &byte, 1), 1);
        ::close(ready[0]);
        ::close(ready[1]);
        ::usleep(static_cast<useconds_t>(rng() % 4000));
        ::kill(child, SIGKILL);
        int status = 0;
        ::waitpid(child, &status, 0);
        const auto bytes = readFileBytes(path);
        ASSERT_TRUE(bytes) << "round " << round;
        ASSERT_TRUE(*bytes == textA || *bytes == textB) << "round " << round << ": " << bytes->size() << " bytes";
        ASSERT_TRUE(readLastgame(*bytes)) << "round " << round;
        (*bytes == textA ? sawA : sawB)++;
    }
    // The writer really was caught at work: each game was on disk at times.
    EXPECT_GT(sawA, 10);
    EXPECT_GT(sawB, 10);
    std::filesystem::remove_all(folder);
}

}  // namespace
}  // namespace fendle
