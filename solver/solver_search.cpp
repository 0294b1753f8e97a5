// The depth-first search: positions are expanded in the order of their promise,
// and every position ever generated is remembered so none is expanded twice.
#include "solver_search.h"

namespace vorn::solver {

namespace {

// How many bits of a row mask are set.
constexpr auto kBitCounts = [] {
    std::array<uint8_t, 1u << kColumnCount> counts{};
    for (size_t mask = 1; mask < counts.size(); ++mask) counts[mask] = static_cast<uint8_t>(counts[mask >> 1] + (mask & 1));
    return counts;
}();
int cardsIn(uint16_t mask) { return kBitCounts[mask]; }

// How promising a position looks; it only orders the search, it never prunes.
// Cards home count most, then how free the next cards for the foundations are
// (cards lying on them or, for a base card, base cards farther out in its
// half-row stand in the way), then empty cells, which give the clicks room.
int promise(const CompactPosition& p) {
    int home = 0, obstacles = 0, bases = 0;
    for (int suit = 1; suit <= kSuits; ++suit) {
        const int top = p.homeRank(suit);
        home += top - 1;
        if (top == kRanks) continue;
        const CardId next = cardId(suit, top + 1);
        const int cell = p.cellOf(next);
        const CardId front = p.front[static_cast<size_t>(cell)];
        if (p.stacked(next)) {
            obstacles += front == next ? 0 : 1;
            continue;
        }
        obstacles += front == kNoCard ? 0 : 1;
        const int col = columnOf(cell);
        if (col != kMiddleColumn)
            obstacles += cardsIn(p.bases[static_cast<size_t>(rowOf(cell) - 1)] & fartherOut(col));
    }
    for (uint16_t row : p.bases) bases += cardsIn(row);
    return home * 64 - obstacles * 4 + (kCellCount - bases);
}

// A card on the place below the aces with a card on it, and the cards lying
// there, can never be selected again, so they never get home: the game is lost.
bool hasStuckCards(const CompactPosition& p) { return p.front[kBelowTheAces] != kNoCard; }

// Where a move goes among moves of equal promise: 0 for all without a seed,
// else 16 bits of a hash of the seed and the move.
int32_t tieBreak(uint64_t seed, MoveCode move) {
    if (seed == 0) return 0;
    uint64_t x = seed * 0x9E3779B97F4A7C15ull + (uint64_t{move.card} << 8 | move.target);
    x ^= x >> 31;
    x *= 0xBF58476D1CE4E5B9ull;
    x ^= x >> 29;
    return static_cast<int32_t>(x >> 48);
}

}  // namespace

bool Search::outOfTime() {
    if ((++expansions_ & 63) != 0) return false;
    return Clock::now() - started_ >= limits_.maxTime;
}

Search::Step Search::expand(size_t depth) {
    const CompactPosition& position = frames_[depth].position;
    const size_t begin = waiting_.size();
    Step step = Step::Continue;
    // Each child is made in child_, looked at, and remembered by its move.
    bool alone = false;  // the only move tried: no order to find
    auto consider = [&](MoveCode move) {
        if (step != Step::Continue) return;
        play(position, move, child_);
        if (!seen_.insert(child_)) return;
        if (child_.won()) {
            winning_ = move;
            step = Step::Won;
        } else if (seen_.size() >= limits_.maxPositions) {
            step = Step::OutOfLimits;
        }
        if (step != Step::Continue || (limits_.pruneDeadEnds && hasStuckCards(child_))) return;
        if (known_) {
            const uint32_t known = known_->lookup(child_);
            if (known == Known::kLost) return;
            if (known != Known::kUnknown) {
                winning_ = move;
                remaining_ = known;
                step = Step::Won;
                return;
            }
        }
        waiting_.push_back({move, alone ? 0 : promise(child_) * 65536 + tieBreak(limits_.orderSeed, move)});
    };
    // A move home never spoils a game that can be won (see solver.h): when there
    // is one, it is the only move worth trying from here.
    MoveCode home;
    if (limits_.foundationFirst && homeMove(position, home)) {
        alone = true;
        consider(home);
    } else {
        // A card sent to the pile place of an empty half-row of rows 1 to 4
        // makes the same position, up to the order of the half-rows, whichever
        // empty half-row it is: only the first such move is made.
        CardId sentToAnEmptyHalf = kNoCard;
        forEachMove(position, [&](MoveCode move) {
            if (isPile(move.target)) {
                const Slot& slot = kSlots[kPileCells[static_cast<size_t>(imageOf(move.target) - 1)].cell];
                if (slot.word < kHalfRows && position.words[slot.word] == 0) {
                    if (move.card == sentToAnEmptyHalf) return;
                    sentToAnEmptyHalf = move.card;
                }
            }
            consider(move);
        });
    }

    Frame& frame = frames_[depth];
    frame.begin = frame.next = begin;
    frame.end = waiting_.size();
    // Most promising first; equal order keeps the order the moves were found in.
    for (size_t i = begin + 1; i < frame.end; ++i) {
        const Waiting w = waiting_[i];
        size_t j = i;
        for (; j > begin && waiting_[j - 1].order < w.order; --j) waiting_[j] = waiting_[j - 1];
        waiting_[j] = w;
    }
    return step;
}

Outcome Search::run(const CompactPosition& root, std::vector<MoveCode>& line) {
    seen_.insert(root);
    frames_.resize(1);
    frames_[0].position = root;
    size_t depth = 0;
    for (Step step = expand(0);;) {
        if (step == Step::Won) {
            for (size_t d = 0; d < depth; ++d) line.push_back(waiting_[frames_[d].next - 1].move);
            line.push_back(winning_);
            return Outcome::Won;
        }
        if (step == Step::OutOfLimits) return Outcome::Unknown;
        if (frames_[depth].next == frames_[depth].end) {
            if (depth == 0) return Outcome::Lost;
            waiting_.resize(frames_[depth].begin);
            --depth;
            continue;
        }
        if (outOfTime()) return Outcome::Unknown;
        if (depth + 1 >= kMaxDepth) return Outcome::Unknown;
        if (frames_.size() == depth + 1) frames_.emplace_back();
        const MoveCode move = waiting_[frames_[depth].next++].move;
        play(frames_[depth].position, move, frames_[depth + 1].position);
        step = expand(++depth);
    }
}

}  // namespace vorn::solver
