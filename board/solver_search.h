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

    Search(const Limits& limits, Clock::time_point started) : limits_(limits), started_(started) {
        frames_.reserve(64);
    }

    // Searches from `root`. Won: `line` holds the moves that win.
    Outcome run(const Position& root, std::vector<MoveCode>& line);
    uint64_t positions() const { return seen_.size(); }

private:
    struct Child {
        Position position;
        MoveCode move;
        int promise = 0;
    };
    // The children of one position on the current line: children_[begin, end),
    // to be visited in the order order_[begin, end); order_[next] is next.
    struct Frame {
        size_t begin = 0, end = 0, next = 0;
    };
    enum class Step { Continue, Won, OutOfLimits };

    // Pushes the frame of `position` with its unseen children, best first.
    Step expand(const Position& position);
    bool outOfTime();

    Limits limits_;
    Clock::time_point started_;
    SeenSet seen_;
    std::vector<Child> children_;  // the frames' children, one frame after the other
    size_t waiting_ = 0;           // children_[0, waiting_) are in use
    std::vector<uint32_t> order_;
    std::vector<Frame> frames_;
    MoveCode winning_{};
    uint32_t expansions_ = 0;
    // A line so deep that the positions waiting along it would take more room
    // than this many (about 30 MB) ends the search as unknown.
    static constexpr size_t kMaxWaiting = 100'000;
};

}  // namespace vorn::solver
