// connarray.dat: the neighbour table, 600 whole numbers, six for each hexagon
// from 1 to 100, each ending at a comma, a blank or a line end.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "engine/game_state.h"
#include "text/messages.h"

namespace fendle {

using ConnArray = std::array<std::array<i16, 7>, 101>;

// Reads the table from the bytes of the file. On success fills `out` (rows 0
// to 99, columns 0 to 5; row 100 and column 6 stay 0) and returns true. A
// short file or a value outside 0 to 100 is a failure: `out` is left as it
// was, and `problem` says what was wrong.
bool readConnarray(std::string_view bytes, ConnArray& out, Problem* problem = nullptr);

// The table as the board's layout gives it, and the text of the file.
ConnArray layoutConnarray();
std::string connarrayText(const ConnArray& table);

}  // namespace fendle
