// The solver over seeded deals: pinned counts. The Lost ones of seeds 1 to 120
// were confirmed by a search without the shortcuts (a move home first, positions
// with stuck cards dropped), so a shortcut that loses a winnable game moves a count.
#include <gtest/gtest.h>

#include "solver/solver.h"
#include "support/fixtures.h"

namespace vorn {
namespace {

// Fixed batches: the verdicts only change when the rules or the deal change.
// (Every Won verdict has been replayed through the clicks by solve itself.) The
// positions visited change with the order of the search too, and with every
// position the set of those seen forgets (its tables grow several times in
// the larger searches): a change there must show here, and be meant.
TEST(SolverBatch, SeededBatchesHavePinnedCounts) {
    const struct {
        uint64_t first, last;
        int won, lost;
        uint64_t positions;
    } batches[] = {{1, 120, 94, 26, 43741}, {1000, 1199, 161, 39, 72919}};
    for (const auto& batch : batches) {
        int won = 0, lost = 0;
        uint64_t positions = 0;
        for (uint64_t seed = batch.first; seed <= batch.last; ++seed) {
            const Verdict v = solve(testing::seededDeal(seed));
            won += v.outcome == Outcome::Won ? 1 : 0;
            lost += v.outcome == Outcome::Lost ? 1 : 0;
            positions += v.positions;
            EXPECT_EQ(v.outcome == Outcome::Won, !v.moves.empty()) << "deal " << seed;
        }
        EXPECT_EQ(won, batch.won) << "seeds from " << batch.first;
        EXPECT_EQ(lost, batch.lost) << "seeds from " << batch.first;
        EXPECT_EQ(positions, batch.positions) << "seeds from " << batch.first;
    }
}

}  // namespace
}  // namespace vorn
