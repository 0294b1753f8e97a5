// The solver's picture of the game against the board's clicks, which define the
// rules: its moves and where they lead, and the half-rows it takes for alike.
#include <gtest/gtest.h>

#include "solver/solver.h"
#include "board/position_check.h"
#include "support/solver_check.h"
#include "solver/solver_moves.h"
#include "support/fixtures.h"

namespace vorn {
namespace {

// Play from seeded deals, every pair of clicks tried in one position in eight
// (bench/crosscheck.cpp tries them all, over ten million positions); the first
// disagreement is shown with the position and both sets of moves.
TEST(SolverCrossCheck, MovesAreTheClickPairsThatMoveOnRandomPositions) {
    const solver::CrossCheck check = solver::crossCheck(100'000, 1, 8);
    if (!check.difference.empty()) FAIL() << check.difference;
    EXPECT_EQ(check.positions, 100'000u);
}

// Row 5 has rules that random play seldom meets: the place below the aces
// taking a card and cards laid on it for good, stacked targets of row 5 hemmed
// in by stacked cards farther out. Each position, and every position one move
// on, is checked.
TEST(SolverCrossCheck, MovesAreTheClickPairsThatMoveAroundRowFive) {
    const Board boards[] = {
        boardFrom({{"QH", 4920, 6360}, {"JH", 8760, 6360}, {"KH", 9720, 120}, {"10H", 1080, 1680}}),
        boardFrom({{"JH", 4920, 6360}, {"QH", 4920, "+"}, {"KH", 8760, 6360}, {"KS", 7800, 6360}}),
        boardFrom({{"9S", 1080, 6360}, {"10S", 1080, "+"}, {"3D", 2040, 6360}, {"4D", 2040, "+"}, {"5D", 120, 120},
                   {"KS", 9720, 120}, {"QS", 9720, "+"}, {"JS", 9720, "+"}, {"KD", 9720, 1680}, {"QD", 9720, "+"},
                   {"JD", 9720, "+"}, {"10D", 9720, "+"}, {"9D", 9720, "+"}, {"8D", 9720, "+"}, {"7D", 9720, "+"},
                   {"6D", 9720, "+"}, {"8S", 3960, 6360}}),
    };
    std::string difference;  // the first one found; the rest are not looked for
    for (const Board& start : boards) {
        if (difference = solver::compareWithClicks(start); !difference.empty()) FAIL() << difference;
        solver::forEachMove(solver::CompactPosition::of(start), [&](solver::MoveCode code) {
            Board next = start;
            next.click(solver::cardMove(code).select());
            next.click(solver::cardMove(code).target);
            if (difference.empty()) difference = solver::compareWithClicks(next);
        });
        if (!difference.empty()) FAIL() << difference;
    }
}

// Moves every card of the side halves of rows 1 to 4 to half-row (3h + 1) mod 8
// (h = 2 (row - 1), + 1 for a right half), at the same distance from the middle
// column and the same height in its cell: right halves become left ones and back.
Board shuffledHalfRows(const Board& b) {
    Board out = b;
    for (int16_t s = 1; s <= kSuits; ++s)
        for (int16_t r = 2; r <= kRanks; ++r) {
            const Cell at = b.cell({s, r});
            if (!isAceRow(at) || isMiddle(at)) continue;
            const int h = 2 * (at.row - 1) + (at.col > kMiddleColumn ? 1 : 0);
            const int distance = std::abs(at.col - kMiddleColumn);
            const int to = (3 * h + 1) % 8;
            const Spot spot = spotOf({static_cast<int8_t>(to / 2 + 1),
                                      static_cast<int8_t>(kMiddleColumn + (to % 2 ? distance : -distance)), at.stacked});
            out.kartleft(s, r) = spot.left;
            out.karttop(s, r) = spot.top;
        }
    return out;
}

// Shuffled half-rows give one key. (That the moves of either lead where the
// clicks do is the cross-check's; the pinned counts would see a key that joins
// positions that differ.)
void expectAlike(const Board& b, const std::string& where) {
    const Board shuffled = shuffledHalfRows(b);
    ASSERT_FALSE(shuffled.kartleft == b.kartleft && shuffled.karttop == b.karttop) << where;
    ASSERT_EQ(positionProblem(shuffled), "") << where;
    EXPECT_EQ(solver::CompactPosition::of(b).key(), solver::CompactPosition::of(shuffled).key()) << where;
}

TEST(SolverSymmetry, ShuffledHalfRowsPlayAlike) {
    for (uint64_t seed = 1; seed <= 30; ++seed) {
        Board b = testing::seededDeal(seed);
        expectAlike(b, "deal " + std::to_string(seed));
        if (seed > 10) continue;
        const Verdict v = solve(b);
        for (size_t i = 0; i < v.moves.size(); ++i) {
            if (i % 5 == 4) expectAlike(b, "deal " + std::to_string(seed) + ", move " + std::to_string(i));
            b.click(v.moves[i].select());
            b.click(v.moves[i].target);
        }
    }
}

}  // namespace
}  // namespace vorn
