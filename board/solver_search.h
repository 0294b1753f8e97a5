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

    // Searches from `root` (nothing selected). Won: `line` holds the moves' clicks.
    Outcome run(const Board& root, std::vector<Hit>& line);
    uint64_t positions() const { return seen_.size(); }

private:
    struct Frame {
        std::vector<Child> children;  // every move found, seen positions included
        std::vector<uint16_t> order;   // the children still worth a visit, best first
        std::vector<int> scores;       // promise of each child
        std::vector<Cells> cells;      // cells of each child
        size_t next = 0;               // order[next] is visited next
    };
    enum class Step { Continue, Won, OutOfLimits };

    // Generates the unseen children of `position` into frame `depth`.
    Step expand(const Board& position, const Cells& cells, size_t depth);
    Step keepChildren(Frame& frame);
    void leave(size_t depth);
    bool outOfTime();
    void collectLine(size_t depth, const Move& last, std::vector<Hit>& line) const;

    Limits limits_;
    Clock::time_point started_;
    SeenSet seen_;
    std::vector<Frame> frames_;
    // A line so deep that the positions waiting along it would take more room
    // than this many (about 150 MB) ends the search as unknown.
    static constexpr size_t kMaxHeldBoards = 100'000;
    static constexpr size_t kFramesKept = 1024;  // frames whose storage is reused
    size_t held_ = 0;
    Move winning_{};
    uint32_t expansions_ = 0;
};

}  // namespace vorn::solver
