// A batch of seeded random deals, solved on several threads. Deal i of a batch
// uses the seed S + i, so the answers do not depend on the number of threads.
#pragma once

#include <cstdint>
#include <ostream>
#include <string>
#include <vector>

#include "solver/difficulty.h"
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

// A deal graded: its layout string and its difficulty (whose outcome is the
// verdict), and the time the grading took.
struct GradedDeal {
    std::string layout;
    Difficulty difficulty;
    double milliseconds = 0;
};
std::vector<GradedDeal> gradeDeals(uint64_t count, uint64_t seed, unsigned threads);

// D in bits with three decimals: 17250 -> "17.250".
std::string bitsText(int32_t milliBits);
// The CSV of graded deals: a header, then deal number, layout string (quoted),
// verdict, D in bits and grade, the last two empty unless won.
void writeCsv(std::ostream& out, uint64_t seed, const std::vector<GradedDeal>& deals);
// One line: how many deals of each grade, and the time per grading.
std::string describeGrades(const std::vector<GradedDeal>& deals);

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
