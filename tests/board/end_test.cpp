// The end of the game: all four kings home on their foundations.
#include "fixtures.h"

namespace vorn {
namespace {

using namespace vorn::testing;

TEST(Konec, AKingIsHomeOnlyInTheMiddleColumnAboveRowFive) {
    struct Case {
        Spot king;
        bool home;
    } const cases[] = {{{4920, 1920}, true},  {{4920, 120}, true},   {{4920, 6360}, false}, {{4920, 6600}, false},
                       {{5880, 1920}, false}, {{3960, 360}, false},  {{4920, 5040}, true}, {{0, 0}, false}};
    for (const Case& c : cases) {
        Board b = boardFrom({});
        b.kartleft(2, 13) = c.king.left;
        b.karttop(2, 13) = c.king.top;
        EXPECT_EQ(b.konec(), c.home) << c.king.left << "," << c.king.top;
    }
}

TEST(Konec, TheMoveThatBringsTheLastKingHomeWinsAndSoDoesEveryMoveAfter) {
    Board b = boardFrom({{"KS", 120, 1680}, {"5H", 120, 120}, {"6H", 9720, 4800}, {"9D", 1080, 3240}, {"10D", 9720, 3240}});
    clickOn(b, "5H");
    EXPECT_EQ(clickOn(b, "6H"), kMoved) << "a king is still out";
    clickOn(b, "KS");
    EXPECT_EQ(clickOn(b, "QS"), kMovedHome);  // onto the spades foundation's top card
    EXPECT_EQ(spotOf(b, "KS"), (Spot{4920, 1920}));
    clickOn(b, "9D");
    EXPECT_EQ(clickOn(b, "10D"), kMovedHome) << "still won";
    EXPECT_EQ(b.rezhim, 2);
    EXPECT_EQ(b.vybor, 1);
}

TEST(Konec, ARunOntoAnAceIsNotRecognisedUntilTheNextMove) {
    std::vector<Placed> position{{"KS", 120, 1680}};
    for (const char* name : {"QS", "JS", "10S", "9S", "8S", "7S", "6S", "5S", "4S", "3S", "2S"}) position.push_back({name, 120, "+"});
    position.push_back({"5H", 120, 120});
    position.push_back({"6H", 9720, 4800});
    Board b = boardFrom(position);
    clickOn(b, "2S");
    EXPECT_EQ(clickOn(b, "AS"), kMoved);  // the run lands, the kings are home, nobody looks
    EXPECT_EQ(spotOf(b, "KS"), (Spot{4920, 1920}));
    EXPECT_EQ(b.hitAt(4920 + 300, 1920 + 600), (Hit{Hit::Kind::Card, card("KS"), 0}));
    clickOn(b, "5H");
    EXPECT_EQ(clickOn(b, "6H"), kMovedHome);
}

TEST(Konec, PileMovesNeverLook) {
    Board b = boardFrom({{"5H", 120, 120}});
    clickOn(b, "5H");
    EXPECT_EQ(b.clickPile(1), kMoved);
    EXPECT_TRUE(b.konec());
}

TEST(Konec, ADealPutsTheKingsBack) {
    Board b = boardFrom({});
    ASSERT_TRUE(b.konec());
    SeededRandom random(2);
    b.rasklad(random);
    EXPECT_FALSE(b.konec());
}

}  // namespace
}  // namespace vorn
