// The solver on a thread of its own pool.
#include "solver_worker.h"

namespace vorn::shell {

SolverWorker::SolverWorker(QObject* parent) : QObject(parent) {
    setObjectName(QStringLiteral("solverWorker"));
    pool_.setMaxThreadCount(2);
}

SolverWorker::~SolverWorker() { pool_.waitForDone(); }

void SolverWorker::solve(const Board& board, const Limits& limits, Done done) {
    pool_.start([this, board, limits, done = std::move(done)]() mutable {
        Verdict verdict = vorn::solve(board, limits);
        // Queued: the answer is handled on the user-interface thread, and dropped
        // with the posted event if this object goes away first.
        QMetaObject::invokeMethod(
            this, [done = std::move(done), verdict = std::move(verdict)] { done(verdict); }, Qt::QueuedConnection);
    });
}

}  // namespace vorn::shell
