// The moves of a position with nothing selected, read off the solver's compact
// position. This is the click routines' rulebook, restated over cells:
//
// First click (Board::firstClick). A card can be selected when it is
//   - the front card lying on a cell outside the middle column (a card lying
//     on a foundation or on the place below the aces stays put), or
//   - a base card with nothing on it that is the outermost base card of its
//     half of the row (prov1); the base card below the aces only while one half
//     of row 5 has no base card (prov7). Aces are never selected.
//
// Second click, on the selected card's neighbour in its suit (secondClick):
//   - the target must be seen and free: the front card of its cell, or a base
//     card with nothing on it (prov10);
//   - a target lying on a cell of rows 1 to 4 (a foundation's top among them)
//     takes it; any other target refuses while a card at its Top lies farther
//     out in its half, the middle column counting as the left half (prov2);
//   - a base card of row 5 takes only a card that lies in row 5 (prov5).
// Second click on the ace (perexod2): the 2 of its suit goes home, always.
// Second click on a pile place (clickPile) whose cell is empty: Image10 and
// Image11 take only a card of row 5.
//
// What moves: a selected base card alone; a selected card lying on a cell takes
// the whole cell along, lying on the target with the old base card in front; on
// a pile place the cell is laid down turned over (the selected card becomes the
// base, the old base card ends in front), except on Image9, below the aces,
// which takes the selected card alone.
//
// tests/support/solver_check.h holds the check that this agrees with the clicks.
#pragma once

#include <bit>
#include <cstdint>

#include "solver.h"
#include "solver_position.h"

