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
    std::size_t at = 0;
    while (at < text.size()) {
        const std::size_t end = text.find("\r\n", at);
        out.push_back(text.substr(at, end - at));
        at = end + 2;
    }
    return out;
}

std::string join(const std::vector<std::string>& ls) {
    std::string text;
    for (const std::string& l : ls) text += l + "\r\n";
    return text;
}

// A board as it stands after some moves of a game.
struct Board {
    ModuleState module;
    BoardModel model;
    i16 turn = 0;
};

Board threePlayerTimedGame() {
    Board b;
    b.module.nplayers = 3;
    b.module.computerlevel = 0;
    b.module.timeallowed = 600;
    b.module.soundon = 0;
    b.module.greyback = 1;
    b.module.boardowner[1] = 1;
    b.module.boardowner[2] = 2;
    b.module.boardowner[17] = 3;
    b.module.boardowner[100] = 1;
    b.turn = 7;
    b.model.Label5[5].caption = "5000";
    b.model.Label6[1].caption = "520";
    b.model.Label6[2].caption = "10";
    b.model.Label6[3].caption = "220";
    b.model.Label6[4].caption = "";
    b.model.Label12[0].caption = "431";
    b.model.Label12[1].caption = "0";   // red is out of time
    b.model.Label12[2].caption = "598";
    b.model.Label12[3].caption = "2000";
    return b;
}

Board twoPlayerComputerGame() {
    Board b;
    b.module.nplayers = 2;
    b.module.computerlevel = 3;
    b.module.timeallowed = 0;
    b.module.soundon = 1;
    b.module.greyback = 0;
    b.module.boardowner[50] = 2;
    b.module.boardowner[51] = 1;
    b.turn = 2;
    b.model.Label5[5].caption = "5000";
    b.model.Label6[1].caption = "100";
    b.model.Label6[2].caption = "200";
    for (auto& clock : b.model.Label12) clock.caption = "2000";
    return b;
}

TEST(Lastgame, SaveThenReadGivesTheSameGame) {
    for (const Board& b : {threePlayerTimedGame(), twoPlayerComputerGame()}) {
        SCOPED_TRACE(b.module.nplayers);
        const SavedGame saved = makeSavedGame(b.module, b.turn, b.model);
        const std::string text = lastgameText(saved);
        const auto ls = lines(text);
        ASSERT_EQ(ls.size(), 215u);
        EXPECT_EQ(text.size(), [&] { std::size_t n = 0; for (const auto& l : ls) n += l.size() + 2; return n; }());
        const auto read = readLastgame(text);
        ASSERT_TRUE(read.has_value());
        EXPECT_EQ(*read, saved);

        ModuleState restored;
        ASSERT_TRUE(restoreLastgame(text, restored));
        for (int i = 1; i <= 100; ++i) EXPECT_EQ(restored.boardowner[i], b.module.boardowner[i]) << i;
        EXPECT_EQ(restored.nplayers, b.module.nplayers);
        EXPECT_EQ(restored.computerlevel, b.module.computerlevel);
        EXPECT_EQ(restored.savedturn, b.turn);
        EXPECT_EQ(restored.targetscore, 5000);
        EXPECT_EQ(restored.timeallowed, b.module.timeallowed);
        EXPECT_EQ(restored.soundon, b.module.soundon);
        EXPECT_EQ(restored.greyback, b.module.greyback);
        for (int p = 1; p <= 4; ++p) {
            const std::string& score = b.model.Label6[p].caption;
            EXPECT_EQ(restored.savedscores[p], score.empty() ? 0 : std::stoi(score)) << p;
            EXPECT_EQ(restored.savedseconds[p], std::stoi(b.model.Label12[p - 1].caption)) << p;
        }
    }
}

TEST(Lastgame, LinesStandInTheirPlaces) {
    const Board b = threePlayerTimedGame();
    const auto ls = lines(lastgameText(makeSavedGame(b.module, b.turn, b.model)));
    ASSERT_EQ(ls.size(), 215u);
    EXPECT_EQ(ls[0], "1");
    EXPECT_EQ(ls[1], "1");     // hexagon 1: blue
    EXPECT_EQ(ls[32], "17");
    EXPECT_EQ(ls[33], "3");    // hexagon 17: green
    EXPECT_EQ(ls[199], "1");   // hexagon 100: blue
    EXPECT_EQ(ls[200], "3");
    EXPECT_EQ(ls[201], "0");
    EXPECT_EQ(ls[202], "7");
    EXPECT_EQ(ls[203], "5000");
    EXPECT_EQ(ls[204], "520");
    EXPECT_EQ(ls[207], "");    // yellow has not scored
    EXPECT_EQ(ls[208], "600");
    EXPECT_EQ(ls[210], "0");
    EXPECT_EQ(ls[213], "0");
    EXPECT_EQ(ls[214], "1");
}

