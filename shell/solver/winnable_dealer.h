// Winnable deals only: New game deals again and again with the game's own
// dealing routine until the solver proves a layout winnable. Each layout is
// tried on a copy of the board while the window goes on as before; only the
// layout finally taken is dealt on the real board, once, with the very numbers
// that drew it, so save1.txt and raskl get just that layout.
//
// After kMaxAttempts layouts without a proof the last one is taken all the
// same, without a word: a deal is never refused.
#pragma once

#include <QObject>
#include <vector>

#include "board/random.h"
#include "solver/solver.h"

namespace vorn::shell {

class Game;
class SolverWorker;

class WinnableDealer final : public QObject {
    Q_OBJECT
public:
    static constexpr int kMaxAttempts = 50;

    WinnableDealer(SolverWorker& worker, Game& game, QObject* parent = nullptr);

    void start();  // a New game while the item is checked
    void stop();   // forget the search under way; nothing is dealt
    bool dealing() const { return dealing_; }
    int attempts() const { return attempts_; }  // layouts tried for the latest New game

    Limits limits{};  // for each layout tried

signals:
    void finished();  // dealt, or stopped

private:
    void tryNext();
    void judged(int generation, const Verdict& verdict);

    SolverWorker& worker_;
    Game& game_;
    std::vector<double> draws_;  // the numbers the layout under test was drawn with
    int generation_ = 0;
    int attempts_ = 0;
    bool dealing_ = false;
};

}  // namespace vorn::shell
