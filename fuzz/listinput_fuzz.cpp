// The list-input reader on any bytes: every read ends, consumes something,
// and gives valid UTF-8.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

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
    return 0;
}
