// The checks, one table per question. Each case is a position, the selected card
// (S) and the target (T), and whether the check refuses.
#include "fixtures.h"

namespace vorn {
namespace {

using namespace vorn::testing;

struct CheckCase {
    const char* what;
    std::vector<Placed> position;
    const char* selected;
    const char* target;
    bool refuses;
};

void runChecks(bool (Board::*check)() const, const std::vector<CheckCase>& cases) {
    for (const CheckCase& c : cases) {
        Board b = boardFrom(c.position);
        const Card s = card(c.selected);
        const Card t = card(c.target);
        b.karta1 = s;
        b.mast1 = s.suit;
        b.rang1 = s.rank;
        b.karta2 = t;
        b.mast2 = t.suit;
        b.rang2 = t.rank;
        const Board before = b;
        EXPECT_EQ((b.*check)(), c.refuses) << c.what << "\n" << describe(b);
        EXPECT_EQ(b, before) << c.what << ": a check changed the board";
    }
}

// Row 2 filled from end to end; 2H is the outermost card of its left half.
const std::vector<Placed> kFullRowTwo{{"2H", 120, 1680},  {"3H", 1080, 1680}, {"4H", 2040, 1680}, {"5H", 3000, 1680},
                                      {"6H", 3960, 1680}, {"7H", 5880, 1680}, {"8H", 6840, 1680}, {"9H", 7800, 1680},
                                      {"10H", 8760, 1680}, {"JH", 9720, 1680}};

TEST(Prov1, SelectedBaseCardIsFreeOnlyWhenOutermostAndUncovered) {
    runChecks(&Board::prov1, {
        {"outermost of a full left half", kFullRowTwo, "2H", "", false},
        {"second from the left edge", kFullRowTwo, "3H", "", true},
        {"innermost of the left half", kFullRowTwo, "6H", "", true},
        {"innermost of the right half", kFullRowTwo, "7H", "", true},
        {"outermost of the right half", kFullRowTwo, "JH", "", false},
        {"right edge taken", {{"5D", 9720, 3240}, {"6D", 8760, 3240}}, "6D", "", true},
        {"right edge empty", {{"6D", 8760, 3240}}, "6D", "", false},
        {"right edge card itself", {{"5D", 9720, 3240}, {"6D", 8760, 3240}}, "5D", "", false},
        {"left-half card does not block the right half", {{"8C", 120, 120}, {"7C", 5880, 120}}, "7C", "", false},
        {"right-half card does not block the left half", {{"8C", 9720, 120}, {"7C", 3960, 120}}, "7C", "", false},
        {"outer card in another row", {{"8C", 120, 1680}, {"7C", 1080, 120}}, "7C", "", false},
        {"covered", {{"9S", 2040, 4800}, {"8S", 2040, "+"}}, "9S", "", true},
        {"card at the next row's top is no cover", {{"9S", 2040, 120}, {"8S", 2040, 1680}}, "9S", "", false},
        {"middle of row 5 with both halves taken", {{"5H", 4920, 6360}, {"9C", 1080, 6360}, {"9D", 8760, 6360}}, "5H", "", false},
        {"middle of row 5 covered", {{"5H", 4920, 6360}, {"4H", 4920, "+"}}, "5H", "", true},
    });
}

TEST(Prov2, TargetIsBlockedByAnOuterCardOfItsHalf) {
    runChecks(&Board::prov2, {
        {"stacked target beside a stacked card farther out",
         {{"9S", 8760, 1680}, {"10S", 8760, "+"}, {"4H", 9720, 1680}, {"5H", 9720, "+"}}, "JS", "10S", false},
        {"base target beside a base card farther out", {{"9S", 8760, 1680}, {"4H", 9720, 1680}}, "10S", "9S", true},
        {"stacked row-5 target beside a stacked card farther out",
         {{"9S", 8760, 6360}, {"10S", 8760, "+"}, {"4H", 9720, 6360}, {"5H", 9720, "+"}}, "JS", "10S", true},
        {"middle of row 5, card to its left", {{"5H", 4920, 6360}, {"9C", 1080, 6360}}, "6H", "5H", true},
        {"middle of row 5, card to its right only", {{"5H", 4920, 6360}, {"9C", 8760, 6360}}, "6H", "5H", false},
        {"foundation top beside a stacked card on the left",
         {{"2H", 4920, 360}, {"8S", 120, 120}, {"7S", 120, "+"}}, "3H", "2H", false},
        {"left-half base with a card farther out", {{"5C", 1080, 1680}, {"9H", 120, 1680}}, "6C", "5C", true},
        {"left-half base with a card farther in only", {{"5C", 1080, 1680}, {"9H", 2040, 1680}}, "6C", "5C", false},
        {"outer card at another Top", {{"9S", 8760, 1680}, {"4H", 9720, 120}}, "10S", "9S", false},
        {"right-half target, card in the middle column", {{"9S", 5880, 6360}, {"4H", 4920, 6360}}, "10S", "9S", false},
        {"left-half target, card in the middle column", {{"9S", 3960, 6360}, {"4H", 4920, 6360}}, "10S", "9S", false},
        {"outermost target", {{"9S", 9720, 1680}, {"4H", 8760, 1680}}, "10S", "9S", false},
    });
}

TEST(Prov3, LandsOnTheStackedTopOfTheTargetsRow) {
    const int16_t cases[][2] = {{120, 360},   {360, 360},   {1680, 1920}, {1920, 1920}, {3240, 3480}, {3480, 3480},
                                {4800, 5040}, {5040, 5040}, {6360, 6600}, {6600, 6600}, {0, 0},       {600, 0}};
    for (const auto& c : cases) {
        Board b = Board::loaded();
        b.karttop(3, 9) = c[0];
        b.karta2 = {3, 9};
        EXPECT_EQ(b.prov3(), c[1]) << "target Top " << c[0];
    }
    Board b = Board::loaded();
    b.karta2 = {};
    EXPECT_EQ(b.prov3(), 0) << "no target";
}

TEST(Prov4, RanksMustBeNeighbours) {
    const int cases[][3] = {{12, 13, 0}, {13, 12, 0}, {2, 1, 0}, {6, 7, 0}, {7, 7, 1},
                            {13, 1, 1},  {1, 13, 1},  {5, 8, 1}, {5, 3, 1}};
    for (const auto& c : cases) {
        Board b = Board::loaded();
        b.rang1 = static_cast<int16_t>(c[0]);
        b.rang2 = static_cast<int16_t>(c[1]);
        EXPECT_EQ(b.prov4(), c[2] == 1) << c[0] << " onto " << c[1];
    }
}

TEST(Prov5, NothingFromRowsOneToFourOntoABaseCardOfRowFive) {
    runChecks(&Board::prov5, {
        {"stacked card of row 4 onto a row-5 base", {{"8D", 120, 4800}, {"7D", 120, "+"}, {"6D", 1080, 6360}}, "7D", "6D", true},
        {"base card of row 4 onto a row-5 base", {{"7D", 120, 4800}, {"6D", 1080, 6360}}, "7D", "6D", true},
        {"row-4 card onto a stacked row-5 card", {{"7D", 120, 4800}, {"5D", 1080, 6360}, {"6D", 1080, "+"}}, "7D", "6D", false},
        {"row-5 card onto a row-5 base", {{"7D", 2040, 6360}, {"6D", 1080, 6360}}, "7D", "6D", false},
        {"stacked row-5 card onto a row-5 base", {{"8D", 2040, 6360}, {"7D", 2040, "+"}, {"6D", 1080, 6360}}, "7D", "6D", false},
        {"row-1 card onto a row-2 base", {{"7D", 120, 120}, {"6D", 1080, 1680}}, "7D", "6D", false},
    });
}

TEST(Prov7, MiddleOfRowFiveIsHemmedInByBothHalves) {
    runChecks(&Board::prov7, {
        {"both halves taken", {{"5H", 4920, 6360}, {"9C", 3000, 6360}, {"9D", 6840, 6360}}, "5H", "", true},
        {"left half only", {{"5H", 4920, 6360}, {"9C", 3000, 6360}}, "5H", "", false},
        {"right half only", {{"5H", 4920, 6360}, {"9D", 6840, 6360}}, "5H", "", false},
        {"both halves, but the card is not in the middle", {{"5H", 3960, 6360}, {"9C", 3000, 6360}, {"9D", 6840, 6360}}, "5H", "", false},
        {"both halves at another Top", {{"5H", 4920, 6360}, {"9C", 3000, 4800}, {"9D", 6840, 4800}}, "5H", "", false},
    });
}

TEST(Prov10, TargetIsCoveredWhenACardLiesOnIt) {
    runChecks(&Board::prov10, {
        {"base with a card on it", {{"9S", 2040, 1680}, {"8S", 2040, "+"}}, "10S", "9S", true},
        {"visible top of a cell", {{"9S", 2040, 1680}, {"8S", 2040, "+"}}, "7S", "8S", false},
        {"card stacked in the next column", {{"9S", 2040, 1680}, {"5H", 3000, 1680}, {"6H", 3000, "+"}}, "10S", "9S", false},
        {"bare base", {{"9S", 2040, 1680}}, "10S", "9S", false},
        {"foundation top", {{"2S", 4920, 1920}}, "3S", "2S", false},
    });
}

}  // namespace
}  // namespace vorn
