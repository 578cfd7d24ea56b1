#include "saved/highscores.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace fendle {
namespace {

HighScores table(std::array<i16, 10> points) {
    HighScores t;
    for (int r = 0; r < 10; ++r) {
        t.highpoints[r] = points[r];
        t.highnames[r] = points[r] ? std::string(1, static_cast<char>('a' + r)) : "";
    }
    return t;
}

TEST(HighScores, RankingOfAGamesScore) {
    struct Case {
        const char* name;
        std::array<i16, 10> before;
        i16 computerlevel;
        std::array<int, 5> scorebox;   // players 1 to 4 at 1 to 4
        i16 newhighrow;
        std::array<i16, 10> after;
        std::string namesAfter;        // one letter a row, '.' for an empty name
    };
    const std::array<i16, 10> full = {500, 400, 300, 200, 100, 500, 400, 300, 200, 100};
    const std::vector<Case> cases = {
        {"first game with points, no file", {}, 0, {0, 0, 90, 0, 0}, 1, {90}, ".........."},
        {"four players: only the best, once", {}, 0, {0, 120, 300, 300, 50}, 1, {300}, ".........."},
        {"nobody scored", {}, 0, {0, 0, 0, 0, 0}, 0, {}, ".........."},
        {"equal to the fifth row does not enter", full, 0, {0, 100, 0, 0, 0}, 0, full, "abcdefghij"},
        {"equal to the best goes right under it", full, 0, {0, 500, 0, 0, 0}, 2,
         {500, 500, 400, 300, 200, 500, 400, 300, 200, 100}, "abbcdfghij"},
        {"above only the last row replaces it in place", full, 0, {0, 0, 150, 0, 0}, 5,
         {500, 400, 300, 200, 150, 500, 400, 300, 200, 100}, "abcdefghij"},
        {"a new best pushes all down", full, 0, {0, 0, 0, 0, 999}, 1,
         {999, 500, 400, 300, 200, 500, 400, 300, 200, 100}, "aabcdfghij"},
        {"against the computer Blue counts, even losing", full, 2, {0, 350, 900, 0, 0}, 8,
         {500, 400, 300, 200, 100, 500, 400, 350, 300, 200}, "abcdefghhi"},
        {"the computer's score never enters", {}, 1, {0, 0, 900, 0, 0}, 0, {}, ".........."},
        {"sections never compete", {500, 400, 300, 200, 100}, 3, {0, 10, 0, 0, 0}, 6,
         {500, 400, 300, 200, 100, 10}, "abcde....."},
        {"a solo game is open play", {0, 0, 0, 0, 0, 900}, 0, {0, 40, 0, 0, 0}, 1, {40, 0, 0, 0, 0, 900},
         ".....f...."},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        HighScores t = table(c.before);
        EXPECT_EQ(checkhighscore(t, c.computerlevel, c.scorebox), c.newhighrow);
        for (int r = 0; r < 10; ++r) {
            EXPECT_EQ(t.highpoints[r], c.after[r]) << "row " << r;
            const std::string expectedName = c.namesAfter[r] == '.' ? "" : std::string(1, c.namesAfter[r]);
            EXPECT_EQ(t.highnames[r], expectedName) << "row " << r;
        }
    }
}

TEST(HighScores, FileHoldsNameThenPrintFormScore) {
    HighScores t = table({250, 0, 0, 0, 0, 1000});
    t.highpoints[1] = -3;
    const std::string text = highscoresText(t);
    EXPECT_EQ(text.substr(0, 17), "a\r\n 250 \r\n\r\n-3 \r\n");
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 20);
    EXPECT_NE(text.find("\r\nf\r\n 1000 \r\n"), std::string::npos);
    EXPECT_EQ(text.substr(text.size() - 5), " 0 \r\n");
}

TEST(HighScores, NamesSurviveAWriteAndARead) {
    const auto times = [](int n, const char* s) {
        std::string out;
        while (n--) out += s;
        return out;
    };
    const std::pair<std::string, std::string> cases[] = {
        {"Smith, Anna", "Smith, Anna"},
        {"  Bo  ", "  Bo  "},
        {"say \"hi\"", "say hi"},
        {"\"", ""},
        {",", ","},
        {"two\r\nlines", "twolines"},
        {times(30, "x"), times(25, "x")},
        {times(30, "\xC3\xA9"), times(25, "\xC3\xA9")},   // 25 letters, 50 bytes
        {"Zo\xC3\xAB \xE2\x80\x99s", "Zo\xC3\xAB \xE2\x80\x99s"},
        {"\xEF\xBB\xBF" "Al\xEF\xBB\xBFi", "Ali"},   // U+FEFF, which a file start would lose
        {"", ""},
    };
    for (const auto& [typed, kept] : cases) {
        SCOPED_TRACE(typed);
        HighScores t = table({300, 200});
        enterName(t, 2, typed);
        EXPECT_EQ(t.highnames[1], kept);
        HighScores back;
        readHighScores(highscoresText(t), back);
        EXPECT_EQ(back, t);
    }
}

TEST(HighScores, ReadingAShortOrDamagedFile) {
    const HighScores before = table({9, 9, 9, 9, 9, 9, 9, 9, 9, 9});
    HighScores t = before;
    readHighScores(std::nullopt, t);
    EXPECT_EQ(t, before);
    // Two rows and a name, then the file ends: the rest stay as they were.
    readHighScores(std::string_view("Ann\r\n 300 \r\nBen\r\n 200 \r\nCy\r\n"), t);
    EXPECT_EQ(t.highnames[2], "Cy");
    EXPECT_EQ(t.highpoints[1], 200);
    EXPECT_EQ(t.highpoints[2], 9);
    EXPECT_EQ(t.highnames[3], "d");
    // A score too large for 16 bits leaves that row's score; reading goes on.
    // A score that is not a number reads as 0: the row is free.
    t = before;
    readHighScores(std::string_view("Ann\r\n 99999 \r\nBen\r\nlots\r\n"), t);
    EXPECT_EQ(t.highnames[1], "Ben");
    EXPECT_EQ(t.highpoints[0], 9);
    EXPECT_EQ(t.highpoints[1], 0);
}

}  // namespace
}  // namespace fendle
