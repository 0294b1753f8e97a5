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

class Search {
public:
    using Clock = std::chrono::steady_clock;

    Search(const Limits& limits, Clock::time_point started) : limits_(limits), started_(started) {}

    // Searches from `root`. Won: `line` holds the moves that win.
    Outcome run(const CompactPosition& root, std::vector<MoveCode>& line);
    uint64_t positions() const { return seen_.size(); }

private:
    // A child of a position on the current line that is still to be visited:
    // the move that makes it (it is made again when its turn comes) and how
    // promising it looked.
    struct Waiting {
        MoveCode move;
        int16_t promise = 0;
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
