// The statistics window: the figures of the game record, a chart of the last
// games' results, and Reset and Export. It knows the record only through a
// StatisticsSource, so it shows whatever record it is given, or none.
//
// Below the chart is the place for the list of recorded games, each with a
// button that opens its review.
#pragma once

#include <QDialog>
#include <filesystem>
#include <functional>
#include <optional>

#include "record/record.h"
#include "shell/prompts.h"
#include "shell/texts.h"

class QLabel;
class QPushButton;
class QVBoxLayout;

namespace vorn::shell {

struct StatisticsSource {
    // The figures; nothing when there is no record this run. The chart draws
    // the last WinRates::kWanted results of Summary::recent.
    std::function<std::optional<record::Summary>()> summary;
    std::function<bool()> reset;                                  // forgets every game but the one in play
    std::function<bool(const std::filesystem::path&)> exportTo;  // writes every game as CSV
};

class StatisticsWindow final : public QDialog {
    Q_OBJECT
public:
    // objectName "statistics"; in the language given, the one in force.
    StatisticsWindow(Language lang, StatisticsSource source, Prompts& prompts, QWidget* parent = nullptr);

private:
    void refresh();      // asks the source again and shows what it says
    void askReset();     // Reset: asks, forgets, shows the figures anew
    void exportGames();  // Export: asks for a file and writes it

    Language lang_;
    StatisticsSource source_;
    Prompts& prompts_;
    QVBoxLayout* layout_ = nullptr;
    QWidget* figures_ = nullptr;
    QPushButton* reset_ = nullptr;
    QPushButton* export_ = nullptr;
};

}  // namespace vorn::shell
