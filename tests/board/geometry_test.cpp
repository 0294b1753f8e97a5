// The grid: place numbers, cells, pile places, frames and the starting picture.
#include <set>

#include "support/fixtures.h"

namespace vorn {
namespace {

using namespace vorn::testing;

TEST(Grid, PlaceNumbersTurnIntoLeftAndTop) {
    const std::tuple<int, std::optional<int16_t>, std::optional<int16_t>> cases[] = {
        {1, 120, 120},    {5, 3960, 120},   {6, 5880, 120},   {10, 9720, 120},  {11, 120, 1680},  {20, 9720, 1680},
        {21, 120, 3240},  {26, 5880, 3240}, {35, 3960, 4800}, {40, 9720, 4800}, {41, 1080, 6360}, {44, 3960, 6360},
        {45, 5880, 6360}, {48, 8760, 6360}, {0, {}, {}},      {49, {}, {}},     {-3, {}, {}},
    };
    for (const auto& [place, left, top] : cases) {
        EXPECT_EQ(zleft1(place), left) << "place " << place;
        EXPECT_EQ(ztop1(place), top) << "place " << place;
    }
    std::set<int> cells;
    for (int n = 1; n <= kPlaces; ++n) {
        const Cell c = cellOf(*zleft1(n), *ztop1(n));
        EXPECT_TRUE(c.onGrid() && !c.stacked && !isMiddle(c)) << n;
        EXPECT_TRUE(!isRowFive(c) || (c.col != 1 && c.col != kColumnCount)) << n;
        EXPECT_TRUE(cells.insert(c.index()).second) << "place " << n << " repeats a cell";
    }
}

TEST(Grid, TwipsBecomeCellsAndBack) {
    const std::pair<Spot, Cell> cases[] = {
        {{120, 120}, {1, 1, false}},   {{9720, 6600}, {5, 11, true}}, {{4920, 1920}, {2, 6, true}},
        {{4920, 6360}, {5, 6, false}}, {{1080, 3480}, {3, 2, true}},  {{0, 0}, {}},
        {{121, 120}, {}},              {{120, 600}, {}},             {{10680, 120}, {}},
        {{120, 7920}, {}},             {{-840, 120}, {}},            {{120, -1440}, {}},
    };
    for (const auto& [at, cell] : cases) {
        EXPECT_EQ(cellOf(at), cell) << at.left << ", " << at.top;
        if (cell.onGrid()) {
            EXPECT_EQ(spotOf(cell), at);
        }
    }
    const int images[] = {0, 0, 1, 2, 3, 4, 5, 6, 7, 8, 10, 9, 11};
    const Cell cells[] = {{1, 1, false}, {1, 6, true}, {1, 5, false}, {1, 7, true},  {2, 5, false}, {2, 7, false}, {3, 5, true},
                          {3, 7, false}, {4, 5, false}, {4, 7, true}, {5, 5, false}, {5, 6, true},  {5, 7, false}};
    for (size_t i = 0; i < std::size(cells); ++i) EXPECT_EQ(pileImageOf(cells[i]), images[i]) << i;
    for (int image = 1; image <= kPileCount; ++image) EXPECT_EQ(pileImageOf(pileCell(image)), image);
}

TEST(Grid, FramesMarkEveryPlaceThatNoPileImageMarks) {
    std::set<int> cells;
    for (const FramePlace& f : framePlaces()) {
        EXPECT_EQ(f.left, zleft1((f.row - 1) * 10 + f.k)) << "r" << f.row << "_" << f.k;
        EXPECT_EQ(f.top, ztop1((f.row - 1) * 10 + f.k)) << "r" << f.row << "_" << f.k;
        cells.insert(cellOf(f.left, f.top).index());
    }
    for (int image = 1; image <= kPileCount; ++image) cells.insert(pileCell(image).index());
    EXPECT_EQ(cells.size(), 49u);  // the 48 places and the cell below the aces
}

TEST(Grid, TheStartingPictureIsAnOrderedDeck) {
    const Board b = Board::loaded();  // no deal yet, nothing selected: Rules.BeforeTheFirstDeal...
    const std::pair<const char*, Cell> cases[] = {{"2H", {1, 1, false}},  {"6H", {1, 5, false}},  {"JS", {2, 11, false}},
                                                  {"AD", {3, 6, false}},  {"QH", {5, 2, false}},  {"QC", {5, 5, false}},
                                                  {"KH", {5, 7, false}},  {"KC", {5, 10, false}}};
    for (const auto& [name, cell] : cases) EXPECT_EQ(b.cell(card(name)), cell) << name;
    EXPECT_EQ(b.zorder(2, 1), 14u) << "stacked as the images are created, Im1_1 to Im4_13";
    EXPECT_EQ(b.zcounter, 52u);
    for (int image = 1; image <= kPileCount; ++image) EXPECT_EQ(b.pileVisible(image), image == 9) << image;
}

}  // namespace
}  // namespace vorn
