// Selecting and moving cards on the grid, played as real sequences of clicks.
#include "fixtures.h"

namespace vorn {
namespace {

using namespace vorn::testing;

const Reaction kNewGame{Message::NewGameFirst, false, false};
const Reaction kCannot{Message::CannotSelect, false, false};

TEST(BeforeTheFirstDeal, EveryCardAsksForANewGameAndAcesSayTheyCannotBeSelected) {
    Board b = Board::loaded();
    const Board before = b;
    for (int s = 1; s <= 4; ++s)
        for (int r = 1; r <= 13; ++r) {
            const Reaction got = b.clickCard(s, r);
            EXPECT_EQ(got, r == 1 ? kCannot : kNewGame) << cardName({static_cast<int16_t>(s), static_cast<int16_t>(r)});
            EXPECT_TRUE(samePicture(b, before));
        }
    // A stored layout shown before the first deal is still not playable.
    ASSERT_EQ(b.showLayout(reverseDeal().raskl), LayoutProblem::None);
    EXPECT_EQ(clickOn(b, "KC"), kNewGame);
    EXPECT_EQ(b.vybor, 1);
}

TEST(Selecting, AFreeCardGetsTheBorder) {
    Board b = reverseDeal();
    EXPECT_EQ(clickOn(b, "KC"), kNone);
    EXPECT_EQ(b.vybor, 2);
    EXPECT_EQ(b.karta1, card("KC"));
    EXPECT_EQ(b.mast1, 4);
    EXPECT_EQ(b.rang1, 13);
    EXPECT_EQ(borderOf(b, "KC"), 1);
    EXPECT_TRUE(b.isSelected(card("KC")));
}

TEST(Selecting, ABlockedCardIsRefusedButStillRecorded) {
    Board b = reverseDeal();
    const Board before = b;
    EXPECT_EQ(clickOn(b, "QC"), kWrong);  // KC lies farther out in row 1
    EXPECT_EQ(b.kartleft, before.kartleft);
    EXPECT_EQ(b.border, before.border);
    EXPECT_EQ(b.vybor, 1);
    EXPECT_EQ(b.karta1, card("QC"));
    EXPECT_EQ(b.rang1, 12);
    EXPECT_EQ(borderOf(b, "QC"), 0);
}

TEST(Selecting, TheSelectedCardClickedAgainIsLetGo) {
    Board b = reverseDeal();
    clickOn(b, "4C");
    EXPECT_EQ(clickOn(b, "4C"), kNone);
    EXPECT_EQ(b.vybor, 1);
    EXPECT_EQ(borderOf(b, "4C"), 0);
}

TEST(Selecting, FoundationCardsAndTheCardOnTheMiddleOfRowFiveAreIgnored) {
    Board b = boardFrom({{"KS", 120, 1680}, {"5H", 4920, 6360}, {"4H", 4920, "+"}, {"9D", 3000, 120}});
    Board before = b;
    EXPECT_EQ(clickOn(b, "QS"), kNone);  // the spades foundation's top card
    EXPECT_EQ(b.vybor, 1);
    EXPECT_EQ(clickOn(b, "4H"), kNone);  // lies on the middle place of row 5
    EXPECT_EQ(b.vybor, 1);
    EXPECT_EQ(clickOn(b, "5H"), kWrong);  // covered by the 4H
    EXPECT_EQ(b.vybor, 1);
    EXPECT_EQ(b.kartleft, before.kartleft);
    EXPECT_EQ(b.border, before.border);
}

TEST(Selecting, TheMiddleOfRowFiveIsFreeWhileOneHalfOfTheRowIsEmpty) {
    Board b = boardFrom({{"5H", 4920, 6360}, {"9C", 3000, 6360}, {"9D", 6840, 6360}});
    EXPECT_EQ(clickOn(b, "5H"), kWrong);
    b = boardFrom({{"5H", 4920, 6360}, {"9C", 3000, 6360}});
    EXPECT_EQ(clickOn(b, "5H"), kNone);
    EXPECT_EQ(b.vybor, 2);
}

TEST(Selecting, AStackedCardIsAlwaysFreeOutsideTheMiddleColumn) {
    // ... even with another stacked card farther out in its half-row
    Board b = boardFrom({{"9H", 120, 120}, {"10H", 120, "+"}, {"8H", 1080, 120}, {"7H", 1080, "+"}});
    EXPECT_EQ(clickOn(b, "7H"), kNone);
    EXPECT_EQ(b.vybor, 2);
}

TEST(Moving, ARefusedMoveKeepsTheSelectionForTheNextTarget) {
    Board b = reverseDeal();
    clickOn(b, "3C");
    const Board selected = b;
    EXPECT_EQ(clickOn(b, "QD"), kWrong);  // another suit
    EXPECT_EQ(clickOn(b, "7C"), kWrong);  // not a neighbour
    EXPECT_EQ(clickOn(b, "2C"), kWrong);  // blocked: 3C itself lies farther out
    EXPECT_EQ(b.vybor, 2);
    EXPECT_EQ(borderOf(b, "3C"), 1);
    EXPECT_EQ(b.kartleft, selected.kartleft);
    EXPECT_EQ(b.karttop, selected.karttop);
    EXPECT_EQ(clickOn(b, "4C"), kMoved);
    EXPECT_EQ(spotOf(b, "3C"), (Spot{9720, 360}));
    EXPECT_EQ(b.vybor, 1);
    EXPECT_EQ(borderOf(b, "3C"), 0);
    EXPECT_EQ(zOf(b, "3C"), b.zcounter);
}

TEST(Moving, ASingleCardLandsAtTheStackedTopOfTheTargetsRow) {
    // onto a base card
    Board b = boardFrom({{"7S", 120, 1680}, {"8S", 9720, 4800}});
    clickOn(b, "7S");
    EXPECT_EQ(clickOn(b, "8S"), kMovedHome);
    EXPECT_EQ(spotOf(b, "7S"), (Spot{9720, 5040}));
    // onto the visible top card of a stack
    b = boardFrom({{"7S", 120, 1680}, {"9S", 8760, 120}, {"8S", 8760, "+"}});
    clickOn(b, "7S");
    EXPECT_EQ(clickOn(b, "8S"), kMovedHome);
    EXPECT_EQ(spotOf(b, "7S"), (Spot{8760, 360}));
    EXPECT_GT(zOf(b, "7S"), zOf(b, "8S"));
}

TEST(Moving, AStackedCardCarriesItsCellAndTheBaseEndsOnTop) {
    Board b = boardFrom({{"7D", 2040, 3240}, {"6D", 2040, "+"}, {"5D", 2040, "+"}, {"4D", 7800, 120}});
    clickOn(b, "5D");
    EXPECT_EQ(clickOn(b, "4D"), kMovedHome);
    for (const char* name : {"5D", "6D", "7D"}) EXPECT_EQ(spotOf(b, name), (Spot{7800, 360})) << name;
    EXPECT_LT(zOf(b, "5D"), zOf(b, "6D"));
    EXPECT_LT(zOf(b, "6D"), zOf(b, "7D"));
    EXPECT_EQ(b.hitAt(7800 + 300, 360 + 600), (Hit{Hit::Kind::Card, card("7D"), 0}));
    EXPECT_EQ(b.hitAt(2040 + 300, 3240 + 600), Hit{}) << "the source cell is empty";
    for (const char* name : {"5D", "6D", "7D"}) EXPECT_EQ(borderOf(b, name), 0);
}

TEST(Moving, ADescendingCellCarriedUpwards) {
    Board b = boardFrom({{"5D", 2040, 3240}, {"6D", 2040, "+"}, {"7D", 2040, "+"}, {"8D", 7800, 120}});
    clickOn(b, "7D");
    EXPECT_EQ(clickOn(b, "8D"), kMovedHome);
    EXPECT_LT(zOf(b, "7D"), zOf(b, "6D"));
    EXPECT_LT(zOf(b, "6D"), zOf(b, "5D"));
    EXPECT_EQ(spotOf(b, "5D"), (Spot{7800, 360}));
}

TEST(Moving, ACellWithNoBaseCardOfItsSuitIsRefusedWithoutMovingAnything) {
    for (const char* target : {"7S", "AS"}) {
        Board b = boardFrom({{"9H", 120, 120}, {target[0] == 'A' ? "2S" : "6S", 120, "+"}, {"7S", 9720, 1680}});
        const char* selected = target[0] == 'A' ? "2S" : "6S";
        clickOn(b, selected);
        ASSERT_EQ(b.vybor, 2);
        const Board before = b;
        EXPECT_EQ(clickOn(b, target), kWrong) << target;
        EXPECT_EQ(b.kartleft, before.kartleft);
        EXPECT_EQ(b.karttop, before.karttop);
        EXPECT_EQ(b.zorder, before.zorder);
        EXPECT_TRUE(b.isSelected(card(selected)));
    }
}

TEST(Aces, TheTwoStartsItsFoundation) {
    Board b = boardFrom({{"2D", 120, 120}, {"3D", 9720, 120}, {"5D", 120, 1680}});
    EXPECT_EQ(clickOn(b, "AD"), kCannot);  // nothing selected
    clickOn(b, "2D");
    EXPECT_EQ(clickOn(b, "AH"), kWrong);  // another suit: the 2 stays selected
    EXPECT_TRUE(b.isSelected(card("2D")));
    EXPECT_EQ(clickOn(b, "AD"), kMoved);
    EXPECT_EQ(spotOf(b, "2D"), (Spot{4920, 3480}));
    EXPECT_EQ(borderOf(b, "2D"), 0);
    EXPECT_EQ(b.vybor, 1);
    // the foundation grows by playing onto its top card
    clickOn(b, "3D");
    EXPECT_EQ(clickOn(b, "2D"), kMovedHome);
    EXPECT_EQ(spotOf(b, "3D"), (Spot{4920, 3480}));
    EXPECT_GT(zOf(b, "3D"), zOf(b, "2D"));
    // any other rank clicked onto the ace lets the selection go silently
    clickOn(b, "5D");
    EXPECT_EQ(clickOn(b, "AD"), kNone);
    EXPECT_EQ(b.vybor, 1);
    EXPECT_EQ(borderOf(b, "5D"), 0);
    EXPECT_EQ(spotOf(b, "5D"), (Spot{120, 1680}));
}

TEST(Aces, ATwoOnAStackTakesItsCellOntoTheAce) {
    Board b = boardFrom({{"4S", 120, 120}, {"3S", 120, "+"}, {"2S", 120, "+"}});
    clickOn(b, "2S");
    EXPECT_EQ(clickOn(b, "AS"), kMoved);
    for (const char* name : {"2S", "3S", "4S"}) EXPECT_EQ(spotOf(b, name), (Spot{4920, 1920})) << name;
    EXPECT_LT(zOf(b, "2S"), zOf(b, "3S"));
    EXPECT_LT(zOf(b, "3S"), zOf(b, "4S"));
    EXPECT_EQ(spotOf(b, "AS"), (Spot{4920, 1680}));
}

TEST(Moving, ASelectionWhoseBorderADealTookAwayIsDropped) {
    Board b = reverseDeal();
    clickOn(b, "KC");  // place 1
    SeededRandom random(11);
    b.rasklad(random);
    ASSERT_EQ(b.vybor, 2);
    const Board dealt = b;
    Card other{};  // the free card at place 10
    for (int i = 1; i <= 48; ++i)
        if (b.mesta(layoutSuit(i), layoutRank(i)) == 10) other = {static_cast<int16_t>(layoutSuit(i)), static_cast<int16_t>(layoutRank(i))};
    EXPECT_EQ(b.clickCard(other.suit, other.rank), kWrong);
    EXPECT_EQ(b.vybor, 1);
    EXPECT_EQ(b.border, dealt.border);
    EXPECT_EQ(b.kartleft, dealt.kartleft);
    // the next click selects as usual
    EXPECT_EQ(b.clickCard(other.suit, other.rank), kNone);
    EXPECT_EQ(b.vybor, 2);
}

TEST(Moving, AfterADealTookTheBorderTheSameCardOrAnAceStillActAsUsual) {
    // The selected card clicked again is let go before the border is looked at.
    Board b = reverseDeal();
    clickOn(b, "KC");
    SeededRandom random(11);
    b.rasklad(random);
    EXPECT_EQ(clickOn(b, "KC"), kNone);
    EXPECT_EQ(b.vybor, 1);
    // An ace never looks at the border: the 2 still goes onto it.
    b = reverseDeal();
    clickOn(b, "2H");
    ScriptedRandom sameDeal([] {
        std::vector<double> d;
        for (int i = 1; i <= kPlaces; ++i) d.push_back(drawOf(49 - i));
        return d;
    }());
    b.rasklad(sameDeal);
    ASSERT_EQ(borderOf(b, "2H"), 0);
    EXPECT_EQ(clickOn(b, "AH"), kMoved);
    EXPECT_EQ(spotOf(b, "2H"), (Spot{4920, 360}));
}

TEST(Moving, NothingGoesFromRowsOneToFourOntoABaseOfRowFive) {
    Board b = boardFrom({{"8D", 120, 4800}, {"7D", 120, "+"}, {"6D", 1080, 6360}, {"5C", 2040, 6360}, {"4C", 2040, "+"}, {"3C", 9720, 120}});
    clickOn(b, "7D");
    EXPECT_EQ(clickOn(b, "6D"), kWrong);
    clickOn(b, "7D");  // let go
    clickOn(b, "3C");
    EXPECT_EQ(clickOn(b, "4C"), kMovedHome);  // onto a stacked card of row 5 it may go
    EXPECT_EQ(spotOf(b, "3C"), (Spot{2040, 6600}));
}

TEST(Moving, ACardPlayedOntoTheMiddleOfRowFiveIsStuck) {
    Board b = boardFrom({{"5H", 4920, 6360}, {"4H", 6840, 6360}});
    clickOn(b, "4H");
    ASSERT_EQ(clickOn(b, "5H"), kMovedHome);
    EXPECT_EQ(spotOf(b, "4H"), (Spot{4920, 6600}));
    EXPECT_EQ(clickOn(b, "4H"), kNone);  // ignored
    EXPECT_EQ(b.vybor, 1);
    EXPECT_EQ(clickOn(b, "5H"), kWrong);  // covered now
    EXPECT_EQ(b.vybor, 1);
}

TEST(Moving, TheMiddleOfRowFiveCountsToTheLeftHalfAsATarget) {
    Board b = boardFrom({{"5H", 4920, 6360}, {"4H", 6840, 6360}, {"9C", 3000, 6360}});
    clickOn(b, "4H");
    EXPECT_EQ(clickOn(b, "5H"), kWrong);
    EXPECT_TRUE(b.isSelected(card("4H")));
}

}  // namespace
}  // namespace vorn
