// A position the clicks can produce: the one place that says so. The solver
// refuses any other position, and the random-play tests hold every board they
// reach to it.
#pragma once

#include <string>

#include "board.h"

namespace vorn {

// Empty when the clicks could have produced this position (dealt, a selection
// that names a card of rank 2 to 13, every card on the grid, the aces at home,
// one base card to a place, each cell one suit's unbroken run from its base card
// with the far end in front); otherwise a one-line description of what is wrong.
std::string positionProblem(const Board& board);

}  // namespace vorn
