// The checks that make up the rules. Each reads the position tables and the
// selection, changes nothing, and answers true when the click is to be refused.
// A scan visits every suit and, within it, the ranks in ascending order; it
// never stops early, so every match gives the same answer again.
#include "board.h"

namespace vorn {

// The selected base card is blocked when a card lies on it, or when another card
// with its Top lies farther out in its half of the row. A card of the middle
// column only asks whether it is covered.
bool Board::prov1() const {
    const Spot sel = spotOf(mast1, rang1);
    bool refuse = false;
    for (int s = 1; s <= kSuits; ++s)
        for (int r = 2; r <= kRanks; ++r) {
            const Spot x = spotOf(s, r);
            if (x.top == sel.top + kStackOffset && x.left == sel.left) refuse = true;
            if (sel.left < kMiddleLeft && x.left < sel.left && x.top == sel.top) refuse = true;
            if (sel.left > kMiddleLeft && x.left > sel.left && x.top == sel.top) refuse = true;
        }
    return refuse;
}

// The target is blocked when another card with its Top lies farther out in the
// target's half; here the middle column belongs to the left half. Stacked targets
// of rows 1..4 (the foundation tops among them) are exempt, row 5's are not.
bool Board::prov2() const {
    const Spot target = spotOf(mast2, rang2);
    const bool leftHalf = target.left < kTargetSplit;
    const bool exempt = target.top == 360 || target.top == 1920 || target.top == 3480 || target.top == 5040;
    int result = 0;  // 0 stands for "no outer card" as well as "outer card, exempt"
    for (int s = 1; s <= kSuits; ++s)
        for (int r = 1; r <= kRanks; ++r) {
            const Spot x = spotOf(s, r);
            const bool outer = x.top == target.top && (leftHalf ? x.left < target.left : x.left > target.left);
            if (outer) result = exempt ? 0 : 1;
        }
    return result == 1;
}

// The Top at which a card played onto karta2 lands: the stacked Top of the
// target's row; 0 when the target lies at no row.
int16_t Board::prov3() const {
    const int16_t top = spotOf(karta2).top;
    for (size_t row = 0; row < kRowTops.size(); ++row)
        if (top == kRowTops[row] || top == kStackedTops[row]) return kStackedTops[row];
    return 0;
}

// Ranks must differ by exactly one; they do not wrap round from king to ace.
bool Board::prov4() const { return rang1 != rang2 - 1 && rang1 != rang2 + 1; }

// A card from rows 1..4 may not go onto a base card of row 5.
bool Board::prov5() const {
    return spotOf(mast1, rang1).top < kBottomRowTop && spotOf(mast2, rang2).top == kBottomRowTop;
}

// The base card below the aces is hemmed in while both halves of row 5 hold a
// card at its Top.
bool Board::prov7() const {
    const Spot sel = spotOf(mast1, rang1);
    bool right = false;
    bool left = false;
    if (sel.left == kMiddleLeft) {
        for (int s = 1; s <= kSuits; ++s)
            for (int r = 2; r <= kRanks; ++r) {
                const Spot x = spotOf(s, r);
                if (x.left > kMiddleLeft && x.top == sel.top) right = true;
                if (x.left < kMiddleLeft && x.top == sel.top) left = true;
            }
    }
    return right && left;
}

// The target is covered when a card lies on it.
bool Board::prov10() const {
    const Spot target = spotOf(mast2, rang2);
    bool refuse = false;
    for (int s = 1; s <= kSuits; ++s)
        for (int r = 2; r <= kRanks; ++r) {
            const Spot x = spotOf(s, r);
            if (x.top - kStackOffset == target.top && x.left == target.left) refuse = true;
        }
    return refuse;
}

}  // namespace vorn
