// One tick picks the card up, the next plays the move.
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
    moves_ = line.moves;
    next_ = 0;
    picking_ = true;
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
    const Move& move = moves_[next_];
    if (picking_) {
        // Another card selected is taken back first, as the line begins from
        // nothing selected.
        if (const std::optional<Card> other = game_.selectedCard(); other && *other != move.card)
            game_.click({Hit::Kind::Card, *other, 0});
        if (!game_.isSelected(move.card)) game_.click(move.select());
        if (!playing_) return;  // stopped while the click ran (a box was answered)
        if (!game_.isSelected(move.card)) {
            stop();  // the card was not picked up as the line says
            return;
        }
        picking_ = false;
        expected_ = game_.board();
        timer_.start(pace_ / 2);
        return;
    }
    const bool last = ++next_ == moves_.size();
    // The last move may open the end-of-game window: the show is over by then.
    if (last) playing_ = false;
    const bool made = game_.play(move, By::Solution);
    if (last) {
        emit stopped();
        return;
    }
    if (!playing_) return;
    if (!made) {
        stop();
        return;
    }
    picking_ = true;
    expected_ = game_.board();
    timer_.start(pace_ / 2);
}

}  // namespace vorn::shell
