// Dealing a new layout, laying it out again, and laying out a stored layout string.
#include <algorithm>
#include <optional>
#include <set>
#include <tuple>

#include "board/deal_number.h"
#include "support/fixtures.h"

namespace vorn {
namespace {

using namespace vorn::testing;

TEST(Deal, ScriptedDrawsGiveTheirLayoutAndTakenPlacesAreDrawnAgain) {
    std::vector<double> draws = reverseDraws();
    draws.insert(draws.begin() + 47, {drawOf(48), drawOf(2), drawOf(30)});  // the last card: three taken places
    draws.front() = 0.9999999;                                              // u just below 1: place 48
    draws.back() = 0.0;                                                     // u = 0: place 1
    ScriptedRandom random(draws);
    const Board b = dealt(random);
    EXPECT_EQ(random.reseeds, 1);
    EXPECT_EQ(random.drawn, draws.size());
    EXPECT_EQ(b.raskl, reverseDeal().raskl);
    EXPECT_EQ(b.mesta(1, 2), 48);
    EXPECT_EQ(b.mesta(4, 13), 1);
    EXPECT_EQ(spotOf(b, "2H"), (Spot{8760, 6360}));
    EXPECT_EQ(spotOf(b, "KC"), (Spot{120, 120}));
    EXPECT_EQ(b.zorder, Board::loaded().zorder) << "a deal does not restack";
}

TEST(Deal, EverySeededDealPutsTheCardsOnTheFortyEightPlaces) {
    std::set<std::string> layouts;
    for (uint64_t seed = 1; seed <= 100; ++seed) {
        const Board b = seededDeal(seed);
        std::set<int> places;
        for (int i = 1; i <= kPlaces; ++i) {
            const int s = layoutSuit(i), r = layoutRank(i);
            places.insert(b.mesta(s, r));
            EXPECT_EQ(b.kartleft(s, r), zleft1(b.mesta(s, r)));
            EXPECT_EQ(b.karttop(s, r), ztop1(b.mesta(s, r)));
        }
        EXPECT_EQ(places.size(), 48u);  // and each on the grid: zleft1 has a Left for 1..48 only
        ASSERT_EQ(b.raskl.size(), 182u) << "seed " << seed;
        EXPECT_EQ(b.raskl, b.buildRaskl());
        layouts.insert(b.raskl);
    }
    EXPECT_EQ(layouts.size(), 100u);
}

// What a new deal does to a selection: Rules.ASelectionWhoseBorderADealTookAway.
TEST(Deal, DealAgainKeepsTheSelection) {
    Board b = reverseDeal();
    const Board fresh = b;
    for (const char* name : {"3C", "4C", "2C", "AC", "3C", "2C", "10H"}) clickOn(b, name);
    ASSERT_EQ(b.cell(card("4C")), foundationOf(4));
    b.rasklzan();
    EXPECT_EQ(b.kartleft, fresh.kartleft);
    EXPECT_EQ(b.karttop, fresh.karttop);
    EXPECT_EQ(b.raskl, fresh.raskl);
    EXPECT_TRUE(b.isSelected(card("10H")));
}

// The reverse deal's layout string with field `index` (1..48) replaced by `text`.
std::string withField(int index, const std::string& text) {
    std::string layout = reverseDeal().raskl;
    size_t from = 0;
    for (int k = 1; k < index; ++k) from = layout.find(',', from) + 1;
    const size_t to = layout.find(',', from);
    return layout.replace(from, (to == std::string::npos ? layout.size() : to) - from, text);
}

TEST(Vizraskl, LaysOutTheDealOfItsStringAndNothingElse) {
    Board b = reverseDeal();
    for (const char* name : {"3C", "4C", "2C", "AC", "KC"}) clickOn(b, name);  // a foundation begun, KC selected
    const Board selected = b;
    ASSERT_EQ(b.showLayout(seededDeal(6).raskl + ", name, 2024"), LayoutProblem::None);
    EXPECT_EQ(b.mesta, seededDeal(6).mesta);
    EXPECT_EQ(b.kartleft, seededDeal(6).kartleft);
    EXPECT_EQ(b.karttop, seededDeal(6).karttop);
    EXPECT_EQ(b.raskl, seededDeal(6).raskl + ", name, 2024");
    EXPECT_TRUE(b.isSelected(card("KC")));
    EXPECT_EQ(b.zorder, selected.zorder);
}

TEST(Vizraskl, FieldsAreReadAsTheNumberTheirTextGives) {
    const std::tuple<int, std::string, int16_t> cases[] = {
        {5, " 17", 17}, {5, "17", 17},  {5, "   0017", 17}, {5, " 17abc", 17},   {5, " 1 7", 1},  {5, " x", 0},
        {5, "", 0},     {5, " -5", 0},  {5, " +5", 0},      {5, "\t5", 0},       {5, "\v6", 0},   {5, " 32767", 32767},
        {48, " 17, Pete, 2024", 17},    {48, " 1,", 1},     {1, " 0", 0},
    };
    for (const auto& [field, text, place] : cases) {
        std::array<int16_t, 49> places{};
        ASSERT_EQ(readLayout(withField(field, text), places), LayoutProblem::None) << text;
        EXPECT_EQ(places[static_cast<size_t>(field)], place) << "field \"" << text << "\"";
        EXPECT_EQ(places[field == 1 ? 2u : 1u], field == 1 ? 47 : 48) << "neighbours unchanged";
    }
    std::array<int16_t, 49> places{};
    places.fill(5);
    EXPECT_EQ(readLayout(std::string(47, ','), places), LayoutProblem::None) << "47 commas are enough";
    EXPECT_EQ(std::count(places.begin() + 1, places.end(), 0), 48);
}

TEST(Vizraskl, AFieldThatNamesNoPlacePutsItsCardInTheCorner) {
    for (const char* text : {" x", " 0", " 49"}) {
        Board b = Board::loaded();
        ASSERT_EQ(b.showLayout(withField(5, text)), LayoutProblem::None);
        EXPECT_EQ(spotOf(b, "6H"), (Spot{0, 0})) << text;  // the 5th card in layout order
        EXPECT_FALSE(b.cell(card("6H")).onGrid());
        EXPECT_EQ(b.hitAt(10, 10), (Hit{Hit::Kind::Card, card("6H"), 0}));
        EXPECT_EQ(spotOf(b, "7H"), (Spot{3000, 6360}));
    }
}

TEST(Vizraskl, RefusesWhatItCannotReadAndChangesNothing) {
    std::string tooFew = reverseDeal().raskl;
    tooFew.erase(tooFew.rfind(','));  // 46 commas
    const std::pair<std::string, LayoutProblem> cases[] = {
        {tooFew, LayoutProblem::TooFewCommas},
        {",", LayoutProblem::TooFewCommas},
        {std::string(46, ','), LayoutProblem::TooFewCommas},
        {withField(7, " 32768"), LayoutProblem::NumberTooLarge},
        {withField(48, " 99999999999999999999"), LayoutProblem::NumberTooLarge},
        {std::string(40000, ','), LayoutProblem::NumberTooLarge},
    };
    for (const auto& [layout, problem] : cases) {
        Board b = reverseDeal();
        clickOn(b, "KC");
        const Board before = b;
        EXPECT_EQ(b.showLayout(layout), problem) << layout.substr(0, 60);
        EXPECT_EQ(b, before);
        b.raskl = layout;
        const Board handed = b;
        EXPECT_EQ(b.vizraskl(), problem);
        EXPECT_EQ(b, handed);
    }
    Board b = reverseDeal();
    const Board before = b;
    EXPECT_EQ(b.showLayout(""), LayoutProblem::None) << "an empty hand-over shows nothing";
    EXPECT_EQ(b, before);
}

}  // namespace
}  // namespace vorn

