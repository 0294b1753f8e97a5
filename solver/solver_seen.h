// The positions a search has reached: an open-addressing hash set of positions
// told apart by their keys.
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
    bool insert(const CompactPosition& position);
    uint64_t size() const { return words_.size(); }
    // Calls visit(hash, words) for every position in the set.
    template <class Visit>
    void forEach(Visit&& visit) const {
        for (size_t i = 0; i < hashes_.size(); ++i)
            if (hashes_[i] != 0) visit(hashes_[i], words_[index_[i]]);
    }

private:
    void grow();
    // A slot holds the hash of its key (0: empty; a hash of 0 is kept as 1)
    // and where the position's words are, from which the key is made when
    // a hash comes again.
    std::vector<uint64_t> hashes_;
    std::vector<uint32_t> index_;
    std::vector<std::array<uint64_t, kWords>> words_;
    uint64_t mask_ = 0;
};

}  // namespace vorn::solver
