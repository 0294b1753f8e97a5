// Deal on a copy, solve off the user-interface thread, repeat.
#include "winnable_dealer.h"

#include "shell/game.h"
#include "shell/solver_worker.h"

namespace vorn::shell {

namespace {

// Passes the game's random numbers through and keeps them, so the deal that is
// finally taken can be made again, number for number, on the real board.
class RecordingRandom final : public Random {
public:
    RecordingRandom(Random& source, std::vector<double>& drawn) : source_(source), drawn_(drawn) {}
    void reseed() override { source_.reseed(); }
    double next() override {
        const double value = source_.next();
        drawn_.push_back(value);
        return value;
    }

private:
    Random& source_;
    std::vector<double>& drawn_;
};

}  // namespace

WinnableDealer::WinnableDealer(SolverWorker& worker, Game& game, QObject* parent)
    : QObject(parent), worker_(worker), game_(game) {
    setObjectName(QStringLiteral("winnableDealer"));
}

void WinnableDealer::start() {
    ++generation_;
    attempts_ = 0;
    dealing_ = true;
    tryNext();
}

void WinnableDealer::stop() {
    if (!dealing_) return;
    ++generation_;  // the verdict on its way is not wanted any more
    dealing_ = false;
    emit finished();
}

void WinnableDealer::tryNext() {
    ++attempts_;
    draws_.clear();
    Board trial = game_.board();
    RecordingRandom recording(game_.random(), draws_);
    trial.rasklad(recording);
    const int generation = generation_;
    worker_.solve(trial, limits, [this, generation](const Verdict& verdict) { judged(generation, verdict); });
}

void WinnableDealer::judged(int generation, const Verdict& verdict) {
    if (generation != generation_ || !dealing_) return;
    if (verdict.outcome != Outcome::Won && attempts_ < kMaxAttempts) {
        tryNext();
        return;
    }
    dealing_ = false;
    ScriptedRandom replay(draws_);  // reseeding it draws nothing new
    game_.deal(replay);
    emit finished();
}

}  // namespace vorn::shell