TEST(Lastgame, TwoPlayerFileHasEmptyLines207And208ThatReadAsZero) {
    const Board b = twoPlayerComputerGame();
    const std::string text = lastgameText(makeSavedGame(b.module, b.turn, b.model));
    const auto ls = lines(text);
    EXPECT_EQ(ls[206], "");
    EXPECT_EQ(ls[207], "");
    ModuleState restored;
    restored.savedscores = {9, 9, 9, 9, 9};
    ASSERT_TRUE(restoreLastgame(text, restored));
    EXPECT_EQ(restored.savedscores[3], 0);
    EXPECT_EQ(restored.savedscores[4], 0);
    EXPECT_EQ(restored.savedscores[2], 200);
}

TEST(Lastgame, FilesThatNoSaveWritesChangeNothing) {
    const Board b = threePlayerTimedGame();
    const auto good = lines(lastgameText(makeSavedGame(b.module, b.turn, b.model)));
    // Line numbers are 1-based, as in the file.
    const auto set = [](int line, std::string value) {
        return [=](std::vector<std::string>& ls) { ls[static_cast<std::size_t>(line - 1)] = value; };
    };
    struct Damage {
        const char* name;
        std::function<void(std::vector<std::string>&)> apply;
    };
    const std::vector<Damage> damages = {
        {"owner above 4", set(2, "5")},
        {"owner below 0", set(4, "-1")},
        {"owner not in a game of three", set(6, "4")},
        {"no players", set(201, "0")},
        {"five players", set(201, "5")},
        {"computer level 4", set(202, "4")},
        {"computer level below 0", set(202, "-1")},
        {"a computer in a game of three", set(202, "2")},
        {"turn 0: never saved", set(203, "0")},
        {"negative turn", set(203, "-3")},
        {"score too large for 16 bits", set(205, "40000")},
        {"owner far too large", set(8, "70000")},
        {"seconds too large for 16 bits", set(210, "32768")},
        {"hexagon line out of step", set(7, "5")},
        {"hexagon line empty", set(9, "")},
        {"a line lost in the middle", [](auto& ls) { ls.erase(ls.begin() + 120); }},
        {"last line missing", [](auto& ls) { ls.pop_back(); }},
        {"only half the file", [](auto& ls) { ls.resize(100); }},
        {"clock of 3 seconds", set(209, "3")},
        {"clock beyond the time box", set(209, "10000")},
        {"negative clock", set(209, "-600")},
        {"seconds below 0", set(211, "-1")},
        {"score below 0", set(206, "-10")},
        {"sound 2", set(214, "2")},
        {"backdrop 7", set(215, "7")},
        {"nobody out of time without clocks",
         [](auto& ls) { ls[208] = "0"; ls[210] = "0"; }},
        {"empty file", [](auto& ls) { ls.clear(); }},
    };
    for (const Damage& d : damages) {
        SCOPED_TRACE(d.name);
        auto ls = good;
        d.apply(ls);
        ModuleState module;
        module.boardowner[42] = 4;
        module.nplayers = 4;
        module.computerlevel = 0;
        module.savedturn = 11;
        module.timeallowed = 300;
        module.savedscores[1] = 77;
        module.savedseconds[2] = 66;
        module.soundon = 1;
        module.greyback = 1;
        EXPECT_FALSE(restoreLastgame(join(ls), module));
        EXPECT_EQ(module.boardowner[42], 4);
        EXPECT_EQ(module.boardowner[1], 0);
        EXPECT_EQ(module.nplayers, 4);
        EXPECT_EQ(module.savedturn, 11);
        EXPECT_EQ(module.timeallowed, 300);
        EXPECT_EQ(module.savedscores[1], 77);
        EXPECT_EQ(module.savedseconds[2], 66);
        EXPECT_EQ(module.soundon, 1);
    }
    ModuleState module;
    EXPECT_FALSE(restoreLastgame(std::nullopt, module));
}

TEST(Lastgame, FilesThatASaveCanWriteAreRestored) {
    const Board b = threePlayerTimedGame();
    const auto good = lines(lastgameText(makeSavedGame(b.module, b.turn, b.model)));
    struct Variant {
        const char* name;
        std::string text;
        int expectedScore1;
    };
    auto notANumber = good;
    notANumber[204] = "abc";   // a field that is not a number reads as 0
    auto fraction = good;
    fraction[204] = "2.5";
    const std::vector<Variant> variants = {
        {"as written", join(good), 520},
        {"line feeds alone", [&] { std::string t; for (const auto& l : good) t += l + "\n"; return t; }(), 520},
        {"no line end after the last line", join(good).substr(0, join(good).size() - 2), 520},
        {"more behind line 215", join(good) + "junk\r\n1,2,3\r\n", 520},
        {"a score that is not a number", join(notANumber), 0},
        {"a fraction rounds half to even", join(fraction), 2},
        {"Windows-1252 bytes after the last line", join(good) + "\xE9\xE8", 520},
    };
    for (const Variant& v : variants) {
        SCOPED_TRACE(v.name);
        ModuleState module;
        ASSERT_TRUE(restoreLastgame(v.text, module));
        EXPECT_EQ(module.savedscores[1], v.expectedScore1);
        EXPECT_EQ(module.boardowner[17], 3);
        EXPECT_EQ(module.savedseconds[2], 0);
    }
}

}  // namespace
}  // namespace fendle
