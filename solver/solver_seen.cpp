// The set of positions a search has reached.
#include "solver_seen.h"

namespace vorn::solver {

SeenSet::SeenSet() : hashes_(1024, 0), index_(1024, 0), mask_(1023) { words_.reserve(512); }

bool SeenSet::insert(const CompactPosition& position) {
    if ((words_.size() + 1) * 2 > hashes_.size()) grow();
    const uint64_t hash = position.hash() | (position.hash() == 0 ? 1 : 0);
    for (uint64_t i = hash & mask_;; i = (i + 1) & mask_) {
        if (hashes_[i] == 0) {
            hashes_[i] = hash;
            index_[i] = static_cast<uint32_t>(words_.size());
            words_.push_back(position.words);
            return true;
        }
        // Equal hashes: the keys decide (the words put in order only now).
        if (hashes_[i] == hash && CompactPosition::keyOf(words_[index_[i]]) == position.key()) return false;
    }
}

void SeenSet::grow() {
    std::vector<uint64_t> oldHashes(hashes_.size() * 2, 0);
    std::vector<uint32_t> oldIndex(index_.size() * 2, 0);
    oldHashes.swap(hashes_);
    oldIndex.swap(index_);
    mask_ = hashes_.size() - 1;
    for (size_t j = 0; j < oldHashes.size(); ++j) {
        if (oldHashes[j] == 0) continue;
        uint64_t i = oldHashes[j] & mask_;
        while (hashes_[i] != 0) i = (i + 1) & mask_;
        hashes_[i] = oldHashes[j];
        index_[i] = oldIndex[j];
    }
}

}  // namespace vorn::solver
