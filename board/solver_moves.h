// The moves of a position, found by clicking on copies of the board.
//
// A move is a pair of clicks: a first click on a visible card that selects it,
// then a click on a card or a pile place that moves something (Reaction.moved).
// Nothing here decides a rule: a move exists only when Board::click says so.
// To spare clicks that cannot move anything, only likely candidates are tried:
// as first clicks the front card of each stacked cell, the outermost base card
// of each half-row and the card below the aces; as second clicks the selected
// card's neighbours in its suit (its ace for a 2) that lie in front and are not
// hemmed in, and the pile places no card covers. A test tries every pair of
// clicks on everything clickable against these moves, on many positions.
#pragma once

#include <vector>

#include "board.h"
#include "solver_position.h"

namespace vorn::solver {

struct Move {
    Hit first;   // selects a card
    Hit second;  // plays it onto a card or a pile place
    friend bool operator==(const Move&, const Move&) = default;
};

// A move and the position it leads to.
struct Child {
    Move move;
    Board board;
};

// Every move from a position in which nothing is selected (vybor 1), appended to
// `out` with the position it leads to. `out` is cleared first; its storage is
// reused, which keeps the search free of allocations once it has warmed up.
void movesFrom(const Board& position, const Cells& cells, std::vector<Child>& out);

// The same for callers that do not keep cells or storage around.
std::vector<Child> movesFrom(const Board& position);

// A move that plays the next card of a suit (with its cell) onto the foundation,
// if one can be made: the only candidates are that card, clicked first, and the
// foundation's top card (its ace for a 2), clicked second. The first such move
// found goes into `out`.
bool homeMoveFrom(const Board& position, const Cells& cells, Child& out);

}  // namespace vorn::solver
