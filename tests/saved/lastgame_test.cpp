#include "saved/lastgame.h"

#include <gtest/gtest.h>

#include <tuple>
#include <string>
#include <vector>

namespace fendle {
namespace {

// The lines of a file, without their CR LF.
std::vector<std::string> lines(const std::string& text) {
    std::vector<std::string> out;
    for (std::size_t at = 0, end; at < text.size(); at = end + 2) {
        end = text.find("\r\n", at);
        if (end == std::string::npos) end = text.size();
        out.push_back(text.substr(at, end - at));
    }
    return out;
}

std::string join(const std::vector<std::string>& ls) {
    std::string text;
    for (const std::string& l : ls) text += l + "\r\n";
    return text;
}

// Every module variable that a restore writes, in one list.
std::vector<int> restored(const ModuleState& m) {
    std::vector<int> v(m.boardowner.begin() + 1, m.boardowner.end());
    v.insert(v.end(), {m.nplayers, m.computerlevel, m.savedturn, m.targetscore, m.timeallowed, m.soundon, m.greyback});
    v.insert(v.end(), m.savedscores.begin() + 1, m.savedscores.end());
    v.insert(v.end(), m.savedseconds.begin() + 1, m.savedseconds.end());
    return v;
}

// A board as it stands after some moves of a game, and the lines 201 to
// 215 that its file ends with.
struct Board {
    ModuleState module;
    BoardModel model;
    i16 turn = 0;
    std::vector<std::string> tail;
    std::string file() const { return lastgameText(makeSavedGame(module, turn, model)); }
};

Board board(std::array<const char*, 4> scores, std::array<const char*, 4> clocks) {
    Board b;
    b.model.Label5[5].caption = "5000";
    for (std::size_t p = 0; p < 4; ++p) {
        b.model.Label6[p + 1].caption = scores[p];
        b.model.Label12[p].caption = clocks[p];
    }
    return b;
}

Board threePlayerTimedGame() {
    Board b = board({"520", "10", "220", ""}, {"431", "0", "598", "2000"});   // yellow has not scored; red is out of time
    b.module.nplayers = 3;
    b.module.timeallowed = 600;
    b.module.soundon = 0;
    b.module.greyback = 1;
    b.module.boardowner[1] = b.module.boardowner[100] = 1;
    b.module.boardowner[2] = 2;
    b.module.boardowner[17] = 3;
    b.turn = 7;
    b.tail = {"3", "0", "7", "5000", "520", "10", "220", "", "600", "431", "0", "598", "2000", "0", "1"};
    return b;
}

Board twoPlayerComputerGame() {
    Board b = board({"100", "200", "", ""}, {"2000", "2000", "2000", "2000"});   // no clocks
    b.module.nplayers = 2;
    b.module.computerlevel = 3;
    b.module.boardowner[50] = 2;
    b.module.boardowner[51] = 1;
    b.turn = 2;
    b.tail = {"2", "3", "2", "5000", "100", "200", "", "", "0", "2000", "2000", "2000", "2000", "1", "0"};
    return b;
}

TEST(Lastgame, EveryLineStandsInItsPlaceAndReadsBack) {
    for (const Board& b : {threePlayerTimedGame(), twoPlayerComputerGame()}) {
        SCOPED_TRACE(b.module.nplayers);
        std::vector<std::string> expected;   // each hexagon's number and owner, then the game
        for (int i = 1; i <= 100; ++i) expected.insert(expected.end(), {std::to_string(i), std::to_string(b.module.boardowner[i])});
        expected.insert(expected.end(), b.tail.begin(), b.tail.end());
        const std::string text = b.file();
        EXPECT_EQ(lines(text), expected);
        EXPECT_EQ(join(expected), text);   // every line ends in CR LF
        // Read back, the turn, the target and the captions go to the saved variables.
        ModuleState want = b.module;
        want.savedturn = b.turn;
        want.targetscore = 5000;
        for (std::size_t p = 1; p <= 4; ++p) {
            want.savedscores[p] = static_cast<i16>(std::atoi(b.tail[3 + p].c_str()));
            want.savedseconds[p] = static_cast<i16>(std::atoi(b.tail[8 + p].c_str()));
        }
        ModuleState module;
        ASSERT_TRUE(restoreLastgame(text, module));
        EXPECT_EQ(restored(module), restored(want));
    }
}

TEST(Lastgame, OnlyFilesThatASaveCanWriteAreRestored) {
    const auto good = lines(threePlayerTimedGame().file());
    // The file with some lines changed, numbered from 1 as in the file.
    const auto with = [&](std::initializer_list<std::pair<int, const char*>> changes) {
        auto ls = good;
        for (const auto& [line, value] : changes) ls[static_cast<std::size_t>(line - 1)] = value;
        return join(ls);
    };
    auto lost = good, cut = good;
    lost.erase(lost.begin() + 120);
    cut.pop_back();
    // Each file and the score of player 1 once it is restored; -1: it changes nothing.
    const std::tuple<const char*, std::string, int> files[] = {
        {"owner not in a game of three", with({{6, "4"}}), -1},
        {"owner below 0", with({{4, "-1"}}), -1},
        {"no players", with({{201, "0"}}), -1},
        {"five players", with({{201, "5"}}), -1},
        {"computer level 4", with({{202, "4"}}), -1},
        {"computer level below 0", with({{202, "-1"}}), -1},
        {"a computer in a game of three", with({{202, "2"}}), -1},
        {"turn 0: never saved", with({{203, "0"}}), -1},
        {"turn one past the board's bound", with({{203, "32001"}}), -1},
        {"a score above every reward and bonus", with({{205, "26961"}}), -1},
        {"score too large for 16 bits", with({{205, "40000"}}), -1},
        {"hexagon line out of step", with({{7, "5"}}), -1},
        {"a line lost in the middle", join(lost), -1},
        {"last line missing", join(cut), -1},
        {"clock of 3 seconds", with({{209, "3"}}), -1},
        {"clock beyond the time box", with({{209, "10000"}}), -1},
        {"seconds below 0", with({{211, "-1"}}), -1},
        {"score below 0", with({{206, "-10"}}), -1},
        {"sound 2", with({{214, "2"}}), -1},
        {"backdrop 7", with({{215, "7"}}), -1},
        {"nobody out of time without clocks", with({{209, "0"}, {211, "0"}}), -1},
        {"no line end after the last line", join(good).substr(0, join(good).size() - 2), 520},
        {"more behind line 215", join(good) + "junk\r\n1,2,3\r\n", 520},
        // 14460 for every reward, 75 x 100 + 25 x 200 for every bonus
        {"the highest score and turn a board can hold", with({{205, "26960"}, {203, "32000"}}), 26960},
    };
    ModuleState before;
    before.boardowner[42] = 4;
    before.nplayers = 4;
    before.savedturn = 11;
    before.timeallowed = 300;
    before.savedscores[1] = 77;
    before.savedseconds[2] = 66;
    for (const auto& [name, text, score1] : files) {
        SCOPED_TRACE(name);
        ModuleState module = before;
        EXPECT_EQ(restoreLastgame(text, module), score1 >= 0);
        if (score1 < 0) {
            EXPECT_EQ(restored(module), restored(before));
        } else {
            EXPECT_EQ(module.savedscores[1], score1);
            EXPECT_EQ(module.boardowner[17], 3);
            EXPECT_EQ(module.savedseconds[2], 0);
        }
    }
    ModuleState module;
    EXPECT_FALSE(restoreLastgame(std::nullopt, module));
}

}  // namespace
}  // namespace fendle
