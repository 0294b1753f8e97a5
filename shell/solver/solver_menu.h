// The solver in the game: Hint (H), Winnable deals only (a check mark) and Show
// solution (D), three items of the Game menu. The game asks the solver and
// answers once its verdict on the position on the table is there (the window
// goes on meanwhile); this room shows the answer: the hint's blinking marks,
// the show of a winning line, or a box (lost, undecided) that does not depend
// on the Messages switch. The mouse pointer shows while the solver is at work
// on something the player waits for.
#pragma once

#include <QObject>
#include <QPointer>
#include <functional>

#include "shell/game.h"
#include "shell/table_scale.h"
#include "shell/texts.h"

class QAction;
class QActionGroup;
class QWidget;

namespace vorn::shell {

class HintMark;
class SolutionPlayer;

class SolverMenu final : public QObject {
    Q_OBJECT
public:
    using Say = std::function<void(const QString&)>;  // a message box of the window
    struct Items {
        QAction* hint;
        QAction* winnable;
        QActionGroup* grades;  // the grade of winnable deals: data -1 any, 0 .. 4
        QAction* solution;
    };
    // `window` is the main window (the busy cursor, its presses and keys), `table`
    // the card table where the hint's marks lie.
    SolverMenu(Game& game, QWidget* window, QWidget* table, ScaleOf scale, Items items, Say say);
    ~SolverMenu() override;

    void setLanguage(Language lang) { lang_ = lang; }
    // New game, Deal again and Load: the show, a pending answer and the hint's
    // marks all end.
    void stop();

    bool playing() const;  // Show solution is under way
    // The hint's marks follow the table to its new size or place.
    void placeMarks();
    SolutionPlayer& player() { return *player_; }

protected:
    // While the show runs or the hint blinks: a press or a key on the window ends it.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void ask(Question question);
    void answered(Question question, const Answer& answer);
    void showHint(const Verdict& verdict);
    void stopMarks();
    void say(Text id);
    void refresh();  // busy cursor and event filter follow what is under way

    Game& game_;
    QWidget* window_;
    QWidget* table_;
    ScaleOf scale_;
    Hit markedCard_{}, markedTarget_{};
    Say say_;
    Language lang_ = Language::Russian;
    QPointer<HintMark> markCard_;
    QPointer<HintMark> markTarget_;
    SolutionPlayer* player_ = nullptr;
    bool filtering_ = false;
};

}  // namespace vorn::shell
