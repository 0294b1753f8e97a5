// The solver over seeded deals: pinned counts, the search's shortcuts against a
// search without them (two threads: see vorn_solve_batch_threads_2).
#include <gtest/gtest.h>

#include "solver/solver.h"
#include "support/fixtures.h"

namespace vorn {
namespace {

// Fixed batches: the counts only change when the rules or the deal change.
// (Every Won verdict has been replayed through the clicks by solve itself.)
TEST(SolverBatch, SeededBatchesHavePinnedCounts) {
    const struct {
        uint64_t first, last;
        int won, lost;
    } batches[] = {{1, 60, 49, 11}, {1000, 1199, 161, 39}};
    for (const auto& batch : batches) {
        int won = 0, lost = 0;
        for (uint64_t seed = batch.first; seed <= batch.last; ++seed) {
            const Verdict v = solve(testing::seededDeal(seed));
            won += v.outcome == Outcome::Won ? 1 : 0;
            lost += v.outcome == Outcome::Lost ? 1 : 0;
            EXPECT_EQ(v.outcome == Outcome::Won, !v.moves.empty()) << "deal " << seed;
        }
        EXPECT_EQ(won, batch.won) << "seeds from " << batch.first;
        EXPECT_EQ(lost, batch.lost) << "seeds from " << batch.first;
    }
}

// The two shortcuts (a move home first; positions with stuck cards dropped) must
// never turn a game that can be won into a lost one: every Lost verdict is
// checked with a search that takes neither, which must also see at least as
// many positions; a few won deals show that the plain search finds wins too.
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
        if (quick.outcome == Outcome::Lost) {
            EXPECT_GE(slow.positions, quick.positions) << "deal " << seed;
        }
        lost += quick.outcome == Outcome::Lost ? 1 : 0;
    }
    EXPECT_GE(lost, 20);
}

}  // namespace
}  // namespace vorn
