// connarray.dat on any bytes: a table that reads is within its bounds and
// writes back to text that reads as the same table; a failure leaves the
// table as it was.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "engine/connarray.h"
#include "fuzz/fuzz_check.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    fendle::ConnArray table{};
    table[100][6] = 7;   // a mark that a failed read must leave
    std::string error;
    if (!fendle::readConnarray(bytes, table, &error)) {
        FUZZ_CHECK(table[100][6] == 7 && !error.empty());
        return 0;
    }
    for (int r = 0; r <= 100; ++r)
        for (int c = 0; c <= 6; ++c) {
            FUZZ_CHECK(table[r][c] >= 0 && table[r][c] <= 100);
            if (r == 100 || c == 6) FUZZ_CHECK(table[r][c] == 0);
        }
    fendle::ConnArray again{};
    FUZZ_CHECK(fendle::readConnarray(fendle::connarrayText(table), again) && again == table);
    return 0;
}
