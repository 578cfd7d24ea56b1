// A game of four played on the real board, with an illegal move and a player
// out of time, saved, read back and loaded into a new board: the new board
// stands as the old one did, the player out of time still out.
#include "engine/connarray.h"
#include "engine/fen1.h"
#include "engine/seeded_random.h"
#include "engine/virtual_timers.h"
#include "saved/lastgame.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

namespace fendle {
namespace {

struct Quiet : Sound, Screens {
    void playwave(std::string_view) override {}
    void show(std::string_view) override {}
    void unload(std::string_view) override {}
    void savegame() override {}
    void checkhighscore() override {}
};

struct Window {
    explicit Window(ModuleState& module, std::uint64_t seed) : random(seed) {
        board = std::make_unique<Fen1>(module, Ports{*bank, random, quiet, quiet});
        board->Form_Load();
        board->showPlayers(module.nplayers);
    }
    // Throws and, once the dice stand, clicks the lowest free number they
    // make, or a covered one (an illegal move) when `lose` is set.
    void move(bool lose = false) {
        board->Label3_Click(button::throwDice);
        clock.advance(2500);
        int n = 0;
        for (int k = 1; k <= 100 && n == 0; ++k) {
            const bool free = board->model.Label1[static_cast<std::size_t>(k)].visible;
            if (lose ? !free : free && board->search.allowed[static_cast<std::size_t>(k)] == 1) n = k;
        }
        ASSERT_NE(n, 0);
        board->Label1_Click(static_cast<i16>(n));
        clock.advance(2500);
    }
    // Throws and lets the player's clock run out.
    void timeOut() {
        board->Label3_Click(button::throwDice);
        clock.advance(60000);
    }
    VirtualClock clock;
    std::unique_ptr<TimerBank> bank = clock.makeBank();
    SeededRandom random;
    Quiet quiet;
    std::unique_ptr<Fen1> board;
};

TEST(RestoreOnTheBoard, ASavedGameComesBackAsItWasLeft) {
    ModuleState module;
    module.connarray = layoutConnarray();
    module.nplayers = 4;
    module.timeallowed = 45;
    module.soundon = 0;
    module.greyback = 1;
    Window played(module, 15);
    for (int k = 0; k < 7; ++k) played.move();
    played.move(true);   // an illegal move also moves the turn on
    const auto late = static_cast<std::size_t>((played.board->turn + 1) % 4);   // the player index on turn
    played.timeOut();
    const BoardModel& a = played.board->model;
    ASSERT_TRUE(played.board->winner == 0 && played.board->turn > 0);
    ASSERT_EQ(std::count_if(a.Image1.begin(), a.Image1.end(), [](const Picture& c) { return c.visible; }), 7);
    ASSERT_FALSE(a.Label6[late + 1].enabled);
    ASSERT_EQ(a.Label12[late].caption, "0");

    ModuleState later;
    later.connarray = layoutConnarray();
    ASSERT_TRUE(restoreLastgame(lastgameText(makeSavedGame(module, *played.board)), later));
    later.restartgame = 1;
    Window restored(later, 99);
    const BoardModel& b = restored.board->model;
    EXPECT_EQ(restored.board->turn, played.board->turn);
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
