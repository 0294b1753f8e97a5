// Taking moves back and playing them again.
//
// Every click the player makes goes through History::click. A click that moved
// cards becomes one entry: the position as it stood before (places, stacking
// order) and the two clicks that made the move, the one that selected the card
// and the one that played it. Undo lays the old position back and leaves
// nothing selected; redo plays the same two clicks again through the board's
// own click routines, so every check runs as it did the first time.
#pragma once

#include <cstdint>
#include <vector>

#include "board.h"

namespace vorn {

// Where every card lies and how the cards are stacked: what a move changes.
struct Snapshot {
    Table<int16_t> kartleft{};
    Table<int16_t> karttop{};
    Table<uint32_t> zorder{};
    uint32_t zcounter = 0;

    static Snapshot of(const Board& board);
    void layOn(Board& board) const;
    friend bool operator==(const Snapshot&, const Snapshot&) = default;
};

class History {
public:
    struct Entry {
        Snapshot before;
        Hit select;  // the click that selected the card that moved
        Hit play;    // the click that moved it
    };

    // Runs the click on the board; a click that moved cards is remembered and
    // forgets whatever could have been redone.
    Reaction click(Board& board, const Hit& hit);

    bool canUndo() const { return !done_.empty(); }
    bool canRedo() const { return !undone_.empty(); }
    size_t undoCount() const { return done_.size(); }
    size_t redoCount() const { return undone_.size(); }
    // The moves made, oldest first: entry i left the position reached after i moves.
    const std::vector<Entry>& done() const { return done_; }

    // Puts back every card the last move touched and clears the selection
    // (vybor 1, no border). False when there is nothing to undo.
    bool undo(Board& board);
    // Plays the last undone move again: the selection is cleared as undo does,
    // then the two clicks run. `redone` is false when there was nothing to redo;
    // `reaction` is what the playing click answered.
    struct Redone {
        bool redone = false;
        Reaction reaction{};
    };
    Redone redo(Board& board);

    // A new deal or a laid-out layout: nothing to undo or redo any more.
    void clear();

private:
    std::vector<Entry> done_;
    std::vector<Entry> undone_;
};

}  // namespace vorn
