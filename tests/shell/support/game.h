// A main window in a scratch folder, with scripted deals and recorded boxes,
// and the ways a player reaches it: menu items, keys and real mouse clicks on
// the window at the place of a card.
#pragma once

#include <QByteArray>
#include <QPoint>
#include <QTemporaryDir>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "board/random.h"
#include "recording_prompts.h"
#include "shell/window/form2.h"

class QAction;

namespace vorn::shell {
class CardImage;
class PileImage;
}  // namespace vorn::shell

namespace vorn::test {

// The place (1..48) a layout gives card (suit, rank), rank 2..13.
using PlaceOf = std::function<int(int suit, int rank)>;

// The numbers a ScriptedRandom must hand out for New game to deal that layout.
std::vector<double> dealScript(const PlaceOf& placeOf);

// The ordered deck of the starting picture, dealt as a layout.
int startPlace(int suit, int rank);
// A layout that can be played out to the end: in row s the 2..6 of suit s from
// the left edge inwards and the 7..J from the right edge inwards; the queens in
// the left half of row 5, the kings in the right half, hearts outermost.
int winnablePlace(int suit, int rank);
// The clicks that win the winnable layout: (card to select, card to play it on).
struct Move {
    Card card;
    Card onto;
};
std::vector<Move> winningMoves();

class Game {
public:
    // ini: the bytes of ini.txt before start-up (none: no file).
    // script: the deals to make; several layouts may be concatenated.
    explicit Game(std::vector<double> script = {}, std::optional<QByteArray> ini = std::nullopt);
    ~Game();

    std::filesystem::path folder() const;
    QByteArray file(const char* name) const;  // empty when missing
    bool exists(const char* name) const;
    void writeFile(const char* name, const QByteArray& bytes) const;

    QAction* action(const char* name) const;
    shell::CardImage* card(int suit, int rank) const;
    shell::PileImage* pile(int image) const;
    const Board& board() const { return form->board(); }

    void newGame();  // the menu item ig1

    // A real click on the window at a point of the board (pixels); the window
    // delivers it to the front-most image there.
    void clickBoardAt(QPoint boardPixel);
    // A click in the middle of the visible part of a card: its 16-pixel strip
    // when a card lies on it, else its centre.
    void clickCard(int suit, int rank);
    void clickCard(Card c) { clickCard(c.suit, c.rank); }
    void clickPile(int image);

    // Where a card's image is, in board pixels, and where the board says it is.
    QRect imageRect(int suit, int rank) const;
    QRect boardRect(int suit, int rank) const;

    QTemporaryDir dir;
    RecordingPrompts prompts;
    std::unique_ptr<ScriptedRandom> random;
    std::unique_ptr<shell::Form2> form;
};

}  // namespace vorn::test
