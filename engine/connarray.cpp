#include "engine/connarray.h"

#include "engine/geometry.h"
#include "text/listinput.h"

namespace fendle {

bool readConnarray(std::string_view bytes, ConnArray& out, Problem* problem) {
    ListInput in(bytes);
    ConnArray table{};
    for (int row = 0; row <= 99; ++row) {
        for (int col = 0; col <= 5; ++col) {
            double v = 0;
            const int position = row * 6 + col + 1;
            if (!in.readNumber(v)) {
                if (problem) *problem = {msg::fileCutShort, {"connarray.dat", std::to_string(position - 1), "600"}};
                return false;
            }
            if (!(v >= 0 && v <= 100) || v != static_cast<double>(static_cast<int>(v))) {
                if (problem) *problem = {msg::notAHexagon, {"connarray.dat", std::to_string(position)}};
                return false;
            }
            table[static_cast<std::size_t>(row)][static_cast<std::size_t>(col)] = static_cast<i16>(v);
        }
    }
    out = table;
    return true;
}

ConnArray layoutConnarray() {
    ConnArray table{};
    for (int n = 1; n <= 100; ++n) {
        const auto list = geometry::neighbours(n);
        for (std::size_t c = 0; c < list.size(); ++c)
            table[static_cast<std::size_t>(n - 1)][c] = static_cast<i16>(list[c]);
    }
    return table;
}

std::string connarrayText(const ConnArray& table) {
    std::string text;
    for (int row = 0; row <= 99; ++row) {
        for (int col = 0; col <= 5; ++col) {
            if (col > 0) text += ',';
            text += std::to_string(table[static_cast<std::size_t>(row)][static_cast<std::size_t>(col)]);
        }
        text += "\r\n";
    }
    return text;
}

}  // namespace fendle
