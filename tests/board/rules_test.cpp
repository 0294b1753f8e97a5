// The rules, played as clicks. Each row is a position written with boardFrom
// (unlisted cards are home on their foundations), the clicks, what the last
// click answers and where the cards lie afterwards (fixtures.h explains the
// notation). Cells are row.column; rows 1 to 5 from the top, columns 1 to 11.
#include <tuple>

#include "support/fixtures.h"

namespace vorn {
namespace {

using namespace vorn::testing;

// Row 2 filled from end to end.
const std::vector<Placed> kFullRowTwo{{"2H", 120, 1680},  {"3H", 1080, 1680}, {"4H", 2040, 1680}, {"5H", 3000, 1680},
                                      {"6H", 3960, 1680}, {"7H", 5880, 1680}, {"8H", 6840, 1680}, {"9H", 7800, 1680},
                                      {"10H", 8760, 1680}, {"JH", 9720, 1680}};
const std::vector<Placed> kCoveredNine{{"9S", 2040, 4800}, {"8S", 2040, "+"}};
const std::vector<Placed> kMiddleOfRowFiveCovered{{"5H", 4920, 6360}, {"4H", 4920, "+"}};

// Which card a first click selects.
TEST(Rules, ABaseCardIsFreeWhenOutermostInItsHalfAndUncovered) {
    runScripts({
        {"outermost of a full left half", kFullRowTwo, "2H", kNone, "2H*"},
        {"second from the left edge", kFullRowTwo, "3H", kWrong, "0*"},
        {"innermost of the left half", kFullRowTwo, "6H", kWrong, "0*"},
        {"innermost of the right half", kFullRowTwo, "7H", kWrong, "0*"},
        {"outermost of the right half", kFullRowTwo, "JH", kNone, "JH*"},
        {"right edge taken", {{"5D", 9720, 3240}, {"6D", 8760, 3240}}, "6D", kWrong, "0*"},
        {"right edge empty", {{"6D", 8760, 3240}}, "6D", kNone, "6D*"},
        {"a left-half card does not block the right half", {{"8C", 120, 120}, {"7C", 5880, 120}}, "7C", kNone, "7C*"},
        {"a right-half card does not block the left half", {{"8C", 9720, 120}, {"7C", 3960, 120}}, "7C", kNone, "7C*"},
        {"an outer card in another row", {{"8C", 120, 1680}, {"7C", 1080, 120}}, "7C", kNone, "7C*"},
        {"an outer card with a card on it", {{"8C", 120, 4800}, {"9C", 120, "+"}, {"5S", 1080, 4800}}, "5S", kWrong, "0*"},
        {"a covered card", kCoveredNine, "9S", kWrong, "0*"},
        {"the card lying on it", kCoveredNine, "8S", kNone, "8S*"},
        {"a stacked card, a stack farther out", {{"9H", 120, 120}, {"10H", 120, "+"}, {"8H", 1080, 120}, {"7H", 1080, "+"}},
         "7H", kNone, "7H*"},
        {"a card at the next row's Top is no cover", {{"9S", 2040, 120}, {"8S", 2040, 1680}}, "9S", kNone, "9S*"},
        {"a foundation's top card stays home", {{"KS", 120, 1680}}, "QS", kNone, "0*"},
        {"an ace is never selected", {}, "AD", kCannot, "0*"},
        {"the selected card clicked again is let go", {{"4C", 9720, 120}}, "4C 4C", kNone, "0*"},
    });
}

TEST(Rules, TheMiddleOfRowFiveIsFreeWhileOneHalfOfTheRowIsBare) {
    runScripts({
        {"both halves taken", {{"5H", 4920, 6360}, {"9C", 3000, 6360}, {"9D", 6840, 6360}}, "5H", kWrong, "0*"},
        {"left half only", {{"5H", 4920, 6360}, {"9C", 3000, 6360}}, "5H", kNone, "5H*"},
        {"right half only", {{"5H", 4920, 6360}, {"9D", 6840, 6360}}, "5H", kNone, "5H*"},
        {"both halves hold only stacked cards", {{"5H", 4920, 6360}, {"9C", 3000, 6600}, {"9D", 6840, 6600}}, "5H", kNone, "5H*"},
        {"both halves at another Top", {{"5H", 4920, 6360}, {"9C", 3000, 4800}, {"9D", 6840, 4800}}, "5H", kNone, "5H*"},
        {"covered", kMiddleOfRowFiveCovered, "5H", kWrong, "0*"},
        {"the card lying on it stays put", kMiddleOfRowFiveCovered, "4H", kNone, "0*"},
        {"a card played onto it is stuck", {{"5H", 4920, 6360}, {"4H", 6840, 6360}}, "4H 5H 4H", kNone, "0* 4H@5.6+"},
        {"and its base is covered then", {{"5H", 4920, 6360}, {"4H", 6840, 6360}}, "4H 5H 5H", kWrong, "0*"},
    });
}

// The second click; the card to play waits alone at the left end of row 3.
TEST(Rules, TheTargetIsAnUncoveredCardOfTheSuitOneRankAway) {
    runScripts({
        {"a covered card", {{"10S", 120, 3240}, {"9S", 2040, 1680}, {"8S", 2040, "+"}}, "10S 9S", kWrong, "10S*"},
        {"a card with a 2 lying on it", {{"4S", 120, 3240}, {"3S", 2040, 1680}, {"2S", 2040, "+"}}, "4S 3S", kWrong, "4S*"},
        {"the visible top of a cell", {{"7S", 120, 3240}, {"9S", 2040, 1680}, {"8S", 2040, "+"}}, "7S 8S", kMovedHome,
         "7S@2.3+ 8S<7S"},
        {"a card stacked next door is no cover",
         {{"10S", 120, 3240}, {"9S", 2040, 1680}, {"5H", 3000, 1680}, {"6H", 3000, "+"}}, "10S 9S", kMovedHome, "10S@2.3+"},
        {"a foundation's top card", {{"3S", 120, 3240}, {"2S", 4920, 1920}}, "3S 2S", kMovedHome, "3S@2.6+ 2S<3S"},
        {"one rank higher", {{"QS", 120, 3240}, {"KS", 9720, 120}}, "QS KS", kMoved, "QS@1.11+"},
        {"one rank lower", {{"KS", 120, 3240}, {"QS", 9720, 120}}, "KS QS", kMoved, "KS@1.11+"},
        {"two ranks higher", {{"5S", 120, 3240}, {"7S", 9720, 120}}, "5S 7S", kWrong, "5S*"},
        {"two ranks lower", {{"5S", 120, 3240}, {"3S", 9720, 120}}, "5S 3S", kWrong, "5S*"},
        {"another suit", {{"5S", 120, 3240}, {"6C", 9720, 120}}, "5S 6C", kWrong, "5S*"},
        {"the same rank of another suit", {{"5S", 120, 3240}, {"5C", 9720, 120}}, "5S 5C", kWrong, "5S*"},
    });
}

TEST(Rules, TheTargetIsOutermostInItsHalf) {
    auto stackedInRow = [](int top) {
        return std::vector<Placed>{{"JS", 120, 3240}, {"9S", 8760, top}, {"10S", 8760, "+"}, {"4H", 9720, top}, {"5H", 9720, "+"}};
    };
    runScripts({
        {"a base card farther out", {{"10S", 120, 3240}, {"9S", 8760, 1680}, {"4H", 9720, 1680}}, "10S 9S", kWrong, "10S*"},
        {"left half, a card farther out", {{"6C", 120, 3240}, {"5C", 1080, 1680}, {"9H", 120, 1680}}, "6C 5C", kWrong, "6C*"},
        {"left half, a card farther in", {{"6C", 120, 3240}, {"5C", 1080, 1680}, {"9H", 2040, 1680}}, "6C 5C", kMovedHome, "6C@2.2+"},
        {"an outer card at another Top", {{"10S", 120, 3240}, {"9S", 8760, 1680}, {"4H", 9720, 120}}, "10S 9S", kMovedHome, "10S@2.10+"},
        {"the outermost card", {{"10S", 120, 3240}, {"9S", 9720, 1680}, {"4H", 8760, 1680}}, "10S 9S", kMovedHome, "10S@2.11+"},
        // A card lying on another in rows 1 to 4 is open whatever lies beside it; in row 5 it is not.
        {"lying on a card in row 1", stackedInRow(120), "JS 10S", kMovedHome, "JS@1.10+"},
        {"lying on a card in row 4", stackedInRow(4800), "JS 10S", kMovedHome, "JS@4.10+"},
        {"lying on a card in row 5", stackedInRow(6360), "JS 10S", kWrong, "JS*"},
        {"a foundation's top card beside a stack", {{"3H", 120, 3240}, {"2H", 4920, 360}, {"8S", 120, 120}, {"7S", 120, "+"}},
         "3H 2H", kMovedHome, "3H@1.6+"},
        // As a target the middle column belongs to the left half.
        {"the middle of row 5, a card to its left", {{"5H", 4920, 6360}, {"9C", 1080, 6360}, {"7H", 7800, 6360}, {"6H", 7800, "+"}},
         "6H 5H", kWrong, "6H*"},
        {"the middle of row 5, a card to its right", {{"5H", 4920, 6360}, {"9C", 8760, 6360}, {"7H", 7800, 6360}, {"6H", 7800, "+"}},
         "6H 5H", kMovedHome, "6H@5.6+ 7H@5.6+ 5H<6H<7H"},
        {"right half, a card in the middle", {{"9S", 5880, 6360}, {"4H", 4920, 6360}, {"JS", 1080, 6360}, {"10S", 1080, "+"}},
         "10S 9S", kMovedHome, "10S@5.7+ JS@5.7+"},
        {"left half, a card in the middle", {{"9S", 3960, 6360}, {"4H", 4920, 6360}, {"JS", 7800, 6360}, {"10S", 7800, "+"}},
         "10S 9S", kMovedHome, "10S@5.5+"},
    });
}

TEST(Rules, NothingFromRowsOneToFourOntoABaseCardOfRowFive) {
    runScripts({
        {"a stacked card of row 4", {{"8D", 120, 4800}, {"7D", 120, "+"}, {"6D", 1080, 6360}}, "7D 6D", kWrong, "7D*"},
        {"a base card of row 4", {{"7D", 120, 4800}, {"6D", 1080, 6360}}, "7D 6D", kWrong, "7D*"},
        {"onto a stacked card of row 5", {{"7D", 120, 4800}, {"5D", 1080, 6360}, {"6D", 1080, "+"}}, "7D 6D", kMovedHome, "7D@5.2+"},
        {"a card of row 5", {{"7D", 2040, 6360}, {"6D", 8760, 6360}}, "7D 6D", kMovedHome, "7D@5.10+"},
        {"a card of row 1 onto row 2", {{"7D", 120, 120}, {"6D", 1080, 1680}}, "7D 6D", kMovedHome, "7D@2.2+"},
    });
}

TEST(Rules, AStackedCardCarriesItsCell) {
    runScripts({
        {"ascending: the base card ends on top", {{"7D", 2040, 3240}, {"6D", 2040, "+"}, {"5D", 2040, "+"}, {"4D", 7800, 120}},
         "5D 4D", kMovedHome, "5D@1.9+ 6D@1.9+ 7D@1.9+ 4D<5D<6D<7D"},
        {"descending", {{"5D", 2040, 3240}, {"6D", 2040, "+"}, {"7D", 2040, "+"}, {"8D", 7800, 120}}, "7D 8D", kMovedHome,
         "5D@1.9+ 7D<6D<5D"},
        {"no base card of its suit under it", {{"9H", 120, 120}, {"6S", 120, "+"}, {"7S", 9720, 1680}}, "6S 7S", kWrong, "6S*"},
        {"no base card of its suit, onto the ace", {{"9H", 120, 120}, {"2S", 120, "+"}}, "2S AS", kWrong, "2S*"},
    });
}

TEST(Rules, TheTwoStartsItsFoundationOnTheAce) {
    runScripts({
        {"another suit's ace", {{"2D", 120, 120}}, "2D AH", kWrong, "2D*"},
        {"its own ace", {{"2D", 120, 120}}, "2D AD", kMoved, "2D@3.6+ 0* AD<2D"},
        {"the foundation grows on its top card", {{"2D", 4920, 3480}, {"3D", 9720, 120}}, "3D 2D", kMovedHome, "3D@3.6+ 2D<3D"},
        {"any other rank onto the ace is let go", {{"5D", 120, 1680}}, "5D AD", kNone, "0* 5D@2.1"},
        {"a 2 on a stack takes its cell along", {{"4S", 120, 120}, {"3S", 120, "+"}, {"2S", 120, "+"}}, "2S AS", kMoved,
         "2S@2.6+ 3S@2.6+ 4S@2.6+ 2S<3S<4S"},
    });
}

TEST(Rules, ThePilePlacesFillEmptyCells) {
    const std::vector<Placed> seven{{"7S", 120, 1680}};
    const std::vector<Placed> clubs{{"9C", 1080, 120}, {"8C", 1080, "+"}, {"7C", 1080, "+"}};
    const std::vector<Placed> spadesOnHearts{{"9H", 120, 120}, {"6S", 120, "+"}};
    runScripts({
        {"nothing selected", seven, "P1", kWrong, "P1"},
        {"Image1", seven, "7S P1", kMoved, "7S@1.5 0* -P1"},
        {"Image9, below the aces", seven, "7S P9", kMoved, "7S@5.6 -P9"},
        {"row 5's places take no card of rows 1 to 4", {{"7S", 120, 4800}}, "7S P10", kWrong, "7S* P10"},
        {"nor does the other", {{"7S", 120, 4800}}, "7S P11", kWrong, "7S*"},
        {"a base card of row 5", {{"8H", 1080, 6360}}, "8H P10", kMoved, "8H@5.5"},
        {"a cell of row 5, turned over", {{"5D", 7800, 6360}, {"6D", 7800, "+"}}, "6D P11", kMoved, "6D@5.7 5D@5.7+ -P11"},
        {"a cell is laid down turned over", clubs, "7C P5", kMoved, "7C@3.5 8C@3.5+ 9C@3.5+ 7C<8C<9C"},
        {"and over again", clubs, "7C P5 9C P8", kMoved, "9C@4.7 8C@4.7+ 7C@4.7+ 8C<7C P5"},
        {"below the aces the card goes alone", clubs, "7C P9", kMoved, "7C@5.6 8C@1.2+ 9C@1.2"},
        {"a cell with no base card of its suit", spadesOnHearts, "6S P1", kWrong, "6S*"},
        {"which may go alone below the aces", spadesOnHearts, "6S P9", kMoved, "6S@5.6"},
    });
}

TEST(Rules, TheGameIsWonWhenAGridMoveFindsTheKingsHome) {
    std::vector<Placed> spades{{"KS", 120, 1680}};
    for (const char* name : {"QS", "JS", "10S", "9S", "8S", "7S", "6S", "5S", "4S", "3S", "2S"}) spades.push_back({name, 120, "+"});
    spades.push_back({"5H", 120, 120});
    spades.push_back({"6H", 9720, 4800});
    runScripts({
        {"a king still out", {{"KS", 120, 1680}, {"5H", 120, 120}, {"6H", 9720, 4800}}, "5H 6H", kMoved, ""},
        {"the last king home", {{"KS", 120, 1680}}, "KS QS", kMovedHome, "KS@2.6+"},
        {"a run onto an ace is not looked at", spades, "2S AS", kMoved, "KS@2.6+"},
        {"the next grid move is", spades, "2S AS 5H 6H", kMovedHome, ""},
        {"nor is a move to a pile place", {{"5H", 120, 120}}, "5H P1", kMoved, ""},
    });
}

TEST(Rules, BeforeTheFirstDealEveryCardAsksForANewGame) {
    Board b = Board::loaded();
    const Board before = b;
    for (int16_t s = 1; s <= 4; ++s)
        for (int16_t r = 1; r <= 13; ++r) EXPECT_EQ(b.clickCard(s, r), r == 1 ? kCannot : kNewGame) << cardName({s, r});
    EXPECT_EQ(b.clickPile(9), kWrong);
    EXPECT_EQ(b, before);
    ASSERT_EQ(b.showLayout(reverseDeal().raskl), LayoutProblem::None);  // a stored layout is shown, not dealt
    EXPECT_EQ(clickOn(b, "KC"), kNewGame);
}

// A refused first click writes the selected card's names, which nothing reads
// while nothing is selected: the board is still equal. A selection is not.
TEST(Rules, EqualityIsWhatTheNextClickReads) {
    Board b = reverseDeal();
    const Board before = b;
    EXPECT_EQ(clickOn(b, "QC"), kWrong);
    EXPECT_EQ(b.karta1, card("QC"));
    EXPECT_EQ(b, before);
    EXPECT_EQ(clickOn(b, "KC"), kNone);
    EXPECT_NE(b, before);
    Board other = b;
    other.karta1 = card("QC");
    EXPECT_NE(other, b);
}

// A deal takes the selected card's border but not the selection: the card
// clicked again is let go, a pile place still takes it, an ace still takes its
// 2, and any other card answers "wrong move" and lets the card go.
TEST(Rules, ASelectionWhoseBorderADealTookAway) {
    const std::tuple<const char*, const char*, Reaction, Cell> next[] = {
        {"KC", "KC", kNone, {1, 1, false}},  {"KC", "P9", kMoved, {5, 6, false}},
        {"KC", "8C", kWrong, {1, 1, false}}, {"2H", "AH", kMoved, foundationOf(1)}};
    for (const auto& [selected, click, expected, lands] : next) {
        Board b = reverseDeal();
        clickOn(b, selected);
        ScriptedRandom again(reverseDraws());
        b.rasklad(again);
        ASSERT_TRUE(b.vybor == 2 && b.border(card(selected).suit, card(selected).rank) == 0);
        EXPECT_EQ(clickOn(b, click), expected) << click;
        EXPECT_EQ(b.vybor, 1) << click;
        EXPECT_EQ(b.cell(card(selected)), lands) << click;
    }
}

}  // namespace
}  // namespace vorn
