// The solver on a thread of its own pool.
#include "solver_worker.h"

namespace vorn::shell {

SolverWorker::SolverWorker(QObject* parent) : QObject(parent) {
    setObjectName(QStringLiteral("solverWorker"));
    pool_.setMaxThreadCount(2);
    pool_.setExpiryTimeout(-1);  // the threads stay: no thread is started while the player waits
}

SolverWorker::~SolverWorker() { pool_.waitForDone(); }

void SolverWorker::solve(const Board& board, const Limits& limits, Done done) {
    run([board, limits] { return vorn::solve(board, limits); }, std::move(done));
}

}  // namespace vorn::shell
