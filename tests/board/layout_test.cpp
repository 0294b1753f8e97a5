// Laying out a stored layout string again.
#include "fixtures.h"

namespace vorn {
namespace {

using namespace vorn::testing;

// The reverse deal's string with field `index` (1..48) replaced by `text`.
std::string withField(int index, const std::string& text) {
    std::string layout = reverseDeal().raskl;
    size_t from = 0;
    for (int k = 1; k < index; ++k) from = layout.find(',', from) + 1;
    const size_t to = layout.find(',', from);
    return layout.replace(from, (to == std::string::npos ? layout.size() : to) - from, text);
}

TEST(Vizraskl, ADealLaidOutAgainGivesTheSameBoard) {
    for (uint64_t seed : {1u, 2u, 3u, 99u}) {
        const Board dealt = seededDeal(seed);
        Board fresh = Board::loaded();
        ASSERT_EQ(fresh.showLayout(dealt.raskl), LayoutProblem::None);
        EXPECT_EQ(fresh.mesta, dealt.mesta);
        EXPECT_EQ(fresh.kartleft, dealt.kartleft);
        EXPECT_EQ(fresh.karttop, dealt.karttop);
        EXPECT_EQ(fresh.raskl, dealt.raskl);
        EXPECT_EQ(fresh.rezhim, 1) << "a load is no deal";
    }
}

TEST(Vizraskl, ReadsTheNumbersInLayoutOrder) {
    std::array<int16_t, 49> places{};
    ASSERT_EQ(readLayout(reverseDeal().raskl, places), LayoutProblem::None);
    for (int i = 1; i <= 48; ++i) EXPECT_EQ(places[static_cast<size_t>(i)], 49 - i);
}

TEST(Vizraskl, TakesApartWhatWasPlayedAndLeavesTheAces) {
    Board b = reverseDeal();
    for (const char* name : {"3C", "4C", "2C", "AC", "5D", "6D"}) clickOn(b, name);
    ASSERT_EQ(spotOf(b, "2C"), (Spot{4920, 5040}));
    ASSERT_EQ(spotOf(b, "5D"), (Spot{9720, 1920}));
    const std::string layout = seededDeal(4).raskl;
    ASSERT_EQ(b.showLayout(layout), LayoutProblem::None);
    const Board expected = seededDeal(4);
    EXPECT_EQ(b.kartleft, expected.kartleft);
    EXPECT_EQ(b.karttop, expected.karttop);
    EXPECT_EQ(b.rezhim, 2);
    b.rasklzan();  // Deal again now returns to the loaded layout
    EXPECT_EQ(b.karttop, expected.karttop);
}

TEST(Vizraskl, ASelectedCardMovesAndStaysSelected) {
    Board b = reverseDeal();
    clickOn(b, "KC");
    const uint32_t z = zOf(b, "KC");
    ASSERT_EQ(b.showLayout(seededDeal(6).raskl), LayoutProblem::None);
    EXPECT_EQ(spotOf(b, "KC"), seededDeal(6).spot(card("KC")));
    EXPECT_TRUE(b.isSelected(card("KC")));
    EXPECT_EQ(b.vybor, 2);
    EXPECT_EQ(zOf(b, "KC"), z);
}

TEST(Vizraskl, FieldsAreReadAsTheNumberTheirTextGives) {
    struct Case {
        int field;
        std::string text;
        int16_t place;
    } const cases[] = {
        {5, " 17", 17},   {5, "17", 17},     {5, "   0017", 17}, {5, " 17abc", 17}, {5, " 1 7", 1},
        {5, " x", 0},     {5, "", 0},        {5, " -5", 0},      {5, " +5", 0},     {5, "\t5", 0},
        {5, " 32767", 32767}, {48, " 17, Pete, 2024", 17}, {48, " 1,", 1},  {1, " 0", 0},
    };
    for (const Case& c : cases) {
        std::array<int16_t, 49> places{};
        const std::string layout = withField(c.field, c.text);
        ASSERT_EQ(readLayout(layout, places), LayoutProblem::None) << layout;
        EXPECT_EQ(places[static_cast<size_t>(c.field)], c.place) << "field \"" << c.text << "\"";
        EXPECT_EQ(places[c.field == 1 ? 2u : 1u], c.field == 1 ? 47 : 48) << "neighbours unchanged";
    }
}

TEST(Vizraskl, ANameAfterTheLastNumberChangesNothing) {
    const std::string bare = reverseDeal().raskl;
    Board a = Board::loaded();
    Board b = Board::loaded();
    ASSERT_EQ(a.showLayout(bare), LayoutProblem::None);
    ASSERT_EQ(b.showLayout(bare + ", name, "), LayoutProblem::None);
    EXPECT_EQ(a.mesta, b.mesta);
    EXPECT_EQ(a.kartleft, b.kartleft);
    EXPECT_EQ(a.karttop, b.karttop);
    EXPECT_EQ(b.raskl, bare + ", name, ");
}

TEST(Vizraskl, AFieldWithoutDigitsOrBeyondThePlacesPutsItsCardInTheCorner) {
    for (const char* text : {" x", " 0", " 49", " 999"}) {
        Board b = Board::loaded();
        ASSERT_EQ(b.showLayout(withField(5, text)), LayoutProblem::None);
        EXPECT_EQ(spotOf(b, "6H"), (Spot{0, 0})) << text;  // the 5th card in layout order
        EXPECT_EQ(b.hitAt(10, 10), (Hit{Hit::Kind::Card, card("6H"), 0}));
        EXPECT_EQ(spotOf(b, "7H"), (Spot{3000, 6360}));  // the 6th card keeps its place 43
    }
}

TEST(Vizraskl, RefusesWhatItCannotReadAndChangesNothing) {
    std::string tooFew = reverseDeal().raskl;
    tooFew.erase(tooFew.rfind(','));  // 46 commas
    const std::string layouts[] = {tooFew, "17", ",", std::string(46, ','), withField(7, " 32768"),
                                   withField(48, " 99999999999999999999"), std::string(40000, ',')};
    const LayoutProblem expected[] = {LayoutProblem::TooFewCommas,   LayoutProblem::TooFewCommas,
                                      LayoutProblem::TooFewCommas,   LayoutProblem::TooFewCommas,
                                      LayoutProblem::NumberTooLarge, LayoutProblem::NumberTooLarge,
                                      LayoutProblem::NumberTooLarge};
    for (size_t i = 0; i < std::size(layouts); ++i) {
        Board b = reverseDeal();
        clickOn(b, "KC");
        const Board before = b;
        EXPECT_EQ(b.showLayout(layouts[i]), expected[i]) << layouts[i].substr(0, 60);
        EXPECT_EQ(b, before);
        b.raskl = layouts[i];
        const Board handed = b;
        EXPECT_EQ(b.vizraskl(), expected[i]);
        EXPECT_EQ(b, handed);
        std::array<int16_t, 49> places{};
        places[3] = 7;
        EXPECT_EQ(readLayout(layouts[i], places), expected[i]);
        EXPECT_EQ(places[3], 7);
    }
}

TEST(Vizraskl, AnEmptyLineShowsNothing) {
    Board b = reverseDeal();
    const Board before = b;
    EXPECT_EQ(b.showLayout(""), LayoutProblem::None);
    EXPECT_EQ(b, before);
}

TEST(Vizraskl, FortySevenCommasAreEnough) {
    // The 48th field runs to the end; an empty one gives 0.
    const std::string layout = std::string(47, ',');
    std::array<int16_t, 49> places{};
    places.fill(5);
    EXPECT_EQ(readLayout(layout, places), LayoutProblem::None);
    for (int k = 1; k <= 48; ++k) EXPECT_EQ(places[static_cast<size_t>(k)], 0) << k;
}

}  // namespace
}  // namespace vorn
