// The eleven pile places: the only way to put a card into an empty cell.
#include "board.h"

namespace vorn {

Reaction Board::clickPile(int image) {
    if (image < 1 || image > kPileCount) return {};
    if (vybor != 2) return {Message::WrongMove};  // nothing selected
    const PilePlace& pile = pilePlace(image);
    const Spot from = spotOf(karta1);
    // The two side places of row 5 take only a card that lies in row 5.
    if (pile.rowFiveOnly && from.top < 6300) return {Message::WrongMove};

    const Spot base{pile.left, pile.top};
    Reaction reaction;
    if (pile.singleOnly || !isStackedTop(from.top)) {
        reaction.moved = moveCard(karta1.suit, karta1.rank, base);
    } else {
        // The cell is laid down turned over: the selected card becomes the base,
        // the old base card ends on top.
        const int b = findBaseRank(mast1, from.left, from.top, 2);
        if (b == 0) return {Message::WrongMove};
        const Spot stacked{pile.left, static_cast<int16_t>(pile.top + kStackOffset)};
        reaction.moved = moveRun(mast1, rang1, b, base, stacked);
    }
    vybor = 1;
    return reaction;
}

}  // namespace vorn