namespace vorn::solver {

// A move: the card to select and what the second click is on, a card (0..51)
// or a pile place (kPileTarget + image - 1).
struct MoveCode {
    CardId card = kNoCard;
    uint8_t target = 0;
    friend bool operator==(const MoveCode&, const MoveCode&) = default;
};
inline constexpr uint8_t kPileTarget = kCards;
constexpr uint8_t pileTarget(int image) { return static_cast<uint8_t>(kPileTarget + image - 1); }
constexpr bool isPile(uint8_t target) { return target >= kPileTarget; }
constexpr int imageOf(uint8_t target) { return target - kPileTarget + 1; }
// The move as the clicks name it.
inline CardMove cardMove(MoveCode code) {
    const Hit target = isPile(code.target) ? Hit{Hit::Kind::Pile, Card{}, imageOf(code.target)}
                                           : Hit{Hit::Kind::Card, cardOf(code.target), 0};
    return {cardOf(code.card), target};
}

// The pile places: their cells, and which take only a card of row 5 or only the
// selected card alone.
struct PileCell {
    uint8_t cell;
    bool rowFiveOnly;
    bool singleOnly;
};
inline constexpr auto kPileCells = [] {
    std::array<PileCell, kPileCount> piles{};
    for (int image = 1; image <= kPileCount; ++image) {
        const PilePlace& place = kPilePlaces[static_cast<size_t>(image - 1)];
        piles[static_cast<size_t>(image - 1)] = {static_cast<uint8_t>(pileCell(image).index()), place.rowFiveOnly,
                                                 place.singleOnly};
    }
    return piles;
}();

// Bits of a row mask lying farther out than `col`, on its side of the middle
// column; for the middle column the left half, as a target sees it.
constexpr uint16_t fartherOut(int col) {
    return col <= kMiddleColumn ? static_cast<uint16_t>((1u << (col - 1)) - 1)
                                : static_cast<uint16_t>(((1u << kColumnCount) - 1) & ~((1u << col) - 1));
}
inline constexpr uint16_t kLeftHalf = fartherOut(kMiddleColumn);  // columns 1 to 5
inline constexpr uint16_t kRightHalf =                             // columns 7 to 11
    static_cast<uint16_t>(((1u << kColumnCount) - 1) & ~((1u << kMiddleColumn) - 1));

// Can the first click select card c?
inline bool selectable(const CompactPosition& p, CardId c) {
    const int cell = p.cellOf(c);
    const int col = columnOf(cell);
    if (p.stacked(c)) return col != kMiddleColumn && p.front[static_cast<size_t>(cell)] == c;
    if (p.front[static_cast<size_t>(cell)] != kNoCard) return false;
    const uint16_t row = p.bases[static_cast<size_t>(rowOf(cell) - 1)];
    if (col != kMiddleColumn) return (row & fartherOut(col)) == 0;
    return rowOf(cell) == kRowFive && ((row & kLeftHalf) == 0 || (row & kRightHalf) == 0);
}

// Does the second click on card t (of rank 2..13) play the selected card s onto it?
inline bool takes(const CompactPosition& p, CardId t, CardId s) {
    const int cell = p.cellOf(t);
    const int row = rowOf(cell);
    if (p.stacked(t)) {
        if (p.front[static_cast<size_t>(cell)] != t) return false;
        return row < kRowFive || (p.stacks[static_cast<size_t>(row - 1)] & fartherOut(columnOf(cell))) == 0;
    }
    if (p.front[static_cast<size_t>(cell)] != kNoCard) return false;
    if ((p.bases[static_cast<size_t>(row - 1)] & fartherOut(columnOf(cell))) != 0) return false;
    return row < kRowFive || rowOf(p.cellOf(s)) == kRowFive;
}

// The pile places whose cells are empty: bit image - 1.
inline uint16_t emptyPiles(const CompactPosition& p) {
    uint16_t piles = 0;
    for (int image = 1; image <= kPileCount; ++image)
        if (const int cell = kPileCells[static_cast<size_t>(image - 1)].cell;
            (p.bases[static_cast<size_t>(rowOf(cell) - 1)] >> (columnOf(cell) - 1) & 1) == 0)
            piles |= static_cast<uint16_t>(1u << (image - 1));
    return piles;
}
inline constexpr uint16_t kRowFiveOnlyPiles = [] {
    uint16_t piles = 0;
    for (int image = 1; image <= kPileCount; ++image)
        if (kPileCells[static_cast<size_t>(image - 1)].rowFiveOnly) piles |= static_cast<uint16_t>(1u << (image - 1));
    return piles;
}();

// Calls visit(MoveCode) for every move of a selected card s, in the order: its
// lower neighbour, its higher neighbour, the empty pile places (`piles`) from
// Image1 to Image11.
template <class Visit>
void movesOfCard(const CompactPosition& p, CardId s, uint16_t piles, Visit&& visit) {
    const int rank = rankOf(s);
    if (rank == 2) visit(MoveCode{s, static_cast<uint8_t>(s - 1)});  // onto its ace
    else if (takes(p, static_cast<CardId>(s - 1), s)) visit(MoveCode{s, static_cast<uint8_t>(s - 1)});
    if (rank < kRanks && takes(p, static_cast<CardId>(s + 1), s)) visit(MoveCode{s, static_cast<uint8_t>(s + 1)});
    if (rowOf(p.cellOf(s)) != kRowFive) piles &= static_cast<uint16_t>(~kRowFiveOnlyPiles);
    for (; piles != 0; piles &= static_cast<uint16_t>(piles - 1))
        visit(MoveCode{s, pileTarget(std::countr_zero(piles) + 1)});
}

// Calls visit(MoveCode) for every move of the position. The cards are tried in
// a fixed order: the front cards of the stacked cells by cell, then row by row
// the outermost base card of the left half, of the right half, and the middle one.
template <class Visit>
void forEachMove(const CompactPosition& p, Visit&& visit) {
    constexpr auto kMiddleBit = static_cast<uint16_t>(1u << (kMiddleColumn - 1));
    const uint16_t piles = emptyPiles(p);
    for (int row = 0; row < kRowCount; ++row)
        for (uint32_t stacked = p.stacks[static_cast<size_t>(row)] & ~kMiddleBit; stacked != 0; stacked &= stacked - 1)
            movesOfCard(p, p.front[static_cast<size_t>(row * kColumnCount + std::countr_zero(stacked))], piles, visit);
    for (int row = 0; row < kRowCount; ++row) {
        const uint16_t mask = p.bases[static_cast<size_t>(row)];
        auto tryBase = [&](int bit) {
            const auto cell = static_cast<size_t>(row * kColumnCount + bit);
            if (p.front[cell] == kNoCard) movesOfCard(p, p.base(static_cast<int>(cell)), piles, visit);
        };
        if (const uint32_t left = mask & kLeftHalf) tryBase(std::countr_zero(left));
        if (const uint32_t right = mask & kRightHalf) tryBase(std::bit_width(right) - 1);
        if (row == kRowFive - 1 && (mask & kMiddleBit) && selectable(p, p.base(kBelowTheAces)))
            movesOfCard(p, p.base(kBelowTheAces), piles, visit);
    }
}

// The move that plays the next card of a suit (with its cell) onto the
// foundation, if one can be made: that card must be selectable; the second
// click is on the foundation's top card, or on the ace for a 2. Suits are tried
// in order; false when none can go home.
inline bool homeMove(const CompactPosition& p, MoveCode& out) {
    for (int suit = 1; suit <= kSuits; ++suit) {
        const int top = p.homeRank(suit);
        if (top == kRanks) continue;
        const CardId next = cardId(suit, top + 1);
        if (!selectable(p, next)) continue;
        out = {next, cardId(suit, top)};
        return true;
    }
    return false;
}

// The position after a move from p (one that forEachMove or homeMove found),
// written into `out`.
void play(const CompactPosition& p, MoveCode move, CompactPosition& out);
inline CompactPosition after(const CompactPosition& p, MoveCode move) {
    CompactPosition out;
    play(p, move, out);
    return out;
}

}  // namespace vorn::solver
