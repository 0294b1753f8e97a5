// Runs the solver away from the user-interface thread. Each request works on its
// own copy of the board; its verdict comes back to the user-interface thread
// through the event loop, so the window keeps painting and answering while the
// search runs. Whoever asks decides whether a verdict is still wanted when it
// arrives (the position may have changed meanwhile).
#pragma once

#include <QObject>
#include <QThreadPool>
#include <functional>

#include "solver/solver.h"

namespace vorn::shell {

class SolverWorker final : public QObject {
    Q_OBJECT
public:
    using Done = std::function<void(const Verdict&)>;

    explicit SolverWorker(QObject* parent = nullptr);
    // Waits for the searches still running (each is bounded by its Limits); their
    // verdicts are dropped.
    ~SolverWorker() override;

    // Solves a copy of `board`; `done` runs later on this object's thread.
    void solve(const Board& board, const Limits& limits, Done done);

private:
    QThreadPool pool_;
};

}  // namespace vorn::shell
