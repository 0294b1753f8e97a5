// The sources of chance for the deal.
#include "random.h"

#include <chrono>
#include <stdexcept>
#include <string>

namespace vorn {

namespace {

// 53 random bits scaled into [0, 1): never 1.0, the same on every platform.
double unitFrom(std::mt19937_64& engine) {
    return static_cast<double>(engine() >> 11) * 0x1.0p-53;
}

}  // namespace

void ClockRandom::reseed() {
    const auto ticks = std::chrono::high_resolution_clock::now().time_since_epoch().count();
    ++reseeds_;
    const auto t = static_cast<uint64_t>(ticks);
    std::seed_seq seq{static_cast<uint32_t>(t), static_cast<uint32_t>(t >> 32), static_cast<uint32_t>(reseeds_)};
    engine_.seed(seq);
}

double ClockRandom::next() { return unitFrom(engine_); }

double SeededRandom::next() { return unitFrom(engine_); }

double ScriptedRandom::next() {
    if (drawn >= values_.size())
        throw std::out_of_range("ScriptedRandom: the script has only " + std::to_string(values_.size()) +
                                " numbers, draw " + std::to_string(drawn + 1) + " was asked for");
    return values_[drawn++];
}

}  // namespace vorn
