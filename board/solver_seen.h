// The positions a search has reached: an open-addressing hash set of full keys.
// Full keys, not hashes, are kept, so two positions are never taken for one.
#pragma once

#include <cstdint>
#include <vector>

#include "solver_position.h"

namespace vorn::solver {

class SeenSet {
public:
    SeenSet();
    // Adds the key; false when it was there already.
    bool insert(const PositionKey& key);
    uint64_t size() const { return size_; }

private:
    void grow();
    std::vector<PositionKey> slots_;
    std::vector<uint8_t> used_;
    uint64_t size_ = 0;
    uint64_t mask_ = 0;
};

}  // namespace vorn::solver
