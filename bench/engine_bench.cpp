// Speed of the engine's searches and of a whole game without a screen.
//   build/bench/engine_bench
#include <benchmark/benchmark.h>

#include <random>

#include "engine/explain.h"
#include "harness.h"

namespace fendle {
namespace {

using testing::Board;

// One throw: allowednumbers then allowednumbers2, through all 126 sets of dice.
void BM_Reachable(benchmark::State& state) {
    std::vector<std::array<i16, 5>> throws;
    for (i16 a = 1; a <= 6; ++a)
        for (i16 b = a; b <= 6; ++b)
            for (i16 c = b; c <= 6; ++c)
                for (i16 d = c; d <= 6; ++d) throws.push_back({a, b, c, d, 0});
    Reachable r;
    std::size_t k = 0;
    for (auto _ : state) {
        r.dice = throws[k++ % throws.size()];
        r.allowednumbers();
        r.allowednumbers2();
        benchmark::DoNotOptimize(r.allowed.data());
    }
}
BENCHMARK(BM_Reachable);

// The 1296 ordered throws, and for each throw its marked numbers.
struct Throws {
    std::vector<std::array<int, 4>> dice;
    std::vector<std::vector<int>> marked;
    Throws() {
        for (int code = 0; code < 1296; ++code) {
            std::array<int, 4> d{};
            Reachable r;
            for (std::size_t k = 0, c = static_cast<std::size_t>(code); k < 4; ++k, c /= 6) {
                d[k] = 1 + static_cast<int>(c % 6);
                r.dice[k] = static_cast<i16>(d[k]);
            }
            r.allowednumbers();
            r.allowednumbers2();
            dice.push_back(d);
            marked.emplace_back();
            for (int n = 1; n <= 100; ++n)
                if (r.marked(n)) marked.back().push_back(n);
        }
    }
};

// The expression for one number: each throw in turn with each of its marked
// numbers in turn, as after a legal move.
void BM_ExplainOne(benchmark::State& state) {
    const Throws t;
    std::size_t k = 0, i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(explain(t.dice[k], t.marked[k][i]));
        if (++i == t.marked[k].size()) i = 0, k = (k + 1) % t.dice.size();
    }
}
BENCHMARK(BM_ExplainOne)->Unit(benchmark::kMicrosecond);

// The expressions for every number of one throw, through all 1296 throws.
void BM_ExplainThrow(benchmark::State& state) {
    const Throws t;
    std::size_t k = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(explainAll(t.dice[k]));
        k = (k + 1) % t.dice.size();
    }
}
BENCHMARK(BM_ExplainThrow)->Unit(benchmark::kMicrosecond);

// Throw Dice with its rethrow loop on a board where only 83 is free: it takes
// about a hundred throws to draw 3, 4, 4, 5.
void BM_ThrowOneFree(benchmark::State& state) {
    Board b(1, 0, 0, 0);
    b.random = ScriptedRandom({}, 99);
    for (int n = 1; n <= 100; ++n)
        if (n != 83) b.cover({n});
    for (auto _ : state) {
        b.f().Label3_Click(button::throwDice);
        benchmark::DoNotOptimize(b.module.dice.data());
    }
}
BENCHMARK(BM_ThrowOneFree)->Unit(benchmark::kMicrosecond);

// checkendofgame on boards of 19 to 99 counters, with and without paths.
void BM_CheckEndOfGame(benchmark::State& state) {
    Board b(2);
    std::mt19937 rng(3);
    std::vector<std::vector<i16>> boards;
    for (int count = 19; count <= 99; ++count) {
        std::vector<i16> order(100);
        for (int i = 0; i < 100; ++i) order[static_cast<std::size_t>(i)] = static_cast<i16>(i + 1);
        std::shuffle(order.begin(), order.end(), rng);
        order.resize(static_cast<std::size_t>(count));
        // Make sure the cheap test lets the search run: 1, 2 and 100 covered.
        for (i16 must : {i16(1), i16(2), i16(100)})
            if (std::find(order.begin(), order.end(), must) == order.end()) order.back() = must, std::rotate(order.begin(), order.end() - 1, order.end());
        boards.push_back(order);
    }
    std::size_t k = 0;
    int paths = 0;
    for (auto _ : state) {
        const auto& cover = boards[k++ % boards.size()];
        Fen1& f = b.f();
        f.movelist.fill(0);
        for (std::size_t i = 0; i < cover.size(); ++i) f.movelist[i] = cover[i];
        f.movecount = static_cast<i16>(cover.size() + 1);
        f.turn = 0;
        f.winner = 0;
        f.checkendofgame();
        paths += f.winner > 0;
    }
    state.counters["paths_found"] = benchmark::Counter(paths, benchmark::Counter::kAvgIterations);
}
BENCHMARK(BM_CheckEndOfGame);

// A whole two-player game against the computer at level 3, from the first
// throw to the winner; Blue picks a legal number at random a second after the
// dice stop.
void BM_HeadlessGame(benchmark::State& state) {
    std::uint64_t seed = 1;
    long moves = 0;
    for (auto _ : state) {
        Board b(2, 3, 0, static_cast<int>(state.range(0)));
        b.random = ScriptedRandom({}, seed);
        std::mt19937 rng(static_cast<unsigned>(seed++));
        while (b.f().winner == 0 || b.running(Timer10) || b.running(Timer11)) {
            Fen1& f = b.f();
            if (f.winner == 0 && b.m().Label3[2].enabled && (f.turn + 1) % 2 == 0) {
                f.Label3_Click(button::throwDice);
            } else if (f.winner == 0 && (f.turn + 1) % 2 == 0 && b.module.dicerevealed == 4 && !b.running(Timer1) &&
                       !b.running(Timer5) && b.m().Label4[0].enabled) {
                std::vector<int> legal;
                for (int n = 1; n <= 100; ++n)
                    if (f.search.allowed[static_cast<std::size_t>(n)] == 1.0 && b.m().Label1[static_cast<std::size_t>(n)].visible) legal.push_back(n);
                f.Label1_Click(static_cast<i16>(legal[rng() % legal.size()]));
            } else if (!b.clock.runNext(1 << 30)) {
                break;
            }
        }
        moves += b.f().movecount - 1;
    }
    state.counters["counters_per_game"] = benchmark::Counter(static_cast<double>(moves), benchmark::Counter::kAvgIterations);
}
BENCHMARK(BM_HeadlessGame)->Arg(1)->Arg(0)->ArgName("soundon")->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace fendle

BENCHMARK_MAIN();
