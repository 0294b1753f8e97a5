// Many seeded deals played with random clicks, a deal or a Deal again now and
// then; after every click the board must still be one this game can produce.
#include <algorithm>

#include "board/position_check.h"
#include "support/fixtures.h"

namespace vorn {
namespace {

using namespace vorn::testing;

// Beyond a position the clicks can produce: one bordered card at most, the
// selected one, and the front card of every stack takes a click.
::testing::AssertionResult holdsTogether(const Board& b) {
    auto fail = [&](const std::string& why) { return ::testing::AssertionFailure() << why << "\n" << describe(b); };
    if (const std::string problem = positionProblem(b); !problem.empty()) return fail(problem);
    int bordered = 0;
    for (int16_t s = 1; s <= 4; ++s)
        for (int16_t r = 1; r <= 13; ++r)
            if (b.border(s, r) == 1 && (++bordered > 1 || !b.isSelected({s, r})))
                return fail("a border on a card that is not the selected one");
    const GridContents grid = b.contents();
    for (const CellContents& cell : grid) {
        if (!cell.stacked) continue;
        const Spot at = b.spot(cell.front);
        if (b.hitAt(at.left + 375, at.top + 1000) != Hit{Hit::Kind::Card, cell.front, 0})
            return fail("the front card of " + cardName(cell.base) + " takes no click");
    }
    return ::testing::AssertionSuccess();
}

TEST(Playout, RandomClicksKeepTheBoardWhole) {
    int moves = 0, runs = 0, pileMoves = 0, foundationMoves = 0, refusals = 0;
    for (uint64_t seed = 1; seed <= 150; ++seed) {
        Board b = seededDeal(seed);
        std::mt19937_64 rng(seed * 7919);
        for (int click = 0; click < 300; ++click) {
            const Board before = b;
            const uint64_t roll = rng() % 1000;
            if (roll < 5) {
                SeededRandom again(rng());
                roll < 3 ? b.rasklzan() : b.rasklad(again);
                ASSERT_TRUE(holdsTogether(b)) << "seed " << seed << " click " << click;
                continue;
            }
            const Hit hit = randomClick(b, rng);
            const Reaction got = b.click(hit);
            ASSERT_TRUE(holdsTogether(b)) << "seed " << seed << " click " << click;
            int carried = 0;
            for (int16_t s = 1; s <= 4; ++s)
                for (int16_t r = 1; r <= 13; ++r) carried += b.spot({s, r}) != before.spot({s, r});
            ASSERT_EQ(got.moved, carried > 0) << "seed " << seed << " click " << click;
            ASSERT_TRUE(got.message == Message::None || got.message == Message::WrongMove || got.message == Message::CannotSelect);
            ASSERT_EQ(b.mesta, before.mesta) << "only a deal changes the layout";
            refusals += got.message != Message::None;
            moves += got.moved;
            runs += carried > 1;
            pileMoves += got.moved && hit.kind == Hit::Kind::Pile;
            foundationMoves += got.moved && hit.kind == Hit::Kind::Card && hit.card.rank == 1;
        }
    }
    // The clicks must have played the game, not only bounced off it.
    EXPECT_GT(moves, 1500);
    EXPECT_GT(runs, 40);
    EXPECT_GT(pileMoves, 100);
    EXPECT_GT(foundationMoves, 100);
    EXPECT_GT(refusals, 1000);
}

}  // namespace
}  // namespace vorn
