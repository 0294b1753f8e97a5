// The things on the card table a click can reach, each with its cell: the way
// the keyboard and screen readers go over the table.
#pragma once

#include <vector>

#include "board.h"

namespace vorn {

// A card that shows (a base card by its strip) or a pile place that no card
// covers. `layer` is 0 for a base card or a place and 1 for the card lying in
// front on a base card.
struct Reachable {
    Hit hit;
    int column = 0;
    int row = 0;
    int layer = 0;
};
// Row by row from the top, each row from the left, a base card before the card on it.
std::vector<Reachable> reachables(const Board& board);

}  // namespace vorn
