#include "text/countermarks.h"

#include "text/listinput.h"

namespace fendle {

bool readCountermarks(std::optional<std::string_view> bytes) {
    if (!bytes) return false;
    ListInput in(*bytes);
    std::string field;
    double value = 0;
    return in.readString(field) && parseNumber(field, value) && value == 1;
}

std::string countermarksText(bool on) { return on ? "1\r\n" : "0\r\n"; }

}  // namespace fendle
