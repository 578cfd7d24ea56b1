// A board on the virtual clock, with recorders for sound and screens.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "engine/connarray.h"
#include "engine/fen1.h"
#include "engine/seeded_random.h"
#include "engine/virtual_timers.h"

namespace fendle::testing {

struct SoundLog : Sound {
    std::vector<std::string> played;
    void playwave(std::string_view name) override { played.emplace_back(name); }
};

struct ScreenLog : Screens {
    std::vector<std::string> calls;
    void show(std::string_view f) override { calls.push_back("show " + std::string(f)); }
    void unload(std::string_view f) override { calls.push_back("unload " + std::string(f)); }
    void savegame() override { calls.emplace_back("savegame"); }
    void checkhighscore() override { calls.emplace_back("checkhighscore"); }
    int count(const std::string& call) const {
        int n = 0;
        for (const auto& c : calls) n += c == call;
        return n;
    }
};

struct Board {
    ModuleState module;
    VirtualClock clock;
    std::unique_ptr<TimerBank> bank = clock.makeBank();
    ScriptedRandom random;
    SoundLog sound;
    ScreenLog screens;
    std::unique_ptr<Fen1> fen1;

    explicit Board(int nplayers = 2, int computerlevel = 0, int timeallowed = 0, int soundon = 1) {
        module.connarray = layoutConnarray();
        module.nplayers = static_cast<i16>(nplayers);
        module.computerlevel = static_cast<i16>(computerlevel);
        module.timeallowed = static_cast<i16>(timeallowed);
        module.soundon = static_cast<i16>(soundon);
        load();
    }
    // A fresh board window, as the set-up screens build it.
    void load() {
        fen1.reset();
        fen1 = std::make_unique<Fen1>(module, Ports{*bank, random, sound, screens});
        fen1->Form_Load();
        fen1->showPlayers(module.nplayers);
    }
    Fen1& f() { return *fen1; }
    BoardModel& m() { return fen1->model; }

    // Puts counters on hexagons without playing moves (owner: player number).
    void cover(std::initializer_list<int> hexagons, int owner = 1) {
        for (int n : hexagons) {
            module.boardowner[static_cast<std::size_t>(n)] = static_cast<i16>(owner);
            m().Label1[static_cast<std::size_t>(n)].visible = false;
            m().Image1[static_cast<std::size_t>(n)].visible = true;
            f().movelist[static_cast<std::size_t>(f().movecount - 1)] = static_cast<i16>(n);
            f().movelist[static_cast<std::size_t>(f().movecount)] = 0;
            ++f().movecount;
        }
    }
    // Dice that a throw will draw: each die is one draw of k = 1 then the value.
    static std::vector<double> drawsFor(std::array<int, 4> dice) {
        std::vector<double> d;
        for (int v : dice) {
            d.push_back(0.015);                    // k = 1 draw
            d.push_back((v - 1) / 6.0 + 0.01);    // the die
        }
        return d;
    }
    // Throws the given dice and lets them come to rest: the clock stands at
    // the moment the fourth die is shown.
    void throwDice(std::array<int, 4> dice) {
        random.script(drawsFor(dice));
        f().Label3_Click(button::throwDice);
        clock.advance(module.soundon == 1 ? 2250 : 1050);
    }
    // Throws four ones and clicks n as if they could make it; the sound log
    // then holds only what the move played.
    void playAnyway(int n) {
        throwDice({1, 1, 1, 1});
        f().search.allowed[static_cast<std::size_t>(n)] = 1.0;
        sound.played.clear();
        f().Label1_Click(static_cast<i16>(n));
    }
    bool running(int timer) const { return bank->running(timer); }
};

}  // namespace fendle::testing
