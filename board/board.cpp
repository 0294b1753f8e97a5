// The board's life outside the clicks: window load, the deal, the end of the
// game and what the window asks about positions.
#include "board.h"

#include <cmath>

namespace vorn {

Board Board::loaded() {
    Board board;
    board.rezhim = 1;
    board.vybor = 1;
    board.start();
    return board;
}

void Board::start() {
    // The images are created Im1_1 ... Im4_13, each in front of the ones before.
    zcounter = 0;
    for (int s = 1; s <= kSuits; ++s)
        for (int r = 1; r <= kRanks; ++r) {
            const Spot at = startSpot(s, r);
            kartleft(s, r) = at.left;
            karttop(s, r) = at.top;
            zorder(s, r) = ++zcounter;
        }
}

namespace {

// One draw of a place number: the whole part of u * 48 + 1. A source that
// strays outside [0, 1) is held to the nearest place rather than trusted.
int16_t drawPlace(Random& random) {
    const double u = random.next();
    double place = std::floor(u * kPlaces + 1);
    if (!(place >= 1)) place = 1;
    if (place > kPlaces) place = kPlaces;
    return static_cast<int16_t>(place);
}

}  // namespace

void Board::rasklad(Random& random) {
    rezhim = 2;
    for (int i = 1; i <= kPlaces; ++i) {
        mesta(layoutSuit(i), layoutRank(i)) = 0;
        border(layoutSuit(i), layoutRank(i)) = 0;
    }
    random.reseed();
    // A place already dealt is drawn again. (Every card's place was cleared
    // above, so the places dealt are exactly the ones taken here.)
    std::array<bool, kPlaces + 1> dealt{};
    mesta(1, 2) = drawPlace(random);
    dealt[static_cast<size_t>(mesta(1, 2))] = true;
    for (int i = 2; i <= kPlaces; ++i) {
        int16_t x = drawPlace(random);
        while (dealt[static_cast<size_t>(x)]) x = drawPlace(random);
        dealt[static_cast<size_t>(x)] = true;
        mesta(layoutSuit(i), layoutRank(i)) = x;
    }
    placeFromMesta();
    raskl = buildRaskl();
}

void Board::rasklzan() { placeFromMesta(); }

void Board::placeFromMesta() {
    for (int i = 1; i <= kPlaces; ++i) {
        const int s = layoutSuit(i);
        const int r = layoutRank(i);
        karttop(s, r) = ztop1(mesta(s, r)).value_or(0);
        kartleft(s, r) = zleft1(mesta(s, r)).value_or(0);
    }
}

std::string Board::buildRaskl() const {
    std::string text;
    for (int i = 1; i <= kPlaces; ++i) {
        if (i > 1) text += ',';
        text += ' ';
        text += std::to_string(mesta(layoutSuit(i), layoutRank(i)));
    }
    return text;
}

bool Board::konec() const {
    std::array<int16_t, kSuits + 1> gotov{};  // [1..4]: 0 when that suit's king is home
    int16_t sum = 0;
    for (int s = 1; s <= kSuits; ++s) {
        // A king is home when it lies in the middle column above row 5.
        const Cell king = cell(s, kRanks);
        const bool home = isMiddle(king) && isAceRow(king);
        gotov[static_cast<size_t>(s)] = home ? 0 : 1;
        sum = static_cast<int16_t>(sum + gotov[static_cast<size_t>(s)]);
    }
    return sum == 0;
}

bool operator==(const Board& a, const Board& b) {
    const bool sameSelection =
        a.vybor == b.vybor && (a.vybor != 2 || (a.karta1 == b.karta1 && a.mast1 == b.mast1 && a.rang1 == b.rang1));
    return sameSelection && a.kartleft == b.kartleft && a.karttop == b.karttop && a.zorder == b.zorder &&
           a.zcounter == b.zcounter && a.border == b.border && a.rezhim == b.rezhim && a.mesta == b.mesta &&
           a.raskl == b.raskl;
}

// ---- small helpers ----------------------------------------------------------------

void Board::setBorder(Card c, uint8_t style) {
    if (isCard(c.suit, c.rank)) border(c.suit, c.rank) = style;
}

uint8_t Board::borderOf(Card c) const {
    return isCard(c.suit, c.rank) ? border(c.suit, c.rank) : uint8_t{0};
}

void Board::clearSelection() {
    vybor = 1;
    for (int s = 1; s <= kSuits; ++s)
        for (int r = 1; r <= kRanks; ++r) border(s, r) = 0;
}

void Board::bringToFront(int suit, int rank) { zorder(suit, rank) = ++zcounter; }

bool Board::moveCard(int suit, int rank, Spot to) {
    if (!isCard(suit, rank)) return false;
    const bool changed = where(suit, rank) != to;
    kartleft(suit, rank) = to.left;
    karttop(suit, rank) = to.top;
    bringToFront(suit, rank);
    border(suit, rank) = 0;
    return changed;
}

// ---- what the window asks ---------------------------------------------------------

GridContents Board::contents() const {
    GridContents grid{};
    for (int16_t s = 1; s <= kSuits; ++s)
        for (int16_t r = 1; r <= kRanks; ++r) {
            const Cell c = cell(s, r);
            if (!c.onGrid()) continue;
            CellContents& there = grid[static_cast<size_t>(c.index())];
            if (!c.stacked) {
                there.base = {s, r};
                continue;
            }
            if (there.front.empty() || zorder(s, r) > zorder(there.front.suit, there.front.rank)) there.front = {s, r};
            ++there.stacked;
        }
    return grid;
}

bool Board::pileVisible(int image) const {
    if (image < 1 || image > kPileCount) return false;
    // A card lies on the place's cell when it lies at its base or its stacked Top.
    Cell place = pileCell(image);
    const Spot base = spotOf(place);
    place.stacked = true;
    const Spot onIt = spotOf(place);
    for (int s = 1; s <= kSuits; ++s)
        for (int r = 1; r <= kRanks; ++r) {
            const Spot at = where(s, r);
            if (at == base || at == onIt) return false;
        }
    return true;
}

namespace {

bool contains(int left, int top, int x, int y) {
    return x >= left && x < left + kCardWidth && y >= top && y < top + kCardHeight;
}

}  // namespace

Hit Board::hitAt(int x, int y, Card ignoring) const {
    Hit hit;
    uint32_t front = 0;
    for (int s = 1; s <= kSuits; ++s)
        for (int r = 1; r <= kRanks; ++r) {
            if (ignoring == Card{static_cast<int16_t>(s), static_cast<int16_t>(r)}) continue;
            if (contains(kartleft(s, r), karttop(s, r), x, y) && (hit.kind == Hit::Kind::Nothing || zorder(s, r) > front)) {
                hit = {Hit::Kind::Card, Card{static_cast<int16_t>(s), static_cast<int16_t>(r)}, 0};
                front = zorder(s, r);
            }
        }
    if (hit.kind == Hit::Kind::Card) return hit;
    for (int image = 1; image <= kPileCount; ++image) {
        const PilePlace& pile = pilePlace(image);
        if (contains(pile.left, pile.top, x, y)) return {Hit::Kind::Pile, Card{}, image};
    }
    return {};
}

Reaction Board::click(const Hit& hit) {
    switch (hit.kind) {
    case Hit::Kind::Card: return clickCard(hit.card.suit, hit.card.rank);
    case Hit::Kind::Pile: return clickPile(hit.pile);
    case Hit::Kind::Nothing: break;
    }
    return {};
}

}  // namespace vorn
