// The card table read as a grid of 5 rows and 11 columns: which cell a card lies
// in, what a cell shows, and every thing a click can reach with its cell. Rows
// and columns count from 1; a cell shows at most a base card (or the picture of
// an empty place) and, lying on it, the card in front.
#pragma once

#include <optional>
#include <vector>

#include "board/board.h"

namespace vorn::shell {

struct GridPos {
    int column = 0;
    int row = 0;
    bool stacked = false;  // lies on another card (the stacked Top of the row)
    friend bool operator==(const GridPos&, const GridPos&) = default;
};

// The cell of a position; nullopt off the grid.
std::optional<GridPos> gridOf(Spot at);

struct GridCell {
    Card base{};   // the card at the row Top, if any
    Card front{};  // the front-most card lying on it, if any
    int pile = 0;  // the pile place of this cell (1..11), 0 when it has none
};
GridCell gridCell(const Board& board, int column, int row);

// A thing a click can reach: a card that shows (a base card by its strip) or a
// pile place that no card covers. `layer` is 0 for a base card or a place and 1
// for the card lying in front on a base card.
struct Reachable {
    Hit hit;
    int column = 0;
    int row = 0;
    int layer = 0;
};
std::vector<Reachable> reachables(const Board& board);

}  // namespace vorn::shell
