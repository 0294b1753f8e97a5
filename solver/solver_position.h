// The solver's own picture of a position: small numbers instead of the board's
// twips tables, cheap to copy, to change by a move and to remember.
//
// Cards are numbered 0..51, (suit - 1) * 13 + rank - 1, so the cards of a suit
// are neighbours. Every card has a place: the index of its cell (Cell::index)
// and whether it lies on the cell's base card. Every cell knows the card in
// front of the ones lying on its base card, and its packed word (below) knows
// the base card; since the cards of a cell are always one suit's unbroken run
// away from the base card, those two name them all. Nothing else matters once
// nothing is selected: which card lies in front is the far end of the run, and
// the clicks read no other state.
//
// The eight half-rows of rows 1 to 4 play alike: every check looks at a half-row
// on its own (a base card is free when it is the outermost of its half, a
// target likewise), the pile places of rows 1 to 4 lie next to the middle in
// every half, nothing else tells rows 1 to 4 apart, and a right half is a left
// half seen in a mirror. So each half-row is packed into one word, its cells
// counted from the middle outwards, and the key of a position takes the eight
// words sorted: positions that differ only by which half-row holds what share
// a key. Row 5, with rules of its own, and the foundations keep their places.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "board/board.h"

namespace vorn::solver {

using CardId = uint8_t;
inline constexpr CardId kNoCard = 0xFF;
inline constexpr int kCards = kSuits * kRanks;

// Suit and rank of every card, row and column of every cell: looked up rather
// than divided, as the search asks them all the time.
namespace detail {
template <int N, int D>
inline constexpr auto kQuotients = [] {
    std::array<uint8_t, 2 * N> table{};  // [i]: i / D + 1, [N + i]: i % D + 1
    for (int i = 0; i < N; ++i) {
        table[static_cast<size_t>(i)] = static_cast<uint8_t>(i / D + 1);
        table[static_cast<size_t>(N + i)] = static_cast<uint8_t>(i % D + 1);
    }
    return table;
}();
}  // namespace detail

constexpr CardId cardId(int suit, int rank) { return static_cast<CardId>((suit - 1) * kRanks + rank - 1); }
constexpr int suitOf(CardId c) { return detail::kQuotients<kCards, kRanks>[c]; }
constexpr int rankOf(CardId c) { return detail::kQuotients<kCards, kRanks>[kCards + c]; }
inline Card cardOf(CardId c) { return {static_cast<int16_t>(suitOf(c)), static_cast<int16_t>(rankOf(c))}; }

constexpr int rowOf(int cell) { return detail::kQuotients<kCellCount, kColumnCount>[static_cast<size_t>(cell)]; }
constexpr int columnOf(int cell) {
    return detail::kQuotients<kCellCount, kColumnCount>[static_cast<size_t>(kCellCount + cell)];
}
constexpr int foundationCell(int suit) { return foundationOf(suit).index(); }
inline constexpr int kBelowTheAces = Cell{kRowFive, kMiddleColumn, false}.index();

// The key of a position: the eight half-row words in order, then row 5 and the
// foundations. Equal keys mean positions that play alike.
inline constexpr int kHalfRows = 8;
inline constexpr int kWords = kHalfRows + 2;
struct Key {
    std::array<uint64_t, kWords> words{};
    friend bool operator==(const Key&, const Key&) = default;
};

// Where a cell's contents go in the words. A cell of rows 1 to 4 takes ten bits
// of its half-row's word, nearest the middle first: its base card (number + 1,
// 0 for none) and the rank of its front card (0 for none; the suit is the base
// card's). Row 5 takes the ninth word (columns 2 to 6) and the tenth (columns 7
// to 10); a foundation keeps only its top rank, in the tenth word's top bits.
// Columns 1 and 11 of row 5 never hold a card and have no slot of their own:
// they read the tenth word's top bits, which stay empty.
struct Slot {
    uint8_t word = kHalfRows + 1;
    uint8_t shift = 56;
    uint8_t width = 0;  // 10 bits, 4 for a foundation, 0: no slot
};
inline constexpr std::array<Slot, kCellCount> kSlots = [] {
    std::array<Slot, kCellCount> table{};
    for (int cell = 0; cell < kCellCount; ++cell) {
        const int row = rowOf(cell), col = columnOf(cell);
        const int distance = col > kMiddleColumn ? col - kMiddleColumn : kMiddleColumn - col;
        Slot& s = table[static_cast<size_t>(cell)];
        if (row < kRowFive && distance > 0)
            s = {static_cast<uint8_t>(2 * (row - 1) + (col > kMiddleColumn ? 1 : 0)),
                 static_cast<uint8_t>(10 * (distance - 1)), 10};
        else if (row < kRowFive)
            s = {kHalfRows + 1, static_cast<uint8_t>(40 + 4 * (row - 1)), 4};
        else if (col >= 2 && col <= kMiddleColumn)
            s = {kHalfRows, static_cast<uint8_t>(10 * (col - 2)), 10};
        else if (col > kMiddleColumn && col < kColumnCount)
            s = {kHalfRows + 1, static_cast<uint8_t>(10 * (col - kMiddleColumn - 1)), 10};
    }
    return table;
}();

// 216 bytes: small enough to be copied with a few vector moves (and no string
// instruction, which costs more at this size).
struct CompactPosition {
    std::array<uint8_t, kCards> place{};    // per card: cell index * 2, + 1 when it lies on the base card
    std::array<CardId, kCellCount> front{};  // per cell: the front card lying on the base, or kNoCard
    std::array<uint16_t, kRowCount> bases{};   // per row: bit column-1 set while that cell has a base card
    std::array<uint16_t, kRowCount> stacks{};  // per row: bit column-1 set while cards lie on that base card
    std::array<uint64_t, kWords> words{};   // the cells packed as the key wants them, half-rows unsorted
    uint64_t mixed = 0;                     // the words mixed and added up: the key's hash, kept in step

