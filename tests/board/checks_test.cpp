// The checks, one table per click. A first click asks whether a card may be
// selected; a second click whether the target takes the selected card. Every
// case is a position written with boardFrom and the cards clicked by name.
#include "fixtures.h"

namespace vorn {
namespace {

using namespace vorn::testing;

enum class Selection { Selected, Refused, Ignored };

struct FirstClick {
    const char* what;
    std::vector<Placed> position;
    const char* card;
    Selection outcome;
};

void runFirstClicks(const std::vector<FirstClick>& cases) {
    for (const FirstClick& c : cases) {
        Board b = boardFrom(c.position);
        const Board before = b;
        const Reaction got = clickOn(b, c.card);
        const Message expected = c.outcome == Selection::Refused ? Message::WrongMove : Message::None;
        EXPECT_EQ(got.message, expected) << c.what << "\n" << describe(before);
        EXPECT_EQ(b.isSelected(card(c.card)), c.outcome == Selection::Selected) << c.what;
        EXPECT_EQ(b.kartleft, before.kartleft) << c.what;
        EXPECT_EQ(b.karttop, before.karttop) << c.what;
    }
}

// The second click: the target refuses the card (wrong move, nothing moves, the
// card stays selected) or takes it, and the card lands on the target's cell.
struct SecondClick {
    const char* what;
    std::vector<Placed> position;
    const char* selected;
    const char* target;
    bool refuses;
};

void runSecondClicks(const std::vector<SecondClick>& cases) {
    for (const SecondClick& c : cases) {
        Board b = boardFrom(c.position);
        clickOn(b, c.selected);
        ASSERT_TRUE(b.isSelected(card(c.selected))) << c.what << ": the card cannot be selected\n" << describe(b);
        const Board before = b;
        const Cell target = b.cell(card(c.target));
        const Reaction got = clickOn(b, c.target);
        if (c.refuses) {
            EXPECT_EQ(got, kWrong) << c.what << "\n" << describe(before);
            EXPECT_TRUE(samePicture(b, before)) << c.what;
            continue;
        }
        EXPECT_TRUE(got.moved) << c.what << "\n" << describe(before);
        EXPECT_EQ(b.cell(card(c.selected)), (Cell{target.row, target.col, true})) << c.what;
    }
}

// Row 2 filled from end to end; 2H is the outermost card of its left half.
const std::vector<Placed> kFullRowTwo{{"2H", 120, 1680},  {"3H", 1080, 1680}, {"4H", 2040, 1680}, {"5H", 3000, 1680},
                                      {"6H", 3960, 1680}, {"7H", 5880, 1680}, {"8H", 6840, 1680}, {"9H", 7800, 1680},
                                      {"10H", 8760, 1680}, {"JH", 9720, 1680}};

using enum Selection;

TEST(FirstClick, ABaseCardIsFreeWhenOutermostInItsHalfAndUncovered) {
    runFirstClicks({
        {"outermost of a full left half", kFullRowTwo, "2H", Selected},
        {"second from the left edge", kFullRowTwo, "3H", Refused},
        {"innermost of the left half", kFullRowTwo, "6H", Refused},
        {"innermost of the right half", kFullRowTwo, "7H", Refused},
        {"outermost of the right half", kFullRowTwo, "JH", Selected},
        {"right edge taken", {{"5D", 9720, 3240}, {"6D", 8760, 3240}}, "6D", Refused},
        {"right edge empty", {{"6D", 8760, 3240}}, "6D", Selected},
        {"right edge card itself", {{"5D", 9720, 3240}, {"6D", 8760, 3240}}, "5D", Selected},
        {"left-half card does not block the right half", {{"8C", 120, 120}, {"7C", 5880, 120}}, "7C", Selected},
        {"right-half card does not block the left half", {{"8C", 9720, 120}, {"7C", 3960, 120}}, "7C", Selected},
        {"outer card in another row", {{"8C", 120, 1680}, {"7C", 1080, 120}}, "7C", Selected},
        {"outer card with a card on it", {{"8C", 120, 4800}, {"9C", 120, "+"}, {"5S", 1080, 4800}}, "5S", Refused},
        {"covered", {{"9S", 2040, 4800}, {"8S", 2040, "+"}}, "9S", Refused},
        {"the card lying on it is free", {{"9S", 2040, 4800}, {"8S", 2040, "+"}}, "8S", Selected},
        {"stacked, with a stack farther out", {{"9H", 120, 120}, {"10H", 120, "+"}, {"8H", 1080, 120}, {"7H", 1080, "+"}}, "7H", Selected},
        {"card at the next row's top is no cover", {{"9S", 2040, 120}, {"8S", 2040, 1680}}, "9S", Selected},
        {"a foundation's top card stays home", {{"KS", 120, 1680}}, "QS", Ignored},
    });
}

TEST(FirstClick, TheMiddleOfRowFiveIsFreeWhileOneHalfOfTheRowIsEmpty) {
    runFirstClicks({
        {"both halves taken", {{"5H", 4920, 6360}, {"9C", 3000, 6360}, {"9D", 6840, 6360}}, "5H", Refused},
        {"left half only", {{"5H", 4920, 6360}, {"9C", 3000, 6360}}, "5H", Selected},
        {"right half only", {{"5H", 4920, 6360}, {"9D", 6840, 6360}}, "5H", Selected},
        {"both halves at another Top", {{"5H", 4920, 6360}, {"9C", 3000, 4800}, {"9D", 6840, 4800}}, "5H", Selected},
        {"both halves hold only stacked cards",
         {{"5H", 4920, 6360}, {"9C", 3000, 6600}, {"9D", 6840, 6600}}, "5H", Selected},
        {"beside the middle, only its own half counts", {{"5H", 3960, 6360}, {"9D", 6840, 6360}}, "5H", Selected},
        {"covered", {{"5H", 4920, 6360}, {"4H", 4920, "+"}}, "5H", Refused},
        {"the card lying on it stays put", {{"5H", 4920, 6360}, {"4H", 4920, "+"}}, "4H", Ignored},
    });
}

// The card to move waits alone at the left end of row 3 unless row 5 needs it.
TEST(SecondClick, TheTargetMustNotBeCovered) {
    runSecondClicks({
        {"base with a card on it", {{"10S", 120, 3240}, {"9S", 2040, 1680}, {"8S", 2040, "+"}}, "10S", "9S", true},
        {"a 2 lying on it", {{"4S", 120, 3240}, {"3S", 2040, 1680}, {"2S", 2040, "+"}}, "4S", "3S", true},
        {"visible top of a cell", {{"7S", 120, 3240}, {"9S", 2040, 1680}, {"8S", 2040, "+"}}, "7S", "8S", false},
        {"card stacked in the next column",
         {{"10S", 120, 3240}, {"9S", 2040, 1680}, {"5H", 3000, 1680}, {"6H", 3000, "+"}}, "10S", "9S", false},
        {"bare base", {{"10S", 120, 3240}, {"9S", 2040, 1680}}, "10S", "9S", false},
        {"foundation top", {{"3S", 120, 3240}, {"2S", 4920, 1920}}, "3S", "2S", false},
    });
}

TEST(SecondClick, TheTargetMustBeOfTheSuitAndOneRankAway) {
    runSecondClicks({
        {"one higher", {{"QS", 120, 3240}, {"KS", 9720, 120}}, "QS", "KS", false},
        {"one lower", {{"KS", 120, 3240}, {"QS", 9720, 120}}, "KS", "QS", false},
        {"two higher", {{"5S", 120, 3240}, {"7S", 9720, 120}}, "5S", "7S", true},
        {"two lower", {{"5S", 120, 3240}, {"3S", 9720, 120}}, "5S", "3S", true},
        {"another suit", {{"5S", 120, 3240}, {"6C", 9720, 120}}, "5S", "6C", true},
        {"the same rank of another suit", {{"5S", 120, 3240}, {"5C", 9720, 120}}, "5S", "5C", true},
    });
}

TEST(SecondClick, TheTargetMustBeOutermostInItsHalf) {
    runSecondClicks({
        {"base target beside a base card farther out", {{"10S", 120, 3240}, {"9S", 8760, 1680}, {"4H", 9720, 1680}},
         "10S", "9S", true},
        {"left-half base with a card farther out", {{"6C", 120, 3240}, {"5C", 1080, 1680}, {"9H", 120, 1680}},
         "6C", "5C", true},
        {"left-half base with a card farther in only", {{"6C", 120, 3240}, {"5C", 1080, 1680}, {"9H", 2040, 1680}},
         "6C", "5C", false},
        {"outer card at another Top", {{"10S", 120, 3240}, {"9S", 8760, 1680}, {"4H", 9720, 120}}, "10S", "9S", false},
        {"outermost target", {{"10S", 120, 3240}, {"9S", 9720, 1680}, {"4H", 8760, 1680}}, "10S", "9S", false},
        // A target lying on a card in rows 1 to 4 is open whatever lies beside it; in row 5 it is not.
        {"stacked target of row 1", {{"JS", 120, 3240}, {"9S", 8760, 120}, {"10S", 8760, "+"}, {"4H", 9720, 120}, {"5H", 9720, "+"}},
         "JS", "10S", false},
        {"stacked target of row 2", {{"JS", 120, 3240}, {"9S", 8760, 1680}, {"10S", 8760, "+"}, {"4H", 9720, 1680}, {"5H", 9720, "+"}},
         "JS", "10S", false},
        {"stacked target of row 3", {{"JS", 120, 3240}, {"9S", 8760, 3240}, {"10S", 8760, "+"}, {"4H", 9720, 3240}, {"5H", 9720, "+"}},
         "JS", "10S", false},
        {"stacked target of row 4", {{"JS", 120, 3240}, {"9S", 8760, 4800}, {"10S", 8760, "+"}, {"4H", 9720, 4800}, {"5H", 9720, "+"}},
         "JS", "10S", false},
        {"stacked target of row 5", {{"JS", 120, 3240}, {"9S", 8760, 6360}, {"10S", 8760, "+"}, {"4H", 9720, 6360}, {"5H", 9720, "+"}},
         "JS", "10S", true},
        {"foundation top beside a stack on the left", {{"3H", 120, 3240}, {"2H", 4920, 360}, {"8S", 120, 120}, {"7S", 120, "+"}},
         "3H", "2H", false},
        // The middle column belongs to the left half here.
        {"middle of row 5, card to its left", {{"5H", 4920, 6360}, {"9C", 1080, 6360}, {"7H", 7800, 6360}, {"6H", 7800, "+"}},
         "6H", "5H", true},
        {"middle of row 5, card to its right only", {{"5H", 4920, 6360}, {"9C", 8760, 6360}, {"7H", 7800, 6360}, {"6H", 7800, "+"}},
         "6H", "5H", false},
        {"right-half target, card in the middle column", {{"9S", 5880, 6360}, {"4H", 4920, 6360}, {"JS", 1080, 6360}, {"10S", 1080, "+"}},
         "10S", "9S", false},
        {"left-half target, card in the middle column", {{"9S", 3960, 6360}, {"4H", 4920, 6360}, {"JS", 7800, 6360}, {"10S", 7800, "+"}},
         "10S", "9S", false},
    });
}

TEST(SecondClick, NothingFromRowsOneToFourOntoABaseCardOfRowFive) {
    runSecondClicks({
        {"stacked card of row 4 onto a row-5 base", {{"8D", 120, 4800}, {"7D", 120, "+"}, {"6D", 1080, 6360}}, "7D", "6D", true},
        {"base card of row 4 onto a row-5 base", {{"7D", 120, 4800}, {"6D", 1080, 6360}}, "7D", "6D", true},
        {"row-4 card onto a stacked row-5 card", {{"7D", 120, 4800}, {"5D", 1080, 6360}, {"6D", 1080, "+"}}, "7D", "6D", false},
        {"row-5 card onto a row-5 base", {{"7D", 2040, 6360}, {"6D", 8760, 6360}}, "7D", "6D", false},
        {"stacked row-5 card onto a row-5 base", {{"8D", 2040, 6360}, {"7D", 2040, "+"}, {"6D", 1080, 6360}}, "7D", "6D", false},
        {"row-1 card onto a row-2 base", {{"7D", 120, 120}, {"6D", 1080, 1680}}, "7D", "6D", false},
    });
}

}  // namespace
}  // namespace vorn
