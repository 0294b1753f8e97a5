// The solver's moves against the board's clicks: on many positions reached by
// random play and along winning lines, every pair of clicks on everything that
// can be clicked is tried, and the pairs that move something must lead to
// exactly the positions the solver's moves lead to.
#include <gtest/gtest.h>

#include <map>
#include <random>

#include "board/notation.h"
#include "board/solver.h"
#include "board/solver_moves.h"
#include "board/solver_position.h"
#include "solver_support.h"

namespace vorn {
namespace {

using testing::Seen;

struct PairOrder {
    bool operator()(const solver::Move& a, const solver::Move& b) const {
        testing::HitOrder less;
        if (less(a.first, b.first) || less(b.first, a.first)) return less(a.first, b.first);
        return less(a.second, b.second);
    }
};

// Every pair of clicks that moves something, with the position it leads to.
std::map<solver::Move, Seen, PairOrder> allMovingPairs(const Board& position) {
    std::map<solver::Move, Seen, PairOrder> out;
    const std::vector<Hit> things = testing::clickableThings(position);
    for (const Hit& first : things)
        for (const Hit& second : things) {
            Board b = position;
            const Reaction a = b.click(first);
            const Reaction c = b.click(second);
            EXPECT_FALSE(a.moved) << "a single click moved something";
            if (c.moved) out.emplace(solver::Move{first, second}, testing::seenOf(b));
        }
    return out;
}

void expectSameMoves(const Board& position, const std::string& where) {
    SCOPED_TRACE(where + "\n" + describe(position));
    const auto pairs = allMovingPairs(position);
    std::set<Seen> byClicks;
    for (const auto& [move, seen] : pairs) byClicks.insert(seen);

    std::set<Seen> bySolver;
    for (const solver::Child& child : solver::movesFrom(position)) {
        const auto found = pairs.find(child.move);
        EXPECT_NE(found, pairs.end()) << "not a move: " << cardName(child.move.first.card) << " then "
                                      << (child.move.second.kind == Hit::Kind::Pile
                                              ? "Image" + std::to_string(child.move.second.pile)
                                              : cardName(child.move.second.card));
        bySolver.insert(testing::seenOf(child.board));
    }
    EXPECT_EQ(bySolver.size(), byClicks.size());
    EXPECT_TRUE(bySolver == byClicks) << "the solver misses or invents positions";
}

// Random play from seeded deals: every few moves the position is checked.
TEST(SolverCrossCheck, MovesEqualTheClicksThatMoveOnRandomPositions) {
    std::mt19937 chance(2024);
    int checked = 0;
    for (uint64_t seed = 100; seed < 200; ++seed) {
        Board b = testing::seededDeal(seed);
        for (int step = 0; step < 60; ++step) {
            const std::vector<solver::Child> moves = solver::movesFrom(b);
            expectSameMoves(b, "deal " + std::to_string(seed) + ", random move " + std::to_string(step));
            ++checked;
            if (moves.empty()) break;
            b = moves[std::uniform_int_distribution<size_t>(0, moves.size() - 1)(chance)].board;
        }
    }
    EXPECT_GT(checked, 400);
}

// Winning lines reach what random play seldom does: long foundations, cells
// carried around, pile places in use.
TEST(SolverCrossCheck, MovesEqualTheClicksThatMoveAlongWinningLines) {
    int lines = 0;
    for (uint64_t seed = 1; lines < 12; ++seed) {
        Board b = testing::seededDeal(seed);
        const Verdict v = solve(b);
        if (v.outcome != Outcome::Won) continue;
        ++lines;
        for (size_t i = 0; i + 1 < v.clicks.size(); i += 2) {
            if ((i / 2) % 2 == 0)
                expectSameMoves(b, "deal " + std::to_string(seed) + ", move " + std::to_string(i / 2));
            b.click(v.clicks[i]);
            b.click(v.clicks[i + 1]);
        }
    }
}

// Row 5 has rules of its own that random play seldom meets: the place below
// the aces taking a card, cards laid on it for good, stacked targets of row 5
// hemmed in by stacked cards farther out. Each position and every position one
// or two moves on is checked.
TEST(SolverCrossCheck, MovesEqualTheClicksThatMoveAroundRowFive) {
    const Board boards[] = {
        boardFrom({{"QH", 4920, 6360}, {"JH", 8760, 6360}, {"KH", 9720, 120}, {"10H", 1080, 1680}}),
        boardFrom({{"JH", 4920, 6360}, {"QH", 4920, "+"}, {"KH", 8760, 6360}, {"KS", 7800, 6360}}),
        boardFrom({{"9S", 1080, 6360}, {"10S", 1080, "+"}, {"3D", 2040, 6360}, {"4D", 2040, "+"}, {"5D", 120, 120},
                   {"KS", 9720, 120}, {"QS", 9720, "+"}, {"JS", 9720, "+"}, {"KD", 9720, 1680}, {"QD", 9720, "+"},
                   {"JD", 9720, "+"}, {"10D", 9720, "+"}, {"9D", 9720, "+"}, {"8D", 9720, "+"}, {"7D", 9720, "+"},
                   {"6D", 9720, "+"}, {"8S", 3960, 6360}}),
    };
    int checked = 0;
    int withCardsBelowTheAces = 0;
    auto check = [&](const Board& b, const std::string& where) {
        expectSameMoves(b, where);
        ++checked;
        if (solver::cellsOf(b).stacked[static_cast<size_t>(solver::cellAt(kMiddleLeft, kBottomRowTop))])
            ++withCardsBelowTheAces;
    };
    for (const Board& start : boards) {
        ASSERT_EQ(solver::positionProblem(start), "") << describe(start);
        check(start, "start");
        const std::vector<solver::Child> once = solver::movesFrom(start);
        for (size_t i = 0; i < once.size(); ++i) {
            check(once[i].board, "one move on");
            if (i % 8 != 0) continue;
            for (const solver::Child& twice : solver::movesFrom(once[i].board)) check(twice.board, "two moves on");
        }
    }
    EXPECT_GT(withCardsBelowTheAces, 5);
    EXPECT_GT(checked, 10);
}

}  // namespace
}  // namespace vorn
