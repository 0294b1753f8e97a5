// The solver's moves held against the click routines, which define the rules.
//
// For a position with nothing selected, the moves are found twice: once by the
// solver's generator over its compact position (solver_moves.h), each with the
// compact position it leads to, and once on the board itself, by trying every
// pair of clicks: a first click on everything a click can reach, a second click
// on everything a click can reach; a pair whose second click moves something is
// a move, and the compact position read off the board after it is where it
// leads. Both must give the same moves leading to the same positions. The move
// home that the search takes alone, when there is one, must be among them, and
// legalMoves (knowledge.h) must give the same moves, a card selected or not.
//
// The test suite runs this over a hundred thousand positions and
// bench/crosscheck.cpp over ten million.
#pragma once

#include <cstdint>
#include <string>

#include "board/board.h"

namespace vorn::solver {

// Empty when the generator and the clicks agree on this position; otherwise the
// position (notation.h's describe) and both sets of moves, as text.
std::string compareWithClicks(const Board& board);

struct CrossCheck {
    uint64_t positions = 0;  // positions compared
    uint64_t deals = 0;      // deals they came from
    std::string difference;  // the first disagreement, as compareWithClicks gives it
};

// Play from the seeded deals firstSeed, firstSeed + 1, ...: a winnable deal is
// played a random number of moves along the solver's winning line, then (any
// deal) up to 30 moves at random through the clicks, half of them home when a
// move home is there; every position reached is compared. Stops after
// `positions` positions or at the first disagreement.
//
// Every pair of clicks is tried in the first position and then in every
// `everyPairEvery`-th. In the others a second click on a card of another suit
// than the selected card's is left out: secondClick and perexod2 refuse such a
// card before anything else, which the positions with every pair keep checking.
// The second clicks are most of the work, and these are most of them.
CrossCheck crossCheck(uint64_t positions, uint64_t firstSeed, uint64_t everyPairEvery = 1);

}  // namespace vorn::solver
