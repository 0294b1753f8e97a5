// Where the deal gets its chance from: uniform numbers in [0, 1), reseeded
// before every deal. The game reseeds from the clock; tests script the numbers.
#pragma once

#include <cstdint>
#include <random>
#include <vector>

namespace vorn {

class Random {
public:
    virtual ~Random() = default;
    virtual void reseed() = 0;   // called at the start of every deal
    virtual double next() = 0;   // uniform in [0, 1)
};

// The game's own source: a Mersenne Twister reseeded from the clock at every deal.
class ClockRandom final : public Random {
public:
    void reseed() override;
    double next() override;

private:
    std::mt19937_64 engine_{};
    uint64_t reseeds_ = 0;  // two deals within one clock tick still differ
};

// A repeatable source for tools, benchmarks and tests: reseed() is a no-op, so a
// run of deals from one seed is one fixed sequence.
class SeededRandom final : public Random {
public:
    explicit SeededRandom(uint64_t seed) : engine_(seed) {}
    void reseed() override {}
    double next() override;

private:
    std::mt19937_64 engine_;
};

// Hands out a fixed list of numbers; running out of them is a test bug and throws.
class ScriptedRandom final : public Random {
public:
    explicit ScriptedRandom(std::vector<double> values) : values_(std::move(values)) {}
    void reseed() override { ++reseeds; }
    double next() override;
    int reseeds = 0;
    size_t drawn = 0;

private:
    std::vector<double> values_;
};

}  // namespace vorn
