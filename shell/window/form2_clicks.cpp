// Clicks on the card table: the board decides, the window shows.
#include <QAction>

#include "shell/dialogs/about_window.h"
#include "shell/table/board_view.h"
#include "form2.h"
#include "game_menu.h"

namespace vorn::shell {

void Form2::cardClick(int suit, int rank) {
    play({Hit::Kind::Card, Card{static_cast<int16_t>(suit), static_cast<int16_t>(rank)}, 0});
}

void Form2::pileClick(int image) { play({Hit::Kind::Pile, Card{}, image}); }

// The images follow the board first, so a message or the end-of-game window
// appears over the position as it now stands. The wrong-move and cannot-select
// messages only while Messages (ig4) is checked; the request for a New game
// always. A won game shows the Russian about window, whatever the language.
void Form2::react(const Reaction& reaction) {
    syncFromBoard();
    const bool allowed = !reaction.gated() || menu_->ig4->isChecked();
    if (allowed) {
        switch (reaction.message) {
            case Message::None: break;
            case Message::WrongMove: say(messhod_); break;
            case Message::NewGameFirst: say(messnov_); break;
            case Message::CannotSelect: say(messkart_); break;
        }
    }
    if (reaction.won) {
        AboutWindow form3(Language::Russian, this, [this] { showHelp(); });
        prompts_.exec(form3);
    }
}

void Form2::say(const QString& message) {
    prompts_.message(this, message, zagol_, Prompts::Buttons::Ok, Prompts::Icon::None);
}

}  // namespace vorn::shell
