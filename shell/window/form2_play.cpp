// The ways of playing added to the old game: taking moves back and playing them
// again, dragging a card, playing with the keys, and telling a screen reader
// what each move did. Whatever way a click comes, it goes through play().
#include <QAction>

#include "shell/table/announcer.h"
#include "shell/table/board_view.h"
#include "shell/input/drag_play.h"
#include "form2.h"
#include "game_menu.h"
#include "shell/input/keyboard_play.h"
#include "shell/table/table_accessibility.h"
#include "undo_menu.h"

namespace vorn::shell {

void Form2::buildPlayAids() {
    installTableAccessibility();
    undo_ = new UndoMenu(menu_->igra);
    connect(undo_->undo, &QAction::triggered, this, &Form2::undoMove);
    connect(undo_->redo, &QAction::triggered, this, &Form2::redoMove);
    announcer_ = new Announcer(view_);
    auto click = [this](const Hit& hit) { play(hit); };
    keys_ = new KeyboardPlay(view_, board_, click);
    drag_ = new DragPlay(view_, board_, click);
}

void Form2::playAidsLanguage(Language lang) {
    undo_->setCaptions(lang);
    announcer_->setLanguage(lang);
}

void Form2::play(const Hit& hit) {
    const Board before = board_;
    const Reaction reaction = history_.click(board_, hit);
    undo_->update(history_);
    syncFromBoard();
    announcer_->moved(before, board_);
    react(reaction);
}

// Undo: the cards go back, nothing stays selected, nothing else happens.
void Form2::undoMove() {
    const Board before = board_;
    if (!history_.undo(board_)) return;
    undo_->update(history_);
    syncFromBoard();
    announcer_->moved(before, board_);
}

// Redo: the two clicks again, answered as any click is.
void Form2::redoMove() {
    const Board before = board_;
    const History::Redone redone = history_.redo(board_);
    if (!redone.redone) return;
    undo_->update(history_);
    syncFromBoard();
    announcer_->moved(before, board_);
    react(redone.reaction);
}

void Form2::forgetMoves() {
    history_.clear();
    if (undo_) undo_->update(history_);
}

}  // namespace vorn::shell
