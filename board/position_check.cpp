// Whether a position is one the clicks can produce.
#include "position_check.h"

#include <array>

#include "notation.h"

namespace vorn {

namespace {

Card nameOf(int suit, int rank) { return Card{static_cast<int16_t>(suit), static_cast<int16_t>(rank)}; }

std::string spotText(const Board& b, Card c) {
    const Spot at = b.spot(c);
    std::string text = "(";
    text += std::to_string(at.left);
    text += ", ";
    text += std::to_string(at.top);
    return text + ")";
}

// A stacked cell must be one suit's unbroken run going away from its base card,
// each card in front of the one before it, so that the far end is the one seen.
std::string runProblem(const Board& b, const CellContents& there, Cell cell) {
    if (there.base.empty()) return cardName(there.front) + " lies on an empty cell";
    const Card base = there.base;
    const int step = there.front.rank > base.rank ? 1 : -1;
    cell.stacked = true;
    uint32_t below = b.zorder(base.suit, base.rank);
    for (int i = 1; i <= there.stacked; ++i) {
        const Card c = nameOf(base.suit, base.rank + step * i);
        if (!isCard(c.suit, c.rank) || b.cell(c) != cell)
            return "the cell of " + cardName(base) + " is not one suit's unbroken run";
        if (b.zorder(c.suit, c.rank) <= below) return "the cards on " + cardName(base) + " lie in an order no move makes";
        below = b.zorder(c.suit, c.rank);
    }
    return {};
}

}  // namespace

std::string positionProblem(const Board& b) {
    if (!b.dealt()) return "nothing is dealt yet: the cards cannot be played before New game";
    if (b.vybor != 1 && b.vybor != 2) return "the selection state is neither 1 nor 2";
    if (b.hasSelection() && (!isCard(b.karta1.suit, b.karta1.rank) || b.karta1.rank == 1))
        return "the selected card is no card of rank 2 to 13";
    for (int s = 1; s <= kSuits; ++s)
        if (b.cell(nameOf(s, 1)) != Cell{static_cast<int8_t>(s), kMiddleColumn, false})
            return "the ace " + cardName(nameOf(s, 1)) + " is not at its place";

    std::array<Card, kCellCount> base{};
    for (int s = 1; s <= kSuits; ++s)
        for (int r = 1; r <= kRanks; ++r) {
            const Card card = nameOf(s, r);
            const Cell c = b.cell(card);
            if (!c.onGrid()) return cardName(card) + " lies off the grid at " + spotText(b, card);
            if (isRowFive(c) && (c.col == 1 || c.col == kColumnCount))
                return cardName(card) + " lies where no card can be, at " + spotText(b, card);
            if (c.stacked) continue;
            Card& there = base[static_cast<size_t>(c.index())];
            if (!there.empty()) return cardName(there) + " and " + cardName(card) + " lie on one place";
            there = card;
        }

    const GridContents grid = b.contents();
    for (int row = 1; row <= kRowCount; ++row)
        for (int col = 1; col <= kColumnCount; ++col) {
            const Cell cell{static_cast<int8_t>(row), static_cast<int8_t>(col), false};
            const CellContents& there = grid[static_cast<size_t>(cell.index())];
            if (there.stacked == 0) continue;
            if (std::string problem = runProblem(b, there, cell); !problem.empty()) return problem;
        }
    return {};
}

}  // namespace vorn
