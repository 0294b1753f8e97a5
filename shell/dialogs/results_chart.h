// The statistics window's chart: the win rate of the last games, game by game,
// each point the share of wins among the kWindow games up to it, with a mark
// under each game (a bar: won; a dash: given up or lost).
#pragma once

#include <QWidget>
#include <vector>

namespace vorn::shell {

// The win rates the chart draws, from results oldest first (true: won).
struct WinRates {
    static constexpr int kWindow = 20;  // games in each point's share
    static constexpr int kShown = 100;  // games drawn at most
    // What the chart wants to be given: kShown games and the kWindow - 1 before them.
    static constexpr int kWanted = kShown + kWindow - 1;

    explicit WinRates(const std::vector<bool>& won);

    std::vector<bool> shown;     // the last kShown results at most
    std::vector<double> points;  // the win rate, 0..1, at each of them
    // The line begins at the first shown game whose share holds kWindow
    // games (or all of them, when there are fewer).
    std::size_t firstPoint = 0;
    int lastGames = 0;           // games in the last point's share
    int lastPercent = 0;         // its win rate, rounded to a whole per cent
    // The last kWindow games against the kWindow before them (as many as there
    // are): +1 when five points or more higher, -1 five or more lower, else 0.
    int trend = 0;
};

class ResultsChart final : public QWidget {
public:
    ResultsChart(WinRates rates, QWidget* parent);
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    WinRates rates_;
};

}  // namespace vorn::shell
