// The long run of the solver's cross-check (tests/support/solver_check.h): the moves the
// solver finds against every pair of clicks, over many positions of play. The
// test suite runs the same check over a hundred thousand positions.
//
//   vorn-crosscheck [positions] [threads]      defaults: 10000000 positions, 2 threads
//
// Thread t plays the deals from seed 1 + t * 10000000 on; the positions are
// shared out evenly. The first disagreement a thread finds is printed (the
// position and both sets of moves) and the exit status is 1.
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <thread>
#include <vector>

#include "support/solver_check.h"

int main(int argc, char** argv) {
    const uint64_t positions = argc > 1 ? std::strtoull(argv[1], nullptr, 10) : 10'000'000;
    const unsigned threads = argc > 2 ? static_cast<unsigned>(std::strtoul(argv[2], nullptr, 10)) : 2;
    if (positions == 0 || threads == 0 || threads > 64) {
        std::fprintf(stderr, "usage: vorn-crosscheck [positions] [threads]\n");
        return 2;
    }
    const auto started = std::chrono::steady_clock::now();
    std::vector<vorn::solver::CrossCheck> results(threads);
    std::vector<std::thread> pool;
    for (unsigned t = 0; t < threads; ++t)
        pool.emplace_back([&, t] {
            const uint64_t share = positions / threads + (t < positions % threads ? 1 : 0);
            results[t] = vorn::solver::crossCheck(share, 1 + uint64_t{t} * 10'000'000);
        });
    for (std::thread& t : pool) t.join();
    const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - started).count();

    uint64_t checked = 0, deals = 0;
    int status = 0;
    for (unsigned t = 0; t < threads; ++t) {
        checked += results[t].positions;
        deals += results[t].deals;
        if (!results[t].difference.empty()) {
            std::printf("thread %u found a disagreement:\n%s", t, results[t].difference.c_str());
            status = 1;
        }
    }
    std::printf("cross-check: %llu positions from %llu deals, %u thread%s, %.0f s, %.0f positions/s: %s\n",
                static_cast<unsigned long long>(checked), static_cast<unsigned long long>(deals), threads,
                threads == 1 ? "" : "s", seconds, static_cast<double>(checked) / seconds,
                status == 0 ? "the moves agree with the clicks everywhere" : "DISAGREEMENT");
    return status;
}
