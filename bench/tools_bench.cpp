// Speed of the build's generators that a player once waited for.
//   build/bench/tools_bench
#include <benchmark/benchmark.h>

#include <fstream>
#include <iterator>
#include <string>

#include "tools/bold_face.h"

namespace {

std::string fileBytes(const char* path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

// The bold Tahoma fitted from the clone's bold file and DejaVu Sans Bold: the
// game did this at every start before the build wrote it into the game folder.
void BM_FitBoldFace(benchmark::State& state) {
    const std::string spacing = fileBytes("/usr/share/wine/fonts/tahomabd.ttf");
    const std::string shapes = fileBytes("/usr/share/fonts/truetype/dejavu/DejaVuSans-Bold.ttf");
    if (spacing.empty() || shapes.empty()) return state.SkipWithError("the fonts are not installed");
    for (auto _ : state) {
        auto face = fendle::font::fitBoldFace(spacing, shapes);
        benchmark::DoNotOptimize(face);
    }
}
BENCHMARK(BM_FitBoldFace)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
