// The board printed as text, for the messages of failed tests and of the soak.
#pragma once

#include <string>

#include "board/board.h"

namespace vorn {

// One line per row:
//   "row 2 (1680): c1 7S | c10 8S+6S"   base cards, then '+' and the cards lying
//   on them in stacking order; '*' marks the selected card. Cards off the grid
//   and the selection state follow on their own lines.
std::string describe(const Board& board);

}  // namespace vorn
