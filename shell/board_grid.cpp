// Reading the table as a grid.
#include "board_grid.h"

namespace vorn::shell {

std::optional<GridPos> gridOf(Spot at) {
    GridPos pos;
    for (size_t c = 0; c < kColumnLefts.size(); ++c)
        if (kColumnLefts[c] == at.left) pos.column = static_cast<int>(c) + 1;
    for (size_t r = 0; r < kRowTops.size(); ++r) {
        if (kRowTops[r] == at.top) pos.row = static_cast<int>(r) + 1;
        if (kStackedTops[r] == at.top) {
            pos.row = static_cast<int>(r) + 1;
            pos.stacked = true;
        }
    }
    if (pos.column == 0 || pos.row == 0) return std::nullopt;
    return pos;
}

GridCell gridCell(const Board& board, int column, int row) {
    GridCell cell;
    uint32_t front = 0;
    for (int16_t s = 1; s <= kSuits; ++s)
        for (int16_t r = 1; r <= kRanks; ++r) {
            const auto pos = gridOf({board.kartleft(s, r), board.karttop(s, r)});
            if (!pos || pos->column != column || pos->row != row) continue;
            if (!pos->stacked) {
                cell.base = {s, r};
            } else if (cell.front.empty() || board.zorder(s, r) > front) {
                cell.front = {s, r};
                front = board.zorder(s, r);
            }
        }
    for (int image = 1; image <= kPileCount; ++image) {
        const auto pos = gridOf({pilePlace(image).left, pilePlace(image).top});
        if (pos && pos->column == column && pos->row == row) cell.pile = image;
    }
    return cell;
}

std::vector<Reachable> reachables(const Board& board) {
    std::vector<Reachable> out;
    for (int row = 1; row <= static_cast<int>(kRowTops.size()); ++row)
        for (int column = 1; column <= static_cast<int>(kColumnLefts.size()); ++column) {
            const GridCell cell = gridCell(board, column, row);
            if (!cell.base.empty()) {
                out.push_back({{Hit::Kind::Card, cell.base, 0}, column, row, 0});
            } else if (cell.pile != 0 && board.pileVisible(cell.pile)) {
                out.push_back({{Hit::Kind::Pile, Card{}, cell.pile}, column, row, 0});
            }
            if (!cell.front.empty()) out.push_back({{Hit::Kind::Card, cell.front, 0}, column, row, 1});
        }
    return out;
}

}  // namespace vorn::shell
