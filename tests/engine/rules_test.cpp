// The rules of a turn, the bonus, the path, the clock and the computer, each
// checked on a board run by the virtual clock.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "harness.h"
#include "rhombus.h"

namespace fendle {
namespace {

using testing::Board;
std::size_t at(int i) { return static_cast<std::size_t>(i); }

// ------------------------------------------------------------------ path

const std::vector<int> edgePath = {1, 3, 6, 10, 15, 21, 28, 36, 45, 55, 64, 72, 79, 85, 90, 94, 97, 99, 100};

TEST(Path, TheWalkSeesAPathExactlyWhenOneExists) {
    // Random boards that hold 1 and 100, from sparse to crowded, the counters
    // laid in a random order.
    std::mt19937 rng(20261123);
    int joined = 0, apart = 0;
    for (int trial = 0; trial < 10000; ++trial) {
        const double density = 0.3 + 0.5 * std::uniform_real_distribution<double>(0, 1)(rng);
        std::array<bool, 101> covered{};
        std::vector<int> order = {1, 100};
        covered[1] = covered[100] = true;
        for (int n = 2; n <= 99; ++n)
            if (std::uniform_real_distribution<double>(0, 1)(rng) < density) {
                covered[at(n)] = true;
                order.push_back(n);
            }
        std::shuffle(order.begin(), order.end(), rng);
        const bool expected = testing::joinsTheEnds(covered);
        (expected ? joined : apart)++;

        Board b(2, 0, 0, 0);
        b.f().turn = 0;
        for (int n : order) b.cover({n});
        b.f().checkendofgame();
        ASSERT_EQ(b.f().pathfound != 0, expected) << "trial " << trial;
    }
    EXPECT_GT(joined, 2000);
    EXPECT_GT(apart, 2000);
}

TEST(Path, TheLastMoverGetsTheBonusAndItCanTurnTheResult) {
    Board b(2);
    // 18 counters of the path in mixed colours, laid without moves.
    for (std::size_t k = 0; k + 1 < edgePath.size(); ++k) b.cover({edgePath[k]}, 1 + static_cast<int>(k % 2));
    b.m().Label6[1].caption = "1200";
    b.f().redscore = 600;
    b.m().Label6[2].caption = "600";
    b.f().turn = 0;   // red to move
    b.f().Timer1_Timer();
    b.throwDice({1, 1, 1, 1});
    b.f().search.allowed[100] = 1.0;   // 100 is worth 500: red has 1100 and completes the path
    b.f().Label1_Click(100);
    b.clock.advance(2000);
    EXPECT_EQ(b.f().winner, 2);
    EXPECT_EQ(b.m().Label2.caption, "Game Over");
    EXPECT_EQ(b.module.soundon, 0);
    EXPECT_EQ(std::count(b.sound.played.begin(), b.sound.played.end(), "wav\\crowd.wav"), 1);
    b.clock.advance(2000);
    EXPECT_EQ(b.m().Label2.caption, "+500 Red");
    EXPECT_EQ(b.m().Label6[2].caption, "1600");
    b.clock.advance(2000);
    EXPECT_EQ(b.f().winner, 2);
    EXPECT_EQ(b.m().Label2.caption, "Red wins");
    b.f().Label1_Click(50);
    EXPECT_TRUE(b.m().Label1[50].visible) << "numbers ignore clicks once the game is over";
}

TEST(Path, TiedHighestScoresAreADraw) {
    struct Case {
        std::array<int, 4> scores;
        int winner;
    };
    const Case cases[] = {
        {{500, 500, 0, 0}, 5},
        {{500, 300, 300, 0}, 1},      // a tie below the highest changes nothing
        {{100, 200, 300, 400}, 4},
        {{0, 0, 0, 0}, 5},
    };
    for (const Case& c : cases) {
        Board b(4);
        for (int p = 0; p < 4; ++p) b.m().Label6[at(p + 1)].caption = c.scores[at(p)] ? std::to_string(c.scores[at(p)]) : "";
        b.f().Timer11_Timer();
        EXPECT_EQ(b.f().winner, c.winner);
        if (c.winner == 5) {
            EXPECT_EQ(b.m().Label2.caption, "It's a draw");
            EXPECT_EQ(b.m().Label2.fore, colour::black);
        }
    }
}

// ------------------------------------------------------------------ the turn

TEST(Turn, DiceComeToRestOneByOne) {
    // The first die stands 1500 ms after the throw with sound, 300 without;
    // the others follow 250 ms apart, and the spinning stops with the last.
    for (const int soundon : {1, 0}) {
        Board b(1, 0, 0, soundon);
        b.random.script(Board::drawsFor({6, 5, 4, 3}));
        b.f().Label3_Click(button::throwDice);
        for (int d = 0; d < 4; ++d) {
            b.clock.advance((d > 0 ? 250 : soundon ? 1500 : 300) - 1);
            EXPECT_EQ(b.module.dicerevealed, d) << "sound " << soundon;
            b.clock.advance(1);
            EXPECT_EQ(b.module.dicerevealed, d + 1) << "sound " << soundon;
        }
        b.clock.advance(100);
        EXPECT_FALSE(b.running(Timer8) || b.running(Timer5));
        for (int d = 0; d < 4; ++d) EXPECT_EQ(b.m().Label4[at(d)].caption, std::to_string(6 - d));
    }
}

TEST(Turn, MovesScoreByZoneWithTheirSoundsAndPictures) {
    // Each zone from its first number: prefix, reward, and the sound and
    // counter of a move on that number.
    const struct { int first; std::string prefix; int reward; const char *sound, *picture; } zones[] = {
        {1, "co", 10, "wav\\click1.wav", "counters\\cobl1.bmp"},   {16, "cy", 20, "wav\\click.wav", "counters\\cybl1.bmp"},
        {29, "ye", 50, "wav\\space.wav", "counters\\yebl2.bmp"},   {46, "bl", 100, "wav\\key.wav", "counters\\blbl1.bmp"},
        {65, "gr", 200, "wav\\boom.wav", "counters\\grbl1.bmp"},   {80, "ma", 300, "wav\\subping.wav", "counters\\mabl1.bmp"},
        {91, "re", 500, "wav\\laser3.wav", "counters\\rebl1.bmp"},
    };
    for (const auto& z : zones) {
        Board b(1);
        b.playAnyway(z.first);
        EXPECT_EQ(b.f().bluescore, z.reward);
        EXPECT_EQ(b.m().Label6[1].caption, std::to_string(z.reward));
        EXPECT_EQ(b.m().Label2.caption, std::to_string(z.reward) + " points");
        EXPECT_EQ(b.sound.played, std::vector<std::string>{z.sound});
        EXPECT_EQ(b.m().Image1[at(z.first)].picture, z.picture);
    }
    for (int n = 1, z = 0; n <= 100; ++n) {
        if (z < 6 && n == zones[z + 1].first) ++z;
        EXPECT_EQ(zoneOf(n).prefix, zones[z].prefix) << n;
        EXPECT_EQ(zoneOf(n).reward, zones[z].reward) << n;
    }
}

TEST(Turn, BonusMovesFlashAndPay) {
    Board b(2);
    b.cover({12, 18}, 2);
    b.playAnyway(17);   // red's counters, blue's bonus: owners don't matter
    EXPECT_EQ(b.f().bluescore, 220);
    EXPECT_EQ(b.sound.played, std::vector<std::string>{"wav\\cheer2.wav"});
    EXPECT_EQ(b.m().Image1[17].picture, "counters\\cybl2.bmp");
    EXPECT_EQ(b.m().Image3.picture, "counters\\cywh2.bmp");
}

TEST(Turn, IllegalMovesLoseTheTurn) {
    Board b(3, 0, 60);
    b.throwDice({1, 1, 1, 1});   // makes 1 to 4
    b.f().Label1_Click(50);
    EXPECT_EQ(b.f().turn, 0);
    EXPECT_TRUE(b.m().Label10.visible);
    for (const auto& clock : b.m().Label12) EXPECT_FALSE(clock.visible);
    EXPECT_EQ(b.sound.played.back(), "wav\\boink.wav");
    b.clock.advance(2000);
    EXPECT_FALSE(b.m().Label10.visible);
    for (int p = 0; p < 4; ++p) EXPECT_EQ(b.m().Label12[at(p)].visible, p < 3) << p;
    EXPECT_EQ(b.m().Label2.caption, "Red to Play");
}

TEST(Turn, ARestoredTurnAtTheBoardsBoundKeepsTheRotation) {
    // 32000 is the highest turn a saved game may hold. Eight hundred lost
    // turns later, past where 16 bits end, the player on turn still follows
    // blue, red, green, yellow: the line, the colour of the texts, the dice.
    const Rgb white{255, 255, 255}, black{0, 0, 0}, red{255, 0, 0}, green{0, 255, 0}, yellow{255, 255, 0};
    const struct { std::string line; Rgb text, face, digit; } player[] = {
        {"Blue to Play", {128, 128, 255}, {0, 0, 255}, white}, {"Red to Play", red, red, white},
        {"Green to Play", green, green, black}, {"Yellow to Play", yellow, yellow, black}};
    for (int n = 1; n <= 4; ++n) {
        Board b(n, 0, 0, 0);
        b.module.restartgame = 1;
        b.module.savedturn = 32000;
        b.module.savedseconds = {0, 2000, 2000, 2000, 2000};
        b.load();
        b.module.restartgame = 0;
        b.clock.advance(1);
        for (long moves = 0; moves <= 800; ++moves) {
            const int q = static_cast<int>((32000 + 1 + moves) % n);
            ASSERT_EQ(b.m().Label2.caption, player[q].line) << n << " players, move " << moves;
            ASSERT_EQ(b.m().Label3[button::throwDice].fore, player[q].text);
            ASSERT_EQ(b.m().Label2.fore, player[q].text);
            b.throwDice({1, 1, 1, 1});
            for (const auto& die : b.m().Label4) ASSERT_TRUE(die.back == player[q].face && die.fore == player[q].digit);
            b.f().Label1_Click(50);   // four ones cannot make 50
            ASSERT_TRUE(b.m().Label10.visible);
            b.clock.advance(2000);
        }
    }
}

// ------------------------------------------------------------------ the clock

TEST(Clock, ChargesOnlyWhileTheDiceWait) {
    Board b(2, 0, 10);
    EXPECT_EQ(b.m().Label12[0].caption, "10");
    EXPECT_TRUE(b.m().Label12[1].visible);
    EXPECT_FALSE(b.m().Label12[2].visible);
    b.throwDice({1, 1, 1, 1});                 // rolling costs nothing
    EXPECT_EQ(b.m().Label12[0].caption, "10");
    b.clock.advance(3500);                     // three full seconds
    EXPECT_EQ(b.m().Label12[0].caption, "7");
    b.f().Label1_Click(1);                     // the half second is dropped
    b.clock.advance(5000);
    EXPECT_EQ(b.m().Label12[0].caption, "7");
}

TEST(Clock, APlayerOutOfTimeDropsOut) {
    Board b(3, 0, 5);
    b.throwDice({1, 1, 1, 1});
    b.clock.advance(4999);
    EXPECT_TRUE(b.m().Label6[1].enabled);
    b.clock.advance(1);
    EXPECT_EQ(b.m().Label12[0].caption, "0");
    EXPECT_FALSE(b.m().Label6[1].enabled);
    EXPECT_EQ(b.sound.played.back(), "wav\\gong.wav");
    EXPECT_EQ(b.f().turn, -1) << "no move is made";
    b.clock.advance(2000);
    EXPECT_EQ(b.m().Label2.caption, "Red to Play");
}

TEST(Clock, WhenNobodyHasTimeLeftTheGameEnds) {
    // Players, and the message line when the last clock has run out and two
    // seconds later: with others the highest score wins, alone the game just ends.
    const struct { int players; const char* first; int winner; const char* then; } cases[] = {
        {2, "Game Over", 5, "Red wins"}, {1, "Time is up", 1, "Time is up"}};
    for (const auto& c : cases) {
        Board b(c.players, 0, 5);
        b.m().Label6[2].caption = "70";
        for (int p = 0; p < c.players; ++p) {
            b.throwDice({1, 1, 1, 1});
            b.clock.advance(5000 + 2000);
        }
        EXPECT_EQ(b.f().winner, c.winner);
        EXPECT_EQ(b.m().Label2.caption, c.first);
        b.clock.advance(2000);
        EXPECT_EQ(b.m().Label2.caption, c.then);
        EXPECT_EQ(b.screens.count("checkhighscore"), 1);
        EXPECT_TRUE(b.running(Timer3)) << "the line goes on flashing";
    }
}

// ------------------------------------------------------------------ the computer

// A board waiting for red's number with the given candidates.
void offer(Board& b, std::initializer_list<int> candidates) {
    b.f().turn = 0;
    b.f().search.allowed.fill(0);
    for (int n : candidates) b.f().search.allowed[at(n)] = 1.0;
    for (auto& die : b.m().Label4) die.enabled = true;
}

TEST(Computer, LevelThreeTakesTheBestPayingNumber) {
    struct Case {
        std::vector<int> covered;
        std::initializer_list<int> candidates;
        int chosen;
    };
    const Case cases[] = {
        {{}, {29, 30}, 29},              // equal value: the lower number
        {{25, 32}, {46, 33}, 33},        // 50 + 100 beats 100
        {{12, 18}, {17, 91}, 91},        // 20 + 200 loses to 500
        {{2, 1}, {3, 80}, 80},           // 10 + 200 loses to 300
        {{}, {64}, 64},
    };
    for (const Case& c : cases) {
        Board b(2, 3);
        for (int n : c.covered) b.cover({n});
        offer(b, c.candidates);
        b.f().Timer6_Timer();
        EXPECT_FALSE(b.m().Label1[at(c.chosen)].visible) << "expected " << c.chosen;
        EXPECT_FALSE(b.running(Timer6));
    }
}

TEST(Computer, AHumanClickInTheComputersSecondIsRedsMove) {
    Board b(2, 1);
    b.throwDice({1, 1, 1, 1});   // blue's turn
    b.f().Label1_Click(1);
    b.clock.advance(2000);        // red's turn: the computer throws at once
    EXPECT_FALSE(b.m().Label3[button::throwDice].enabled);
    b.clock.advance(2250);        // its dice are shown; Timer6 waits a second
    ASSERT_TRUE(b.running(Timer6));
    b.f().Label1_Click(2);        // the human clicks for red
    EXPECT_EQ(b.module.boardowner[2], 2);
    b.clock.advance(1000);        // Timer6 fires into the wind-up and is ignored
    EXPECT_FALSE(b.running(Timer6));
    EXPECT_EQ(b.f().movecount, 3);
}

TEST(Computer, LevelTwoDrawsTheRuleOfLevelOneOrThree) {
    // A first draw below a half plays the level 1 rule (here a draw that
    // picks 2), at or above it the level 3 rule, which takes the 46 worth 100.
    for (const auto& [draws, chosen] : {std::pair{std::vector<double>{0.2, 0.015}, 2}, std::pair{std::vector<double>{0.7}, 46}}) {
        Board b(2, 2);
        offer(b, {2, 3, 46});
        b.random.script(draws);
        b.f().Timer6_Timer();
        EXPECT_EQ(b.module.boardowner[chosen], 2) << draws[0];
    }
}

// ------------------------------------------------------------------ leaving

TEST(Leaving, ExitSavesOnlyAGameWorthKeeping) {
    struct Case {
        int turn, winner;
        bool saved;
    };
    for (const Case& c : {Case{-1, 0, false}, Case{0, 0, false}, Case{1, 0, true}, Case{5, 0, true}, Case{5, 2, false}}) {
        Board b(2);
        b.f().turn = static_cast<i16>(c.turn);
        b.f().winner = static_cast<i16>(c.winner);
        b.f().Label3_Click(button::exitGame);
        EXPECT_EQ(b.screens.count("savegame"), c.saved ? 1 : 0) << c.turn << " " << c.winner;
        EXPECT_EQ(b.screens.count("show Titlefrm"), 1);
        EXPECT_EQ(b.screens.count("unload fen1"), 1);
        EXPECT_EQ(b.sound.played.back(), "wav\\click.wav");
    }
}

TEST(Leaving, NewGameClearsTheBoardAndSavesNothing) {
    Board b(2, 0, 0, 0);
    b.throwDice({1, 1, 1, 1});
    b.f().Label1_Click(3);
    b.clock.advance(2000);
    b.throwDice({1, 1, 1, 1});
    b.f().Label1_Click(4);
    b.f().Label3_Click(button::newGame);
    EXPECT_EQ(b.screens.count("savegame"), 0);
    EXPECT_EQ(b.screens.count("show Startplay2"), 1);
    EXPECT_EQ(std::count(b.module.boardowner.begin(), b.module.boardowner.end(), 0), 101);
    EXPECT_TRUE(b.sound.played.empty()) << "sound was off";
}

TEST(Leaving, ARestoredBoardComesBackAndTheComputerThrowsAtOnce) {
    Board b(2, 3, 60);
    b.module.restartgame = 1;
    b.module.boardowner[53] = 2;
    b.module.boardowner[10] = 1;
    b.module.savedturn = 2;   // red to play
    b.module.savedscores = {0, 110, 130, 0, 0};
    b.module.savedseconds = {0, 0, 45, 2000, 2000};   // blue is out of time
    b.load();
    b.module.restartgame = 0;
    EXPECT_EQ(b.f().movecount, 3);
    EXPECT_EQ(b.f().movelist[0], 10);
    EXPECT_EQ(b.f().movelist[1], 53);
    EXPECT_EQ(b.m().Image1[53].picture, "counters\\blre2.bmp");
    EXPECT_FALSE(b.m().Label1[53].visible);
    EXPECT_EQ(b.m().Label6[2].caption, "130");
    EXPECT_EQ(b.m().Label6[3].caption, "0");
    EXPECT_FALSE(b.m().Label6[1].enabled);
    EXPECT_TRUE(b.m().Label6[2].enabled);
    EXPECT_EQ(b.m().Label12[0].caption, "0");
    EXPECT_EQ(b.m().Label12[1].caption, "45");
    EXPECT_TRUE(b.running(Timer1));
    b.clock.advance(1);
    EXPECT_EQ(b.m().Label2.caption, "Red to Play");
    EXPECT_FALSE(b.m().Label3[button::throwDice].enabled) << "the computer has thrown";
    EXPECT_TRUE(b.running(Timer5));
}

}  // namespace
}  // namespace fendle
