// The menu bar of the main window, built here and nowhere else, with every item
// under its own name. The game's own items: igra (ig1, ig5, line1, ig2, ig3,
// line3, ig7, ig8, line2, ig4), leg (leg1, leg2, leg3) and the command vix on
// the bar itself, with the Russian captions the window is created with. After
// ig4 the items the game adds, in groups: line4, Undo and Redo; line5, the
// solver's items; line6, the deals by number and the game record; line7, the submenu of the
// table's size. The rooms connect to these items; none of them adds an item
// of its own.
#pragma once

#include <QObject>

#include "shell/texts.h"

class QAction;
class QActionGroup;
class QMenu;
class QMenuBar;

namespace vorn::shell {

class GameMenu final : public QObject {
    Q_OBJECT
public:
    explicit GameMenu(QMenuBar* bar);

    // Sets the captions of igra, leg, vix, ig1, ig2, ig3, ig5, ig7, ig4, leg1,
    // leg3, in this order, as the language switch does; then those of the items
    // the game adds.
    void setCaptions(Language lang);

    QMenu* igra = nullptr;
    QMenu* leg = nullptr;
    QAction* ig1 = nullptr;
    QAction* ig5 = nullptr;
    QAction* line1 = nullptr;
    QAction* ig2 = nullptr;
    QAction* ig3 = nullptr;
    QAction* line3 = nullptr;
    QAction* ig7 = nullptr;
    QAction* ig8 = nullptr;
    QAction* line2 = nullptr;
    QAction* ig4 = nullptr;
    QAction* leg1 = nullptr;
    QAction* leg2 = nullptr;
    QAction* leg3 = nullptr;
    QAction* vix = nullptr;

    // The items the game adds.
    QAction* line4 = nullptr;
    QAction* undo = nullptr;            // Ctrl+Z
    QAction* redo = nullptr;            // Ctrl+Y
    QAction* line5 = nullptr;
    QAction* hint = nullptr;            // H
    QAction* winnable = nullptr;        // a check mark: Winnable deals only
    QMenu* winnableGrade = nullptr;     // the grade they are dealt of: any, or one
    QActionGroup* grades = nullptr;     // gradeAny, gradeEasy ... gradeExpert: data -1, 0 .. 4
    QAction* solution = nullptr;        // D
    QAction* showVerdict = nullptr;     // a check mark: the verdict's mark
    QAction* backToWinnable = nullptr;  // Ctrl+B
    QAction* line6 = nullptr;
    QAction* dealNumber = nullptr;      // Ctrl+N: Deal number...
    QAction* daily = nullptr;           // Ctrl+T: Deal of the day
    QAction* continueGame = nullptr;    // Ctrl+L: Continue the last game
    QAction* statistics = nullptr;      // Ctrl+I: Statistics...
    QAction* line7 = nullptr;
    QMenu* tableSize = nullptr;         // Table size:
    QAction* zoomIn = nullptr;          //   Ctrl+= (and Ctrl++)
    QAction* zoomOut = nullptr;         //   Ctrl+-
    QAction* actualSize = nullptr;      //   Ctrl+0
    QAction* scaleWithWindow = nullptr; //   a check mark: the table fills the window
};

}  // namespace vorn::shell
