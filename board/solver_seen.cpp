// The set of positions a search has reached.
#include "solver_seen.h"

namespace vorn::solver {

SeenSet::SeenSet() : slots_(1024), used_(1024, 0), mask_(1023) {}

bool SeenSet::insert(const PositionKey& key) {
    if ((size_ + 1) * 2 > slots_.size()) grow();
    for (uint64_t i = key.hash() & mask_;; i = (i + 1) & mask_) {
        if (!used_[i]) {
            used_[i] = 1;
            slots_[i] = key;
            ++size_;
            return true;
        }
        if (slots_[i] == key) return false;
    }
}

void SeenSet::grow() {
    std::vector<PositionKey> old = std::move(slots_);
    std::vector<uint8_t> oldUsed = std::move(used_);
    slots_.assign(old.size() * 2, PositionKey{});
    used_.assign(old.size() * 2, 0);
    mask_ = slots_.size() - 1;
    for (size_t j = 0; j < old.size(); ++j) {
        if (!oldUsed[j]) continue;
        uint64_t i = old[j].hash() & mask_;
        while (used_[i]) i = (i + 1) & mask_;
        used_[i] = 1;
        slots_[i] = old[j];
    }
}

}  // namespace vorn::solver
