// Show solution: plays a winning line on the window click by click, at about
// three moves a second, through the same click routines a player's clicks reach.
// It stops by itself as soon as the position is not the one the line expects
// (something else moved a card) or a move is not made as the line says.
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
    std::vector<Hit> clicks_;
    size_t first_ = 0;  // where the pairs begin: past the deselect click
    size_t next_ = 0;
    Board expected_{};
    bool playing_ = false;
};

}  // namespace vorn::shell
