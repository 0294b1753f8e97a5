// Making a move on the solver's compact position.
#include "solver_moves.h"

namespace vorn::solver {

void play(const CompactPosition& p, MoveCode move, CompactPosition& q) {
    q = p;
    const CardId s = move.card;
    const int from = p.cellOf(s);
    const CardId fromBase = p.base(from);
    // A selected card lying on a cell takes the cell along: the cards from it
    // back to the base card, one step at a time.
    const bool carried = p.stacked(s);
    const int step = fromBase > s ? 1 : -1;
    auto land = [&q, step, fromBase](CardId first, uint8_t place) {
        for (CardId c = first;; c = static_cast<CardId>(c + step)) {
            q.place[c] = place;
            if (c == fromBase) break;
        }
    };

    if (!isPile(move.target)) {
        // Onto a card of its suit, or the 2 onto its ace: lying on the target's cell.
        const int to = p.cellOf(move.target);
        const auto landing = static_cast<uint8_t>(to * 2 + 1);
        if (carried) land(s, landing);
        q.place[s] = landing;
        q.setCell(from, kNoCard, kNoCard);
        q.setCell(to, p.base(to), carried ? fromBase : s);
        return;
    }

    const PileCell& pile = kPileCells[static_cast<size_t>(imageOf(move.target) - 1)];
    const int to = pile.cell;
    q.place[s] = static_cast<uint8_t>(to * 2);
    if (!carried) {
        q.setCell(from, kNoCard, kNoCard);
        q.setCell(to, s, kNoCard);
    } else if (pile.singleOnly) {
        // The selected card alone; the card it lay on is in front now.
        const auto under = static_cast<CardId>(s + step);
        q.setCell(from, fromBase, under == fromBase ? kNoCard : under);
        q.setCell(to, s, kNoCard);
    } else {
        // The cell turned over: the selected card is the base, the old base card in front.
        land(static_cast<CardId>(s + step), static_cast<uint8_t>(to * 2 + 1));
        q.setCell(from, kNoCard, kNoCard);
        q.setCell(to, s, fromBase);
    }
}

}  // namespace vorn::solver
