// A game played on the real board, saved, read back and loaded into a new
// board: the new board stands as the old one did.
#include "engine/connarray.h"
#include "engine/fen1.h"
#include "engine/seeded_random.h"
#include "engine/virtual_timers.h"
#include "saved/lastgame.h"

#include <gtest/gtest.h>

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
        for (int p = 1; p <= module.nplayers; ++p) board->model.Label6[static_cast<std::size_t>(p)].visible = true;
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
    for (const auto& [players, seconds] : {std::pair{3, 600}, std::pair{2, 0}, std::pair{4, 45}}) {
        SCOPED_TRACE(players);
        ModuleState module;
        module.connarray = layoutConnarray();
        module.nplayers = static_cast<i16>(players);
        module.timeallowed = static_cast<i16>(seconds);
        module.soundon = 0;
        module.greyback = 1;
        Window played(module, 11 + static_cast<std::uint64_t>(players));
        for (int k = 0; k < 7; ++k) played.move();
        played.move(true);   // an illegal move also moves the turn on
        const int late = (played.board->turn + 1) % players;   // the player index on turn
        if (seconds == 45) played.timeOut();
        ASSERT_EQ(played.board->winner, 0);
        ASSERT_GT(played.board->turn, 0);
        int counters = 0;
        for (const Picture& counter : played.board->model.Image1) counters += counter.visible;
        ASSERT_EQ(counters, 7);
        if (seconds == 45) {
            ASSERT_FALSE(played.board->model.Label6[static_cast<std::size_t>(late + 1)].enabled);
            ASSERT_EQ(played.board->model.Label12[static_cast<std::size_t>(late)].caption, "0");
        }

        const std::string file = lastgameText(makeSavedGame(module, *played.board));
        ModuleState later;
        later.connarray = layoutConnarray();
        ASSERT_TRUE(restoreLastgame(file, later));
        later.restartgame = 1;
        Window restored(later, 99);
        later.restartgame = 0;

        const BoardModel& a = played.board->model;
        const BoardModel& b = restored.board->model;
        EXPECT_EQ(restored.board->turn, played.board->turn);
        EXPECT_EQ(later.nplayers, module.nplayers);
        EXPECT_EQ(later.timeallowed, module.timeallowed);
        EXPECT_EQ(later.greyback, 1);
        for (int n = 1; n <= 100; ++n) {
            const auto i = static_cast<std::size_t>(n);
            EXPECT_EQ(b.Image1[i].visible, a.Image1[i].visible) << n;
            EXPECT_EQ(b.Label1[i].visible, a.Label1[i].visible) << n;
            if (a.Image1[i].visible) {
                EXPECT_EQ(b.Image1[i].picture, a.Image1[i].picture) << n;
            }
        }
        for (int p = 1; p <= 4; ++p) {
            const auto i = static_cast<std::size_t>(p);
            const std::string& score = a.Label6[i].caption;
            EXPECT_EQ(b.Label6[i].caption, score.empty() ? "0" : score) << p;
            EXPECT_EQ(b.Label12[i - 1].caption, a.Label12[i - 1].caption) << p;
            EXPECT_EQ(b.Label6[i].enabled, a.Label6[i].enabled) << p;
        }
    }
}

}  // namespace
}  // namespace fendle
