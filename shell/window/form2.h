// Form2, the main window: the card table, the menus, the start-up and shut-down
// sequences and the handlers that hand each command over to the game, the load
// dialog, the help and the about windows. It is wiring: the Game beneath it
// plays, and the window and its rooms show what the game's signals say.
#pragma once

#include <QMainWindow>
#include <QString>
#include <filesystem>

#include "board/board.h"
#include "board/deal_number.h"
#include "solver/daily_deal.h"
#include "qt_translation.h"
#include "shell/prompts.h"
#include "shell/texts.h"
#include "store/settings.h"

namespace vorn::shell {

class Announcer;
class BoardView;
class DragPlay;
class Game;
class GameMenu;
class KeyboardPlay;
class LanguageSwitch;
struct Messages;
class SolverMenu;
class TableSize;
class VerdictMenu;

class Form2 final : public QMainWindow {
    Q_OBJECT
public:
    // Loads the window: the language from ini.txt, the store files, the board.
    // `deals` gives New game its deals (the clock's numbers in the program).
    Form2(std::filesystem::path folder, Prompts& prompts, DealSource& deals, QWidget* parent = nullptr);
    // Deals deal `number` as the Deal number... item does (the command line's --deal).
    void dealNumbered(DealNumber number);
    // Deals the deal of the day of `date` (the menu's is today's, in UTC; the
    // command line's --daily may name a day).
    void dealDaily(Date date);
    ~Form2() override;

    Language language() const;  // the check marks of ig7 / ig8
    const QString& helpFile() const;
    const Messages& messages() const;  // zagol, messvix, messhod, messnov, messkart
    BoardView* boardView() const { return view_; }

    // The end of a desktop session (SIGTERM, SIGHUP): an open box or dialog is
    // closed as Esc would close it, then the game ends as Quit does after its
    // question is answered Yes, without asking.
    void endSession();

protected:
    void closeEvent(QCloseEvent* event) override;  // asks first, then unloads
    void showEvent(QShowEvent* event) override;

private:
    void buildWindow();
    void formLoad();
    void formUnload();

    // menu commands
    void ig1Click();  // New game
    void ig5Click();  // Deal again
    void ig2Click();  // Save layout
    void ig3Click();  // Load layout
    void leg1Click(); // How to play?
    void askDealNumber();  // Deal number...
    void continueLast();   // Continue the last game
    void showStatistics(); // Statistics...
    void followRecord();   // the record's items and what the player must hear of it
    void leg3Click(); // About
    void showHelp();
    void followLanguage(Language lang);  // what the window added follows a switch

    // the card table and what the game says
    void buildPlayAids();
    void syncFromBoard();
    void react(Message message);
    void showForm3();  // the end of the game
    void say(const QString& text);
    void reportFileProblem(const std::string& problem) const;

    std::filesystem::path folder_;
    Prompts& prompts_;
    store::Settings settings_;
    Game* game_ = nullptr;
    QtTranslation qtTexts_;

    GameMenu* menu_ = nullptr;
    LanguageSwitch* languages_ = nullptr;
    BoardView* view_ = nullptr;
    TableSize* sizes_ = nullptr;  // the table's zoom and the window's size
    SolverMenu* solver_ = nullptr;  // Hint, Winnable deals only, Show solution
    VerdictMenu* verdict_ = nullptr;  // the verdict's mark, Back to the last winnable position
    Announcer* announcer_ = nullptr;
    KeyboardPlay* keys_ = nullptr;
    DragPlay* drag_ = nullptr;

    bool centred_ = false;
    bool unloaded_ = false;
};

}  // namespace vorn::shell
