// Helpers shared by the solver's tests: seeded deals, every thing a click can
// reach, and a way to tell positions apart that owns nothing of the solver.
#pragma once

#include <algorithm>
#include <set>
#include <tuple>
#include <vector>

#include "board/board.h"

namespace vorn::testing {

inline Board seededDeal(uint64_t seed) {
    SeededRandom random(seed);
    Board board = Board::loaded();
    board.rasklad(random);
    board.raskl.clear();
    return board;
}

// Points that between them reach every card and pile place a click can reach:
// in every grid cell, the strip of a base card, the middle of a card and the
// part of a stacked card below its base card.
inline std::vector<std::pair<int, int>> probePoints() {
    std::vector<std::pair<int, int>> points;
    for (int16_t left : kColumnLefts)
        for (int16_t top : kRowTops)
            for (int dy : {100, 700, 1300}) points.emplace_back(left + 375, top + dy);
    return points;
}

struct HitOrder {
    bool operator()(const Hit& a, const Hit& b) const {
        return std::tie(a.kind, a.card.suit, a.card.rank, a.pile) < std::tie(b.kind, b.card.suit, b.card.rank, b.pile);
    }
};

// Everything a click on the board can reach, each once.
inline std::vector<Hit> clickableThings(const Board& board) {
    std::set<Hit, HitOrder> seen;
    for (auto [x, y] : probePoints()) {
        const Hit hit = board.hitAt(x, y);
        if (hit.kind != Hit::Kind::Nothing) seen.insert(hit);
    }
    return {seen.begin(), seen.end()};
}

// A position as the player sees it: where every card lies and what each probe
// point reaches (which card lies in front).
struct Seen {
    Table<int16_t> left, top;
    std::vector<Hit> reached;
    friend bool operator==(const Seen&, const Seen&) = default;
    friend bool operator<(const Seen& a, const Seen& b) {
        if (a.left != b.left) return lessTable(a.left, b.left);
        if (a.top != b.top) return lessTable(a.top, b.top);
        return std::lexicographical_compare(a.reached.begin(), a.reached.end(), b.reached.begin(), b.reached.end(),
                                            HitOrder{});
    }
    static bool lessTable(const Table<int16_t>& a, const Table<int16_t>& b) {
        for (int s = 1; s <= kSuits; ++s)
            for (int r = 1; r <= kRanks; ++r)
                if (a(s, r) != b(s, r)) return a(s, r) < b(s, r);
        return false;
    }
};

inline Seen seenOf(const Board& board) {
    Seen seen{board.kartleft, board.karttop, {}};
    for (auto [x, y] : probePoints()) seen.reached.push_back(board.hitAt(x, y));
    return seen;
}

}  // namespace vorn::testing
