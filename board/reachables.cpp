// Reading the table as a grid.
#include "reachables.h"

namespace vorn {

std::vector<Reachable> reachables(const Board& board) {
    const GridContents grid = board.contents();
    std::vector<Reachable> out;
    for (int8_t row = 1; row <= kRowCount; ++row)
        for (int8_t column = 1; column <= kColumnCount; ++column) {
            const Cell cell{row, column, false};
            const CellContents& shows = grid[static_cast<size_t>(cell.index())];
            const int pile = pileImageOf(cell);
            if (!shows.base.empty()) {
                out.push_back({{Hit::Kind::Card, shows.base, 0}, column, row, 0});
            } else if (pile != 0 && board.pileVisible(pile)) {
                out.push_back({{Hit::Kind::Pile, Card{}, pile}, column, row, 0});
            }
            if (!shows.front.empty()) out.push_back({{Hit::Kind::Card, shows.front, 0}, column, row, 1});
        }
    return out;
}

}  // namespace vorn
