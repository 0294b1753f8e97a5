// The solver in the game: three items at the end of the Game menu, after the
// separator line4 — Hint (H), Winnable deals only (a check mark, off at every
// start) and Show solution (D). Hint and Show solution ask the solver about the
// position on the table away from the user-interface thread; their answer is
// used only if the position is still the one asked about. The boxes they show
// (lost, undecided) do not depend on the Messages switch.
#pragma once

#include <QObject>
#include <QPointer>
#include <QRect>
#include <functional>
#include <memory>

#include "board/random.h"
#include "solver/solver.h"
#include "shell/texts.h"

class QAction;
class QMenu;
class QWidget;

namespace vorn::shell {

class HintMark;
class SolutionPlayer;
class SolverWorker;
class WinnableDealer;

class SolverMenu final : public QObject {
    Q_OBJECT
public:
    // What the items need of the main window.
    struct Host {
        QWidget* window = nullptr;  // the main window: the busy cursor, its presses and keys
        QWidget* table = nullptr;   // the card table, where the hint's marks lie
        QMenu* menu = nullptr;      // the Game menu; the items go after its separator line4
        Random* random = nullptr;   // New game's source of numbers
        std::function<const Board&()> board;
        std::function<void(const Hit&)> click;     // a click, as the player's own clicks go
        std::function<void(Random&)> deal;         // New game's deal with these numbers
        std::function<void(const QString&)> say;   // a message box of the window
        std::function<Language()> language;
        std::function<QRect(const Hit&)> rectOf;   // where on the table the image a Hit names lies
    };

    explicit SolverMenu(Host host, QObject* parent = nullptr);
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

    // How long the solver may think about a question of Hint or Show solution.
    Limits askLimits{2'000'000, std::chrono::seconds(3)};

    QAction* line4 = nullptr;
    QAction* hint = nullptr;
    QAction* winnable = nullptr;
    QAction* solution = nullptr;

protected:
    // While the show runs or the hint blinks: a press or a key on the window ends it.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    enum class Question { Hint, Solution };
    void buildItems();
    void ask(Question question);
    void answered(int ticket, Question question, const Verdict& verdict);
    void showHint(const Verdict& verdict);
    void showSolution(const Verdict& verdict);
    void stopMarks();
    void say(Text id);
    void refresh();  // busy cursor and event filter follow what is under way

    Host host_;
    QPointer<HintMark> markCard_;
    QPointer<HintMark> markTarget_;
    SolutionPlayer* player_ = nullptr;
    WinnableDealer* dealer_ = nullptr;
    Board asked_{};          // the position a pending question is about
    int ticket_ = 0;         // the latest question; older answers are dropped
    bool pending_ = false;
    bool filtering_ = false;
    // Last, so it goes first: no answer arrives once the menu is being taken down.
    std::unique_ptr<SolverWorker> worker_;
};

}  // namespace vorn::shell
