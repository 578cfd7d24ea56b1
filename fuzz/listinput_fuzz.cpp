// The list-input reader on any bytes: every read ends, consumes something,
// and gives valid UTF-8. The neighbour table it reads either lies on the
// board and writes back to text that reads as the same table, or is left
// as it was.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "engine/connarray.h"
#include "fuzz/fuzz_check.h"
#include "text/listinput.h"

namespace {

bool validUtf8(std::string_view s) {
    // decodeText keeps valid UTF-8 as it is (less a leading byte order mark).
    return fendle::decodeText(s) == s || s.starts_with("\xEF\xBB\xBF");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    // The first byte chooses the kinds of read, one bit per field.
    const unsigned kinds = data[0];
    const std::string_view bytes(reinterpret_cast<const char*>(data) + 1, size - 1);

    const std::string text = fendle::decodeText(bytes);
    FUZZ_CHECK(validUtf8(text));
    FUZZ_CHECK(fendle::decodeText(text) == text || text.starts_with("\xEF\xBB\xBF"));

    fendle::ListInput in(bytes);
    std::size_t reads = 0;
    for (;; ++reads) {
        // Each field takes at least one character, so the reads are bounded.
        FUZZ_CHECK(reads <= text.size());
        bool ok = false;
        switch ((kinds >> (reads % 8)) & 1u) {
            case 0: {
                std::string field;
                ok = in.readString(field);
                if (ok) FUZZ_CHECK(validUtf8(field));
                break;
            }
            default: {
                std::int16_t v = 0;
                ok = in.readInt16(v);
                if (!ok && !in.atEnd()) continue;   // a number too large for 16 bits
                break;
            }
        }
        if (!ok) break;
    }
    std::string field;
    FUZZ_CHECK(!in.readString(field));

    fendle::ConnArray table{}, again{};
    table[100][6] = 7;   // a mark that only a whole table read replaces
    fendle::Problem problem;
    if (!fendle::readConnarray(bytes, table, &problem)) {
        FUZZ_CHECK(table[100][6] == 7 && problem.english().find("connarray.dat") != std::string::npos);
        return 0;
    }
    for (int r = 0; r <= 100; ++r)
        for (int c = 0; c <= 6; ++c) FUZZ_CHECK(table[r][c] >= 0 && table[r][c] <= (r == 100 || c == 6 ? 0 : 100));
    FUZZ_CHECK(fendle::readConnarray(fendle::connarrayText(table), again) && again == table);
    return 0;
}
