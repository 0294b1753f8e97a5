// The depth-first search: positions are expanded in the order of their promise,
// and every position ever generated is remembered so none is expanded twice.
#include "solver_search.h"

#include <algorithm>

namespace vorn::solver {

namespace {

// Cards of rank 2..13 on their foundations.
int homeCount(const Cells& cells) {
    int home = 0;
    for (int16_t s = 1; s <= kSuits; ++s)
        for (int16_t r = 2; r <= kRanks; ++r)
            if (cells.isHome(Card{s, r})) ++home;
    return home;
}

// A card on the place below the aces with a card on it, and the cards lying
// there, can never be selected again, so they never get home: the game is lost.
bool hasStuckCards(const Cells& cells) {
    return cells.stacked[static_cast<size_t>(cellAt(kMiddleLeft, kBottomRowTop))] > 0;
}

// Base cards in `row` from column `from` up to, not including, column `to`.
int baseCardsBetween(const Cells& cells, int row, int from, int to) {
    int count = 0;
    for (int column = from; column < to; ++column)
        if (!cells.base[static_cast<size_t>(row * kColumns + column)].empty()) ++count;
    return count;
}

// For each suit, the next card its foundation needs: how many cards stand in
// its way (cards lying on it, base cards farther out in its half-row).
int obstacles(const Cells& cells) {
    constexpr int middle = kColumns / 2;
    int total = 0;
    for (int16_t s = 1; s <= kSuits; ++s) {
        Card wanted{s, 2};
        while (wanted.rank <= kRanks && cells.isHome(wanted)) ++wanted.rank;
        if (wanted.rank > kRanks) continue;
        const int cell = cells.cellOf[Cells::index(wanted)];
        if (!(cells.base[static_cast<size_t>(cell)] == wanted)) {  // lying on a cell
            total += cells.isVisible(wanted) ? 0 : 1;
            continue;
        }
        total += cells.stacked[static_cast<size_t>(cell)] ? 1 : 0;
        const int row = cell / kColumns;
        const int column = cell % kColumns;
        if (column < middle) total += baseCardsBetween(cells, row, 0, column);
        if (column > middle) total += baseCardsBetween(cells, row, column + 1, kColumns);
    }
    return total;
}

// How promising a position looks; it only orders the search, it never prunes.
// Cards home count most, then how free the next cards for the foundations are,
// then empty cells, which give the clicks room.
int promise(const Cells& cells) {
    int empty = 0;
    for (int cell = 0; cell < kCells; ++cell)
        if (cells.base[static_cast<size_t>(cell)].empty()) ++empty;
    return homeCount(cells) * 64 - obstacles(cells) * 4 + empty;
}

}  // namespace

bool Search::outOfTime() {
    if ((++expansions_ & 63) != 0) return false;
    return Clock::now() - started_ >= limits_.maxTime;
}

Search::Step Search::expand(const Board& position, const Cells& here, size_t depth) {
    if (frames_.size() <= depth) frames_.resize(depth + 1);
    Frame& frame = frames_[depth];
    frame.next = 0;
    if (limits_.foundationFirst) {
        // A move home never spoils a game that can be won (see solver.h): when
        // there is one, it is the only move worth trying from here.
        frame.children.resize(1);
        if (homeMoveFrom(position, here, frame.children[0])) return keepChildren(frame);
    }
    movesFrom(position, here, frame.children);
    return keepChildren(frame);
}

// The boards waiting in the frames of the current line stay within bounds,
// however deep the line: a frame left behind deep down gives its room back.
void Search::leave(size_t depth) {
    Frame& frame = frames_[depth];
    held_ -= frame.children.size();
    if (depth >= kFramesKept) {
        std::vector<Child>().swap(frame.children);
        std::vector<Cells>().swap(frame.cells);
    } else {
        frame.children.clear();
    }
}

// Drops the children already seen and orders the others, best first; stops at a win.
Search::Step Search::keepChildren(Frame& frame) {
    std::vector<Child>& children = frame.children;
    held_ += children.size();
    if (held_ > kMaxHeldBoards) return Step::OutOfLimits;
    frame.order.clear();
    frame.scores.assign(children.size(), 0);
    frame.cells.resize(children.size());
    for (size_t i = 0; i < children.size(); ++i) {
        Child& child = children[i];
        Cells& cells = frame.cells[i];
        cells = cellsOf(child.board);
        if (!seen_.insert(positionKey(cells))) continue;
        if (child.board.konec()) {
            winning_ = child.move;
            return Step::Won;
        }
        if (seen_.size() >= limits_.maxPositions) return Step::OutOfLimits;
        if (limits_.pruneDeadEnds && hasStuckCards(cells)) continue;
        frame.order.push_back(static_cast<uint16_t>(i));
        frame.scores[i] = promise(cells);
    }
    // Most promising first; equal promise keeps the order the moves were found in.
    std::vector<int>& scores = frame.scores;
    std::stable_sort(frame.order.begin(), frame.order.end(),
                     [&](uint16_t a, uint16_t b) { return scores[a] > scores[b]; });
    return Step::Continue;
}

void Search::collectLine(size_t depth, const Move& last, std::vector<Hit>& line) const {
    for (size_t d = 0; d < depth; ++d) {
        const Frame& f = frames_[d];
        const Move& m = f.children[f.order[f.next - 1]].move;
        line.push_back(m.first);
        line.push_back(m.second);
    }
    line.push_back(last.first);
    line.push_back(last.second);
}

Outcome Search::run(const Board& root, std::vector<Hit>& line) {
    const Cells rootCells = cellsOf(root);
    seen_.insert(positionKey(rootCells));
    size_t depth = 0;
    for (Step step = expand(root, rootCells, 0);; ) {
        if (step == Step::Won) {
            collectLine(depth, winning_, line);
            return Outcome::Won;
        }
        if (step == Step::OutOfLimits) return Outcome::Unknown;
        Frame& frame = frames_[depth];
        if (frame.next == frame.order.size()) {
            if (depth == 0) return Outcome::Lost;
            leave(depth--);
            continue;
        }
        if (outOfTime()) return Outcome::Unknown;
        const size_t next = frame.order[frame.next++];
        step = expand(frame.children[next].board, frame.cells[next], ++depth);
    }
}

}  // namespace vorn::solver
