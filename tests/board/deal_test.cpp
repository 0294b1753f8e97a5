// Dealing a new layout and laying the current one out again.
#include <algorithm>
#include <set>

#include "fixtures.h"

namespace vorn {
namespace {

using namespace vorn::testing;

TEST(Deal, ScriptedDrawsGiveTheirLayoutRejectingTakenPlaces) {
    // The first card takes place 48 (u just below 1), the last place 1 (u = 0);
    // in between, draws of places already dealt are thrown away and drawn again.
    std::vector<double> draws{0.9999999};                       // 2H -> 48
    draws.push_back(drawOf(48));                                // 3H: 48 taken
    draws.push_back(drawOf(47));                                // 3H -> 47
    for (int i = 3; i <= 47; ++i) draws.push_back(drawOf(49 - i));
    for (int taken : {48, 2, 30, 47}) draws.push_back(drawOf(taken));  // KC: four refusals
    draws.push_back(0.0);                                       // KC -> 1
    ScriptedRandom random(draws);
    Board b = Board::loaded();
    b.rasklad(random);

    EXPECT_EQ(random.reseeds, 1);
    EXPECT_EQ(random.drawn, draws.size());
    EXPECT_EQ(b.raskl,
              " 48, 47, 46, 45, 44, 43, 42, 41, 40, 39, 38, 37, 36, 35, 34, 33, 32, 31, 30, 29, 28, 27, 26, 25,"
              " 24, 23, 22, 21, 20, 19, 18, 17, 16, 15, 14, 13, 12, 11, 10, 9, 8, 7, 6, 5, 4, 3, 2, 1");
    EXPECT_EQ(b.rezhim, 2);
    EXPECT_EQ(b.mesta(1, 2), 48);
    EXPECT_EQ(b.mesta(1, 13), 37);
    EXPECT_EQ(b.mesta(2, 2), 36);
    EXPECT_EQ(b.mesta(4, 13), 1);
    EXPECT_EQ(spotOf(b, "2H"), (Spot{8760, 6360}));
    EXPECT_EQ(spotOf(b, "KH"), (Spot{6840, 4800}));
    EXPECT_EQ(spotOf(b, "2S"), (Spot{5880, 4800}));
    EXPECT_EQ(spotOf(b, "KC"), (Spot{120, 120}));
    EXPECT_EQ(spotOf(b, "9H"), (Spot{1080, 6360}));
}

TEST(Deal, ReseedsOnceForEveryDeal) {
    std::vector<double> draws;
    for (int round = 0; round < 2; ++round)
        for (int i = 1; i <= kPlaces; ++i) draws.push_back(drawOf(i));
    ScriptedRandom random(draws);
    Board b = Board::loaded();
    b.rasklad(random);
    EXPECT_EQ(random.reseeds, 1);
    b.rasklad(random);
    EXPECT_EQ(random.reseeds, 2);
    EXPECT_EQ(random.drawn, draws.size());  // the second deal started from zeros, so nothing was refused
}

TEST(Deal, EverySeededDealIsAPermutationOnThePlaces) {
    std::set<std::string> layouts;
    for (uint64_t seed = 1; seed <= 100; ++seed) {
        const Board b = seededDeal(seed);
        SCOPED_TRACE("seed " + std::to_string(seed));
        std::set<int> places;
        for (int s = 1; s <= 4; ++s) {
            EXPECT_EQ(b.spot({static_cast<int16_t>(s), 1}), (Spot{4920, aceTop(s)}));
            for (int r = 2; r <= 13; ++r) {
                const int place = b.mesta(s, r);
                places.insert(place);
                ASSERT_TRUE(ztop1(place).has_value());
                EXPECT_EQ(b.kartleft(s, r), *zleft1(place));
                EXPECT_EQ(b.karttop(s, r), *ztop1(place));
                const Spot at = b.spot({static_cast<int16_t>(s), static_cast<int16_t>(r)});
                EXPECT_NE(at, (Spot{120, 6360}));
                EXPECT_NE(at, (Spot{9720, 6360}));
                EXPECT_NE(at, (Spot{4920, 6360}));
            }
        }
        EXPECT_EQ(places.size(), 48u);
        EXPECT_EQ(*places.begin(), 1);
        EXPECT_EQ(*places.rbegin(), 48);
        ASSERT_EQ(b.raskl.size(), 182u);
        EXPECT_EQ(std::count(b.raskl.begin(), b.raskl.end(), ','), 47);
        for (size_t i = 0; i < b.raskl.size(); ++i)
            if (b.raskl[i] == ',') {
                EXPECT_EQ(b.raskl[i + 1], ' ') << "at " << i;
            }
        EXPECT_EQ(b.raskl[0], ' ');
        layouts.insert(b.raskl);
    }
    EXPECT_EQ(layouts.size(), 100u);
}

TEST(Deal, ClockDealsDiffer) {
    ClockRandom clock;
    Board a = Board::loaded();
    Board b = Board::loaded();
    a.rasklad(clock);
    b.rasklad(clock);
    EXPECT_NE(a.raskl, b.raskl);
}

TEST(Deal, TakesTheBorderButLeavesTheSelection) {
    Board b = seededDeal(7);
    // The card at place 1 is the outermost of row 1 and free.
    Card first{};
    for (int i = 1; i <= 48; ++i)
        if (b.mesta(layoutSuit(i), layoutRank(i)) == 1) first = {static_cast<int16_t>(layoutSuit(i)), static_cast<int16_t>(layoutRank(i))};
    EXPECT_EQ(b.clickCard(first.suit, first.rank), kNone);
    ASSERT_EQ(b.border(first.suit, first.rank), 1);
    SeededRandom random(8);
    b.rasklad(random);
    EXPECT_EQ(b.border(first.suit, first.rank), 0);
    EXPECT_EQ(b.vybor, 2);
    EXPECT_EQ(b.karta1, first);
}

TEST(Deal, DoesNotRestack) {
    Board b = Board::loaded();
    const auto before = b.zorder;
    SeededRandom random(3);
    b.rasklad(random);
    EXPECT_EQ(b.zorder, before);
}

TEST(DealAgain, PutsEveryCardBackAndKeepsBordersAndLayoutString) {
    Board b = reverseDeal();
    const Board dealt = b;
    // 3C onto 4C, 2C onto its ace, 3C's cell onto the 2C, then 5C..8C onto the
    // clubs foundation, which frees the place of Image2; 10H goes there.
    for (const char* name : {"3C", "4C", "2C", "AC", "3C", "2C", "5C", "4C", "6C", "5C", "7C", "6C", "8C", "7C"})
        clickOn(b, name);
    ASSERT_EQ(spotOf(b, "8C"), (Spot{4920, 5040})) << describe(b);
    ASSERT_TRUE(b.pileVisible(2));
    clickOn(b, "10H");
    ASSERT_EQ(b.clickPile(2), kMoved);
    ASSERT_EQ(spotOf(b, "10H"), (Spot{5880, 120}));
    clickOn(b, "JH");  // selected, then laid out again
    ASSERT_EQ(b.vybor, 2);

    b.rasklzan();
    EXPECT_EQ(b.kartleft, dealt.kartleft);
    EXPECT_EQ(b.karttop, dealt.karttop);
    EXPECT_EQ(b.mesta, dealt.mesta);
    EXPECT_EQ(b.raskl, dealt.raskl);
    EXPECT_EQ(b.rezhim, 2);
    EXPECT_TRUE(b.isSelected(card("JH")));
    EXPECT_EQ(b.karta1, card("JH"));
}

}  // namespace
}  // namespace vorn
