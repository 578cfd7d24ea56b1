// Whole games on the virtual clock: one to four players, clocks on and off,
// the computer at each level, players dropping out. At every event the board
// is checked against an independent account of the game.
#include <gtest/gtest.h>

#include <cstdlib>
#include <random>
#include <set>

#include "engine/geometry.h"
#include "harness.h"
#include "rhombus.h"

namespace fendle {
namespace {

using testing::Board;
std::size_t at(int i) { return static_cast<std::size_t>(i); }

struct Config {
    int nplayers, computerlevel, timeallowed, soundon;
    std::uint64_t seed;
};

// The bonus a counter on n earns on this board: two covered neighbours of n
// that touch each other, doubled on a prime.
int expectedBonus(const std::array<bool, 101>& covered, int n) {
    for (int i : testing::touchingFromTheTop(n))
        for (int j : testing::touchingFromTheTop(n))
            if (covered[at(i)] && covered[at(j)] && testing::touching(i, j)) return geometry::isListedPrime(n) ? 200 : 100;
    return 0;
}

struct Game {
    Config cfg;
    Board b;
    std::mt19937_64 rng;
    std::array<bool, 101> covered{};   // as this account has seen the board
    std::array<int, 5> expected{};     // scores by player number
    int endedBy = 0;                   // 1 path, 2 everyone out, 3 solo out
    int illegal = 0, strayClicks = 0;
    std::string failure;

    explicit Game(Config c) : cfg(c), b(c.nplayers, c.computerlevel, c.timeallowed, c.soundon), rng(c.seed) {
        b.random = ScriptedRandom({}, c.seed * 7919 + 1);
        b.bank->bind([this](int timer) { onTick(timer); });
    }

    void fail(const std::string& what) {
        if (failure.empty()) failure = what + " (seed " + std::to_string(cfg.seed) + ", t=" + std::to_string(b.clock.now()) + ")";
    }

    int inPlay() {
        int n = 0;
        for (int i = 1; i <= 4; ++i) n += b.m().Label6[at(i)].visible && b.m().Label6[at(i)].enabled;
        return n;
    }

    // Which timers may tick in which state of the game.
    void onTick(int timer) {
        const bool over = b.f().winner > 0;
        switch (timer) {
        case Timer1: if (over) fail("wind-up after the end"); break;
        case Timer5: if (over || b.m().Label3[2].enabled) fail("dice revealed outside a throw"); break;
        case Timer6: if (cfg.computerlevel == 0 || over || b.f().turn % 2 != 0) fail("computer moved outside its turn"); break;
        case Timer7: if (cfg.timeallowed == 0) fail("clock ticked in an untimed game"); break;
        case Timer3: case Timer11: if (!over) fail("ending timer in play"); break;
        case Timer10: if (endedBy != 0 && endedBy != 1) fail("path bonus without a path"); break;
        default: break;
        }
        const bool timerTicksOften = timer == Timer8 || timer == Timer3;
        const i16 turn = b.f().turn;
        b.f().timerTick(timer);
        if (timer == Timer6 && b.f().turn != turn && b.m().Label10.visible) fail("the computer made an illegal move");
        if (!timerTicksOften) check();
    }

    // The state after every event.
    void check() {
        const BoardModel& m = b.m();
        // Exactly one of number and counter shows; new counters are scored.
        std::array<bool, 101> now{};
        int count = 0;
        for (int n = 1; n <= 100; ++n) {
            now[at(n)] = m.Image1[at(n)].visible;
            if (m.Label1[at(n)].visible == now[at(n)]) fail("hexagon " + std::to_string(n) + " shows both or neither");
            if ((b.module.boardowner[at(n)] != 0) != now[at(n)]) fail("owner of " + std::to_string(n));
            count += now[at(n)];
        }
        for (int n = 1; n <= 100; ++n) {
            if (now[at(n)] && !covered[at(n)])
                expected[at(b.module.boardowner[at(n)])] += zoneOf(n).reward + expectedBonus(covered, n);
            if (!now[at(n)] && covered[at(n)]) fail("a counter went away");
        }
        covered = now;
        if (count != b.f().movecount - 1) fail("move count");
        const i16 scores[5] = {0, b.f().bluescore, b.f().redscore, b.f().greenscore, b.f().yellowscore};
        for (int p = 1; p <= 4; ++p) {
            if (scores[p] != expected[at(p)]) fail("score of player " + std::to_string(p));
            const std::string& caption = m.Label6[at(p)].caption;
            if (!b.running(Timer10) && b.f().winner == 0 && caption != (expected[at(p)] || !caption.empty() ? std::to_string(expected[at(p)]) : ""))
                fail("caption of player " + std::to_string(p));
        }
        // The phase is one of five.
        const bool throwOn = m.Label3[2].enabled, t5 = b.running(Timer5), dice = m.Label4[0].enabled, t1 = b.running(Timer1);
        const int w = b.f().winner;
        const bool phaseOk = (throwOn && !t5 && !dice && !t1 && w == 0) ||    // waiting for a throw
                             (!throwOn && t5 && !t1 && w == 0) ||             // dice rolling
                             (!throwOn && !t5 && dice && w == 0) ||           // waiting for a number / showing the move
                             (!throwOn && !t5 && !t1 && w > 0);               // game over
        if (!phaseOk) fail("no phase matches");
        // Nobody out of time is ever on turn.
        const int q = (b.f().turn + 1) % cfg.nplayers;
        if (w == 0 && !t1 && !m.Label6[at(q + 1)].enabled) fail("a player out of time is on turn");
        // The game ends exactly when a path joins 1 and 100 or nobody is left.
        const bool path = covered[100] && testing::joinsTheEnds(covered);
        if (w > 0 && endedBy == 0) {
            endedBy = path ? 1 : inPlay() == 0 ? (cfg.nplayers > 1 ? 2 : 3) : -1;
            if (endedBy < 0) fail("ended with neither a path nor everyone out");
        }
        if (w == 0 && path && !t1) fail("a path was not seen");
    }