    // Reads a position the clicks could produce (vorn::positionProblem is empty)
    // from the board's view of its cells, Board::contents.
    static CompactPosition of(const Board& board);

    int cellOf(CardId c) const { return place[c] >> 1; }
    bool stacked(CardId c) const { return place[c] & 1; }
    // The base card of a cell, or kNoCard.
    CardId base(int cell) const {
        const Slot& slot = kSlots[static_cast<size_t>(cell)];
        if (slot.width == 4) return cardId(rowOf(cell), 1);  // a foundation's ace
        return static_cast<CardId>((words[slot.word] >> slot.shift & 63) - 1);  // 0 - 1 is kNoCard
    }
    // The highest rank on the suit's foundation, 1 while only the ace lies there.
    int homeRank(int suit) const {
        const CardId top = front[static_cast<size_t>(foundationCell(suit))];
        return top == kNoCard ? 1 : rankOf(top);
    }
    bool won() const {
        return homeRank(1) == kRanks && homeRank(2) == kRanks && homeRank(3) == kRanks && homeRank(4) == kRanks;
    }

    // What a cell holds from now on; keeps the masks, the words and the hash in step.
    void setCell(int cell, CardId newBase, CardId newFront);
    // The same, leaving the hash alone.
    void store(int cell, CardId newBase, CardId newFront);

    Key key() const { return keyOf(words); }
    // The key of a position with these words: the half-row words put in order.
    static Key keyOf(const std::array<uint64_t, kWords>& words);
    // Equal for positions with equal keys: a half-row's word counts the same
    // wherever it lies.
    uint64_t hash() const { return mixed; }

    friend bool operator==(const CompactPosition&, const CompactPosition&) = default;
};
static_assert(sizeof(CompactPosition) <= 256);

}  // namespace vorn::solver
