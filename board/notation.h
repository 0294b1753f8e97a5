// Cards and boards written as text, for tools, messages and tests.
//
// Cards are written as rank then suit: ranks A 2 3 ... 10 J Q K, suits H S D C
// (hearts, spades, diamonds, clubs = suits 1..4), e.g. "7S", "10D", "QH".
#pragma once

#include <string>

#include "board.h"

namespace vorn {

// {2, 7} -> "7S"; "??" for a reference that names no card.
std::string cardName(Card card);

// The board as text, one line per row, for test failure messages:
//   "row 2 (1680): c1 7S | c10 8S+6S"   base cards, then '+' and the cards lying
//   on them in stacking order; '*' marks the selected card. Cards off the grid
//   and the selection state follow on their own lines.
std::string describe(const Board& board);

}  // namespace vorn
