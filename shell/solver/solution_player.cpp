// One click per tick: select, then half a move later the target.
#include "solution_player.h"

#include "shell/game.h"

namespace vorn::shell {

SolutionPlayer::SolutionPlayer(Game& game, QObject* parent) : QObject(parent), game_(game) {
    setObjectName(QStringLiteral("solutionPlayer"));
    timer_.setSingleShot(true);
    connect(&timer_, &QTimer::timeout, this, &SolutionPlayer::step);
}

void SolutionPlayer::setPace(std::chrono::milliseconds perMove) { pace_ = perMove; }

void SolutionPlayer::play(const Verdict& line) {
    stop();
    if (line.moves.empty()) return;
    clicks_ = line.clicks();
    first_ = line.deselect ? 1 : 0;
    next_ = 0;
    expected_ = game_.board();
    playing_ = true;
    timer_.start(pace_ / 2);
}

void SolutionPlayer::stop() {
    timer_.stop();
    if (!playing_) return;
    playing_ = false;
    emit stopped();
}

void SolutionPlayer::step() {
    if (!playing_) return;
    if (!(game_.board() == expected_)) {  // a card moved that the line did not move
        stop();
        return;
    }
    const size_t index = next_++;
    const bool last = next_ == clicks_.size();
    // The last click may open the end-of-game window: the show is over by then.
    if (last) playing_ = false;
    game_.click(clicks_[index]);
    if (last) {
        emit stopped();
        return;
    }
    if (!playing_) return;  // stopped while the click ran (a box was answered)
    const bool selecting = index >= first_ && (index - first_) % 2 == 0;
    if (game_.selected() != selecting) {
        stop();  // the move or the selection did not happen as the line says
        return;
    }
    expected_ = game_.board();
    timer_.start(pace_ / 2);
}

}  // namespace vorn::shell
