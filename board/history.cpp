// Undo and redo of moves.
#include "history.h"

namespace vorn {

Snapshot Snapshot::of(const Board& board) {
    return {board.kartleft, board.karttop, board.zorder, board.zcounter};
}

void Snapshot::layOn(Board& board) const {
    board.kartleft = kartleft;
    board.karttop = karttop;
    board.zorder = zorder;
    board.zcounter = zcounter;
}

Reaction History::click(Board& board, const Hit& hit) {
    const Snapshot before = Snapshot::of(board);
    // A move is always a second click: the card it moves is the selected one.
    const Hit select{Hit::Kind::Card, board.karta1, 0};
    const Reaction reaction = board.click(hit);
    if (reaction.moved) {
        done_.push_back({before, select, hit});
        undone_.clear();
    }
    return reaction;
}

bool History::undo(Board& board) {
    if (done_.empty()) return false;
    Entry entry = std::move(done_.back());
    done_.pop_back();
    entry.before.layOn(board);
    board.clearSelection();
    undone_.push_back(std::move(entry));
    return true;
}

History::Redone History::redo(Board& board) {
    if (undone_.empty()) return {};
    Entry entry = std::move(undone_.back());
    undone_.pop_back();
    board.clearSelection();
    board.click(entry.select);
    const Reaction reaction = board.click(entry.play);
    // The same clicks on the same position make the same move; should they not
    // (the board was changed behind the history's back), the entry is dropped.
    if (reaction.moved) done_.push_back(std::move(entry));
    return {true, reaction};
}

void History::clear() {
    done_.clear();
    undone_.clear();
}

}  // namespace vorn
