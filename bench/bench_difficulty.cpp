// The difficulty measure on one core: how long a grading takes, how much the
// figure depends on the lines' seeds, where the grade thresholds come from and
// how the grades share a fresh sample, and what finding a deal of a grade and
// the deal of the day cost. Times are the thread's CPU time.
//
//   bench_difficulty --benchmark_filter=Grading        10,000 winnable deals from deal 1
//   bench_difficulty --benchmark_filter=FreshSample    10,000 winnable deals from deal 1,000,001
//   bench_difficulty --benchmark_filter=Robustness     1,000 winnable deals, lines of seeds 1-12 and 13-24, ...
//   bench_difficulty --benchmark_filter=FindDeal       100 starting points per grade
//   bench_difficulty --benchmark_filter=DailyDeal      every day of 2026
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <ctime>
#include <numeric>
#include <string>
#include <vector>

#include "solver/daily_deal.h"
#include "solver/difficulty.h"

namespace {

using namespace vorn;

double threadCpuMilliseconds() {
    timespec t{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &t);
    return static_cast<double>(t.tv_sec) * 1e3 + static_cast<double>(t.tv_nsec) / 1e6;
}

double nearestRank(std::vector<double> values, double q) {
    if (values.empty()) return 0;
    std::sort(values.begin(), values.end());
    const auto rank = static_cast<size_t>(q * static_cast<double>(values.size()) + 0.999999);
    return values[std::min(values.size(), std::max<size_t>(rank, 1)) - 1];
}

std::string spread(const char* what, const std::vector<double>& v, const char* unit) {
    char text[200];
    std::snprintf(text, sizeof text, "%s: p50 %.2f%s, p95 %.2f%s, p99 %.2f%s, max %.2f%s", what, nearestRank(v, 0.5),
                  unit, nearestRank(v, 0.95), unit, nearestRank(v, 0.99), unit, nearestRank(v, 1), unit);
    return text;
}

Board deal(DealNumber number) {
    Board b = Board::loaded();
    dealNumbered(b, number);
    return b;
}

// Grades the winnable deals from `first` on until `count` of them are graded:
// their figures (thousandths of a bit) and CPU times. Lost deals are decided
// first and not timed.
struct Sample {
    std::vector<int32_t> milliBits;
    std::vector<double> milliseconds;
    uint64_t dealsTried = 0, unknown = 0;
};
Sample gradeWinnable(DealNumber first, size_t count) {
    Sample s;
    for (DealNumber n = first; s.milliBits.size() < count; ++n) {
        ++s.dealsTried;
        const Board b = deal(n);
        if (solve(b).outcome != Outcome::Won) continue;
        const double start = threadCpuMilliseconds();
        const Difficulty d = measureDifficulty(b);
        s.milliseconds.push_back(threadCpuMilliseconds() - start);
        if (d.outcome != Outcome::Won) {
            ++s.unknown;
            continue;
        }
        s.milliBits.push_back(d.milliBits);
    }
    return s;
}

void printShares(const std::vector<int32_t>& milliBits) {
    std::vector<size_t> counts(kGradeCount);
    for (const int32_t d : milliBits) ++counts[static_cast<size_t>(gradeOf(d))];
    std::printf("shares of the grades:");
    for (int g = 0; g < kGradeCount; ++g)
        std::printf(" %s %.2f %%", std::string(gradeName(static_cast<Grade>(g))).c_str(),
                    100.0 * static_cast<double>(counts[static_cast<size_t>(g)]) / static_cast<double>(milliBits.size()));
    std::printf("\n");
}

// 10,000 winnable deals from deal 1: the grading times, and the quintiles of
// D, from which kGradeThresholds were taken.
void Grading(benchmark::State& state) {
    Sample s;
    for (auto _ : state) s = gradeWinnable(1, static_cast<size_t>(state.range(0)));
    std::vector<int32_t> sorted = s.milliBits;
    std::sort(sorted.begin(), sorted.end());
    std::printf("%zu winnable deals graded (deals 1 to %llu, %llu unknown)\n", sorted.size(),
                static_cast<unsigned long long>(s.dealsTried), static_cast<unsigned long long>(s.unknown));
    std::printf("%s\n", spread("time per grading", s.milliseconds, " ms").c_str());
    std::printf("quintiles of D (thousandths of a bit):");
    for (size_t q = 1; q < kGradeCount; ++q) std::printf(" %d", sorted[q * sorted.size() / kGradeCount]);
    std::printf("\n");
    printShares(s.milliBits);
    state.counters["p95_ms"] = nearestRank(s.milliseconds, 0.95);
    state.counters["p99_ms"] = nearestRank(s.milliseconds, 0.99);
}
BENCHMARK(Grading)->Arg(10'000)->Iterations(1)->Unit(benchmark::kMillisecond);

// Another 10,000 winnable deals: how the fixed thresholds share them.
void FreshSample(benchmark::State& state) {
    Sample s;
    for (auto _ : state) s = gradeWinnable(1'000'001, static_cast<size_t>(state.range(0)));
    std::printf("%zu winnable deals graded (deals 1,000,001 to %llu, %llu unknown)\n", s.milliBits.size(),
                static_cast<unsigned long long>(1'000'000 + s.dealsTried), static_cast<unsigned long long>(s.unknown));
    std::printf("%s\n", spread("time per grading", s.milliseconds, " ms").c_str());
    printShares(s.milliBits);
}
BENCHMARK(FreshSample)->Arg(10'000)->Iterations(1)->Unit(benchmark::kMillisecond);

// Ranks, ties sharing the mean of their places.
std::vector<double> ranks(const std::vector<int32_t>& v) {
    std::vector<size_t> order(v.size());
    std::iota(order.begin(), order.end(), 0);
    std::sort(order.begin(), order.end(), [&](size_t a, size_t b) { return v[a] < v[b]; });
    std::vector<double> r(v.size());
    for (size_t i = 0; i < order.size();) {
        size_t j = i;
        while (j + 1 < order.size() && v[order[j + 1]] == v[order[i]]) ++j;
        for (size_t k = i; k <= j; ++k) r[order[k]] = static_cast<double>(i + j) / 2;
        i = j + 1;
    }
    return r;
}

double spearman(const std::vector<int32_t>& a, const std::vector<int32_t>& b) {
    const std::vector<double> x = ranks(a), y = ranks(b);
    const double n = static_cast<double>(x.size());
    const double mx = std::accumulate(x.begin(), x.end(), 0.0) / n, my = std::accumulate(y.begin(), y.end(), 0.0) / n;
    double sxy = 0, sxx = 0, syy = 0;
    for (size_t i = 0; i < x.size(); ++i) {
        sxy += (x[i] - mx) * (y[i] - my);
        sxx += (x[i] - mx) * (x[i] - mx);
        syy += (y[i] - my) * (y[i] - my);
    }
    return sxy / std::sqrt(sxx * syy);
}

// The measure against itself with other seeds for its lines (an incidental
// choice): rank correlation and the share of deals that keep their grade. The
// same for averages of fewer and more lines, for comparison.
void Robustness(benchmark::State& state) {
    const auto count = static_cast<size_t>(state.range(0));
    struct Variant {
        const char* name;
        int lines;
        uint64_t firstSeed, otherSeed;
    };
    const Variant variants[] = {{"1 line", 1, 1, 2},    {"4 lines", 4, 1, 5},   {"8 lines", 8, 1, 9},
                                {"12 lines (the measure)", 12, 1, 13}, {"16 lines", 16, 1, 17}};
    for (auto _ : state) {
        for (const Variant& v : variants) {
            std::vector<int32_t> a, b;
            GradingLimits first, other;
            first.lines = other.lines = v.lines;
            first.firstSeed = v.firstSeed;
            other.firstSeed = v.otherSeed;
            for (DealNumber n = 1; a.size() < count; ++n) {
                const Board d = deal(n);
                Knowledge knowledge;
                const Difficulty x = measureDifficulty(d, knowledge, first);
                if (x.outcome != Outcome::Won) continue;
                const Difficulty y = measureDifficulty(d, knowledge, other);
                if (y.outcome != Outcome::Won) continue;
                a.push_back(x.milliBits);
                b.push_back(y.milliBits);
            }
            size_t same = 0;
            for (size_t i = 0; i < a.size(); ++i) same += gradeOf(a[i]) == gradeOf(b[i]) ? 1 : 0;
            std::printf("%s, seeds from %llu against seeds from %llu, %zu winnable deals: Spearman %.4f, "
                        "same grade %.1f %%\n",
                        v.name, static_cast<unsigned long long>(v.firstSeed),
                        static_cast<unsigned long long>(v.otherSeed), a.size(), spearman(a, b),
                        100.0 * static_cast<double>(same) / static_cast<double>(a.size()));
        }
    }
}
BENCHMARK(Robustness)->Arg(1'000)->Iterations(1)->Unit(benchmark::kMillisecond);

// Winnable deals only: a deal of each grade (and of any) from 100 starting
// points drawn as New game draws them.
void FindDeal(benchmark::State& state) {
    for (auto _ : state) {
        for (int g = -1; g < kGradeCount; ++g) {
            std::vector<double> candidates, milliseconds;
            SeededRandom chance(2026);
            for (int i = 0; i < state.range(0); ++i) {
                const DealNumber start = drawDealNumber(chance);
                const double begin = threadCpuMilliseconds();
                const auto found = findDeal(start, g < 0 ? std::nullopt : std::optional(static_cast<Grade>(g)));
                milliseconds.push_back(threadCpuMilliseconds() - begin);
                candidates.push_back(found ? found->candidates : 0);
            }
            const std::string name = g < 0 ? "any grade" : std::string(gradeName(static_cast<Grade>(g)));
            std::printf("%-10s %s; %s\n", name.c_str(), spread("candidates", candidates, "").c_str(),
                        spread("time", milliseconds, " ms").c_str());
        }
    }
}
BENCHMARK(FindDeal)->Arg(100)->Iterations(1)->Unit(benchmark::kMillisecond);

// The deal of the day for every day of 2026.
void DailyDeal(benchmark::State& state) {
    std::vector<double> candidates, milliseconds;
    for (auto _ : state) {
        for (std::chrono::sys_days day = std::chrono::sys_days(Date{std::chrono::year{2026}, std::chrono::January,
                                                                    std::chrono::day{1}});
             Date(day).year() == std::chrono::year{2026}; day += std::chrono::days{1}) {
            const double begin = threadCpuMilliseconds();
            const FoundDeal found = findDailyDeal(Date(day));
            milliseconds.push_back(threadCpuMilliseconds() - begin);
            candidates.push_back(found.candidates);
        }
    }
    std::printf("%zu days: %s; %s\n", candidates.size(), spread("candidates", candidates, "").c_str(),
                spread("time", milliseconds, " ms").c_str());
}
BENCHMARK(DailyDeal)->Iterations(1)->Unit(benchmark::kMillisecond);

}  // namespace
