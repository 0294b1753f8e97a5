// The eleven pile places: the only way to put a card into an empty cell.
#include "board.h"

namespace vorn {

Reaction Board::clickPile(int image) {
    if (image < 1 || image > kPileCount) return {};
    if (vybor != 2) return {Message::WrongMove};  // nothing selected
    const PilePlace& pile = pilePlace(image);
    const Cell from = cell(karta1);
    // The two side places of row 5 take only a card that lies in row 5.
    if (pile.rowFiveOnly && !isRowFive(from)) return {Message::WrongMove};

    Cell place = pileCell(image);
    const Spot base = spotOf(place);
    Reaction reaction;
    if (pile.singleOnly || !from.stacked) {
        reaction.moved = moveCard(karta1.suit, karta1.rank, base);
    } else {
        // The cell is laid down turned over: the selected card becomes the base,
        // the old base card ends on top.
        const int b = findBaseRank(mast1, from, 2);
        if (b == 0) return {Message::WrongMove};
        place.stacked = true;
        reaction.moved = moveRun(mast1, rang1, b, base, spotOf(place));
    }
    vybor = 1;
    return reaction;
}

}  // namespace vorn
