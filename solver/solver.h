// The solver: decides whether a position can still be won and, if so, how.
//
// A move is what the player does with two clicks: a first click that selects a
// card and a second click on a card or a pile place that moves something. The
// search works on a compact copy of the position (solver_position.h) with the
// moves the click routines allow restated over it (solver_moves.h); a check in
// the test support (tests/support/solver_check.h) holds that restatement to the
// clicks themselves, and every winning line is replayed through the board's own
// click routines before solve answers Won. The search is depth-first over
// positions, each remembered so it is expanded once; positions that differ only
// by which half-row of rows 1 to 4 holds what count as one.
//
// Won means all four kings home, the condition konec tests. A game whose last
// move plays a run onto an ace (perexod2) is won on the board although konec
// does not run after that click, so the window may not announce it; the solver
// counts it as won all the same.
//
// Positions that the clicks cannot produce (a malformed stored layout: a card
// off the grid, two cards on one place, a cell that is not one suit's unbroken
// run) are refused rather than answered: no verdict about them would be honest.
//
// solve() keeps no global state, so several threads may solve at once.
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "board/board.h"
#include "board/move.h"

namespace vorn {

enum class Outcome : uint8_t {
    Won,      // moves holds a line of play that wins
    Lost,     // no sequence of legal clicks wins
    Unknown,  // the search reached a limit before it could decide
    Refused,  // a position the clicks cannot produce; reason says what is wrong
};

// "won", "lost", "unknown", "refused".
std::string_view outcomeName(Outcome outcome);

// When the search gives up and answers Unknown, and the two shortcuts it takes.
struct Limits {
    uint64_t maxPositions = 1'000'000;  // distinct positions visited
    std::chrono::nanoseconds maxTime = std::chrono::seconds(1);

    // A move that plays cards onto their foundation never spoils a game that can
    // be won, so when one exists it is the only move tried. (Every card of such a
    // move leaves as a whole cell; a card home blocks no other card, is a target
    // that never refuses its successor, and whatever a winning line would have
    // done with it on the grid it can do with the foundation instead.)
    bool foundationFirst = true;
    // A card lying on the place below the aces can never be selected again, nor
    // the card under it: positions with such cards are lost and not searched.
    bool pruneDeadEnds = true;
    // The order of moves that look equally promising: 0 keeps the order they
    // are found in; any other value orders them by a hash of this seed and the
    // move. Which winning line is found depends on it, never whether one is.
    uint64_t orderSeed = 0;
};

// One move: a first click that selects `card`, then a second click on `target`
// (a card of its suit or a pile place) that plays it there.
using CardMove = Move;

struct Verdict {
    Outcome outcome = Outcome::Unknown;
    // Won: when a card was selected in the board handed to solve(), the click
    // that clears the selection (a click on that card), to be made first.
    std::optional<Hit> deselect;
    // Won: the moves that win, to be made one after the other.
    std::vector<CardMove> moves;
    uint64_t positions = 0;             // distinct positions visited
    std::chrono::nanoseconds elapsed{};  // search and verification together
    // Refused: what is wrong with the position. Unknown: empty when a limit was
    // reached, else why the search could not answer.
    std::string reason;

    // Every click in order, for Board::click: the deselect click if there is
    // one, then each move's two clicks.
    std::vector<Hit> clicks() const;
};

Verdict solve(const Board& board, const Limits& limits = {});

// Makes a verdict's clicks on a copy of the board through Board::click and tells
// whether each move moved something and the four kings end up home. Every Won
// verdict has passed this check.
bool replayWins(const Board& board, const Verdict& line);

// True when all four kings are home, as konec finds them.
bool kingsHome(const Board& board);

}  // namespace vorn
