// Many seeded deals played with random clicks, a deal or a Deal again now and
// then; after every click the board must still be one this game can produce.
#include <algorithm>

#include "support/fixtures.h"

namespace vorn {
namespace {

using namespace vorn::testing;

::testing::AssertionResult holdsTogether(const Board& b) {
    auto fail = [&](const std::string& why) { return ::testing::AssertionFailure() << why << "\n" << describe(b); };
    std::vector<std::vector<Card>> stacked(kCellCount);  // the cards lying on each cell's base card
    int bases = 0, bordered = 0;
    for (int16_t s = 1; s <= 4; ++s)
        for (int16_t r = 1; r <= 13; ++r) {
            const Cell at = b.cell({s, r});
            if (r == 1 && at != Cell{static_cast<int8_t>(s), kMiddleColumn, false}) return fail("an ace moved");
            if (!at.onGrid()) return fail(cardName({s, r}) + " lies off the grid");
            if (at.stacked) stacked[static_cast<size_t>(at.index())].push_back({s, r});
            bases += !at.stacked;
            if (b.border(s, r) == 1 && (++bordered > 1 || b.vybor != 2 || b.karta1 != Card{s, r}))
                return fail("a border on a card that is not the selected one");
        }
    const GridContents grid = b.contents();
    int cells = 0;
    for (size_t i = 0; i < grid.size(); ++i) {
        const Card base = grid[i].base;
        cells += !base.empty();
        if (stacked[i].empty()) continue;
        if (base.empty()) return fail("cards lying on an empty cell");
        // In stacking order the cards run on by one from the base card, one way.
        std::sort(stacked[i].begin(), stacked[i].end(), [&](Card x, Card y) { return b.zorder(x.suit, x.rank) < b.zorder(y.suit, y.rank); });
        const int step = stacked[i].front().rank - base.rank;
        for (size_t k = 0; k < stacked[i].size(); ++k)
            if (stacked[i][k].suit != base.suit || (step != 1 && step != -1) ||
                stacked[i][k].rank != base.rank + step * static_cast<int>(k + 1))
                return fail("a broken run on " + cardName(base));
        const Spot at = b.spot(stacked[i].back());
        if (b.hitAt(at.left + 375, at.top + 1000) != Hit{Hit::Kind::Card, stacked[i].back(), 0})
            return fail("the front card of " + cardName(base) + " takes no click");
    }
    if (cells != bases) return fail("two base cards in one cell");
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
