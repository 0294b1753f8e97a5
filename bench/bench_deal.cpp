// How fast a deal is: a New game (the rejection draws included) and a Deal again.
#include <benchmark/benchmark.h>

#include "board/board.h"

namespace {

void BM_NewGame(benchmark::State& state) {
    vorn::SeededRandom random(20240601);
    vorn::Board board = vorn::Board::loaded();
    for (auto _ : state) {
        board.rasklad(random);
        benchmark::DoNotOptimize(board.raskl.data());
    }
}
BENCHMARK(BM_NewGame);

void BM_DealAgain(benchmark::State& state) {
    vorn::SeededRandom random(7);
    vorn::Board board = vorn::Board::loaded();
    board.rasklad(random);
    for (auto _ : state) {
        board.rasklzan();
        benchmark::DoNotOptimize(board.karttop(1, 2));
    }
}
BENCHMARK(BM_DealAgain);

void BM_NewGameThenDealAgain(benchmark::State& state) {
    vorn::SeededRandom random(99);
    vorn::Board board = vorn::Board::loaded();
    for (auto _ : state) {
        board.rasklad(random);
        board.rasklzan();
        benchmark::DoNotOptimize(board.kartleft(4, 13));
    }
}
BENCHMARK(BM_NewGameThenDealAgain);

}  // namespace
