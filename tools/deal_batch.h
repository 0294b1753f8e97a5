// A batch of seeded random deals, solved on several threads. Deal i of a batch
// uses the seed S + i, so the answers do not depend on the number of threads.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "solver/solver.h"

namespace vorn::tools {

// The board right after New game with a repeatable random source.
Board seededDeal(uint64_t seed);

struct DealResult {
    Outcome outcome = Outcome::Unknown;
    double milliseconds = 0;
    uint64_t positions = 0;
    int moves = 0;
};

std::vector<DealResult> solveDeals(uint64_t count, uint64_t seed, unsigned threads, const Limits& limits);

struct BatchSummary {
    uint64_t won = 0, lost = 0, unknown = 0, refused = 0;
    double winRate = 0, low = 0, high = 0;  // won / decided, with its 95 % Wilson interval
    double median = 0, p90 = 0, p99 = 0, max = 0;  // milliseconds per deal
    uint64_t positions = 0;
    double totalMilliseconds = 0;
};

BatchSummary summarize(const std::vector<DealResult>& results);

// The value below which the share q (0..1) of the sorted values lies (nearest rank).
double percentile(const std::vector<double>& sorted, double q);

// Lines of text for the summary, each ending in '\n'.
std::string describeSummary(const BatchSummary& summary, uint64_t count, uint64_t seed, unsigned threads);

}  // namespace vorn::tools
