// Show solution: plays a winning line on the window move by move, at about
// three moves a second: half a move after the card is picked up, it is handed
// to the game as the move, so the player sees each card selected and then
// played. It stops by itself as soon as the position is not the one the line
// expects (something else moved a card) or a move is not made as the line says.
#pragma once

#include <QObject>
#include <QTimer>
#include <chrono>
#include <vector>

#include "solver/solver.h"

namespace vorn::shell {

class Game;

class SolutionPlayer final : public QObject {
    Q_OBJECT
public:
    explicit SolutionPlayer(Game& game, QObject* parent = nullptr);

    // Plays a solver's winning line for the current position from the next tick on.
    void play(const Verdict& line);
    void stop();
    bool playing() const { return playing_; }

    // Time from one move to the next; the selecting click comes halfway.
    void setPace(std::chrono::milliseconds perMove);
    static constexpr std::chrono::milliseconds kPace{333};

signals:
    void stopped();  // the line ended, failed or was stopped

private:
    void step();

    Game& game_;
    QTimer timer_;
    std::chrono::milliseconds pace_ = kPace;
    std::vector<Move> moves_;
    size_t next_ = 0;
    bool picking_ = true;  // the next tick picks the card up; else it plays it
    Board expected_{};
    bool playing_ = false;
};

}  // namespace vorn::shell
