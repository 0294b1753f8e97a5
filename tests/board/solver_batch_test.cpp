// The solver over seeded deals: every winning line is played again click by
// click, the search's shortcuts are checked against a search without them, and
// the counts of a fixed batch are pinned.
#include <gtest/gtest.h>

#include <algorithm>
#include <thread>

#include "board/solver.h"
#include "solver_support.h"

namespace vorn {
namespace {

bool reachableByAClick(const Board& board, const Hit& hit) {
    for (auto [x, y] : testing::probePoints())
        if (board.hitAt(x, y) == hit) return true;
    return false;
}

// Each click names something a player can click at that moment, each pair of
// clicks moves something, and at the end the four kings are home.
void expectLineWins(Board board, const std::vector<Hit>& clicks, uint64_t seed) {
    ASSERT_EQ(clicks.size() % 2, 0u) << "deal " << seed;
    for (size_t i = 0; i < clicks.size(); i += 2) {
        ASSERT_TRUE(reachableByAClick(board, clicks[i])) << "deal " << seed << ", move " << i / 2 + 1;
        board.click(clicks[i]);
        ASSERT_EQ(board.vybor, 2) << "deal " << seed << ", move " << i / 2 + 1 << " selected nothing";
        ASSERT_TRUE(reachableByAClick(board, clicks[i + 1])) << "deal " << seed << ", move " << i / 2 + 1;
        ASSERT_TRUE(board.click(clicks[i + 1]).moved) << "deal " << seed << ", move " << i / 2 + 1;
    }
    EXPECT_TRUE(kingsHome(board)) << "deal " << seed;
}

TEST(SolverBatch, EveryWinningLineWinsWhenClickedAgain) {
    int won = 0;
    for (uint64_t seed = 1; seed <= 60; ++seed) {
        const Board deal = testing::seededDeal(seed);
        const Verdict v = solve(deal);
        ASSERT_NE(v.outcome, Outcome::Unknown) << "deal " << seed;
        ASSERT_NE(v.outcome, Outcome::Refused) << "deal " << seed << ": " << v.reason;
        if (v.outcome != Outcome::Won) continue;
        ++won;
        expectLineWins(deal, v.clicks, seed);
    }
    EXPECT_EQ(won, 49);
}

// The two shortcuts (a move home first; positions with stuck cards dropped) must
// never turn a game that can be won into a lost one. A Won verdict has been
// replayed already, so every Lost verdict is checked with a search that takes no
// shortcut; a few won deals show that the plain search finds wins too.
TEST(SolverBatch, ShortcutsNeverLoseAWinnableGame) {
    Limits plain;
    plain.foundationFirst = false;
    plain.pruneDeadEnds = false;
    plain.maxTime = std::chrono::seconds(120);
    int lost = 0;
    for (uint64_t seed = 1; seed <= 120; ++seed) {
        const Board deal = testing::seededDeal(seed);
        const Verdict quick = solve(deal);
        if (quick.outcome != Outcome::Lost && seed > 4) continue;
        const Verdict slow = solve(deal, plain);
        EXPECT_EQ(slow.outcome, quick.outcome) << "deal " << seed;
        if (slow.outcome == Outcome::Won) expectLineWins(deal, slow.clicks, seed);
        // Without shortcuts a lost game shows at least every position it showed with them.
        if (slow.outcome == Outcome::Lost) {
            EXPECT_GE(slow.positions, quick.positions) << "deal " << seed;
        }
        lost += quick.outcome == Outcome::Lost ? 1 : 0;
    }
    EXPECT_GE(lost, 20);
}

TEST(SolverBatch, ThreadsGiveTheSameVerdicts) {
    std::vector<Verdict> alone, together(16);
    for (uint64_t seed = 0; seed < 16; ++seed) alone.push_back(solve(testing::seededDeal(300 + seed)));
    std::vector<std::thread> threads;
    for (int t = 0; t < 2; ++t)
        threads.emplace_back([&, t] {
            for (size_t i = static_cast<size_t>(t); i < 16; i += 2) together[i] = solve(testing::seededDeal(300 + i));
        });
    for (std::thread& t : threads) t.join();
    for (size_t i = 0; i < 16; ++i) {
        EXPECT_EQ(alone[i].outcome, together[i].outcome) << "deal " << 300 + i;
        EXPECT_EQ(alone[i].clicks, together[i].clicks) << "deal " << 300 + i;
    }
}

// A fixed batch: the counts only change when the rules or the deal change.
TEST(SolverBatch, ASeededBatchHasPinnedCounts) {
    int won = 0, lost = 0;
    for (uint64_t seed = 1000; seed < 1200; ++seed) {
        const Verdict v = solve(testing::seededDeal(seed));
        won += v.outcome == Outcome::Won ? 1 : 0;
        lost += v.outcome == Outcome::Lost ? 1 : 0;
    }
    EXPECT_EQ(won, 161);
    EXPECT_EQ(lost, 39);
}

}  // namespace
}  // namespace vorn
