// How fast the load dialog can take in a large store: splitting save.txt into
// lines, decoding them from Windows-1251 and finding each record's name.
#include <benchmark/benchmark.h>

#include <string>

#include "store/codepage.h"
#include "store/layout_store.h"
#include "store/record.h"

namespace {

std::string bigStore(int records) {
    std::string layout;
    for (int i = 0; i < 48; ++i) layout += (i ? ", " : " ") + std::to_string((i * 7) % 48 + 1);
    const std::string name = vorn::store::toCp1251("Расклад номер ");
    std::string bytes;
    for (int i = 0; i < records; ++i) bytes += layout + ", " + name + std::to_string(i) + ", \r\n";
    return bytes;
}

void BM_ReadAndParseStore(benchmark::State& state) {
    const std::string bytes = bigStore(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        std::size_t names = 0;
        for (const std::string& line : vorn::store::splitLines(bytes))
            names += vorn::store::parseRecord(vorn::store::fromCp1251(line)).name.size();
        benchmark::DoNotOptimize(names);
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_ReadAndParseStore)->Arg(100000)->Unit(benchmark::kMillisecond);

void BM_EncodeName(benchmark::State& state) {
    const std::string name = "Ёлка №5 — мой лучший расклад";
    for (auto _ : state) benchmark::DoNotOptimize(vorn::store::toCp1251(name));
}
BENCHMARK(BM_EncodeName);

}  // namespace
