// Form2, the main window: the card table, the menus, the start-up and shut-down
// sequences and the handlers that hand each command over to the board, the
// layout store, the load dialog, the help and the about windows. It holds no
// rule of the game: every click goes to the board, and the window shows what
// the board's Reaction asks for and mirrors the board's tables.
#pragma once

#include <QMainWindow>
#include <QString>
#include <filesystem>

#include "board/board.h"
#include "board/history.h"
#include "board/random.h"
#include "shell/prompts.h"
#include "qt_translation.h"
#include "shell/solver/solver_menu.h"
#include "shell/texts.h"
#include "store/layout_store.h"
#include "store/settings.h"

namespace vorn::shell {

class Announcer;
class BoardView;
class DragPlay;
class GameMenu;
class KeyboardPlay;
class LanguageSwitch;
struct Messages;
class UndoMenu;

class Form2 final : public QMainWindow {
    Q_OBJECT
public:
    // Loads the window: the language from ini.txt, the store files, the board.
    Form2(std::filesystem::path folder, Prompts& prompts, Random& random, QWidget* parent = nullptr);
    ~Form2() override;

    const Board& board() const { return board_; }
    Language language() const;  // the check marks of ig7 / ig8
    const QString& helpFile() const;
    const Messages& messages() const;  // zagol, messvix, messhod, messnov, messkart
    BoardView* boardView() const { return view_; }

protected:
    void closeEvent(QCloseEvent* event) override;  // asks first, then unloads
    void showEvent(QShowEvent* event) override;

private:
    void buildWindow();
    SolverMenu::Host solverHost();
    void formLoad();
    void formUnload();

    // menu commands
    void ig1Click();  // New game
    void deal(Random& random);  // New game's deal, save1.txt and the images
    void ig5Click();  // Deal again
    void ig2Click();  // Save layout
    void ig3Click();  // Load layout
    void leg1Click(); // How to play?
    void leg3Click(); // About
    void showHelp();
    void followLanguage(Language lang);  // what the window added follows a switch

    // the card table: every click (mouse, drag, keyboard, the solver's show)
    // goes through play(); a click that moves cards can be taken back
    void play(const Hit& hit);
    void undoMove();
    void redoMove();
    void forgetMoves();  // a new deal or layout: nothing left to undo or redo
    void buildPlayAids();
    void syncFromBoard();
    void react(const Reaction& reaction);
    void say(const QString& text);
    void reportFileProblem(const std::string& problem) const;

    std::filesystem::path folder_;
    Prompts& prompts_;
    Random& random_;
    store::Settings settings_;
    store::LayoutStore store_;
    Board board_;
    History history_;
    QtTranslation qtTexts_;

    GameMenu* menu_ = nullptr;
    LanguageSwitch* languages_ = nullptr;
    BoardView* view_ = nullptr;
    SolverMenu* solver_ = nullptr;  // Hint, Winnable deals only, Show solution
    UndoMenu* undo_ = nullptr;
    Announcer* announcer_ = nullptr;
    KeyboardPlay* keys_ = nullptr;
    DragPlay* drag_ = nullptr;

    bool centred_ = false;
    bool unloaded_ = false;
};

}  // namespace vorn::shell
