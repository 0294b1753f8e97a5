// Play on the card table. A click on a card or a pile place goes to the board;
// the images follow the board, then the window shows what the board's answer
// asks for. Besides the mouse, a click can come from dragging a card, from the
// keys or from the solver's show; every one goes through play(), and a click
// that moved cards can be taken back and played again. A screen reader is told
// what each move did.
#include <QAction>

#include "form2.h"
#include "game_menu.h"
#include "language_switch.h"
#include "shell/dialogs/about_window.h"
#include "shell/input/drag_play.h"
#include "shell/input/keyboard_play.h"
#include "shell/table/announcer.h"
#include "shell/table/board_view.h"
#include "shell/table/card_art.h"
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
    auto imageOf = [this](const Hit& hit) { return view_->image(hit); };
    keys_ = new KeyboardPlay(view_, board_, imageOf, click);
    auto face = [](Card c, qreal ratio) { return cardFace(c.suit, c.rank, ratio); };
    drag_ = new DragPlay(view_, board_, view_->cardImages(), face, click);
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

void Form2::syncFromBoard() {
    view_->sync(board_);
    if (keys_) keys_->follow();
}

// The images follow the board first, so a message or the end-of-game window
// appears over the position as it now stands. The wrong-move and cannot-select
// messages only while Messages (ig4) is checked; the request for a New game
// always. A won game shows the Russian about window, whatever the language.
void Form2::react(const Reaction& reaction) {
    syncFromBoard();
    const Messages& m = messages();
    const bool allowed = !reaction.gated() || menu_->ig4->isChecked();
    if (allowed) {
        switch (reaction.message) {
            case Message::None: break;
            case Message::WrongMove: say(m.messhod); break;
            case Message::NewGameFirst: say(m.messnov); break;
            case Message::CannotSelect: say(m.messkart); break;
        }
    }
    if (reaction.won) {
        AboutWindow form3(Language::Russian, this, [this] { showHelp(); });
        prompts_.exec(form3);
    }
}

void Form2::say(const QString& message) {
    prompts_.message(this, message, messages().zagol, Prompts::Buttons::Ok, Prompts::Icon::None);
}

}  // namespace vorn::shell
