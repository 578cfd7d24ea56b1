// The bold face fitted from any two files: nothing, or a face that, fitted
// again with itself for both spacing and shapes, gives the same bytes: what
// the writer wrote, the reader reads back outline for outline.
// The first two bytes (big-endian) say how many of the rest are the spacing.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "fuzz/fuzz_check.h"
#include "tools/bold_face.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 2) return 0;
    const std::string_view bytes(reinterpret_cast<const char*>(data) + 2, size - 2);
    const std::size_t cut = std::min(bytes.size(), std::size_t(data[0]) << 8 | data[1]);
    const auto face = fendle::font::fitBoldFace(bytes.substr(0, cut), bytes.substr(cut));
    if (face) FUZZ_CHECK(fendle::font::fitBoldFace(*face, *face) == face);
    return 0;
}
