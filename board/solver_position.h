// How the solver reads a position from the board's tables: the cells of the
// grid, which card of each cell can be clicked, whether the position is one the
// clicks can produce at all, and a compact key that tells positions apart.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "board.h"

namespace vorn::solver {

inline constexpr int kRows = kRowCount;
inline constexpr int kColumns = kColumnCount;
inline constexpr int kCells = kCellCount;

// The grid cell of a Left and Top (a row Top or a stacked Top); -1 off the grid.
int cellAt(int16_t left, int16_t top);

// The cells of a position as the clicks see them.
struct Cells {
    std::array<Card, kCells> base{};    // the card at the cell's row Top, if any
    std::array<Card, kCells> front{};   // the front-most card at its stacked Top, if any
    std::array<uint8_t, kCells> stacked{};  // how many cards lie at its stacked Top
    std::array<int8_t, kSuits * kRanks> cellOf{};  // cell of every card, by (suit-1)*13+rank-1

    // The card a click on this cell's visible face reaches: the front stacked card,
    // else the base card; an empty Card when the cell is empty.
    Card visible(int cell) const { return stacked[cell] ? front[cell] : base[cell]; }
    bool isVisible(Card c) const {  // nothing lies on it and it is in front of its cell
        const int cell = cellOf[index(c)];
        if (cell < 0) return false;
        const auto at = static_cast<size_t>(cell);
        return base[at] == c ? stacked[at] == 0 : front[at] == c;
    }
    // On a foundation: in the middle column above row 5, lying on the ace's cell
    // (where konec looks for the kings).
    bool isHome(Card c) const {
        const int cell = cellOf[index(c)];
        return cell >= 0 && cell % kColumns == kColumns / 2 && cell < (kRows - 1) * kColumns &&
               !(base[static_cast<size_t>(cell)] == c);
    }
    static size_t index(Card c) { return static_cast<size_t>((c.suit - 1) * kRanks + c.rank - 1); }
};

// Reads the cells; only meaningful for a position without a problem (below).
Cells cellsOf(const Board& board);

// Empty when the clicks could have produced this position (dealt, every card on
// the grid, the aces at home, each cell one suit's unbroken run from its base card
// with the far end in front); otherwise a one-line description of what is wrong.
std::string positionProblem(const Board& board);

// Positions with equal keys play alike: the spot of every card of rank 2..13 and
// whether it is the front card of its cell. Selection state is not part of it.
//
// The eight half-rows of rows 1 to 4 play alike: every check looks at a
// half-row on its own (a base card is free when it is the outermost of its
// half-row, a target likewise), nothing else tells rows 1 to 4 apart, and a
// right half is a left half seen in a mirror. So a half-row is keyed by its
// cards counted from the middle column outwards, and the half-rows are keyed in
// the order of their contents, not of their places: two positions that differ
// only by which half-row holds what share a key. Row 5, with its own rules, and
// the foundations keep their places.
struct PositionKey {
    std::array<uint64_t, 6> words{};
    friend bool operator==(const PositionKey&, const PositionKey&) = default;
    uint64_t hash() const;
};
PositionKey positionKey(const Cells& cells);

}  // namespace vorn::solver
