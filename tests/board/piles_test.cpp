// The eleven pile places.
#include "fixtures.h"

namespace vorn {
namespace {

using namespace vorn::testing;

TEST(Piles, AnswerWrongMoveWhileNothingIsSelected) {
    Board b = Board::loaded();  // before the first deal only Image9 is bare
    const Board before = b;
    EXPECT_EQ(b.clickPile(9), kWrong);
    EXPECT_EQ(b, before);
    b = boardFrom({{"7S", 120, 1680}});
    for (int image = 1; image <= 11; ++image) EXPECT_EQ(b.clickPile(image), kWrong) << "Image" << image;
    EXPECT_EQ(b.clickPile(0), kNone);
    EXPECT_EQ(b.clickPile(12), kNone);
}

TEST(Piles, SideAndMiddlePlacesOfRowsOneToFourTakeAnyCardThatCanBeSelected) {
    for (int image : {1, 2, 3, 4, 5, 6, 7, 8, 9}) {
        Board b = boardFrom({{"7S", 120, 1680}});
        clickOn(b, "7S");
        EXPECT_EQ(b.clickPile(image), kMoved) << "Image" << image;  // never an end-of-game check
        EXPECT_EQ(spotOf(b, "7S"), (Spot{pilePlace(image).left, pilePlace(image).top})) << "Image" << image;
        EXPECT_EQ(borderOf(b, "7S"), 0);
        EXPECT_EQ(b.vybor, 1);
        EXPECT_EQ(zOf(b, "7S"), b.zcounter);
        EXPECT_EQ(b.clickPile(image == 1 ? 2 : 1), kWrong) << "nothing is selected any more";
    }
}

TEST(Piles, RowFiveSidePlacesTakeOnlyACardOfRowFive) {
    Board b = boardFrom({{"7S", 120, 4800}, {"8H", 1080, 6360}, {"5D", 7800, 6360}, {"6D", 7800, "+"}});
    clickOn(b, "7S");
    const Board selected = b;
    EXPECT_EQ(b.clickPile(10), kWrong);
    EXPECT_EQ(b.clickPile(11), kWrong);
    EXPECT_TRUE(samePicture(b, selected));
    EXPECT_EQ(b.clickPile(7), kMoved);  // a free side place of rows 1..4 takes it
    EXPECT_EQ(spotOf(b, "7S"), (Spot{3960, 4800}));

    clickOn(b, "8H");  // a base card of row 5
    EXPECT_EQ(b.clickPile(10), kMoved);
    EXPECT_EQ(spotOf(b, "8H"), (Spot{3960, 6360}));

    clickOn(b, "6D");  // the visible top of a row-5 cell: the whole cell goes
    EXPECT_EQ(b.clickPile(11), kMoved);
    EXPECT_EQ(spotOf(b, "6D"), (Spot{5880, 6360}));
    EXPECT_EQ(spotOf(b, "5D"), (Spot{5880, 6600}));
    EXPECT_TRUE(b.pileVisible(11) == false);
}

TEST(Piles, ACellIsLaidDownTurnedOver) {
    Board b = boardFrom({{"9C", 1080, 120}, {"8C", 1080, "+"}, {"7C", 1080, "+"}});
    clickOn(b, "7C");
    EXPECT_EQ(b.clickPile(5), kMoved);
    EXPECT_EQ(spotOf(b, "7C"), (Spot{3960, 3240}));
    EXPECT_EQ(spotOf(b, "8C"), (Spot{3960, 3480}));
    EXPECT_EQ(spotOf(b, "9C"), (Spot{3960, 3480}));
    EXPECT_EQ(b.kartleft(4, 9), 3960);
    EXPECT_EQ(b.karttop(4, 9), 3480);
    EXPECT_EQ(b.hitAt(3960 + 300, 3480 + 600), (Hit{Hit::Kind::Card, card("9C"), 0}));
    EXPECT_EQ(b.hitAt(1080 + 300, 120 + 600), Hit{}) << "the old cell is empty";
    EXPECT_FALSE(b.pileVisible(5));

    // moved on to another side place it turns over once more: 9 base, 8, 7 on top
    clickOn(b, "9C");
    EXPECT_EQ(b.clickPile(8), kMoved);
    EXPECT_EQ(spotOf(b, "9C"), (Spot{5880, 4800}));
    EXPECT_EQ(spotOf(b, "8C"), (Spot{5880, 5040}));
    EXPECT_EQ(spotOf(b, "7C"), (Spot{5880, 5040}));
    EXPECT_LT(zOf(b, "8C"), zOf(b, "7C"));
    EXPECT_TRUE(b.pileVisible(5));
}

TEST(Piles, ThePlaceBelowTheAcesTakesTheSelectedCardAlone) {
    Board b = boardFrom({{"9C", 1080, 120}, {"8C", 1080, "+"}, {"7C", 1080, "+"}});
    clickOn(b, "7C");
    EXPECT_EQ(b.clickPile(9), kMoved);
    EXPECT_EQ(spotOf(b, "7C"), (Spot{4920, 6360}));
    EXPECT_EQ(spotOf(b, "8C"), (Spot{1080, 360}));
    EXPECT_EQ(spotOf(b, "9C"), (Spot{1080, 120}));
    EXPECT_EQ(b.hitAt(1080 + 300, 360 + 600), (Hit{Hit::Kind::Card, card("8C"), 0}));
}

TEST(Piles, ACellWithNoBaseCardOfItsSuitIsRefused) {
    Board b = boardFrom({{"9H", 120, 120}, {"6S", 120, "+"}});
    clickOn(b, "6S");
    const Board selected = b;
    EXPECT_EQ(b.clickPile(1), kWrong);
    EXPECT_TRUE(samePicture(b, selected));
    EXPECT_EQ(b.clickPile(9), kMoved);  // the single move needs no base card
    EXPECT_EQ(spotOf(b, "6S"), (Spot{4920, 6360}));
}

TEST(Piles, MoveTheSelectedCardEvenWhenADealTookItsBorder) {
    Board b = reverseDeal();
    clickOn(b, "KC");
    SeededRandom random(5);
    b.rasklad(random);
    ASSERT_EQ(borderOf(b, "KC"), 0);
    EXPECT_EQ(b.clickPile(9), kMoved);
    EXPECT_EQ(spotOf(b, "KC"), (Spot{4920, 6360}));
    EXPECT_EQ(b.vybor, 1);
}

TEST(Piles, AreSeenOnlyWhileTheirCellIsEmpty) {
    Board b = boardFrom({{"9C", 3960, 120}, {"8C", 3960, "+"}, {"7D", 5880, 6600}});
    EXPECT_FALSE(b.pileVisible(1));  // base and stacked card
    EXPECT_FALSE(b.pileVisible(11)); // a card at the stacked Top alone hides it too
    EXPECT_TRUE(b.pileVisible(2));
    EXPECT_TRUE(b.pileVisible(9));
    EXPECT_FALSE(b.pileVisible(0));
    EXPECT_FALSE(b.pileVisible(12));
    EXPECT_EQ(b.hitAt(5880 + 10, 120 + 10), (Hit{Hit::Kind::Pile, {}, 2}));
    EXPECT_EQ(b.hitAt(3960 + 10, 120 + 10), (Hit{Hit::Kind::Card, card("9C"), 0}));
}

}  // namespace
}  // namespace vorn