    bool waitingForNumber() {
        return b.f().winner == 0 && !b.running(Timer1) && !b.running(Timer5) && b.m().Label4[0].enabled &&
               b.module.dicerevealed == 4;
    }
    bool computersTurn() { return cfg.computerlevel != 0 && (b.f().turn + 1) % 2 == 1; }

    // A click at a moment the guards must turn away.
    void strayClick() {
        const i16 turn = b.f().turn;
        const int n = 1 + static_cast<int>(rng() % 100);
        const bool wasFree = b.m().Label1[at(n)].visible;
        b.f().Label1_Click(static_cast<i16>(n));
        ++strayClicks;
        if (b.f().turn != turn || b.m().Label1[at(n)].visible != wasFree) fail("a stray click was played");
    }

    void play() {
        std::uniform_real_distribution<double> u(0, 1);
        for (int step = 0; step < 1000000 && failure.empty(); ++step) {
            if (b.f().winner > 0) {
                b.clock.advance(5000);   // the path bonus and the winner
                check();
                return;
            }
            if (b.m().Label3[2].enabled && !computersTurn()) {
                if (u(rng) < 0.05) strayClick();
                b.clock.advance(static_cast<int>(u(rng) * 3000));   // thinking before a throw costs nothing
                b.f().Label3_Click(button::throwDice);
                check();
                continue;
            }
            if (waitingForNumber() && !computersTurn()) {
                // Usually quick, sometimes slow enough to run a clock down.
                const bool slow = cfg.timeallowed > 0 && u(rng) < 0.15;
                b.clock.advance(slow ? 1000 * static_cast<int>(u(rng) * 30) : static_cast<int>(u(rng) * 2500));
                if (!waitingForNumber() || computersTurn()) continue;
                std::vector<int> legal, wrong;
                for (int n = 1; n <= 100; ++n) {
                    if (!b.m().Label1[at(n)].visible) continue;
                    (b.f().search.allowed[at(n)] == 1.0 ? legal : wrong).push_back(n);
                }
                if (legal.empty()) fail("a throw with no free number");
                const bool mistake = !wrong.empty() && u(rng) < 0.1;
                const auto& pool = mistake ? wrong : legal;
                if (pool.empty()) break;
                const int n = pool[rng() % pool.size()];
                const i16 turnBefore = b.f().turn;
                b.f().Label1_Click(static_cast<i16>(n));
                illegal += mistake;
                if (b.f().turn != turnBefore + 1) fail("a click did not count");
                if (mistake != b.m().Label10.visible) fail("illegal-move line");
                check();
                continue;
            }
            if (!waitingForNumber() && u(rng) < 0.01) strayClick();
            if (!b.clock.runNext(1 << 30)) {
                fail("nothing left to happen");
                return;
            }
        }
        if (failure.empty() && b.f().winner == 0) fail("the game did not end");
    }
};

std::vector<Config> configs(int count) {
    std::vector<Config> out;
    const int clocks[] = {0, 0, 15, 60};
    for (int i = 0; i < count; ++i) {
        Config c{};
        c.seed = static_cast<std::uint64_t>(i) + 1;
        c.nplayers = 1 + i % 4;
        c.computerlevel = c.nplayers == 2 ? (i / 4) % 4 : 0;
        c.timeallowed = clocks[(i / 16) % 4];
        c.soundon = (i / 64) % 2;
        out.push_back(c);
    }
    return out;
}

// FENDLE_GAMES=10000 plays a long run (for the sanitized build, by hand).
int gameCount() {
    const char* n = std::getenv("FENDLE_GAMES");
    return n && std::atoi(n) > 0 ? std::atoi(n) : 1200;
}

TEST(WholeGames, ThousandsOfSeededGamesKeepTheRules) {
    int ended[4] = {};
    int illegal = 0, stray = 0, computerGames = 0;
    for (const Config& c : configs(gameCount())) {
        Game g(c);
        g.play();
        ASSERT_TRUE(g.failure.empty()) << g.failure << " players " << c.nplayers << " level " << c.computerlevel
                                       << " clock " << c.timeallowed;
        ASSERT_GE(g.endedBy, 1);
        ++ended[g.endedBy];
        illegal += g.illegal;
        stray += g.strayClicks;
        computerGames += c.computerlevel != 0;
        // The path's 500 went to the mover's caption, and the winner is the highest caption.
        if (g.endedBy != 3) {
            int best = -1, bestPlayer = 0, ties = 0;
            for (int p = 1; p <= 4; ++p) {
                const int v = g.b.f().scoreboxValue(p);
                if (v > best) { best = v; bestPlayer = p; ties = 0; }
                else if (v == best) ++ties;
            }
            ASSERT_EQ(g.b.f().winner, ties ? 5 : bestPlayer) << "seed " << c.seed;
        }
        int bonus = 0;
        for (int p = 1; p <= 4; ++p) bonus += g.b.f().scoreboxValue(p) - g.expected[at(p)];
        ASSERT_EQ(bonus, g.endedBy == 1 ? 500 : 0) << "seed " << c.seed;
        ASSERT_EQ(g.b.screens.count("checkhighscore"), 1) << "seed " << c.seed;
    }
    // The mix really covered every ending.
    EXPECT_GT(ended[1], 100);
    EXPECT_GT(ended[2], 10);
    EXPECT_GT(ended[3], 10);
    EXPECT_GT(illegal, 100);
    EXPECT_GT(stray, 100);
    EXPECT_GT(computerGames, 100);
}

}  // namespace
}  // namespace fendle
