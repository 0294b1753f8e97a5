// The solver's knowledge of a deal: every position whose verdict has been
// found, so that the live verdict, the grading and the review ask the search
// only about what nobody has decided yet.
//
// A position is known won with the length of a winning line from it, or known
// lost. What one search proves it keeps:
//   - a winning line makes every position on it won, each with the length of
//     the rest of the line;
//   - a lost position makes every position reached from it lost, so a search
//     that answers Lost leaves all the positions it reached known lost.
// Positions are told apart by the solver's key, so positions that differ only
// by which half-row holds what share what is known of them. Unknown answers
// (a limit reached) are not kept: a later search with other limits may
// decide.
//
// Every method may be called from several threads at once: the table is
// guarded by a mutex, taken only to look up and to store, never during a
// search.
#pragma once

#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

#include "solver.h"
#include "solver_search.h"

namespace vorn {

// A legal move and what it leaves: Won when the deal can still be won after
// it, Lost when it cannot, Unknown when the search gave up.
struct MoveVerdict {
    CardMove move;
    Outcome outcome = Outcome::Unknown;
};

// Every legal move of the board: each distinct pair of a card to select and the
// card or place the second click plays it to, as the clicks allow them with
// nothing selected (a selected card is first let go: the selection and its
// cancel are no moves).
std::vector<CardMove> legalMoves(const Board& board);

class Knowledge final : private solver::Known {
public:
    // Lost positions are kept while fewer than `capacity` positions are known;
    // past it a lost search teaches nothing more (won lines are always kept).
    // A position takes about 100 bytes: some 50 MB at the default.
    static constexpr size_t kDefaultCapacity = size_t{1} << 19;
    explicit Knowledge(size_t capacity = kDefaultCapacity);
    ~Knowledge();
    Knowledge(const Knowledge&) = delete;
    Knowledge& operator=(const Knowledge&) = delete;

    // The verdict of the board, as solve() gives it: from what is known, else
    // from a search within `limits` that uses and adds to what is known. A Won
    // verdict's line has been replayed through the board's clicks. `positions`
    // counts the positions this call searched (0 when the answer was known).
    Verdict decide(const Board& board, const Limits& limits = {});
    // What is known of the board without searching: Won, Lost, or nothing (a
    // board the solver refuses is never known).
    std::optional<Outcome> known(const Board& board) const;
    // When one move takes `before` to `after`: a lost `before` makes `after`
    // lost, a won `after` makes `before` won. (Boards a move does not join
    // teach nothing.)
    void learnMove(const Board& before, const Board& after);
    // Every legal move of the board (legalMoves' order) with its verdict.
    std::vector<MoveVerdict> judgeMoves(const Board& board, const Limits& limits = {});
    // Forgets everything (a new deal). A search under way when it is called
    // stores nothing.
    void clear();
    size_t size() const;

    // The same on the solver's compact position, for the grading. decide adds
    // the positions it searched to `positions`.
    Outcome decide(const solver::CompactPosition& position, const Limits& limits, uint64_t& positions);
    uint32_t lookup(const solver::CompactPosition& position) const override;
    // Keeps a winning line found elsewhere: the moves from `root` that win.
    void learnLine(const solver::CompactPosition& root, const std::vector<solver::MoveCode>& line);

private:
    struct Table;
    // Stores what a search from `root` found; `generation` is clear()'s count
    // when the search began.
    void learn(const solver::CompactPosition& root, Outcome outcome, const std::vector<solver::MoveCode>& line,
               const solver::Search& search, uint64_t generation);
    // Stores the positions of a line from `root` that leads to a position won
    // in `remaining` moves.
    void learnWon(const solver::CompactPosition& root, const std::vector<solver::MoveCode>& line, uint32_t remaining,
                  uint64_t generation);
    // The winning line from a known won position (lock held).
    bool lineFrom(solver::CompactPosition position, std::vector<solver::MoveCode>& line) const;

    mutable std::mutex mutex_;
    std::unique_ptr<Table> table_;
    size_t capacity_;
    uint64_t generation_ = 0;
};

}  // namespace vorn
