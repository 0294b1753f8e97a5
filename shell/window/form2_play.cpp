// Play on the card table. A click on a card or a pile place goes to the game,
// as do the clicks of a drag, of the keys and of the solver's show; the window
// follows what the game says: the images follow the board, a screen reader is
// told what each move did, and then a message or the end-of-game window shows.
#include <QAction>

#include "form2.h"
#include "game_menu.h"
#include "language_switch.h"
#include "shell/dialogs/about_window.h"
#include "shell/game.h"
#include "shell/input/drag_play.h"
#include "shell/input/keyboard_play.h"
#include "shell/solver/solver_menu.h"
#include "shell/table/announcer.h"
#include "shell/table/board_view.h"
#include "shell/table/card_art.h"
#include "shell/table/table_accessibility.h"

namespace vorn::shell {

void Form2::buildPlayAids() {
    installTableAccessibility();
    connect(menu_->undo, &QAction::triggered, game_, &Game::undo);
    connect(menu_->redo, &QAction::triggered, game_, &Game::redo);
    connect(game_, &Game::historyChanged, this, [this] {
        menu_->undo->setEnabled(game_->history().canUndo());
        menu_->redo->setEnabled(game_->history().canRedo());
    });
    announcer_ = new Announcer(view_);
    auto imageOf = [this](const Hit& hit) { return view_->image(hit); };
    auto scale = [this] { return view_->scale(); };
    keys_ = new KeyboardPlay(view_, *game_, imageOf, scale);
    auto face = [](Card c, qreal ratio, qreal zoom) { return cardFace(c.suit, c.rank, ratio, zoom); };
    drag_ = new DragPlay(view_, *game_, view_->cardImages(), face, scale);
    // What lies on the table follows it to another zoom or place.
    connect(view_, &BoardView::rescaled, keys_, &KeyboardPlay::follow);
    connect(view_, &BoardView::rescaled, solver_, &SolverMenu::placeMarks);

    connect(game_, &Game::changed, this, &Form2::syncFromBoard);
    connect(game_, &Game::moved, announcer_, [this](const Board& before) { announcer_->moved(before, game_->board()); });
    connect(game_, &Game::message, this, &Form2::react);
    connect(game_, &Game::won, this, &Form2::showForm3);
}

void Form2::syncFromBoard() {
    view_->sync(game_->board());
    if (keys_) keys_->follow();
}

// The images have followed the board already, so a message appears over the
// position as it now stands.
void Form2::react(Message message) {
    const Messages& m = messages();
    switch (message) {
        case Message::None: break;
        case Message::WrongMove: say(m.messhod); break;
        case Message::NewGameFirst: say(m.messnov); break;
        case Message::CannotSelect: say(m.messkart); break;
    }
}

// A won game shows the Russian about window, whatever the language.
void Form2::showForm3() {
    AboutWindow form3(Language::Russian, this, [this] { showHelp(); });
    prompts_.exec(form3);
}

void Form2::say(const QString& message) {
    prompts_.message(this, message, messages().zagol, Prompts::Buttons::Ok, Prompts::Icon::None);
}

}  // namespace vorn::shell
