// The depth-first search behind solve(): every position reached is remembered,
// so each is expanded at most once, and the first winning line found ends it.
#pragma once

#include <chrono>
#include <cstdint>
#include <vector>

#include "solver.h"
#include "solver_moves.h"
#include "solver_seen.h"

namespace vorn::solver {

// What a search may be told about the positions it meets before it looks at
// them (the solver's knowledge, knowledge.h).
class Known {
public:
    static constexpr uint32_t kUnknown = 0xFFFF'FFFF;
    static constexpr uint32_t kLost = 0xFFFF'FFFE;
    // kUnknown, kLost, or the length of a known winning line from `position`.
    virtual uint32_t lookup(const CompactPosition& position) const = 0;

protected:
    ~Known() = default;
};

class Search {
public:
    using Clock = std::chrono::steady_clock;

    // With `known`, a position known lost is not searched and one known won
    // ends the search.
    Search(const Limits& limits, Clock::time_point started, const Known* known = nullptr)
        : limits_(limits), started_(started), known_(known) {}

    // Searches from `root`. Won: `line` holds the moves that win, or that lead
    // to a position known won (then remaining() is the length of its line).
    Outcome run(const CompactPosition& root, std::vector<MoveCode>& line);
    uint64_t positions() const { return seen_.size(); }
    uint32_t remaining() const { return remaining_; }
    // Every position the search reached: all of them lost when it answers Lost.
    const SeenSet& seen() const { return seen_; }

private:
    // A child of a position on the current line that is still to be visited:
    // the move that makes it (it is made again when its turn comes) and how
    // promising it looked.
    struct Waiting {
        MoveCode move;
        int32_t order = 0;  // how promising it looked, then the tie-break
    };
    // A position on the current line and its children, waiting_[begin, end),
    // best first; waiting_[next] is visited next.
    struct Frame {
        CompactPosition position;
        size_t begin = 0, end = 0, next = 0;
    };
    enum class Step { Continue, Won, OutOfLimits };

    // Finds the unseen children of frames_[depth].position, best first.
    Step expand(size_t depth);
    bool outOfTime();

    Limits limits_;
    Clock::time_point started_;
    const Known* known_;
    uint32_t remaining_ = 0;
    SeenSet seen_;
    std::vector<Frame> frames_;      // frames_[0, depth] are the current line
    std::vector<Waiting> waiting_;   // the frames' children, one frame after the other
    CompactPosition child_;                 // where each child is made to be looked at
    MoveCode winning_{};
    uint32_t expansions_ = 0;
    // A line so deep that the positions along it would take more room than
    // this many (about 20 MB) ends the search as unknown.
    static constexpr size_t kMaxDepth = 100'000;
};

}  // namespace vorn::solver
