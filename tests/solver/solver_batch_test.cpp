// The solver over seeded deals: pinned counts. The Lost ones of seeds 1 to 120
// were confirmed by a search without the shortcuts (a move home first, positions
// with stuck cards dropped), so a shortcut that loses a winnable game moves a count.
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
    } batches[] = {{1, 120, 94, 26}, {1000, 1199, 161, 39}};
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

}  // namespace
}  // namespace vorn
