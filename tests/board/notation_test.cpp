// The position notation used by the tests, and what a click at a point reaches.
#include <stdexcept>

#include "fixtures.h"

namespace vorn {
namespace {

using namespace vorn::testing;

TEST(Notation, CardNames) {
    const std::pair<const char*, Card> cases[] = {{"AH", {1, 1}}, {"7S", {2, 7}},   {"10D", {3, 10}}, {"JC", {4, 11}},
                                                  {"QH", {1, 12}}, {"KC", {4, 13}}, {"2D", {3, 2}}};
    for (const auto& [name, c] : cases) {
        EXPECT_EQ(parseCard(name), c) << name;
        EXPECT_EQ(cardName(c), name);
    }
    for (const char* bad : {"", "7", "1S", "11S", "7X", "0H", "10", "s7", "7s", "KK"}) EXPECT_FALSE(parseCard(bad)) << bad;
    EXPECT_EQ(cardName({}), "??");
    EXPECT_EQ(cardName({5, 1}), "??");
}

TEST(Notation, UnlistedCardsAreHomeAndListedOnesLieWhereWritten) {
    const Board b = boardFrom({{"7S", 120, 1680}, {"8S", 9720, 1680}, {"6S", 9720, "+"}, {"5S", 9720, "+"}});
    EXPECT_EQ(b.rezhim, 2);
    EXPECT_EQ(b.vybor, 1);
    EXPECT_EQ(spotOf(b, "6S"), (Spot{9720, 1920}));
    EXPECT_EQ(spotOf(b, "5S"), (Spot{9720, 1920}));
    EXPECT_GT(zOf(b, "5S"), zOf(b, "6S"));
    EXPECT_EQ(spotOf(b, "AS"), (Spot{4920, 1680}));
    EXPECT_EQ(spotOf(b, "9S"), (Spot{4920, 1920}));
    EXPECT_EQ(spotOf(b, "QC"), (Spot{4920, 5040}));
    EXPECT_GT(zOf(b, "KC"), zOf(b, "QC"));
    EXPECT_EQ(b.hitAt(4920 + 300, 5040 + 600), (Hit{Hit::Kind::Card, card("KC"), 0}));
}

TEST(Notation, StackingFollowsTheLastCardListedAtThatLeft) {
    const Board b = boardFrom({{"9H", 120, 120}, {"9D", 120, 4800}, {"8D", 120, "+"}, {"7D", 120, "+"}});
    EXPECT_EQ(spotOf(b, "8D"), (Spot{120, 5040}));
    EXPECT_EQ(spotOf(b, "7D"), (Spot{120, 5040}));
}

TEST(Notation, MistakesAreNamed) {
    EXPECT_THROW(boardFrom({{"7X", 120, 120}}), std::invalid_argument);
    EXPECT_THROW(boardFrom({{"7S", 120, 120}, {"7S", 1080, 120}}), std::invalid_argument);
    EXPECT_THROW(boardFrom({{"7S", 120, "+"}}), std::invalid_argument);
    EXPECT_THROW(boardFrom({{"7S", 120, 120}, {"6S", 120, "-"}}), std::invalid_argument);
    try {
        boardFrom({{"7S", 120, 120}, {"6S", 1080, "+"}});
        FAIL() << "no throw";
    } catch (const std::invalid_argument& e) {
        EXPECT_NE(std::string(e.what()).find("{\"6S\", 1080, \"+\"}"), std::string::npos) << e.what();
    }
}

TEST(Notation, DescribePrintsTheCellsRowByRow) {
    Board b = boardFrom({{"7S", 120, 1680}, {"8S", 9720, 1680}, {"6S", 9720, "+"}});
    b.kartleft(1, 5) = 0;
    b.karttop(1, 5) = 0;
    clickOn(b, "7S");
    const std::string text = describe(b);
    EXPECT_NE(text.find("row 2 (1680): c1 7S* | c6 AS+2S+3S+4S+5S+9S+10S+JS+QS+KS | c11 8S+6S\n"), std::string::npos) << text;
    EXPECT_NE(text.find("off the grid: 5H@(0,0)\n"), std::string::npos) << text;
    EXPECT_NE(text.find("rezhim 2, vybor 2, karta1 7S\n"), std::string::npos) << text;
}

TEST(HitAt, TheFrontMostCardTakesTheClickElseABarePileElseNothing) {
    const Board b = boardFrom({{"9C", 1080, 120}, {"8C", 1080, "+"}, {"7D", 2040, 120}});
    const Hit nine{Hit::Kind::Card, card("9C"), 0};
    const Hit eight{Hit::Kind::Card, card("8C"), 0};
    EXPECT_EQ(b.hitAt(1080, 120), nine);             // the base card's strip
    EXPECT_EQ(b.hitAt(1080 + 749, 120 + 239), nine);
    EXPECT_EQ(b.hitAt(1080, 360), eight);            // where they overlap the stacked card is in front
    EXPECT_EQ(b.hitAt(1080 + 749, 360 + 1124), eight);
    EXPECT_EQ(b.hitAt(1080 + 750, 360), Hit{});      // just right of the card: the cloth
    EXPECT_EQ(b.hitAt(1080, 360 + 1125), Hit{});
    EXPECT_EQ(b.hitAt(1079, 500), Hit{});
    EXPECT_EQ(b.hitAt(2040 + 10, 120 + 10), (Hit{Hit::Kind::Card, card("7D"), 0}));
    EXPECT_EQ(b.hitAt(3960 + 10, 120 + 10), (Hit{Hit::Kind::Pile, {}, 1}));
    EXPECT_EQ(b.hitAt(5880 + 749, 6360 + 1124), (Hit{Hit::Kind::Pile, {}, 11}));
    EXPECT_EQ(b.hitAt(120 + 10, 6360 + 10), Hit{}) << "a frame takes no click";
    EXPECT_EQ(b.hitAt(-5, -5), Hit{});
    EXPECT_EQ(b.hitAt(20000, 20000), Hit{});
}

TEST(HitAt, ClickRunsTheHandlerOfWhatWasHit) {
    Board b = boardFrom({{"9C", 1080, 120}});
    EXPECT_EQ(b.click(b.hitAt(1080 + 5, 120 + 5)), kNone);
    EXPECT_TRUE(b.isSelected(card("9C")));
    EXPECT_EQ(b.click(Hit{}), kNone);
    EXPECT_TRUE(b.isSelected(card("9C")));
    EXPECT_EQ(b.click(b.hitAt(3960 + 5, 120 + 5)), kMoved);
    EXPECT_EQ(spotOf(b, "9C"), (Spot{3960, 120}));
}

TEST(BadInput, IsIgnoredRatherThanTrusted) {
    Board b = reverseDeal();
    const Board before = b;
    for (auto [s, r] : {std::pair{0, 5}, {5, 5}, {1, 0}, {1, 14}, {-1, -1}}) EXPECT_EQ(b.clickCard(s, r), kNone);
    for (int image : {0, 12, -3}) EXPECT_EQ(b.clickPile(image), kNone);
    EXPECT_TRUE(samePicture(b, before));
    Board blank;  // never loaded: the selected card names no card
    blank.vybor = 2;
    EXPECT_EQ(blank.clickPile(1), kNone);
    blank.vybor = 2;
    EXPECT_EQ(blank.clickCard(1, 5), kWrong);
    EXPECT_FALSE(blank.isSelected(Card{}));
}

}  // namespace
}  // namespace vorn
