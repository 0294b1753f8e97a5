// What the record's benchmarks share: a record of 10,000 ended games in a
// scratch folder, made once, and a timer of single calls that reports their
// median, p99 and worst.
#pragma once

#include <benchmark/benchmark.h>
#include <stdlib.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

#include "record/record.h"

namespace vorn::bench {

using namespace vorn::record;

inline constexpr int kGames = 10000;

inline std::string lineOf(int moves) {
    std::string line;
    for (int m = 0; m < moves; ++m) line += std::to_string(m % 48 + 1) + "-" + std::to_string((m * 7) % 48 + 1) + " ";
    return line;
}

inline Beginning deal(std::uint32_t n) {
    Beginning b;
    b.start = n % 5 == 0 ? Start::WinnableOnly : Start::New;
    b.deal = n;
    for (int i = 0; i < 48; ++i) b.layout += (i ? ", " : " ") + std::to_string((i * 7 + static_cast<int>(n)) % 48 + 1);
    b.verdict = n % 3 == 0 ? Verdict::Lost : Verdict::Winnable;
    return b;
}

// A record holding kGames ended games of about a hundred moves each, made once
// for all the benchmarks: in a scratch folder (under $TMPDIR), or in `where`.
struct Filled {
    explicit Filled(std::filesystem::path where = {}) {
        std::string pattern = (std::filesystem::temp_directory_path() / "vorn-bench-record-XXXXXX").string();
        if (where.empty() && ::mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("mkdtemp failed");
        folder = where.empty() ? std::filesystem::path(pattern) : where;
        Record record = open();
        for (int n = 1; n <= kGames; ++n) {
            const GameId id = record.begin(deal(static_cast<std::uint32_t>(n))).value();
            record.update(id, {lineOf(60 + n % 80), 60 + n % 80, n % 7, n % 4, 0, 0, 90000 + n});
            record.end(id, n % 3 == 0 ? Result::Lost : n % 2 == 0 ? Result::Won : Result::GivenUp, 90000 + n);
            record.setGrade(id, n * 10, n % 5, 1);
        }
    }
    ~Filled() { std::filesystem::remove_all(folder); }
    Record open() const {
        Opened opened = Record::open(folder);
        if (!opened.record) throw std::runtime_error(opened.detail);
        return std::move(*opened.record);
    }
    std::filesystem::path folder;
};

inline Filled& filled() {
    static Filled f;
    return f;
}

using Steady = std::chrono::steady_clock;

// Times one call of act per iteration, after an untimed prepare, and reports
// the median, p99 and worst, in ms.
template <typename Prepare, typename Act>
void timeEach(benchmark::State& state, Prepare&& prepare, Act&& act) {
    std::vector<double> ms;
    for (auto _ : state) {
        state.PauseTiming();
        prepare();
        state.ResumeTiming();
        const auto start = Steady::now();
        if (const std::string error = act(); !error.empty()) state.SkipWithError(error.c_str());
        ms.push_back(std::chrono::duration<double, std::milli>(Steady::now() - start).count());
    }
    std::sort(ms.begin(), ms.end());
    state.counters["median_ms"] = ms[ms.size() / 2];
    state.counters["p99_ms"] = ms[std::min(ms.size() - 1, ms.size() * 99 / 100)];
    state.counters["worst_ms"] = ms.back();
}

}  // namespace vorn::bench
