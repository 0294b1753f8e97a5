// Finding the moves of a position by clicking on copies of the board.
#include "solver_moves.h"

#include <algorithm>
#include <array>

namespace vorn::solver {

namespace {

Hit cardHit(Card c) { return Hit{Hit::Kind::Card, c, 0}; }
Hit pileHit(int image) { return Hit{Hit::Kind::Pile, Card{}, image}; }

void tryTarget(const Board& selected, const Move& move, std::vector<Child>& out) {
    out.push_back(Child{move, selected});
    Child& child = out.back();
    if (!child.board.click(move.second).moved) out.pop_back();
}

// The cards a first click could select: the front card of every stacked cell,
// and of the base cards only the outermost of each half-row (an inner one has a
// card farther out beside it and is refused) and the one below the aces. Aces
// are never selected. The click itself has the last word on each.
struct Candidates {
    std::array<Card, kCells> cards{};
    size_t count = 0;
    void add(Card c) {
        if (!c.empty() && c.rank > 1) cards[count++] = c;
    }
};

Candidates firstClickCandidates(const Cells& cells) {
    constexpr int middle = kColumns / 2;
    Candidates out;
    for (int cell = 0; cell < kCells; ++cell)
        if (cells.stacked[static_cast<size_t>(cell)]) out.add(cells.front[static_cast<size_t>(cell)]);
    for (int row = 0; row < kRows; ++row) {
        auto outermost = [&](int from, int to, int step) {
            for (int column = from; column != to; column += step) {
                const auto cell = static_cast<size_t>(row * kColumns + column);
                if (cells.base[cell].empty()) continue;
                if (!cells.stacked[cell]) out.add(cells.base[cell]);
                return;
            }
        };
        outermost(0, middle, 1);                // left half, from column 1 inwards
        outermost(kColumns - 1, middle, -1);    // right half, from column 11 inwards
        const auto centre = static_cast<size_t>(row * kColumns + middle);
        if (!cells.stacked[centre]) out.add(cells.base[centre]);
    }
    return out;
}

// Whether a visible card could take a played card at all: a target lying at a
// row Top, or stacked in row 5, refuses while a card at its Top lies farther out
// in its half (the middle column counts as left here), and a base card of row 5
// refuses cards from rows 1 to 4. Stacked targets of rows 1 to 4 take any card
// of the right rank, and an ace (clicked with its 2 selected) is no target of
// these checks at all. The click itself has the last word.
bool mayTake(const Cells& cells, Card target, Card played) {
    constexpr int middle = kColumns / 2;
    if (target.rank == 1) return true;
    const int cell = cells.cellOf[Cells::index(target)];
    const int row = cell / kColumns;
    const int column = cell % kColumns;
    const bool stacked = !(cells.base[static_cast<size_t>(cell)] == target);
    if (stacked && row < kRows - 1) return true;
    if (!stacked && row == kRows - 1 && cells.cellOf[Cells::index(played)] / kColumns < kRows - 1) return false;
    const int from = column <= middle ? 0 : column + 1;
    const int to = column <= middle ? column : kColumns;
    for (int c = from; c < to; ++c) {
        const auto outer = static_cast<size_t>(row * kColumns + c);
        if (stacked ? cells.stacked[outer] > 0 : !cells.base[outer].empty()) return false;
    }
    return true;
}

}  // namespace

void movesFrom(const Board& position, const Cells& cells, std::vector<Child>& out) {
    out.clear();
    // A pile place is seen while no card lies on its cell (Board::pileVisible).
    std::array<bool, kPileCount + 1> pileSeen{};
    for (int image = 1; image <= kPileCount; ++image) {
        const PilePlace& place = pilePlace(image);
        const auto cell = static_cast<size_t>(cellAt(place.left, place.top));
        pileSeen[static_cast<size_t>(image)] = cells.base[cell].empty() && cells.stacked[cell] == 0;
    }

    Board pick = position;  // first clicks are made here and cancelled again
    const Candidates candidates = firstClickCandidates(cells);
    for (size_t i = 0; i < candidates.count; ++i) {
        const Card x = candidates.cards[i];
        pick.clickCard(x.suit, x.rank);
        if (pick.vybor != 2) continue;  // refused: nothing was selected

        const Hit first = cardHit(x);
        for (int rank : {x.rank - 1, x.rank + 1}) {
            if (rank < 1 || rank > kRanks) continue;
            const Card target{x.suit, static_cast<int16_t>(rank)};
            if (cells.isVisible(target) && mayTake(cells, target, x)) tryTarget(pick, {first, cardHit(target)}, out);
        }
        for (int image = 1; image <= kPileCount; ++image)
            if (pileSeen[static_cast<size_t>(image)]) tryTarget(pick, {first, pileHit(image)}, out);

        pick.clickCard(x.suit, x.rank);  // the selected card again: the selection is cancelled
    }
}

bool homeMoveFrom(const Board& position, const Cells& cells, Child& out) {
    const Candidates candidates = firstClickCandidates(cells);
    const auto end = candidates.cards.begin() + static_cast<std::ptrdiff_t>(candidates.count);
    for (int16_t s = 1; s <= kSuits; ++s) {
        int16_t next = 2;
        while (next <= kRanks && cells.isHome(Card{s, next})) ++next;
        const Card card{s, next};
        if (next > kRanks || std::find(candidates.cards.begin(), end, card) == end) continue;
        out.move = {cardHit(card), cardHit(Card{s, static_cast<int16_t>(next - 1)})};
        out.board = position;
        out.board.click(out.move.first);
        if (out.board.vybor == 2 && out.board.click(out.move.second).moved) return true;
    }
    return false;
}

std::vector<Child> movesFrom(const Board& position) {
    std::vector<Child> out;
    movesFrom(position, cellsOf(position), out);
    return out;
}

}  // namespace vorn::solver
