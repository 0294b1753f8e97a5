// Runs the solver away from the user-interface thread. Each request works on its
// own copies; its answer comes back to the user-interface thread through the
// event loop, so the window keeps painting and answering while the search
// runs. Whoever asks decides whether an answer is still wanted when it
// arrives (the position may have changed meanwhile).
#pragma once

#include <QObject>
#include <QThread>
#include <QThreadPool>
#include <functional>
#include <utility>

#include "solver/solver.h"

namespace vorn::shell {

class SolverWorker final : public QObject {
    Q_OBJECT
public:
    using Done = std::function<void(const Verdict&)>;

    explicit SolverWorker(QObject* parent = nullptr);
    // Waits for the work still running (each search is bounded by its limits);
    // its answers are dropped.
    ~SolverWorker() override;

    // Solves a copy of `board`; `done` runs later on this object's thread.
    void solve(const Board& board, const Limits& limits, Done done);
    // Runs `work` on a thread of the pool, then `done` with its answer on this
    // object's thread. Work nobody waits for runs `idle`: only on time the
    // processors have left over, so it never slows what the player waits for.
    template <class Work, class Answered>
    void run(Work work, Answered done, bool idle = false) {
        pool_.start([this, work = std::move(work), done = std::move(done), idle]() mutable {
            if (idle) QThread::currentThread()->setPriority(QThread::IdlePriority);
            auto answer = work();
            if (idle) QThread::currentThread()->setPriority(QThread::NormalPriority);
            // Queued: the answer is handled on the user-interface thread, and
            // dropped with the posted event if this object goes away first.
            QMetaObject::invokeMethod(
                this, [done = std::move(done), answer = std::move(answer)]() mutable { done(answer); },
                Qt::QueuedConnection);
        });
    }

private:
    QThreadPool pool_;
};

}  // namespace vorn::shell
