// The solver in the game: three items at the end of the Game menu, after the
// separator line4 — Hint (H), Winnable deals only (a check mark) and Show
// solution (D). Hint and Show solution take the game's verdict on the position
// on the table, waiting for it (the window goes on meanwhile) when the solver is
// still at work; an answer is used only while the position is the one asked
// about. The boxes they show (lost, undecided) do not depend on the Messages
// switch.
#pragma once

#include <QObject>
#include <QPointer>
#include <functional>
#include <memory>
#include <optional>

#include "board/history.h"
#include "solver/solver.h"
#include "shell/texts.h"

class QAction;
class QMenu;
class QWidget;

namespace vorn::shell {

class Game;
class HintMark;
class SolutionPlayer;
class SolverWorker;
class WinnableDealer;

class SolverMenu final : public QObject {
    Q_OBJECT
public:
    using Say = std::function<void(const QString&)>;  // a message box of the window
    // `window` is the main window (the busy cursor, its presses and keys), `table`
    // the card table where the hint's marks lie, `igra` the Game menu.
    SolverMenu(Game& game, QWidget* window, QWidget* table, QMenu* igra, Say say);
    ~SolverMenu() override;

    // The captions of hint, winnable and solution in a language.
    void setCaptions(Language lang);

    // New game: while Winnable deals only is checked, starts dealing until a layout
    // is proven winnable and returns true; the deal is made later. Otherwise false.
    bool dealWinnable();
    // New game, Deal again and Load: the show, a pending answer, a search for a
    // winnable deal and the hint's marks all end.
    void stop();

    bool playing() const;   // Show solution is under way
    bool searching() const; // the solver is working on a question of the window
    SolutionPlayer& player() { return *player_; }
    WinnableDealer& dealer() { return *dealer_; }

    QAction* line4 = nullptr;
    QAction* hint = nullptr;
    QAction* winnable = nullptr;
    QAction* solution = nullptr;

protected:
    // While the show runs or the hint blinks: a press or a key on the window ends it.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    enum class Question { Hint, Solution };
    void buildItems(QMenu* igra);
    void ask(Question question);
    void answer();  // the question asked, once the game's verdict is there
    void showHint(const Verdict& verdict);
    void showSolution(const Verdict& verdict);
    void stopMarks();
    void say(Text id);
    void refresh();  // busy cursor and event filter follow what is under way

    Game& game_;
    QWidget* window_;
    QWidget* table_;
    Say say_;
    Language lang_ = Language::Russian;
    QPointer<HintMark> markCard_;
    QPointer<HintMark> markTarget_;
    SolutionPlayer* player_ = nullptr;
    WinnableDealer* dealer_ = nullptr;
    std::optional<Question> pending_;  // asked, the verdict still to come
    Snapshot asked_{};                 // the position it was asked about
    bool filtering_ = false;
    // Last, so it goes first: no layout is judged once the menu is being taken down.
    std::unique_ptr<SolverWorker> worker_;
};

}  // namespace vorn::shell
