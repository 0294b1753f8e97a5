// Selecting and moving cards on the grid: the cards' click handlers and the two
// move routines. A first click selects a free card, a second click plays it onto
// a card of its suit one rank away; a card lying on a stack takes its cell along.
#include "board.h"

namespace vorn {

Reaction Board::clickCard(int suit, int rank) {
    if (!isCard(suit, rank)) return {};
    if (rank == 1) {
        nomer = 1;
        return perexod2(static_cast<int16_t>(suit), nomer);
    }
    karta = Card{static_cast<int16_t>(suit), static_cast<int16_t>(rank)};
    nomer = static_cast<int16_t>(rank);
    return perexod1(static_cast<int16_t>(suit), nomer);
}

Reaction Board::perexod1(int16_t r, int16_t rr) {
    if (!isCard(r, rr) || rr == 1) return {};
    if (rezhim == 1) return {Message::NewGameFirst};
    return vybor == 1 ? firstClick(r, rr) : secondClick(r, rr);
}

Reaction Board::firstClick(int16_t r, int16_t rr) {
    mast1 = r;
    rang1 = rr;
    karta1 = karta;
    const Cell at = cell(karta1);
    if (at.onGrid() && !at.stacked && prov1()) return {Message::WrongMove};
    // Foundation cards, and a card lying on the one below the aces, stay put.
    if (isMiddle(at) && !isBelowTheAces(at)) return {};
    if (isBelowTheAces(at) && prov7()) return {Message::WrongMove};
    setBorder(karta1, 1);
    vybor = 2;
    return {};
}

Reaction Board::secondClick(int16_t r, int16_t rr) {
    karta2 = karta;
    if (karta2 == karta1) {  // the selected card again: the selection is cancelled
        setBorder(karta1, 0);
        vybor = 1;
        return {};
    }
    if (borderOf(karta1) == 0) {  // a deal took the mark away: select again
        vybor = 1;
        return {Message::WrongMove};
    }
    mast2 = r;
    rang2 = rr;
    if (prov10() || mast1 != mast2 || prov4() || prov2() || prov5()) return {Message::WrongMove};

    left2 = spot(karta2).left;
    const Spot to{left2, prov3()};
    const Cell from = cell(karta1);
    Reaction reaction;
    if (from.stacked) {
        const int base = findBaseRank(mast1, from, 2);
        if (base == 0) return {Message::WrongMove};  // no cell under the card: refuse, move nothing
        reaction.moved = moveRun(mast1, rang1, base, to, to);
    } else {
        reaction.moved = moveCard(karta1.suit, karta1.rank, to);
    }
    vybor = 1;
    reaction.won = konec();
    return reaction;
}

// A click on an ace: an ace is never selected, but the 2 of its suit (with its
// cell) is played onto it to start the foundation.
Reaction Board::perexod2(int16_t r, int16_t rr) {
    if (!isCard(r, rr)) return {};
    mast2 = r;
    rang2 = rr;
    if (vybor == 1) return {Message::CannotSelect};
    if (mast1 != mast2) return {Message::WrongMove};
    if (rang1 != 2) {
        setBorder(karta1, 0);
        vybor = 1;
        return {};
    }
    const Spot to = spotOf(foundationOf(r));
    const Cell from = cell(karta1);
    Reaction reaction;
    if (!from.stacked) {
        reaction.moved = moveCard(karta1.suit, karta1.rank, to);
    } else {
        const int base = findBaseRank(mast1, from, 1);
        if (base == 0) return {Message::WrongMove};
        reaction.moved = moveRun(mast1, rang1, base, to, to);
    }
    vybor = 1;
    return reaction;
}

int Board::findBaseRank(int suit, Cell stacked, int firstRank) const {
    int base = 0;
    for (int k = firstRank; k <= kRanks; ++k)
        if (cell(suit, k) == stacked.base()) base = k;
    return base;
}

bool Board::moveRun(int suit, int m, int b, Spot first, Spot rest) {
    if (!isCard(suit, m) || !isCard(suit, b)) return false;
    const int step = m < b ? 1 : -1;
    bool moved = false;
    for (int i = m;; i += step) {
        moved = moveCard(suit, i, i == m ? first : rest) || moved;
        if (i == b) break;
    }
    return moved;
}

}  // namespace vorn
