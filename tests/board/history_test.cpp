// Taking moves back and playing them again: random playouts undone to the deal
// and redone to their end, and the small rules of the two stacks.
#include <algorithm>
#include <random>
#include <vector>

#include "board/history.h"
#include "fixtures.h"

namespace vorn {
namespace {

using namespace vorn::testing;

bool nothingSelected(const Board& b) {
    for (int s = 1; s <= 4; ++s)
        for (int r = 1; r <= 13; ++r)
            if (b.border(s, r) != 0) return false;
    return b.vybor == 1;
}

// Everything a player can click: the cards that show and the bare pile places.
std::vector<Hit> clickables(const Board& b) {
    std::vector<Hit> out;
    for (int left : kColumnLefts)
        for (int top : kRowTops)
            for (int dy : {1, 600}) {
                const Hit h = b.hitAt(left + 1, top + dy);
                if (h.kind == Hit::Kind::Nothing) continue;
                if (h.kind == Hit::Kind::Pile && !b.pileVisible(h.pile)) continue;
                if (std::find(out.begin(), out.end(), h) == out.end()) out.push_back(h);
            }
    return out;
}

// The next click of a random playout: now and then any click at all, else the
// first click of a move that some target accepts, or that target.
Hit pick(const Board& b, std::mt19937_64& rng) {
    const std::vector<Hit> options = clickables(b);
    if (rng() % 6 == 0) return options[rng() % options.size()];
    std::vector<Hit> acting;
    if (b.vybor == 2) {
        for (const Hit& h : options) {
            Board trial = b;
            if (trial.click(h).moved) acting.push_back(h);
        }
        // A selected card that cannot go anywhere is taken back.
        if (acting.empty()) acting.push_back({Hit::Kind::Card, b.karta1, 0});
    } else {
        for (const Hit& first : options) {
            Board trial = b;
            trial.click(first);
            if (trial.vybor != 2) continue;
            for (const Hit& h : options) {
                Board second = trial;
                if (second.click(h).moved) {
                    acting.push_back(first);
                    break;
                }
            }
        }
    }
    if (acting.empty()) return options[rng() % options.size()];
    return acting[rng() % acting.size()];
}

TEST(History, RandomPlayoutsUndoToTheDealAndRedoToTheEnd) {
    size_t totalMoves = 0;
    for (uint64_t seed = 1; seed <= 60; ++seed) {
        Board b = seededDeal(seed);
        const Position dealt = Position::of(b);
        History history;
        std::mt19937_64 rng(seed * 104729);
        std::vector<Position> after;  // the position after each move
        std::vector<bool> won;
        for (int click = 0; click < 80; ++click) {
            const Reaction r = history.click(b, pick(b, rng));
            if (r.moved) {
                after.push_back(Position::of(b));
                won.push_back(r.won);
            }
        }
        ASSERT_EQ(history.undoCount(), after.size()) << "seed " << seed;
        ASSERT_FALSE(history.canRedo());
        totalMoves += after.size();
        const Board end = b;

        for (size_t i = after.size(); i-- > 0;) {
            ASSERT_TRUE(history.undo(b));
            ASSERT_TRUE(nothingSelected(b)) << "seed " << seed;
            ASSERT_EQ(Position::of(b), i == 0 ? dealt : after[i - 1]) << "seed " << seed << " undo to move " << i;
        }
        ASSERT_FALSE(history.canUndo());
        ASSERT_FALSE(history.undo(b)) << "nothing left to undo";
        EXPECT_EQ(Position::of(b), dealt);
        EXPECT_EQ(b.mesta, end.mesta);
        EXPECT_EQ(b.raskl, end.raskl);

        for (size_t i = 0; i < after.size(); ++i) {
            const History::Redone redone = history.redo(b);
            ASSERT_TRUE(redone.redone);
            ASSERT_TRUE(redone.reaction.moved) << "seed " << seed << " redo of move " << i;
            ASSERT_EQ(redone.reaction.won, won[i]);
            ASSERT_EQ(Position::of(b), after[i]) << "seed " << seed << " redo of move " << i << "\n" << describe(b);
            ASSERT_TRUE(nothingSelected(b));
        }
        EXPECT_FALSE(history.redo(b).redone);
        EXPECT_EQ(Position::of(b), Position::of(end));
        EXPECT_EQ(history.undoCount(), after.size());
    }
    EXPECT_GT(totalMoves, 250u) << "the playouts must really play";
}

// 7S alone at the left edge of row 2, 8S alone at its right edge, 6S on the 8S's
// cell would need a run; here the 5S lies outermost in row 3 for a second move.
Board twoMoves() {
    return boardFrom({{"7S", 120, 1680}, {"8S", 9720, 1680}, {"6S", 120, 3240}, {"9S", 9720, 4800}});
}

TEST(History, OnlyMovesAreRemembered) {
    Board b = twoMoves();
    History h;
    EXPECT_FALSE(h.click(b, {Hit::Kind::Card, card("7S"), 0}).moved);  // a selection
    EXPECT_FALSE(h.canUndo());
    h.click(b, {Hit::Kind::Card, card("7S"), 0});  // cancelled again
    h.click(b, {Hit::Kind::Card, card("7S"), 0});
    const Reaction refused = h.click(b, {Hit::Kind::Card, card("9S"), 0});  // not adjacent
    EXPECT_EQ(refused.message, Message::WrongMove);
    EXPECT_FALSE(h.canUndo());
    EXPECT_TRUE(h.click(b, {Hit::Kind::Card, card("8S"), 0}).moved);
    EXPECT_EQ(h.undoCount(), 1u);
    EXPECT_EQ(spotOf(b, "7S"), (Spot{9720, 1920}));
}

TEST(History, UndoTakesTheSelectionAwayAndRedoStillPlays) {
    Board b = twoMoves();
    const Board start = b;
    History h;
    h.click(b, {Hit::Kind::Card, card("7S"), 0});
    h.click(b, {Hit::Kind::Card, card("8S"), 0});
    const Board moved = b;
    h.click(b, {Hit::Kind::Card, card("6S"), 0});  // selected, then taken back
    ASSERT_EQ(b.vybor, 2);
    ASSERT_TRUE(h.undo(b));
    EXPECT_TRUE(nothingSelected(b));
    EXPECT_EQ(Position::of(b), Position::of(start));
    EXPECT_TRUE(h.canRedo());

    h.click(b, {Hit::Kind::Card, card("9S"), 0});  // another selection keeps the redo
    ASSERT_EQ(b.vybor, 2);
    ASSERT_TRUE(h.canRedo());
    const History::Redone r = h.redo(b);
    EXPECT_TRUE(r.redone && r.reaction.moved);
    EXPECT_EQ(Position::of(b), Position::of(moved));
    EXPECT_TRUE(nothingSelected(b));
}

TEST(History, AFreshMoveForgetsTheRedoAndClearForgetsAll) {
    Board b = twoMoves();
    History h;
    h.click(b, {Hit::Kind::Card, card("7S"), 0});
    h.click(b, {Hit::Kind::Card, card("8S"), 0});
    h.undo(b);
    ASSERT_TRUE(h.canRedo());
    h.click(b, {Hit::Kind::Card, card("7S"), 0});
    EXPECT_TRUE(h.canRedo()) << "a selection alone is no move";
    EXPECT_TRUE(h.click(b, {Hit::Kind::Card, card("6S"), 0}).moved);
    EXPECT_FALSE(h.canRedo());
    EXPECT_EQ(h.undoCount(), 1u);
    h.clear();
    EXPECT_FALSE(h.canUndo());
    EXPECT_FALSE(h.canRedo());
    EXPECT_FALSE(h.redo(b).redone);
}

TEST(History, UndoOfACarriedStackRestoresItsOrder) {
    // 8S with the 7S on it goes onto the 6S as one cell (the 8S now in front);
    // undo lays both back with the 7S in front of the 8S again.
    Board b = boardFrom({{"8S", 120, 1680}, {"7S", 120, "+"}, {"6S", 9720, 1680}});
    const Position start = Position::of(b);
    History h;
    h.click(b, {Hit::Kind::Card, card("7S"), 0});
    const Reaction r = h.click(b, {Hit::Kind::Card, card("6S"), 0});
    ASSERT_TRUE(r.moved) << describe(b);
    ASSERT_EQ(spotOf(b, "8S").left, 9720);
    ASSERT_GT(zOf(b, "8S"), zOf(b, "7S"));
    h.undo(b);
    EXPECT_EQ(Position::of(b), start);
    EXPECT_GT(zOf(b, "7S"), zOf(b, "8S"));
}

}  // namespace
}  // namespace vorn
