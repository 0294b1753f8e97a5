// Boards built from a list of cards, and card names read back.
#include "board_from.h"

#include <map>

namespace vorn {

Board boardFrom(const std::vector<Placed>& cards) {
    Board b = Board::loaded();
    b.rezhim = 2;
    // Every card home first: aces in place, the rest on their foundations.
    b.zcounter = 0;
    for (int s = 1; s <= kSuits; ++s)
        for (int r = 1; r <= kRanks; ++r) {
            const Spot home = spotOf(r == 1 ? foundationOf(s).base() : foundationOf(s));
            b.kartleft(s, r) = home.left;
            b.karttop(s, r) = home.top;
            b.zorder(s, r) = ++b.zcounter;
        }
    Table<uint8_t> listed{};
    std::map<int, int> lastTopAtLeft;  // Left -> Top of the card listed last there
    for (const Placed& p : cards) {
        const std::optional<Card> c = parseCard(p.card);
        const std::string entry(p.card);
        if (!c) throw std::invalid_argument("boardFrom: no such card: " + entry);
        if (listed(c->suit, c->rank)) throw std::invalid_argument("boardFrom: listed twice: " + entry);
        listed(c->suit, c->rank) = 1;
        int top = p.top;
        if (p.onStack) {
            const auto below = lastTopAtLeft.find(p.left);
            const Cell under = below == lastTopAtLeft.end() ? Cell{} : cellOf(p.left, below->second);
            if (!under.onGrid()) throw std::invalid_argument("boardFrom: nothing to stack onto: " + entry);
            Cell onIt = under;
            onIt.stacked = true;
            top = spotOf(onIt).top;
        }
        b.kartleft(c->suit, c->rank) = static_cast<int16_t>(p.left);
        b.karttop(c->suit, c->rank) = static_cast<int16_t>(top);
        b.zorder(c->suit, c->rank) = ++b.zcounter;
        lastTopAtLeft[p.left] = top;
    }
    return b;
}

}  // namespace vorn
