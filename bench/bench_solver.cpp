// The solver over seeded deals on one core. The argument is the number of deals
// (deal i uses the seed 1 + i, as vorn-solve --deals N --seed 1 does). Reported:
// the share of deals decided, the win rate among them, the time per deal
// (median, p99, max; thread CPU time, so other work on the machine does not
// count), positions per second and the peak memory of the process.
//
//   bench_solver --benchmark_filter=SeededDeals/10000
#include <benchmark/benchmark.h>

#include <sys/resource.h>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <vector>

#include "solver/solver.h"

namespace {

double threadCpuMicroseconds() {
    timespec t{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &t);
    return static_cast<double>(t.tv_sec) * 1e6 + static_cast<double>(t.tv_nsec) / 1e3;
}

double nearestRank(const std::vector<double>& sorted, double q) {
    const auto rank = static_cast<size_t>(q * static_cast<double>(sorted.size()) + 0.999999);
    return sorted[std::min(sorted.size(), std::max<size_t>(rank, 1)) - 1];
}

vorn::Board seededDeal(uint64_t seed) {
    vorn::SeededRandom random(seed);
    vorn::Board board = vorn::Board::loaded();
    board.rasklad(random);
    return board;
}

void SeededDeals(benchmark::State& state) {
    const auto deals = static_cast<uint64_t>(state.range(0));
    std::vector<double> micros;
    uint64_t won = 0, lost = 0, positions = 0;
    for (auto _ : state) {
        micros.clear();
        won = lost = positions = 0;
        for (uint64_t i = 0; i < deals; ++i) {
            const vorn::Board deal = seededDeal(1 + i);
            const double start = threadCpuMicroseconds();
            const vorn::Verdict v = vorn::solve(deal);
            micros.push_back(threadCpuMicroseconds() - start);
            benchmark::DoNotOptimize(v.moves.data());
            won += v.outcome == vorn::Outcome::Won ? 1 : 0;
            lost += v.outcome == vorn::Outcome::Lost ? 1 : 0;
            positions += v.positions;
        }
    }
    std::sort(micros.begin(), micros.end());
    double total = 0;
    for (double m : micros) total += m;
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);

    const double decided = static_cast<double>(won + lost);
    state.counters["decided_%"] = 100.0 * decided / static_cast<double>(deals);
    state.counters["win_rate_%"] = decided > 0 ? 100.0 * static_cast<double>(won) / decided : 0;
    state.counters["median_us"] = nearestRank(micros, 0.5);
    state.counters["p99_us"] = nearestRank(micros, 0.99);
    state.counters["max_us"] = micros.back();
    state.counters["positions_per_s"] = static_cast<double>(positions) / total * 1e6;
    state.counters["peak_MB"] = static_cast<double>(usage.ru_maxrss) / 1024.0;
    std::printf("%llu deals: %.2f %% decided, win rate %.2f %%, per deal median %.0f us, p99 %.0f us, max %.0f us, "
                "%.0f positions/s, peak %.1f MB\n",
                static_cast<unsigned long long>(deals), 100.0 * decided / static_cast<double>(deals),
                decided > 0 ? 100.0 * static_cast<double>(won) / decided : 0, nearestRank(micros, 0.5),
                nearestRank(micros, 0.99), micros.back(), static_cast<double>(positions) / total * 1e6,
                static_cast<double>(usage.ru_maxrss) / 1024.0);
}
BENCHMARK(SeededDeals)->Arg(1000)->Arg(10000)->Iterations(1)->Unit(benchmark::kMillisecond);

// One typical deal over and over: the cost of a single verdict.
void OneDeal(benchmark::State& state) {
    const vorn::Board deal = seededDeal(static_cast<uint64_t>(state.range(0)));
    uint64_t positions = 0;
    for (auto _ : state) {
        const vorn::Verdict v = vorn::solve(deal);
        positions = v.positions;
        benchmark::DoNotOptimize(v.moves.data());
    }
    state.counters["positions"] = static_cast<double>(positions);
}
BENCHMARK(OneDeal)->Arg(1)->Arg(2)->Unit(benchmark::kMicrosecond);

}  // namespace
