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
#include "shell/qt_translation.h"
#include "store/layout_store.h"
#include "store/settings.h"
#include "shell/texts.h"

namespace vorn::shell {

class BoardView;
class GameMenu;
class SolverMenu;
class UndoMenu;
class Announcer;
class KeyboardPlay;
class DragPlay;

class Form2 final : public QMainWindow {
    Q_OBJECT
public:
    // Runs Form_Load: the language from ini.txt, the store files, the board.
    Form2(std::filesystem::path folder, Prompts& prompts, Random& random, QWidget* parent = nullptr);
    ~Form2() override;

    const Board& board() const { return board_; }
    Language language() const;  // the check marks of ig7 / ig8
    QString helpFile() const { return helpFile_; }
    const QString& zagol() const { return zagol_; }
    const QString& messvix() const { return messvix_; }
    const QString& messhod() const { return messhod_; }
    const QString& messnov() const { return messnov_; }
    const QString& messkart() const { return messkart_; }
    BoardView* boardView() const { return view_; }

    // For tests that need a position no deal gives: change the board, then sync.
    Board& boardForTesting() { return board_; }
    void syncFromBoard();

protected:
    void closeEvent(QCloseEvent* event) override;  // Form_QueryUnload, then Form_Unload
    void showEvent(QShowEvent* event) override;

private:
    void buildWindow();
    void formLoad();
    void formUnload();

    // menu commands
    void ig1Click();  // New game
    void deal(Random& random);  // New game's deal, save1.txt and the images
    void ig5Click();  // Deal again
    void ig2Click();  // Save layout
    void ig3Click();  // Load layout
    void ig7Click();  // Русский
    void ig8Click();  // English
    void leg1Click(); // How to play?
    void leg3Click(); // About
    void showHelp();

    // languages
    void applyLanguage(Language lang);
    void messrus();
    void messeng();
    void languageAdditions();  // accessible names and Qt's own texts
    Language saveLanguage() const;  // the Save command asks ig7

    // the card table
    void cardClick(int suit, int rank);
    void pileClick(int image);
    // Every click on the table (mouse, drag, keyboard, the solver's show) ends
    // here; a click that moves cards can be taken back (form2_play.cpp).
    void play(const Hit& hit);
    void undoMove();
    void redoMove();
    void forgetMoves();  // a new deal or layout: nothing left to undo or redo
    void buildPlayAids();
    void playAidsLanguage(Language lang);
    void react(const Reaction& reaction);
    void say(const QString& text);
    void reportFileProblem(const std::string& problem) const;

    std::filesystem::path folder_;
    Prompts& prompts_;
    Random& random_;
    store::Settings settings_;
    store::LayoutStore store_;
    Board board_;
    QtTranslation qtTexts_;

    GameMenu* menu_ = nullptr;
    BoardView* view_ = nullptr;
    SolverMenu* solver_ = nullptr;  // Hint, Winnable deals only, Show solution
    // The solver's items ask the board, click through cardClick/pileClick and deal through deal().
    friend class SolverMenu;
    History history_;
    UndoMenu* undo_ = nullptr;
    Announcer* announcer_ = nullptr;
    KeyboardPlay* keys_ = nullptr;
    DragPlay* drag_ = nullptr;

    QString helpFile_;
    QString zagol_, messvix_, messhod_, messnov_, messkart_;
    bool centred_ = false;
    bool unloaded_ = false;
};

}  // namespace vorn::shell
