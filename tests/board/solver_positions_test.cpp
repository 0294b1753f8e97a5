// The solver on small positions whose answers are known by hand.
#include <gtest/gtest.h>

#include "board/notation.h"
#include "board/solver.h"
#include "board/solver_moves.h"
#include "solver_support.h"

namespace vorn {
namespace {

Hit on(std::string_view name) { return Hit{Hit::Kind::Card, card(name), 0}; }
Hit pile(int image) { return Hit{Hit::Kind::Pile, Card{}, image}; }

// Plays the clicks on a copy and returns the board they leave, checking that
// every two-click move really moved something.
Board played(Board board, const std::vector<Hit>& clicks) {
    for (size_t i = clicks.size() % 2; i + 1 < clicks.size(); i += 2) {
        board.click(clicks[i]);
        EXPECT_TRUE(board.click(clicks[i + 1]).moved) << "move " << i / 2 + 1 << " moved nothing";
    }
    return board;
}

TEST(SolverPositions, AKingNextToItsFoundationIsWonInOneMove) {
    const Board b = boardFrom({{"KH", 120, 120}});
    const Verdict v = solve(b);
    ASSERT_EQ(v.outcome, Outcome::Won) << v.reason;
    EXPECT_EQ(v.clicks, (std::vector<Hit>{on("KH"), on("QH")}));
    EXPECT_EQ(v.moveCount(), 1);
    EXPECT_TRUE(kingsHome(played(b, v.clicks)));
}

TEST(SolverPositions, AWonPositionNeedsNoClicks) {
    const Verdict v = solve(boardFrom({}));
    EXPECT_EQ(v.outcome, Outcome::Won);
    EXPECT_TRUE(v.clicks.empty());
}

// The king lies outside its queen in row 1, so the queen is not free and the
// king cannot be played onto her (she is not the outermost card either): the king
// has to make room on a pile place first. Three moves at the least.
TEST(SolverPositions, AKingInTheWayGoesToAPilePlaceFirst) {
    const Board b = boardFrom({{"KS", 120, 120}, {"QS", 1080, 120}});
    const Verdict v = solve(b);
    ASSERT_EQ(v.outcome, Outcome::Won) << v.reason;
    EXPECT_EQ(v.moveCount(), 3);
    EXPECT_EQ(v.clicks[0], on("KS"));
    EXPECT_EQ(v.clicks[1].kind, Hit::Kind::Pile);
    EXPECT_TRUE(kingsHome(played(b, v.clicks)));
}

// 4, 3, 2 of hearts make one cell; selecting its 2 and clicking the ace carries
// the whole cell onto the foundation, the 4 on top. The rest of the suit lies
// in one cell from the king down to the 5 and follows in one more move.
TEST(SolverPositions, ARunCarriesItsTwoOntoTheAce) {
    const Board b = boardFrom({{"4H", 120, 120}, {"3H", 120, "+"}, {"2H", 120, "+"},
                               {"KH", 9720, 1680}, {"QH", 9720, "+"}, {"JH", 9720, "+"}, {"10H", 9720, "+"},
                               {"9H", 9720, "+"}, {"8H", 9720, "+"}, {"7H", 9720, "+"}, {"6H", 9720, "+"},
                               {"5H", 9720, "+"}});
    const Verdict v = solve(b);
    ASSERT_EQ(v.outcome, Outcome::Won) << v.reason;
    EXPECT_EQ(v.clicks, (std::vector<Hit>{on("2H"), on("AH"), on("5H"), on("4H")}));
}

// The last move plays a run onto an ace: konec does not run after an ace click,
// so the board does not announce the win, but the four kings are home.
TEST(SolverPositions, ARunOntoTheAceCanWinUnannounced) {
    Board b = boardFrom({{"KC", 9720, 4800}, {"QC", 9720, "+"}, {"JC", 9720, "+"}, {"10C", 9720, "+"},
                         {"9C", 9720, "+"}, {"8C", 9720, "+"}, {"7C", 9720, "+"}, {"6C", 9720, "+"},
                         {"5C", 9720, "+"}, {"4C", 9720, "+"}, {"3C", 9720, "+"}, {"2C", 9720, "+"}});
    const Verdict v = solve(b);
    ASSERT_EQ(v.outcome, Outcome::Won) << v.reason;
    ASSERT_EQ(v.clicks, (std::vector<Hit>{on("2C"), on("AC")}));
    b.click(v.clicks[0]);
    const Reaction last = b.click(v.clicks[1]);
    EXPECT_TRUE(last.moved);
    EXPECT_FALSE(last.won);
    EXPECT_TRUE(kingsHome(b));
}

// The queen on the middle place of row 5 is hemmed in while both halves of row 5
// hold a card at its Top; the king of spades has to go home first.
TEST(SolverPositions, TheMiddlePlaceOfRowFiveWaitsForAHalfToEmpty) {
    const Board b = boardFrom({{"QH", 4920, 6360}, {"KH", 120, 120}, {"KS", 1080, 6360}, {"KC", 8760, 6360}});
    for (const solver::Child& c : solver::movesFrom(b)) EXPECT_NE(c.move.first, on("QH"));
    const Verdict v = solve(b);
    ASSERT_EQ(v.outcome, Outcome::Won) << v.reason;
    EXPECT_EQ(v.moveCount(), 4);
    EXPECT_TRUE(kingsHome(played(b, v.clicks)));
}

// A card played onto a card on the middle place of row 5 can never be selected
// again, nor the card under it: with them the game is lost.
TEST(SolverPositions, CardsStuckBelowTheAcesLoseTheGame) {
    const Board b = boardFrom({{"JH", 4920, 6360}, {"QH", 4920, "+"}, {"KH", 120, 120}});
    const Verdict v = solve(b);
    EXPECT_EQ(v.outcome, Outcome::Lost);
    EXPECT_TRUE(v.clicks.empty());
}

TEST(SolverPositions, ASelectedCardIsDeselectedByTheFirstClick) {
    Board b = boardFrom({{"KS", 120, 120}, {"QS", 1080, 120}});
    b.click(on("KS"));
    ASSERT_EQ(b.vybor, 2);
    const Verdict v = solve(b);
    ASSERT_EQ(v.outcome, Outcome::Won);
    EXPECT_EQ(v.clicks.size(), 7u);
    EXPECT_EQ(v.clicks[0], on("KS"));
    EXPECT_EQ(v.moveCount(), 3);
    EXPECT_TRUE(replayWins(b, v.clicks));
    const std::vector<Hit> next = hint(b);
    ASSERT_EQ(next.size(), 2u);
    EXPECT_EQ(next[0], on("KS"));
    EXPECT_EQ(next[1].kind, Hit::Kind::Pile);
}

TEST(SolverPositions, ALimitTooSmallGivesUnknown) {
    Limits tight;
    tight.maxPositions = 3;
    const Verdict v = solve(testing::seededDeal(1), tight);
    EXPECT_EQ(v.outcome, Outcome::Unknown);
    EXPECT_TRUE(v.clicks.empty());
    EXPECT_LE(v.positions, 3u);
    EXPECT_TRUE(hint(testing::seededDeal(1), tight).empty());
}

TEST(SolverPositions, ReplayRejectsALineThatDoesNotWin) {
    const Board b = boardFrom({{"KS", 120, 120}, {"QS", 1080, 120}});
    EXPECT_FALSE(replayWins(b, {on("KS"), pile(1)}));
    EXPECT_TRUE(replayWins(b, {on("KS"), pile(1), on("QS"), on("JS"), on("KS"), on("QS")}));
}

// Positions the clicks cannot produce are refused, never answered.
TEST(SolverPositions, MalformedPositionsAreRefused) {
    struct Case {
        const char* what;
        Board board;
        const char* reason;  // part of the reason given
    };
    Board notDealt = Board::loaded();
    Board twoOnOnePlace = testing::seededDeal(3);
    twoOnOnePlace.mesta(1, 2) = twoOnOnePlace.mesta(1, 3);
    twoOnOnePlace.rasklzan();
    Board offTheGrid = testing::seededDeal(3);
    offTheGrid.kartleft(2, 7) = 0;
    offTheGrid.karttop(2, 7) = 0;
    Board brokenRun = boardFrom({{"KS", 120, 120}, {"JS", 120, "+"}, {"QS", 1080, 1680}});
    Board mixedSuits = boardFrom({{"KS", 120, 120}, {"KH", 120, "+"}});
    Board wrongFront = boardFrom({{"9S", 120, 120}, {"10S", 120, "+"}, {"JS", 120, "+"}, {"QS", 1080, 120},
                                  {"KS", 2040, 120}});
    wrongFront.zorder(2, 10) = wrongFront.zcounter + 1;
    Board aceMoved = boardFrom({});
    aceMoved.kartleft(3, 1) = 120;
    Board rowFiveEnd = boardFrom({{"KD", 120, 6360}});
    const Case cases[] = {
        {"not dealt", notDealt, "New game"},
        {"two cards on one place", twoOnOnePlace, "lie on one place"},
        {"off the grid", offTheGrid, "7S lies off the grid at (0, 0)"},
        {"broken run", brokenRun, "the cell of KS is not one suit's unbroken run"},
        {"two suits in a cell", mixedSuits, "the cell of KS is not one suit's unbroken run"},
        {"front not at the end", wrongFront, "the cards on 9S lie in an order no move makes"},
        {"ace moved", aceMoved, "the ace AD is not at its place"},
        {"row 5, column 1", rowFiveEnd, "KD lies where no card can be, at (120, 6360)"},
    };
    for (const Case& c : cases) {
        const Verdict v = solve(c.board);
        EXPECT_EQ(v.outcome, Outcome::Refused) << c.what;
        EXPECT_NE(v.reason.find(c.reason), std::string::npos) << c.what << ": " << v.reason;
        EXPECT_TRUE(v.clicks.empty()) << c.what;
    }
}

TEST(SolverPositions, OutcomesHaveNames) {
    EXPECT_EQ(outcomeName(Outcome::Won), "won");
    EXPECT_EQ(outcomeName(Outcome::Lost), "lost");
    EXPECT_EQ(outcomeName(Outcome::Unknown), "unknown");
    EXPECT_EQ(outcomeName(Outcome::Refused), "refused");
}

}  // namespace
}  // namespace vorn
