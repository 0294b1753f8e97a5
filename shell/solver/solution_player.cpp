// One click per tick: select, then half a move later the target.
#include "solution_player.h"

namespace vorn::shell {

SolutionPlayer::SolutionPlayer(Position position, Click click, QObject* parent)
    : QObject(parent), position_(std::move(position)), click_(std::move(click)) {
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
    expected_ = position_();
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
    if (!(position_() == expected_)) {  // a card moved that the line did not move
        stop();
        return;
    }
    const size_t index = next_++;
    const bool last = next_ == clicks_.size();
    // The last click may open the end-of-game window: the show is over by then.
    if (last) playing_ = false;
    click_(clicks_[index]);
    if (last) {
        emit stopped();
        return;
    }
    if (!playing_) return;  // stopped while the click ran (a box was answered)
    const Board& now = position_();
    const bool selecting = index >= first_ && (index - first_) % 2 == 0;
    if (now.vybor != (selecting ? 2 : 1)) {
        stop();  // the move or the selection did not happen as the line says
        return;
    }
    expected_ = now;
    timer_.start(pace_ / 2);
}

}  // namespace vorn::shell
