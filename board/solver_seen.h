// The positions a search has reached: an open-addressing hash set of full keys.
// Full keys, not hashes, decide, so two positions are never taken for one.
#pragma once

#include <cstdint>
#include <vector>

#include "solver_position.h"

namespace vorn::solver {

class SeenSet {
public:
    SeenSet();
    // Adds the position's key; false when it was there already.
    bool insert(const Position& position);
    uint64_t size() const { return keys_.size(); }

private:
    void grow();
    // A slot holds the hash of its key (0: empty; a hash of 0 is kept as 1)
    // and where the key is.
    std::vector<uint64_t> hashes_;
    std::vector<uint32_t> index_;
    std::vector<Key> keys_;
    uint64_t mask_ = 0;
};

}  // namespace vorn::solver
