// The grid, the place numbers and the starting picture.
#include <gtest/gtest.h>

#include <set>

#include "board/board.h"

namespace vorn {
namespace {

struct PlaceCase {
    int place;
    std::optional<int16_t> left;
    std::optional<int16_t> top;
};

TEST(PlaceNumbers, TurnIntoLeftAndTop) {
    const PlaceCase cases[] = {
        {1, 120, 120},     {5, 3960, 120},    {6, 5880, 120},   {10, 9720, 120},  {11, 120, 1680},
        {20, 9720, 1680},  {21, 120, 3240},   {26, 5880, 3240}, {35, 3960, 4800}, {40, 9720, 4800},
        {41, 1080, 6360},  {44, 3960, 6360},  {45, 5880, 6360}, {48, 8760, 6360}, {0, std::nullopt, std::nullopt},
        {49, std::nullopt, std::nullopt},     {-3, std::nullopt, std::nullopt},   {32767, std::nullopt, std::nullopt},
    };
    for (const PlaceCase& c : cases) {
        EXPECT_EQ(zleft1(c.place), c.left) << "place " << c.place;
        EXPECT_EQ(ztop1(c.place), c.top) << "place " << c.place;
    }
}

TEST(PlaceNumbers, FillTheGridOnceLeavingOutTheMiddleAndRowFiveEnds) {
    std::set<std::pair<int, int>> seen;
    for (int n = 1; n <= kPlaces; ++n) {
        const int left = *zleft1(n);
        const int top = *ztop1(n);
        EXPECT_NE(left, kMiddleLeft) << n;
        EXPECT_TRUE(isRowTop(top)) << n;
        if (top == kBottomRowTop) {
            EXPECT_NE(left, 120) << n;
            EXPECT_NE(left, 9720) << n;
        }
        EXPECT_TRUE(seen.insert({left, top}).second) << "place " << n << " repeats a cell";
    }
}

TEST(Frames, MarkEveryPlaceNotMarkedByAPileImage) {
    const auto frames = framePlaces();
    std::set<std::pair<int, int>> cells;
    for (const FramePlace& f : frames) {
        const int place = (f.row - 1) * 10 + f.k;
        EXPECT_EQ(f.left, zleft1(place)) << "r" << f.row << "_" << f.k;
        EXPECT_EQ(f.top, ztop1(place)) << "r" << f.row << "_" << f.k;
        cells.insert({f.left, f.top});
    }
    for (const PilePlace& p : kPilePlaces) cells.insert({p.left, p.top});
    // 38 frames + 11 pile places = the 48 places and the cell below the aces.
    EXPECT_EQ(cells.size(), 49u);
    EXPECT_EQ(frames[32].row, 5);
    EXPECT_EQ(frames[35].k, 6);  // r5_6 marks place 46
    EXPECT_EQ(frames[35].left, 6840);
}

TEST(StartingPicture, IsAnOrderedDeck) {
    const Board b = Board::loaded();
    EXPECT_EQ(b.rezhim, 1);
    EXPECT_EQ(b.vybor, 1);
    EXPECT_EQ(b.spot({1, 2}), (Spot{120, 120}));
    EXPECT_EQ(b.spot({4, 13}), (Spot{8760, 6360}));
    EXPECT_EQ(b.spot({3, 1}), (Spot{4920, 3240}));
    EXPECT_EQ(b.spot({1, 12}), (Spot{1080, 6360}));   // queens lead row 5
    EXPECT_EQ(b.spot({4, 12}), (Spot{3960, 6360}));
    EXPECT_EQ(b.spot({1, 13}), (Spot{5880, 6360}));   // then the kings
    EXPECT_EQ(b.spot({2, 11}), (Spot{9720, 1680}));
    for (int s = 1; s <= 4; ++s) EXPECT_EQ(b.spot({static_cast<int16_t>(s), 1}), (Spot{4920, aceTop(s)}));
    for (int s = 1; s <= 4; ++s)
        for (int r = 1; r <= 13; ++r) EXPECT_EQ(b.mesta(s, r), 0);
}

TEST(StartingPicture, SixAndSevenOfHeartsCoverTheFirstPilePlaces) {
    const Board b = Board::loaded();
    EXPECT_EQ(b.hitAt(3960 + 10, 120 + 10), (Hit{Hit::Kind::Card, {1, 6}, 0}));
    EXPECT_EQ(b.hitAt(5880 + 10, 120 + 10), (Hit{Hit::Kind::Card, {1, 7}, 0}));
    EXPECT_FALSE(b.pileVisible(1));
    EXPECT_FALSE(b.pileVisible(2));
    EXPECT_TRUE(b.pileVisible(9));  // only the cell below the aces is bare
    EXPECT_EQ(b.hitAt(4920 + 375, 6360 + 500), (Hit{Hit::Kind::Pile, {}, 9}));
}

TEST(StartingPicture, StacksInCreationOrder) {
    const Board b = Board::loaded();
    EXPECT_EQ(b.zorder(1, 1), 1u);
    EXPECT_EQ(b.zorder(1, 13), 13u);
    EXPECT_EQ(b.zorder(2, 1), 14u);
    EXPECT_EQ(b.zorder(4, 13), 52u);
    EXPECT_EQ(b.zcounter, 52u);
}

TEST(LayoutOrder, VisitsSuitsThenRanksTwoToKing) {
    EXPECT_EQ(layoutSuit(1), 1);
    EXPECT_EQ(layoutRank(1), 2);
    EXPECT_EQ(layoutRank(12), 13);
    EXPECT_EQ(layoutSuit(13), 2);
    EXPECT_EQ(layoutRank(13), 2);
    EXPECT_EQ(layoutSuit(48), 4);
    EXPECT_EQ(layoutRank(48), 13);
}

}  // namespace
}  // namespace vorn
