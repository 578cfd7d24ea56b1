// highscores.txt on any bytes: whatever is read, an entry can be ranked and
// named, and the table writes to a file that reads back as the same table.
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "fuzz/fuzz_check.h"
#include "saved/highscores.h"

namespace {

void roundTrip(const fendle::HighScores& table) {
    fendle::HighScores back;
    fendle::readHighScores(fendle::highscoresText(table), back);
    FUZZ_CHECK(back == table);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 3) return 0;
    // The first bytes choose the game: the level and a score for Blue.
    const auto level = static_cast<fendle::i16>(data[0] % 4);
    const int blue = data[1] * 120 + data[2];
    const std::string_view bytes(reinterpret_cast<const char*>(data) + 3, size - 3);

    fendle::HighScores table;
    fendle::readHighScores(bytes, table);
    for (int r = 0; r <= 10; ++r) FUZZ_CHECK(fendle::cleanName(table.highnames[r]) == table.highnames[r]);
    roundTrip(table);

    const fendle::i16 row = fendle::checkhighscore(table, level, {0, blue, blue / 2, 0, blue / 3});
    FUZZ_CHECK(row >= 0 && row <= 10);
    if (row > 0) {
        FUZZ_CHECK(level == 0 ? row <= 5 : row >= 6);
        FUZZ_CHECK(table.highpoints[row - 1] == blue);
        fendle::enterName(table, row, bytes.substr(0, 40));
    }
    roundTrip(table);
    return 0;
}
