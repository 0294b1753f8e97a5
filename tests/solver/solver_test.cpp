// The solver on small positions whose answers are known by hand, on a selected
// card, and on positions it must refuse (a limit reached: the window's solver test).
#include <gtest/gtest.h>

#include "solver/solver.h"
#include "support/fixtures.h"

namespace vorn {

inline void PrintTo(const CardMove& m, std::ostream* os) {
    *os << cardName(m.card) << " -> " << (m.target.kind == Hit::Kind::Pile ? "Image" + std::to_string(m.target.pile)
                                                                            : cardName(m.target.card));
}

namespace {

Hit on(std::string_view name) { return {Hit::Kind::Card, card(name), 0}; }
CardMove play(std::string_view name, Hit target) { return {card(name), target}; }

TEST(Solver, SmallPositionsHaveKnownAnswers) {
    struct Case {
        const char* what;
        Board board;
        Outcome outcome;
        size_t moves;
        std::vector<CardMove> line;  // checked when given: the one shortest line
    };
    const Case cases[] = {
        {"won already", boardFrom({}), Outcome::Won, 0, {}},
        {"a king beside its queen", boardFrom({{"KH", 120, 120}}), Outcome::Won, 1, {play("KH", on("QH"))}},
        // The king lies outside its queen, so neither can go home: the king
        // makes room on a pile place first.
        {"a king in the way", boardFrom({{"KS", 120, 120}, {"QS", 1080, 120}}), Outcome::Won, 3, {}},
        // Selecting the 2 of a cell and clicking the ace carries the whole cell home.
        {"a run onto its ace",
         boardFrom({{"4H", 120, 120}, {"3H", 120, "+"}, {"2H", 120, "+"}, {"KH", 9720, 1680}, {"QH", 9720, "+"},
                    {"JH", 9720, "+"}, {"10H", 9720, "+"}, {"9H", 9720, "+"}, {"8H", 9720, "+"},
                    {"7H", 9720, "+"}, {"6H", 9720, "+"}, {"5H", 9720, "+"}}),
         Outcome::Won, 2, {play("2H", on("AH")), play("5H", on("4H"))}},
        // The last move, a run onto the ace, wins though the board does not say so
        // (konec does not run after a click on an ace): the kings are home all the same.
        {"a run home onto its ace",
         boardFrom({{"KC", 9720, 4800}, {"QC", 9720, "+"}, {"JC", 9720, "+"}, {"10C", 9720, "+"}, {"9C", 9720, "+"},
                    {"8C", 9720, "+"}, {"7C", 9720, "+"}, {"6C", 9720, "+"}, {"5C", 9720, "+"}, {"4C", 9720, "+"},
                    {"3C", 9720, "+"}, {"2C", 9720, "+"}}),
         Outcome::Won, 1, {play("2C", on("AC"))}},
        // The queen below the aces is hemmed in while both halves of row 5 hold
        // a base card: a king of row 5 goes home first.
        {"the middle of row 5",
         boardFrom({{"QH", 4920, 6360}, {"KH", 120, 120}, {"KS", 1080, 6360}, {"KC", 8760, 6360}}), Outcome::Won,
         4, {}},
        // A card laid on the card below the aces never moves again, nor that card.
        {"cards stuck below the aces", boardFrom({{"JH", 4920, 6360}, {"QH", 4920, "+"}, {"KH", 120, 120}}),
         Outcome::Lost, 0, {}},
    };
    for (const Case& c : cases) {
        const Verdict v = solve(c.board);
        EXPECT_EQ(v.outcome, c.outcome) << c.what << ": " << v.reason;
        EXPECT_EQ(v.moves.size(), c.moves) << c.what;
        EXPECT_TRUE(c.line.empty() || v.moves == c.line) << c.what;
        EXPECT_FALSE(v.deselect) << c.what;
    }
}

// With a card selected the answer starts with the click that clears the
// selection; the hint is the first move after it.
TEST(Solver, ASelectedCardIsDeselectedFirst) {
    Board b = boardFrom({{"KS", 120, 120}, {"QS", 1080, 120}});
    b.click(on("KS"));
    const Verdict v = solve(b);
    ASSERT_EQ(v.outcome, Outcome::Won);
    EXPECT_EQ(v.deselect, on("KS"));
    ASSERT_EQ(v.moves.size(), 3u);
    EXPECT_TRUE(v.clicks().size() == 7 && v.clicks().front() == on("KS"));
    EXPECT_EQ(v.moves.front().card, card("KS"));
    EXPECT_EQ(v.moves.front().target.kind, Hit::Kind::Pile);
}

TEST(Solver, ReplayRejectsALineThatDoesNotWin) {
    const Board b = boardFrom({{"KS", 120, 120}, {"QS", 1080, 120}});
    const Hit pile1{Hit::Kind::Pile, Card{}, 1};
    Verdict line;
    line.moves = {play("KS", pile1)};
    EXPECT_FALSE(replayWins(b, line));
    line.moves = {play("QS", on("JS")), play("KS", on("QS"))};  // the queen is not free yet
    EXPECT_FALSE(replayWins(b, line));
    line.moves = {play("KS", pile1), play("QS", on("JS")), play("KS", on("QS"))};
    EXPECT_TRUE(replayWins(b, line));
}

// Positions the clicks cannot produce are refused, never answered.
TEST(Solver, MalformedPositionsAreRefused) {
    Board twoOnOnePlace = testing::seededDeal(3);
    twoOnOnePlace.mesta(1, 2) = twoOnOnePlace.mesta(1, 3);
    twoOnOnePlace.rasklzan();
    Board offTheGrid = testing::seededDeal(3);
    offTheGrid.kartleft(2, 7) = 0;
    offTheGrid.karttop(2, 7) = 0;
    Board wrongFront = boardFrom({{"9S", 120, 120}, {"10S", 120, "+"}, {"JS", 120, "+"}, {"QS", 1080, 120},
                                  {"KS", 2040, 120}});
    wrongFront.zorder(2, 10) = wrongFront.zcounter + 1;
    Board aceMoved = boardFrom({}), lastAceMoved = boardFrom({});
    aceMoved.kartleft(1, 1) = 120;  // the first ace the check looks at, and the last
    lastAceMoved.kartleft(4, 1) = 120;
    const struct {
        Board board;
        const char* reason;
    } cases[] = {
        {Board::loaded(), "New game"},
        {twoOnOnePlace, "lie on one place"},
        {offTheGrid, "7S lies off the grid at (0, 0)"},
        {boardFrom({{"KS", 120, 120}, {"JS", 120, "+"}, {"QS", 1080, 1680}}), "the cell of KS is not one suit's"},
        {boardFrom({{"KS", 120, 120}, {"KH", 120, "+"}}), "the cell of KS is not one suit's unbroken run"},
        {wrongFront, "the cards on 9S lie in an order no move makes"},
        {aceMoved, "the ace AH is not at its place"},
        {lastAceMoved, "the ace AC is not at its place"},
        {boardFrom({{"KD", 120, 6360}}), "KD lies where no card can be, at (120, 6360)"},
    };
    for (const auto& c : cases) {
        const Verdict v = solve(c.board);
        EXPECT_EQ(v.outcome, Outcome::Refused) << c.reason;
        EXPECT_NE(v.reason.find(c.reason), std::string::npos) << v.reason;
        EXPECT_TRUE(v.moves.empty() && !v.deselect) << c.reason;
    }
}

}  // namespace
}  // namespace vorn
