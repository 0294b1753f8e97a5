// The card table as the rules see it: five rows of eleven cells. The aces lie
// in the middle column, one in each of rows 1 to 4; every other cell of rows 1
// to 4 and the eight inner cells of row 5 are places a deal fills. A cell holds
// its base card, lying at the row's Top, and the cards stacked on it, lying a
// little lower. Rows and columns count from 1, the left column first.
//
// The window measures in twips (geometry.h); cellOf is the one place where a
// position in twips becomes a cell, and every question the rules ask about
// where a card lies is asked of cells.
#pragma once

#include <array>
#include <cstdint>

#include "geometry.h"

namespace vorn {

inline constexpr int kRowCount = 5;
inline constexpr int kColumnCount = 11;
inline constexpr int kCellCount = kRowCount * kColumnCount;
inline constexpr int kRowFive = 5;       // the bottom row, which has rules of its own
inline constexpr int kMiddleColumn = 6;  // the aces' column

inline constexpr int kColumnStep = 960;  // twips from one column to the next
inline constexpr int kRowStep = 1560;    // twips from one row to the next
static_assert(kColumnLefts[1] - kColumnLefts[0] == kColumnStep && kRowTops[1] - kRowTops[0] == kRowStep);
static_assert(kColumnLefts[kMiddleColumn - 1] == kMiddleLeft && kRowTops[kRowFive - 1] == kBottomRowTop);

struct Cell {
    int8_t row = 0;        // 1..5; 0 for a card that lies off the grid
    int8_t col = 0;        // 1..11
    bool stacked = false;  // lies on the cell's base card rather than being it

    constexpr bool onGrid() const { return row != 0; }
    // The cell itself, whether a card lies on it or is its base card.
    constexpr Cell base() const { return {row, col, false}; }
    constexpr bool sameCell(Cell other) const { return onGrid() && row == other.row && col == other.col; }
    // In the same row at the same Top: both base cards, or both lying on one.
    constexpr bool sameTop(Cell other) const { return onGrid() && row == other.row && stacked == other.stacked; }
    constexpr int index() const { return (row - 1) * kColumnCount + (col - 1); }  // 0..54 on the grid
    friend bool operator==(const Cell&, const Cell&) = default;
};

namespace grid_detail {

// Every Left and Top of the grid is a multiple of this, so tables indexed by
// the quotient turn them into columns and rows quickly.
inline constexpr int kUnit = 120;
static_assert(kColumnLefts[0] % kUnit == 0 && kColumnStep % kUnit == 0 && kRowStep % kUnit == 0 &&
              kStackOffset % kUnit == 0);

inline constexpr auto kColumnAt = [] {  // Left / kUnit -> column, 0 for none
    std::array<int8_t, kColumnLefts.back() / kUnit + 1> table{};
    for (int c = 1; c <= kColumnCount; ++c) table[static_cast<size_t>(kColumnLefts[static_cast<size_t>(c - 1)] / kUnit)] = static_cast<int8_t>(c);
    return table;
}();
inline constexpr auto kLevelAt = [] {  // Top / kUnit -> 2 * row, +1 for a stacked Top; 0 for none
    std::array<int8_t, kStackedTops.back() / kUnit + 1> table{};
    for (int r = 1; r <= kRowCount; ++r) {
        table[static_cast<size_t>(kRowTops[static_cast<size_t>(r - 1)] / kUnit)] = static_cast<int8_t>(2 * r);
        table[static_cast<size_t>(kStackedTops[static_cast<size_t>(r - 1)] / kUnit)] = static_cast<int8_t>(2 * r + 1);
    }
    return table;
}();

}  // namespace grid_detail

// The cell of a card whose image lies at (left, top) twips: a row Top gives the
// base card of the cell, the stacked Top of the row a card lying on it, and any
// other position a card off the grid.
constexpr Cell cellOf(int left, int top) {
    using namespace grid_detail;
    const auto l = static_cast<unsigned>(left) / kUnit;  // a negative value becomes huge
    const auto t = static_cast<unsigned>(top) / kUnit;
    if (l >= kColumnAt.size() || t >= kLevelAt.size()) return {};
    const int col = kColumnAt[l];
    const int level = kLevelAt[t];
    if (col == 0 || level == 0 || static_cast<int>(l * kUnit) != left || static_cast<int>(t * kUnit) != top) return {};
    return {static_cast<int8_t>(level / 2), static_cast<int8_t>(col), level % 2 == 1};
}
constexpr Cell cellOf(Spot at) { return cellOf(at.left, at.top); }

// Where a card of a cell lies, in twips.
constexpr Spot spotOf(Cell c) {
    return {kColumnLefts[static_cast<size_t>(c.col - 1)],
            static_cast<int16_t>(kRowTops[static_cast<size_t>(c.row - 1)] + (c.stacked ? kStackOffset : 0))};
}

constexpr bool isMiddle(Cell c) { return c.onGrid() && c.col == kMiddleColumn; }
constexpr bool isRowFive(Cell c) { return c.row == kRowFive; }
// Rows 1 to 4, each with an ace in the middle.
constexpr bool isAceRow(Cell c) { return c.row >= 1 && c.row < kRowFive; }
// A card lying on an ace: the foundations are built here.
constexpr bool isFoundation(Cell c) { return isMiddle(c) && isAceRow(c) && c.stacked; }
// The base card of the cell right below the aces.
constexpr bool isBelowTheAces(Cell c) { return isMiddle(c) && isRowFive(c) && !c.stacked; }
// The cell where the cards of a suit go home: stacked on its ace in row `suit`.
constexpr Cell foundationOf(int suit) { return {static_cast<int8_t>(suit), kMiddleColumn, true}; }

// Does `c` lie farther out than `from`, at the same Top (same row, both base
// cards or both stacked) and on the same side of the middle column? Nothing lies
// farther out than a card of the middle column.
constexpr bool liesFartherOut(Cell c, Cell from) {
    if (!c.sameTop(from)) return false;
    if (from.col < kMiddleColumn) return c.col < from.col;
    return from.col > kMiddleColumn && c.col > from.col;
}

// The same for the target of a move, except that here the middle column belongs
// to the left half: every card of the left half lies farther out than a middle one.
constexpr bool liesFartherOutThanTarget(Cell c, Cell target) {
    if (!c.sameTop(target)) return false;
    return target.col <= kMiddleColumn ? c.col < target.col : c.col > target.col;
}

// The pile place Image1..Image11 of a cell (base or stacked), 0 when it has none.
constexpr int pileImageOf(Cell c) {
    for (int image = 1; image <= kPileCount; ++image) {
        const Cell place = cellOf(kPilePlaces[static_cast<size_t>(image - 1)].left,
                                  kPilePlaces[static_cast<size_t>(image - 1)].top);
        if (place.sameCell(c)) return image;
    }
    return 0;
}
constexpr Cell pileCell(int image) {
    return cellOf(kPilePlaces[static_cast<size_t>(image - 1)].left, kPilePlaces[static_cast<size_t>(image - 1)].top);
}

}  // namespace vorn
