// The solver at the player's side: two items of the Game menu and a mark at
// the right end of the menu bar.
//   - "Show whether the deal can be won" (a check mark, off at the very first
//     start): the mark says what the solver found about the position on the
//     table — a green "winnable", a red "lost", or "?" when it cannot tell. While
//     the solver works the mark keeps its last word, dimmed. Its tooltip says
//     it in a sentence, with the number of the deal; once the deal is lost, the
//     sentence names the move that lost it. A screen reader hears the sentence
//     once whenever it changes, and at every new deal. With the item off there
//     is no mark at all.
//   - "Back to the last winnable position" (Ctrl+B): takes moves back until the
//     position on the table is one the solver proved winnable. Greyed unless the
//     position on the table is lost and an earlier one of the deal was winnable.
//
// The mark is a child of the main window laid over the right end of the menu
// bar, so a screen reader finds it among the window's children; it is as wide
// as its longest word in either language, so every word shows whole.
#pragma once

#include <QObject>
#include <QString>
#include <cstdint>

#include "shell/game.h"
#include "shell/texts.h"

class QAction;
class QLabel;
class QMenuBar;
class QWidget;

namespace vorn::shell {

class VerdictMenu final : public QObject {
    Q_OBJECT
public:
    // The mark lies on `window` over the right end of `bar`.
    VerdictMenu(Game& game, QWidget* window, QMenuBar* bar, QAction* showVerdict, QAction* backToWinnable);

    void setLanguage(Language lang);
    // What a screen reader hears of the position on the table.
    QString sentence() const;
    // The mark's tooltip: the sentence with the deal's grade.
    QString toolTip() const;
    QLabel* mark() const { return mark_; }

signals:
    void announced(const QString& sentence);  // what a screen reader was just told

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void follow(const Judged& judged);  // the mark and Back follow the game
    QString words() const;              // the verdict on the position, in words
    void showMark(bool shown);
    void placeMark();

    Game& game_;
    QWidget* window_;
    QMenuBar* bar_;
    QAction* back_;
    QLabel* mark_ = nullptr;
    Language lang_ = Language::Russian;
    QString said_;           // the last sentence a screen reader heard
    uint64_t heardDeal_ = 0;  // and the deal it was about
};

}  // namespace vorn::shell
