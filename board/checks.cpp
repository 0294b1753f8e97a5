// The checks that make up the rules. Each reads where the cards lie and which
// card is selected, changes nothing, and answers true when the click is to be
// refused.
#include "board.h"

namespace vorn {

// The selected base card is blocked when a card lies on it, or when another
// card lies farther out in its half of the row. A card of the middle column is
// blocked only when it is covered.
bool Board::prov1() const {
    const Cell selected = cell(mast1, rang1);
    for (int s = 1; s <= kSuits; ++s)
        for (int r = 2; r <= kRanks; ++r) {
            const Cell x = cell(s, r);
            if ((x.stacked && x.sameCell(selected)) || liesFartherOut(x, selected)) return true;
        }
    return false;
}

// The target is blocked when another card lies farther out in its half; here
// the middle column belongs to the left half. A target lying on another card in
// rows 1 to 4 (a foundation's top among them) is never blocked; in row 5 it is.
bool Board::prov2() const {
    const Cell target = cell(mast2, rang2);
    if (target.stacked && isAceRow(target)) return false;
    for (int s = 1; s <= kSuits; ++s)
        for (int r = 1; r <= kRanks; ++r)
            if (liesFartherOutThanTarget(cell(s, r), target)) return true;
    return false;
}

// The Top at which a card played onto karta2 lands: lying on the base card of
// the target's cell. 0 when the target lies off the grid.
int16_t Board::prov3() const {
    const Cell target = cell(karta2.suit, karta2.rank);
    if (!target.onGrid()) return 0;
    Cell landing = target;
    landing.stacked = true;
    return spotOf(landing).top;
}

// Ranks must differ by exactly one; they do not wrap round from king to ace.
bool Board::prov4() const { return rang1 != rang2 - 1 && rang1 != rang2 + 1; }

// A card from rows 1 to 4 (or off the grid) may not go onto a base card of row 5.
bool Board::prov5() const {
    const Cell target = cell(mast2, rang2);
    return !isRowFive(cell(mast1, rang1)) && isRowFive(target) && !target.stacked;
}

// The card in the middle of row 5 is hemmed in while both halves of that row
// hold a base card.
bool Board::prov7() const {
    const Cell selected = cell(mast1, rang1);
    if (!isMiddle(selected)) return false;
    bool right = false;
    bool left = false;
    for (int s = 1; s <= kSuits; ++s)
        for (int r = 2; r <= kRanks; ++r) {
            const Cell x = cell(s, r);
            if (!x.sameTop(selected)) continue;
            right = right || x.col > kMiddleColumn;
            left = left || x.col < kMiddleColumn;
        }
    return right && left;
}

// The target is covered when a card lies on it.
bool Board::prov10() const {
    const Cell target = cell(mast2, rang2);
    if (target.stacked) return false;
    for (int s = 1; s <= kSuits; ++s)
        for (int r = 2; r <= kRanks; ++r) {
            const Cell x = cell(s, r);
            if (x.stacked && x.sameCell(target)) return true;
        }
    return false;
}

}  // namespace vorn
