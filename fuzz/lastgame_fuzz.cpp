// lastgame.inf on any bytes: a file is either unreadable or a game that
// writes back to a file reading as the same game.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "fuzz/fuzz_check.h"
#include "saved/lastgame.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    fendle::ModuleState module;
    const auto game = fendle::readLastgame(bytes);
    FUZZ_CHECK(fendle::restoreLastgame(bytes, module) == game.has_value());
    if (!game) return 0;
    FUZZ_CHECK(game->nplayers >= 1 && game->nplayers <= 4);
    for (int i = 1; i <= 100; ++i) FUZZ_CHECK(module.boardowner[i] >= 0 && module.boardowner[i] <= module.nplayers);
    FUZZ_CHECK(module.savedturn >= 1);
    const std::string again = fendle::lastgameText(*game);
    const auto reread = fendle::readLastgame(again);
    FUZZ_CHECK(reread.has_value() && *reread == *game);
    return 0;
}
