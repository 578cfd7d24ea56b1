#include "saved/lastgame.h"

#include <gtest/gtest.h>

#include <functional>
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

TEST(Lastgame, FilesThatNoSaveWritesChangeNothing) {
    const auto good = lines(threePlayerTimedGame().file());
    // Line numbers from 1, as in the file.
    const auto set = [](int line, std::string value) {
        return [=](std::vector<std::string>& ls) { ls[static_cast<std::size_t>(line - 1)] = value; };
    };
    const std::pair<const char*, std::function<void(std::vector<std::string>&)>> damages[] = {
        {"owner not in a game of three", set(6, "4")},
        {"owner below 0", set(4, "-1")},
        {"no players", set(201, "0")},
        {"five players", set(201, "5")},
        {"computer level 4", set(202, "4")},
        {"computer level below 0", set(202, "-1")},
        {"a computer in a game of three", set(202, "2")},
        {"turn 0: never saved", set(203, "0")},
        {"turn one past the board's bound", set(203, "32001")},
        {"a score above every reward and bonus", set(205, "26961")},
        {"score too large for 16 bits", set(205, "40000")},
        {"hexagon line out of step", set(7, "5")},
        {"a line lost in the middle", [](auto& ls) { ls.erase(ls.begin() + 120); }},
        {"last line missing", [](auto& ls) { ls.pop_back(); }},
        {"clock of 3 seconds", set(209, "3")},
        {"clock beyond the time box", set(209, "10000")},
        {"seconds below 0", set(211, "-1")},
        {"score below 0", set(206, "-10")},
        {"sound 2", set(214, "2")},
        {"backdrop 7", set(215, "7")},
        {"nobody out of time without clocks", [untimed = set(209, "0"), noSeconds = set(211, "0")](auto& ls) {
             untimed(ls);
             noSeconds(ls);
         }},
    };
    ModuleState before;
    before.boardowner[42] = 4;
    before.nplayers = 4;
    before.savedturn = 11;
    before.timeallowed = 300;
    before.savedscores[1] = 77;
    before.savedseconds[2] = 66;
    for (const auto& [name, damage] : damages) {
        SCOPED_TRACE(name);
        auto ls = good;
        damage(ls);
        ModuleState module = before;
        EXPECT_FALSE(restoreLastgame(join(ls), module));
        EXPECT_EQ(restored(module), restored(before));
    }
    ModuleState module;
    EXPECT_FALSE(restoreLastgame(std::nullopt, module));
}

TEST(Lastgame, FilesThatASaveCanWriteAreRestored) {
    const auto good = lines(threePlayerTimedGame().file());
    auto highest = good;   // 14460 for every reward, 75 x 100 + 25 x 200 for every bonus
    highest[204] = "26960";
    highest[202] = "32000";
    const struct {
        const char* name;
        std::string text;
        int score1;
    } variants[] = {
        {"no line end after the last line", join(good).substr(0, join(good).size() - 2), 520},
        {"more behind line 215", join(good) + "junk\r\n1,2,3\r\n", 520},
        {"the highest score and turn a board can hold", join(highest), 26960},
    };
    for (const auto& v : variants) {
        SCOPED_TRACE(v.name);
        ModuleState module;
        ASSERT_TRUE(restoreLastgame(v.text, module));
        EXPECT_EQ(module.savedscores[1], v.score1);
        EXPECT_EQ(module.boardowner[17], 3);
        EXPECT_EQ(module.savedseconds[2], 0);
    }
}

}  // namespace
}  // namespace fendle
