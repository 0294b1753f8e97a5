// Reading a position for the solver. Everything here is read from the board's own
// tables (kartleft, karttop, zorder) and the grid of geometry.h.
#include "solver_position.h"

#include <algorithm>
#include <cstring>

#include "notation.h"

namespace vorn::solver {

namespace {

constexpr size_t cardIndex(int suit, int rank) { return static_cast<size_t>((suit - 1) * kRanks + rank - 1); }

Card cardOf(int suit, int rank) { return Card{static_cast<int16_t>(suit), static_cast<int16_t>(rank)}; }

std::string spotText(const Board& b, int suit, int rank) {
    return "(" + std::to_string(b.kartleft(suit, rank)) + ", " + std::to_string(b.karttop(suit, rank)) + ")";
}

// A stacked cell must be one suit's unbroken run going away from its base card,
// each card in front of the one before it, so that the far end is the one seen.
std::string runProblem(const Board& b, const Cells& cells, int cell) {
    const Card base = cells.base[static_cast<size_t>(cell)];
    const Card top = cells.front[static_cast<size_t>(cell)];
    if (base.empty()) return cardName(top) + " lies on an empty cell";
    const int count = cells.stacked[static_cast<size_t>(cell)];
    const int step = top.rank > base.rank ? 1 : -1;
    uint32_t below = b.zorder(base.suit, base.rank);
    for (int i = 1; i <= count; ++i) {
        const int rank = base.rank + step * i;
        if (rank < 1 || rank > kRanks || cells.cellOf[cardIndex(base.suit, rank)] != cell ||
            isRowTop(b.karttop(base.suit, rank)))
            return "the cell of " + cardName(base) + " is not one suit's unbroken run";
        if (b.zorder(base.suit, rank) <= below)
            return "the cards on " + cardName(base) + " lie in an order no move makes";
        below = b.zorder(base.suit, rank);
    }
    return {};
}

}  // namespace

int cellAt(int16_t left, int16_t top) {
    const Cell c = cellOf(left, top);
    return c.onGrid() ? c.index() : -1;
}

Cells cellsOf(const Board& b) {
    Cells cells;
    for (int s = 1; s <= kSuits; ++s)
        for (int r = 1; r <= kRanks; ++r) {
            const Cell c = b.cell(cardOf(s, r));
            const size_t card = cardIndex(s, r);
            if (!c.onGrid()) {
                cells.cellOf[card] = -1;
                continue;
            }
            cells.cellOf[card] = static_cast<int8_t>(c.index());
            const auto at = static_cast<size_t>(c.index());
            if (!c.stacked) {
                cells.base[at] = cardOf(s, r);
            } else {
                const Card front = cells.front[at];
                if (front.empty() || b.zorder(s, r) > b.zorder(front.suit, front.rank)) cells.front[at] = cardOf(s, r);
                ++cells.stacked[at];
            }
        }
    return cells;
}

std::string positionProblem(const Board& b) {
    if (b.rezhim != 2) return "nothing is dealt yet: the cards cannot be played before New game";
    if (b.vybor != 1 && b.vybor != 2) return "the selection state is neither 1 nor 2";
    if (b.vybor == 2 && (!isCard(b.karta1.suit, b.karta1.rank) || b.karta1.rank == 1))
        return "the selected card is no card of rank 2 to 13";
    for (int s = 1; s <= kSuits; ++s)
        if (b.kartleft(s, 1) != kMiddleLeft || b.karttop(s, 1) != aceTop(s))
            return "the ace " + cardName(cardOf(s, 1)) + " is not at its place";

    std::array<Card, kCells> base{};
    for (int s = 1; s <= kSuits; ++s)
        for (int r = 1; r <= kRanks; ++r) {
            const int cell = cellAt(b.kartleft(s, r), b.karttop(s, r));
            if (cell < 0) return cardName(cardOf(s, r)) + " lies off the grid at " + spotText(b, s, r);
            const int column = cell % kColumns;
            if (cell / kColumns == kRows - 1 && (column == 0 || column == kColumns - 1))
                return cardName(cardOf(s, r)) + " lies where no card can be, at " + spotText(b, s, r);
            if (!isRowTop(b.karttop(s, r))) continue;
            Card& there = base[static_cast<size_t>(cell)];
            if (!there.empty()) return cardName(there) + " and " + cardName(cardOf(s, r)) + " lie on one place";
            there = cardOf(s, r);
        }

    const Cells cells = cellsOf(b);
    for (int cell = 0; cell < kCells; ++cell)
        if (cells.stacked[static_cast<size_t>(cell)] > 0)
            if (std::string problem = runProblem(b, cells, cell); !problem.empty()) return problem;
    return {};
}

namespace {

constexpr int kMiddle = kColumns / 2;
constexpr int kHalfRows = 2 * (kRows - 1);  // the side halves of rows 1 to 4
constexpr int kHalfWidth = kMiddle;          // cells of a half-row

// Half-row h of rows 1..4 (left halves even, right halves odd) and a distance
// 1..5 from the middle column name a cell.
int halfRowCell(int h, int distance) {
    const int row = h / 2;
    return row * kColumns + (h % 2 == 0 ? kMiddle - distance : kMiddle + distance);
}

// What a half-row holds, from the middle outwards: base card and front card of
// each cell (card number + 1, 0 for none). Cards are unique, so two half-rows
// have equal contents only when both are empty.
uint64_t halfRowContents(const Cells& cells, int h) {
    uint64_t contents = 0;
    for (int distance = 1; distance <= kHalfWidth; ++distance) {
        const auto cell = static_cast<size_t>(halfRowCell(h, distance));
        const Card base = cells.base[cell];
        const Card front = cells.stacked[cell] ? cells.front[cell] : Card{};
        contents = contents << 12 | (base.empty() ? 0 : Cells::index(base) + 1) << 6 |
                   (front.empty() ? 0 : Cells::index(front) + 1);
    }
    return contents;
}

}  // namespace

PositionKey positionKey(const Cells& cells) {
    // Every cell gets a place in the key: the half-rows of rows 1..4 in the order
    // of their contents (5 places each), then the foundations, then row 5.
    std::array<std::pair<uint64_t, int>, kHalfRows> halves{};
    for (int h = 0; h < kHalfRows; ++h) halves[static_cast<size_t>(h)] = {halfRowContents(cells, h), h};
    std::sort(halves.begin(), halves.end());
    std::array<uint8_t, kCells> keyCell{};
    for (int k = 0; k < kHalfRows; ++k)
        for (int distance = 1; distance <= kHalfWidth; ++distance)
            keyCell[static_cast<size_t>(halfRowCell(halves[static_cast<size_t>(k)].second, distance))] =
                static_cast<uint8_t>(k * kHalfWidth + distance - 1);
    for (int row = 0; row < kRows - 1; ++row)
        keyCell[static_cast<size_t>(row * kColumns + kMiddle)] = static_cast<uint8_t>(kHalfRows * kHalfWidth + row);
    for (int column = 0; column < kColumns; ++column)
        keyCell[static_cast<size_t>((kRows - 1) * kColumns + column)] =
            static_cast<uint8_t>(kHalfRows * kHalfWidth + kRows - 1 + column);

    std::array<uint8_t, 48> bytes{};
    size_t i = 0;
    for (int s = 1; s <= kSuits; ++s)
        for (int r = 2; r <= kRanks; ++r) {
            const auto cell = static_cast<size_t>(cells.cellOf[cardIndex(s, r)]);
            const bool stacked = !(cells.base[cell] == cardOf(s, r));
            const bool front = stacked && cells.front[cell] == cardOf(s, r);
            bytes[i++] = static_cast<uint8_t>((keyCell[cell] * 2 + (stacked ? 1 : 0)) | (front ? 0x80 : 0));
        }
    PositionKey key;
    std::memcpy(key.words.data(), bytes.data(), bytes.size());
    return key;
}

uint64_t PositionKey::hash() const {
    uint64_t h = 0x9E3779B97F4A7C15ull;
    for (uint64_t w : words) {
        h ^= w;
        h *= 0xBF58476D1CE4E5B9ull;
        h ^= h >> 31;
    }
    return h;
}

}  // namespace vorn::solver
