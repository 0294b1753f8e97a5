// Taking moves back and playing them again.
#include "board/history.h"
#include "fixtures.h"

namespace vorn {
namespace {

using namespace vorn::testing;

bool nothingSelected(const Board& b) { return b.vybor == 1 && b.border == Table<uint8_t>{}; }

TEST(History, RandomPlayoutsUndoToTheDealAndRedoToTheEnd) {
    size_t totalMoves = 0;
    for (uint64_t seed = 1; seed <= 40; ++seed) {
        Board b = seededDeal(seed);
        const Snapshot dealt = Snapshot::of(b);
        History history;
        std::mt19937_64 rng(seed * 104729);
        std::vector<Snapshot> after;  // the position after each move
        std::vector<bool> won;
        for (int click = 0; click < 80; ++click) {
            const Reaction r = history.click(b, randomClick(b, rng));
            if (r.moved) after.push_back(Snapshot::of(b)), won.push_back(r.won);
        }
        ASSERT_EQ(history.undoCount(), after.size()) << "seed " << seed;
        totalMoves += after.size();
        const Board end = b;
        for (size_t i = after.size(); i-- > 0;) {
            ASSERT_TRUE(history.undo(b));
            ASSERT_TRUE(nothingSelected(b)) << "seed " << seed;
            ASSERT_EQ(Snapshot::of(b), i == 0 ? dealt : after[i - 1]) << "seed " << seed << " undo to move " << i;
        }
        ASSERT_FALSE(history.undo(b)) << "nothing left to undo";
        EXPECT_EQ(b.mesta, end.mesta);
        for (size_t i = 0; i < after.size(); ++i) {
            const History::Redone redone = history.redo(b);
            ASSERT_TRUE(redone.redone && redone.reaction.moved) << "seed " << seed << " redo of move " << i;
            ASSERT_EQ(redone.reaction.won, won[i]);
            ASSERT_EQ(Snapshot::of(b), after[i]) << "seed " << seed << " redo of move " << i << "\n" << describe(b);
        }
        EXPECT_FALSE(history.redo(b).redone);
        EXPECT_EQ(history.undoCount(), after.size());
    }
    EXPECT_GT(totalMoves, 200u) << "the playouts must really play";
}

TEST(History, OnlyMovesAreRememberedAndAFreshMoveForgetsTheRedo) {
    Board b = boardFrom({{"7S", 120, 1680}, {"8S", 9720, 1680}, {"6S", 120, 3240}, {"9S", 9720, 4800}});
    const Snapshot start = Snapshot::of(b);
    History h;
    auto click = [&](const char* name) { return h.click(b, {Hit::Kind::Card, card(name), 0}); };
    click("7S");
    click("7S");  // selected and let go
    click("7S");
    EXPECT_EQ(click("9S").message, Message::WrongMove);
    EXPECT_FALSE(h.canUndo());
    EXPECT_TRUE(click("8S").moved);
    const Snapshot moved = Snapshot::of(b);
    click("6S");  // selected: undo takes the selection away
    ASSERT_TRUE(h.undo(b));
    EXPECT_TRUE(nothingSelected(b));
    EXPECT_EQ(Snapshot::of(b), start);
    click("9S");  // a selection alone keeps the redo
    EXPECT_TRUE(h.redo(b).reaction.moved);
    EXPECT_EQ(Snapshot::of(b), moved);
    h.undo(b);
    click("7S");
    EXPECT_TRUE(click("6S").moved);
    EXPECT_FALSE(h.canRedo());
    EXPECT_EQ(h.undoCount(), 1u);
    h.clear();
    EXPECT_FALSE(h.canUndo() || h.canRedo());
}

}  // namespace
}  // namespace vorn
