// The menu bar of the main window with the game's items under their own names:
// igra (ig1, ig5, line1, ig2, ig3, line3, ig7, ig8, line2, ig4), leg (leg1, leg2,
// leg3) and the command vix on the bar itself. The captions it is built with are
// the Russian ones the window is created with.
#pragma once

#include <QObject>

#include "shell/texts.h"

class QAction;
class QMenu;
class QMenuBar;

namespace vorn::shell {

class GameMenu final : public QObject {
    Q_OBJECT
public:
    explicit GameMenu(QMenuBar* bar);

    // Sets the captions of igra, leg, vix, ig1, ig2, ig3, ig5, ig7, ig4, leg1,
    // leg3, in this order, as the language switch does.
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
};

}  // namespace vorn::shell
