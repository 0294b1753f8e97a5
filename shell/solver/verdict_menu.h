// The solver at the player's side: two items of the Game menu, right after Show
// solution, and a mark at the right end of the menu bar.
//   - "Show whether the deal can be won" (a check mark, off at the very first
//     start): the mark says what the solver found about the position on the
//     table — a green "winnable", a red "lost", or "?" when it cannot tell. While
//     the solver works the mark keeps its last word, dimmed. Its tooltip, and a
//     screen reader whenever the word changes, say it in a sentence; once the
//     deal is lost, the sentence names the move that lost it. With the item off
//     there is no mark at all.
//   - "Back to the last winnable position" (Ctrl+B): takes moves back until the
//     position on the table is one the solver proved winnable. Greyed unless the
//     position on the table is lost and an earlier one of the deal was winnable.
// Both check marks of the solver's items (this one and Winnable deals only) are
// remembered between runs in the program's own settings, never in ini.txt.
#pragma once

#include <QObject>
#include <QString>

#include "shell/texts.h"

class QAction;
class QLabel;
class QMenu;
class QMenuBar;

namespace vorn::shell {

class Game;
enum class Judgement : uint8_t;

// A check item remembered between runs under `key` of the program's settings
// (in the user's configuration folder): it starts as it was left.
void rememberCheck(QAction* item, const char* key);

class VerdictMenu final : public QObject {
    Q_OBJECT
public:
    // The items go into `igra` right after `after`; the mark into `bar`.
    VerdictMenu(Game& game, QMenuBar* bar, QMenu* igra, QAction* after);

    void setCaptions(Language lang);

    QAction* showVerdict = nullptr;
    QAction* backToWinnable = nullptr;
    // What the mark's tooltip says and a screen reader last heard.
    QString sentence() const;

private:
    void follow();  // the mark and the items follow the game
    void showMark(bool shown);

    Game& game_;
    QMenuBar* bar_;
    QLabel* mark_ = nullptr;
    Language lang_ = Language::Russian;
    Judgement said_{};  // the last word a screen reader heard
};

}  // namespace vorn::shell
