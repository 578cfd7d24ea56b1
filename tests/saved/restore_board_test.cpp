// A game of four played on the real board, with an illegal move and a player
// out of time, saved, read back and loaded into a new board: the new board
// stands as the old one did, the player out of time still out.
#include "../engine/harness.h"
#include "saved/lastgame.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace fendle {
namespace {

using testing::Board;

// Throws and, once the dice stand, clicks the lowest free number they make,
// or a covered one (an illegal move) when `lose` is set.
void move(Board& b, bool lose = false) {
    b.f().Label3_Click(button::throwDice);
    b.clock.advance(2500);
    int n = 0;
    for (std::size_t k = 1; k <= 100 && n == 0; ++k) {
        const bool free = b.m().Label1[k].visible;
        if (lose ? !free : free && b.f().search.allowed[k] == 1) n = static_cast<int>(k);
    }
    ASSERT_NE(n, 0);
    b.f().Label1_Click(static_cast<i16>(n));
    b.clock.advance(2500);
}

TEST(RestoreOnTheBoard, ASavedGameComesBackAsItWasLeft) {
    Board played(4, 0, 45, 0);
    played.module.greyback = 1;
    for (int k = 0; k < 7; ++k) move(played);
    move(played, true);   // an illegal move also moves the turn on
    const auto late = static_cast<std::size_t>((played.f().turn + 1) % 4);   // the player index on turn
    played.f().Label3_Click(button::throwDice);
    played.clock.advance(60000);   // and lets the clock run out
    const BoardModel& a = played.m();
    ASSERT_TRUE(played.f().winner == 0 && played.f().turn > 0);
    ASSERT_EQ(std::count_if(a.Image1.begin(), a.Image1.end(), [](const Picture& c) { return c.visible; }), 7);
    ASSERT_FALSE(a.Label6[late + 1].enabled);
    ASSERT_EQ(a.Label12[late].caption, "0");

    Board restored(1);
    ASSERT_TRUE(restoreLastgame(lastgameText(makeSavedGame(played.module, played.f())), restored.module));
    restored.module.restartgame = 1;
    restored.load();
    const BoardModel& b = restored.m();
    EXPECT_EQ(restored.f().turn, played.f().turn);
    for (std::size_t n = 1; n <= 100; ++n) {
        EXPECT_EQ(b.Image1[n].visible, a.Image1[n].visible) << n;
        EXPECT_EQ(b.Label1[n].visible, a.Label1[n].visible) << n;
        EXPECT_EQ(b.Image1[n].visible ? b.Image1[n].picture : "", a.Image1[n].visible ? a.Image1[n].picture : "");
    }
    for (std::size_t p = 1; p <= 4; ++p) {
        EXPECT_EQ(b.Label6[p].caption, a.Label6[p].caption.empty() ? "0" : a.Label6[p].caption) << p;
        EXPECT_EQ(b.Label12[p - 1].caption, a.Label12[p - 1].caption) << p;
        EXPECT_EQ(b.Label6[p].enabled, a.Label6[p].enabled) << p;
    }
}

}  // namespace
}  // namespace fendle
