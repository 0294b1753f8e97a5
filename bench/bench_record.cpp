// The game record with 10,000 games already in it: what a move and the end of
// a game cost the thread that records them (the goal: under 5 ms at p99), what
// the statistics window's summary costs (it must open in under 100 ms), and
// what opening the record costs (done away from the user-interface thread).
// Each benchmark reports its median, p99 and worst single call as counters.
#include "filled_record.h"

namespace {

using namespace vorn::bench;

const auto nothing = [] {};

void BM_RecordMove(benchmark::State& state) {
    Record record = filled().open();
    const GameId id = record.begin(deal(7)).value();
    Progress progress;
    const auto move = [&] {
        if (progress.moves == 300) progress = {};  // a long game's line, and no longer
        progress.line += "12-34 ";
        ++progress.moves;
    };
    timeEach(state, move, [&] { return record.update(id, progress) ? "" : record.errorText(); });
    record.end(id, Result::GivenUp, 0);
}
BENCHMARK(BM_RecordMove)->Iterations(5000)->Unit(benchmark::kMicrosecond);

void BM_RecordEndOfGame(benchmark::State& state) {
    Record record = filled().open();
    GameId id = 0;
    const auto play = [&] {
        id = record.begin(deal(9)).value();
        record.update(id, {lineOf(100), 100});
    };
    timeEach(state, play, [&] { return record.end(id, Result::Won, 1000) ? "" : record.errorText(); });
}
BENCHMARK(BM_RecordEndOfGame)->Iterations(2000)->Unit(benchmark::kMicrosecond);

void BM_RecordSummary(benchmark::State& state) {
    Record record = filled().open();
    timeEach(state, nothing, [&] { return record.summary("2024-05-01") ? "" : record.errorText(); });
}
BENCHMARK(BM_RecordSummary)->Iterations(200)->Unit(benchmark::kMillisecond);

void BM_RecordOpen(benchmark::State& state) {
    filled();
    timeEach(state, nothing, [&] {
        benchmark::DoNotOptimize(filled().open());
        return std::string();
    });
}
BENCHMARK(BM_RecordOpen)->Iterations(50)->Unit(benchmark::kMillisecond);

}  // namespace
