// What the window tests share: a main window in a scratch folder with scripted
// deals, a recorder in place of its boxes, and the ways a player reaches it:
// menu items, keys and real mouse clicks at the place of a card.
#pragma once

#include <QDialog>
#include <QTemporaryDir>
#include <QTest>
#include <functional>
#include <memory>
#include <optional>

#include "board/random.h"
#include "shell/prompts.h"
#include "shell/window/form2.h"

namespace vorn::shell {
class CardImage;
class PileImage;
}  // namespace vorn::shell

namespace vorn::test {

using shell::Prompts;
using Answer = Prompts::Answer;

// A message box; for the input box `text` is its prompt and `typed` what it
// started with; for a modal window `text` is its objectName.
struct Box {
    QString text, title, typed;
    Prompts::Buttons buttons = Prompts::Buttons::Ok;
    Prompts::Icon icon = Prompts::Icon::None;
};

// Stands in for the game's boxes: answers from a script and remembers what it
// was asked to show.
class RecordingPrompts final : public Prompts {
public:
    QList<Answer> answers;  // to the questions (Yes/No boxes), from the front; without one No
    QStringList inputs;     // typed into the input box; without one it is cancelled
    QList<std::function<void(QDialog&)>> handlers;  // run a modal window; without one it is only recorded
    QList<Box> boxes, asked, shown;

    Answer message(QWidget*, const QString& text, const QString& title, Buttons buttons, Icon icon) override;
    QString input(QWidget*, const QString& prompt, const QString& title, const QString& typed) override;
    void exec(QDialog& dialog) override;
    QStringList texts() const;  // of the message boxes, in order
};

// Layouts, as the place (1..48) each card of rank 2..13 is dealt to.
using PlaceOf = int (*)(int suit, int rank);
int startPlace(int suit, int rank);  // the ordered deck of the starting picture
// A layout that plays out to the end: in row s the 2..6 of suit s from the left
// edge inwards and the 7..J from the right edge inwards; the queens in the left
// half of row 5, the kings in the right half.
int winnablePlace(int suit, int rank);
// The numbers a ScriptedRandom must hand out for New game to deal these layouts in turn.
std::vector<double> deals(std::initializer_list<PlaceOf> layouts);
// The moves that win the winnable layout: each card of rank 2..K onto the card
// one lower of its suit, hearts first.
struct Move {
    Card card, onto;
};
std::vector<Move> winningMoves();

class Game {
public:
    // ini: the bytes of ini.txt before start-up (none: no file).
    explicit Game(std::vector<double> script = {}, std::optional<QByteArray> ini = std::nullopt);
    ~Game();

    QByteArray file(const char* name) const;  // empty when missing
    bool exists(const char* name) const;
    void write(const char* name, const QByteArray& bytes) const;

    QAction* action(const char* name) const;
    void trigger(const char* name) const { action(name)->trigger(); }
    shell::CardImage* card(Card c) const;
    shell::PileImage* pile(int image) const;
    const Board& board() const { return form->board(); }

    // Real clicks on the window at a point of the board (pixels): the window
    // hands them to the front-most image there.
    void clickAt(QPoint boardPixel);
    QPoint aim(Card c) const;  // the middle of what shows of a card
    void click(Card c) { clickAt(aim(c)); }
    void clickPile(int image);
    void play(const Move& m);
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

    // The first card image that does not show the board: placed, framed and
    // stacked as its tables say. Empty when every image does.
    QString unlikeBoard() const;

    QTemporaryDir dir;
    RecordingPrompts prompts;
    std::unique_ptr<ScriptedRandom> random;
    std::unique_ptr<shell::Form2> form;
};

}  // namespace vorn::test