namespace vorn {
namespace {

// The deal a number gives is fixed for good: players share deals by number.
TEST(DealNumber, EachNumberGivesItsOwnLayoutOnEveryMachine) {
    const std::pair<DealNumber, const char*> pinned[] = {
        {1, " 7, 22, 2, 17, 44, 23, 4, 28, 31, 5, 27, 38, 11, 21, 12, 15, 39, 13, 14, 36, 16, 6, 34, 32, 19, 26, 20, "
            "10, 29, 43, 18, 25, 1, 48, 30, 45, 42, 8, 24, 35, 9, 3, 37, 47, 33, 46, 40, 41"},
        {11982, " 48, 17, 26, 6, 30, 38, 32, 40, 31, 18, 2, 5, 4, 37, 34, 35, 10, 28, 19, 16, 11, 29, 33, 47, 1, 9, 15, "
                "41, 20, 12, 36, 27, 42, 46, 23, 24, 22, 44, 13, 7, 25, 45, 8, 14, 39, 43, 21, 3"},
        {kLastDealNumber, " 10, 40, 25, 14, 18, 22, 4, 19, 13, 12, 26, 36, 28, 1, 34, 5, 24, 44, 30, 35, 47, 9, 6, 39, "
                          "21, 17, 32, 3, 37, 20, 8, 2, 31, 48, 42, 23, 41, 38, 11, 7, 15, 33, 29, 45, 43, 27, 16, 46"},
    };
    for (const auto& [number, layout] : pinned) {
        Board b = Board::loaded();
        dealNumbered(b, number);
        EXPECT_EQ(b.raskl, layout) << "deal " << number;
        EXPECT_EQ(b.raskl, seededDeal(number).raskl) << "the number is the seed vorn-solve --seed takes";
    }
}

TEST(DealNumber, OnlyWholeNumbersFromOneToTheLastAreRead) {
    const std::pair<const char*, std::optional<DealNumber>> rows[] = {
        {"11982", 11982}, {"  7 ", 7}, {"1", 1}, {"4294967295", kLastDealNumber}, {"0007", 7},
        {"0", {}}, {"-5", {}}, {"+5", {}}, {"abc", {}}, {"12a", {}}, {"4294967296", {}}, {"99999999999", {}},
        {"", {}}, {"   ", {}}, {"1 2", {}}, {"1.5", {}},
    };
    for (const auto& [text, expected] : rows) EXPECT_EQ(parseDealNumber(text), expected) << '"' << text << '"';
}

TEST(DealNumber, DrawnNumbersSpanTheWholeRangeAndReseedFirst) {
    ScriptedRandom chance({0.0, 0.9999999999999999, 0.5});
    EXPECT_EQ(drawDealNumber(chance), 1u);
    EXPECT_EQ(drawDealNumber(chance), kLastDealNumber);
    EXPECT_EQ(drawDealNumber(chance), 2147483648u);
    EXPECT_EQ(chance.reseeds, 3);
}

}  // namespace
}  // namespace vorn
