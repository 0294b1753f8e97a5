// Solving a batch of seeded deals and summing up the answers.
#include "deal_batch.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <cstdio>
#include <thread>

namespace vorn::tools {

Board seededDeal(uint64_t seed) {
    SeededRandom random(seed);
    Board board = Board::loaded();
    board.rasklad(random);
    return board;
}

namespace {

// Calls job(i) for i from 0 to count - 1 on `threads` threads.
template <class Job>
void onThreads(uint64_t count, unsigned threads, Job job) {
    std::atomic<uint64_t> next{0};
    auto work = [&] {
        for (uint64_t i = next++; i < count; i = next++) job(i);
    };
    std::vector<std::thread> pool;
    for (unsigned t = 1; t < threads; ++t) pool.emplace_back(work);
    work();
    for (std::thread& t : pool) t.join();
}

}  // namespace

std::vector<DealResult> solveDeals(uint64_t count, uint64_t seed, unsigned threads, const Limits& limits) {
    std::vector<DealResult> results(count);
    onThreads(count, threads, [&](uint64_t i) {
        const Verdict verdict = solve(seededDeal(seed + i), limits);
        results[i] = {verdict.outcome, std::chrono::duration<double, std::milli>(verdict.elapsed).count(),
                      verdict.positions, static_cast<int>(verdict.moves.size())};
    });
    return results;
}

std::vector<GradedDeal> gradeDeals(uint64_t count, uint64_t seed, unsigned threads) {
    std::vector<GradedDeal> results(count);
    onThreads(count, threads, [&](uint64_t i) {
        const Board deal = seededDeal(seed + i);
        const auto started = std::chrono::steady_clock::now();
        const Difficulty difficulty = measureDifficulty(deal);
        results[i] = {deal.raskl, difficulty,
                      std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - started).count()};
    });
    return results;
}

std::string bitsText(int32_t milliBits) {
    char text[32];
    std::snprintf(text, sizeof text, "%d.%03d", milliBits / 1000, milliBits % 1000);
    return text;
}

void writeCsv(std::ostream& out, uint64_t seed, const std::vector<GradedDeal>& deals) {
    out << "deal,layout,verdict,difficulty,grade\n";
    for (size_t i = 0; i < deals.size(); ++i) {
        const Difficulty& d = deals[i].difficulty;
        const bool won = d.outcome == Outcome::Won;
        out << seed + i << ",\"" << deals[i].layout << "\"," << outcomeName(d.outcome) << ','
            << (won ? bitsText(d.milliBits) : "") << ',' << (won ? gradeName(d.grade) : "") << '\n';
    }
}

std::string describeGrades(const std::vector<GradedDeal>& deals) {
    std::array<uint64_t, kGradeCount> counts{};
    std::vector<double> times;
    for (const GradedDeal& d : deals) {
        if (d.difficulty.outcome == Outcome::Won) ++counts[static_cast<size_t>(d.difficulty.grade)];
        times.push_back(d.milliseconds);
    }
    std::sort(times.begin(), times.end());
    std::string line = "grades:";
    for (int g = 0; g < kGradeCount; ++g)
        line += std::string(g ? "," : "") + " " + std::string(gradeName(static_cast<Grade>(g))) + " " +
                std::to_string(counts[static_cast<size_t>(g)]);
    char text[160];
    std::snprintf(text, sizeof text, "\ntime per grading: median %.3f ms, p95 %.3f ms, p99 %.3f ms, max %.3f ms\n",
                  percentile(times, 0.5), percentile(times, 0.95), percentile(times, 0.99),
                  times.empty() ? 0 : times.back());
    return line + text;
}

double percentile(const std::vector<double>& sorted, double q) {
    if (sorted.empty()) return 0;
    const double rank = std::ceil(q * static_cast<double>(sorted.size()));
    const size_t index = rank < 1 ? 0 : static_cast<size_t>(rank) - 1;
    return sorted[std::min(index, sorted.size() - 1)];
}

BatchSummary summarize(const std::vector<DealResult>& results) {
    BatchSummary s;
    std::vector<double> times;
    times.reserve(results.size());
    for (const DealResult& r : results) {
        switch (r.outcome) {
        case Outcome::Won: ++s.won; break;
        case Outcome::Lost: ++s.lost; break;
        case Outcome::Unknown: ++s.unknown; break;
        case Outcome::Refused: ++s.refused; break;
        }
        times.push_back(r.milliseconds);
        s.positions += r.positions;
        s.totalMilliseconds += r.milliseconds;
    }
    std::sort(times.begin(), times.end());
    s.median = percentile(times, 0.5);
    s.p90 = percentile(times, 0.9);
    s.p99 = percentile(times, 0.99);
    s.max = times.empty() ? 0 : times.back();

    const double n = static_cast<double>(s.won + s.lost);
    if (n > 0) {
        // Wilson score interval: sound also when the rate is near 0 or 1.
        const double z = 1.959964;
        const double p = static_cast<double>(s.won) / n;
        const double centre = (p + z * z / (2 * n)) / (1 + z * z / n);
        const double spread = z * std::sqrt(p * (1 - p) / n + z * z / (4 * n * n)) / (1 + z * z / n);
        s.winRate = p;
        s.low = centre - spread;
        s.high = centre + spread;
    }
    return s;
}

std::string describeSummary(const BatchSummary& s, uint64_t count, uint64_t seed, unsigned threads) {
    char text[768];
    const double perSecond =
        s.totalMilliseconds > 0 ? static_cast<double>(s.positions) / s.totalMilliseconds * 1000 : 0;
    std::snprintf(text, sizeof text,
                  "deals %llu (seeds %llu to %llu, %u thread%s)\n"
                  "won %llu, lost %llu, unknown %llu, refused %llu\n"
                  "win rate %.2f %% of decided deals (95 %% interval %.2f %% to %.2f %%)\n"
                  "time per deal: median %.3f ms, p90 %.3f ms, p99 %.3f ms, max %.3f ms\n"
                  "positions: %llu in all, %.0f per second\n",
                  static_cast<unsigned long long>(count), static_cast<unsigned long long>(seed),
                  static_cast<unsigned long long>(seed + count - 1), threads, threads == 1 ? "" : "s",
                  static_cast<unsigned long long>(s.won), static_cast<unsigned long long>(s.lost),
                  static_cast<unsigned long long>(s.unknown), static_cast<unsigned long long>(s.refused),
                  s.winRate * 100, s.low * 100, s.high * 100, s.median, s.p90, s.p99, s.max,
                  static_cast<unsigned long long>(s.positions), perSecond);
    return text;
}

}  // namespace vorn::tools
