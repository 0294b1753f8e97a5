// Reading a position for the solver, and keeping its packed form in step.
#include "solver_position.h"

#include <utility>


namespace vorn::solver {

namespace {

uint64_t field(const Slot& slot, CardId base, CardId front) {
    const uint64_t frontRank = front == kNoCard ? 0 : static_cast<uint64_t>(rankOf(front));
    if (slot.width == 4) return frontRank;
    return (base == kNoCard ? 0 : base + 1u) | frontRank << 6;
}

// A word's share of the hash. The half-row words share one mixing function, so
// their sum does not depend on their order; row 5's words get their own.
uint64_t mix(uint64_t word, int index) {
    if (index >= kHalfRows) word ^= 0x9E3779B97F4A7C15ull * static_cast<uint64_t>(index);
    word ^= word >> 30;
    word *= 0xBF58476D1CE4E5B9ull;
    word ^= word >> 27;
    word *= 0x94D049BB133111EBull;
    return word ^ (word >> 31);
}

// Sorts the eight half-row words (a sorting network: no branches to mispredict).
void sortHalfRows(std::array<uint64_t, kWords>& w) {
    auto swap = [&w](int i, int j) {
        const uint64_t a = w[static_cast<size_t>(i)], b = w[static_cast<size_t>(j)];
        w[static_cast<size_t>(i)] = a < b ? a : b;
        w[static_cast<size_t>(j)] = a < b ? b : a;
    };
    static constexpr int kNetwork[19][2] = {{0, 2}, {1, 3}, {4, 6}, {5, 7}, {0, 4}, {1, 5}, {2, 6},
                                            {3, 7}, {0, 1}, {2, 3}, {4, 5}, {6, 7}, {2, 4}, {3, 5},
                                            {1, 4}, {3, 6}, {1, 2}, {3, 4}, {5, 6}};
    for (const auto& [i, j] : kNetwork) swap(i, j);
}

}  // namespace

void CompactPosition::store(int cell, CardId newBase, CardId newFront) {
    const auto at = static_cast<size_t>(cell);
    front[at] = newFront;
    const auto row = static_cast<size_t>(cell / kColumnCount);
    const auto bit = static_cast<uint16_t>(1u << (cell % kColumnCount));
    bases[row] = static_cast<uint16_t>(newBase == kNoCard ? bases[row] & ~bit : bases[row] | bit);
    stacks[row] = static_cast<uint16_t>(newFront == kNoCard ? stacks[row] & ~bit : stacks[row] | bit);
    const Slot& slot = kSlots[at];
    if (slot.width == 0) return;
    const uint64_t mask = ((uint64_t{1} << slot.width) - 1) << slot.shift;
    words[slot.word] = (words[slot.word] & ~mask) | field(slot, newBase, newFront) << slot.shift;
}

void CompactPosition::setCell(int cell, CardId newBase, CardId newFront) {
    const Slot& slot = kSlots[static_cast<size_t>(cell)];
    const uint64_t old = words[slot.word];
    store(cell, newBase, newFront);
    mixed += mix(words[slot.word], slot.word) - mix(old, slot.word);
}

Key CompactPosition::keyOf(const std::array<uint64_t, kWords>& words) {
    Key key{words};
    sortHalfRows(key.words);
    return key;
}

CompactPosition CompactPosition::of(const Board& board) {
    CompactPosition p;
    p.front.fill(kNoCard);
    const GridContents grid = board.contents();
    auto id = [](Card c) { return cardId(c.suit, c.rank); };
    for (int cell = 0; cell < kCellCount; ++cell) {
        const CellContents& there = grid[static_cast<size_t>(cell)];
        const CardId base = there.base.empty() ? kNoCard : id(there.base);
        if (base >= kCards) continue;
        const CardId front = there.stacked ? id(there.front) : kNoCard;
        p.store(cell, base, front);
        // The cards lying on the base card run from it to the front card.
        p.place[base] = static_cast<uint8_t>(cell * 2);
        const int step = front > base ? 1 : -1;
        for (int i = 1; i <= there.stacked; ++i) p.place[static_cast<size_t>(base + step * i)] = static_cast<uint8_t>(cell * 2 + 1);
    }
    for (int w = 0; w < kWords; ++w) p.mixed += mix(p.words[static_cast<size_t>(w)], w);
    return p;
}

}  // namespace vorn::solver
