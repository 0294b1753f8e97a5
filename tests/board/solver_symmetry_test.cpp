// The eight half-rows of rows 1 to 4 play alike, which lets the solver take two
// positions for one when they differ only by which half-row holds what. Here the
// claim meets the real rules: positions with their half-rows shuffled (and right
// halves mirrored into left ones) must get the same verdict.
#include <gtest/gtest.h>

#include <random>
#include <set>

#include "board/solver.h"
#include "board/solver_moves.h"
#include "board/solver_position.h"
#include "solver_support.h"

namespace vorn {
namespace {

constexpr int kMiddle = 5;  // index of the middle column

// Moves every card of the side halves of rows 1..4 to half-row (3h + 1) mod 8
// (h = 2 (row - 1) + 0 for a left half, 1 for a right half), at the same
// distance from the middle column and at the same height in its cell.
Board shuffledHalfRows(const Board& b) {
    Board out = b;
    for (int s = 1; s <= kSuits; ++s)
        for (int r = 2; r <= kRanks; ++r) {
            const int column = static_cast<int>(std::find(kColumnLefts.begin(), kColumnLefts.end(), b.kartleft(s, r)) -
                                                kColumnLefts.begin());
            int row = 0;
            while (row < 5 && b.karttop(s, r) != kRowTops[static_cast<size_t>(row)] &&
                   b.karttop(s, r) != kStackedTops[static_cast<size_t>(row)])
                ++row;
            if (row >= 4 || column == kMiddle) continue;
            const int h = 2 * row + (column > kMiddle ? 1 : 0);
            const int distance = std::abs(column - kMiddle);
            const int to = (3 * h + 1) % 8;
            const int toColumn = to % 2 == 0 ? kMiddle - distance : kMiddle + distance;
            const bool stacked = b.karttop(s, r) == kStackedTops[static_cast<size_t>(row)];
            out.kartleft(s, r) = kColumnLefts[static_cast<size_t>(toColumn)];
            const int16_t rowTop = kRowTops[static_cast<size_t>(to / 2)];
            out.karttop(s, r) = static_cast<int16_t>(rowTop + (stacked ? kStackOffset : 0));
        }
    return out;
}

std::multiset<std::array<uint64_t, 6>> childKeys(const Board& b) {
    std::multiset<std::array<uint64_t, 6>> keys;
    for (const solver::Child& c : solver::movesFrom(b))
        keys.insert(solver::positionKey(solver::cellsOf(c.board)).words);
    return keys;
}

void expectAlike(const Board& b, const std::string& where) {
    const Board shuffled = shuffledHalfRows(b);
    ASSERT_FALSE(shuffled.kartleft == b.kartleft && shuffled.karttop == b.karttop) << where;
    ASSERT_EQ(solver::positionProblem(shuffled), "") << where;
    EXPECT_TRUE(solver::positionKey(solver::cellsOf(b)) == solver::positionKey(solver::cellsOf(shuffled))) << where;
    // The real clicks from both lead to positions that are alike again, one for one.
    EXPECT_EQ(childKeys(b), childKeys(shuffled)) << where;
    const Verdict v = solve(b);
    const Verdict w = solve(shuffled);
    EXPECT_EQ(v.outcome, w.outcome) << where;
}

TEST(SolverSymmetry, ShuffledHalfRowsGiveTheSameVerdictOnDeals) {
    for (uint64_t seed = 1; seed <= 40; ++seed) expectAlike(testing::seededDeal(seed), "deal " + std::to_string(seed));
}

TEST(SolverSymmetry, ShuffledHalfRowsGiveTheSameVerdictAlongWinningLines) {
    for (uint64_t seed = 1; seed <= 10; ++seed) {
        Board b = testing::seededDeal(seed);
        const Verdict v = solve(b);
        for (size_t i = 0; i + 1 < v.clicks.size(); i += 2) {
            if ((i / 2) % 5 == 4) expectAlike(b, "deal " + std::to_string(seed) + ", move " + std::to_string(i / 2));
            b.click(v.clicks[i]);
            b.click(v.clicks[i + 1]);
        }
    }
}

TEST(SolverSymmetry, ShuffledHalfRowsGiveTheSameVerdictInPlay) {
    std::mt19937 chance(77);
    for (uint64_t seed = 500; seed < 530; ++seed) {
        Board b = testing::seededDeal(seed);
        for (int step = 0; step < 12; ++step) {
            expectAlike(b, "deal " + std::to_string(seed) + " after " + std::to_string(step) + " random moves");
            const std::vector<solver::Child> moves = solver::movesFrom(b);
            if (moves.empty()) break;
            b = moves[std::uniform_int_distribution<size_t>(0, moves.size() - 1)(chance)].board;
        }
    }
}

}  // namespace
}  // namespace vorn
