// The statistics window: one row a figure, its caption at the left and its
// value in words at the right, so that a screen reader has every figure as
// text; the chart below says in one sentence what it draws.
#include "statistics_window.h"

#include <QDir>
#include <QFile>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QStandardPaths>
#include <QVBoxLayout>
#include <cmath>
#include <iterator>
#include <utility>

#include "results_chart.h"

namespace vorn::shell {

namespace {

constexpr Text kGrades[] = {Text::GradeEasy, Text::GradeMedium, Text::GradeHard, Text::GradeVeryHard,
                            Text::GradeExpert};

// The texts of the figures in one language.
class Words {
public:
    explicit Words(Language lang) : lang_(lang) {}

    QString operator()(Text id) const { return text(id, lang_); }
    QString number(long long n) const { return locale().toString(n); }
    QString percent(long long part, long long whole) const {
        return (*this)(Text::StatsPercent).arg(whole == 0 ? 0 : std::llround(100.0 * part / whole));
    }
    // "won 41 of 52 winnable deals (79 %)"
    QString wonOf(const record::Figures& f, Text ofWhat) const {
        return (*this)(Text::StatsOf).arg(plural(Text::PluralWon, f.won), plural(ofWhat, f.played)) +
               QStringLiteral(" (%1)").arg(percent(f.won, f.played));
    }
    QString duration(double ms) const {
        const long long s = std::llround(ms / 1000);
        if (s < 60) return (*this)(Text::StatsSeconds).arg(s);
        if (s < 3600) return (*this)(Text::StatsMinutes).arg(s / 60).arg(s % 60);
        return (*this)(Text::StatsHours).arg(s / 3600).arg(s / 60 % 60);
    }
    QString plural(Text id, long long n) const { return shell::plural(id, n, lang_); }

private:
    QLocale locale() const { return QLocale(lang_ == Language::English ? QLocale::English : QLocale::Russian); }
    Language lang_;
};

// A grid of rows in the figures' part of the window.
class Rows {
public:
    explicit Rows(QWidget* figures) : grid_(new QGridLayout(figures)) {
        grid_->setContentsMargins(0, 0, 0, 0);
        grid_->setColumnStretch(1, 1);
        grid_->setHorizontalSpacing(16);
    }
    // A caption and its value; a screen reader hears them as one sentence.
    void add(const char* name, const QString& caption, const QString& value) {
        auto* left = new QLabel(caption);
        auto* right = new QLabel(value);
        right->setObjectName(QString::fromLatin1(name));
        right->setAccessibleName(caption + QStringLiteral(": ") + QString(value).replace(QLatin1Char('\n'), QStringLiteral("; ")));
        left->setBuddy(right);
        grid_->addWidget(left, row_, 0, Qt::AlignTop);
        grid_->addWidget(right, row_++, 1, Qt::AlignTop);
    }
    // A line across both columns.
    QLabel* line(const char* name, const QString& words, bool heading = false) {
        auto* label = new QLabel(words);
        label->setObjectName(QString::fromLatin1(name));
        label->setWordWrap(true);
        if (heading) {
            QFont bold = label->font();
            bold.setBold(true);
            label->setFont(bold);
            grid_->setRowMinimumHeight(row_++, label->fontMetrics().height() / 2);  // a gap above
        }
        grid_->addWidget(label, row_++, 0, 1, 2);
        return label;
    }
    void widget(QWidget* w) { grid_->addWidget(w, row_++, 0, 1, 2); }

private:
    QGridLayout* grid_;
    int row_ = 0;
};

// The figures of a record that holds games.
void showFigures(Rows& rows, const record::Summary& s, const Words& say) {
    rows.add("played", say(Text::StatsPlayed), say.number(s.all.played));
    rows.add("won", say(Text::StatsWon), say.number(s.all.won) + QStringLiteral(" (%1)").arg(say.percent(s.all.won, s.all.played)));
    rows.add("streak", say(Text::StatsStreak), say.number(s.all.currentStreak));
    rows.add("longest", say(Text::StatsLongest), say.number(s.all.longestStreak));
    if (s.winnable.played > 0)
        rows.add("winnable", say(Text::StatsWinnable),
                 say.wonOf(s.winnable, Text::PluralWinnableDeals) + QLatin1Char('\n') +
                     say(Text::StatsStreaks).arg(say.number(s.winnable.currentStreak), say.number(s.winnable.longestStreak)));
    if (s.withoutHelp.played > 0)
        rows.add("withoutHelp", say(Text::StatsWithoutHelp), say.wonOf(s.withoutHelp, Text::PluralGames));
    if (s.withHelp.played > 0) rows.add("withHelp", say(Text::StatsWithHelp), say.wonOf(s.withHelp, Text::PluralGames));
    rows.add("averageWon", say(Text::StatsAverageWon),
             s.all.won == 0 ? say(Text::StatsNoneWon)
                            : say(Text::StatsMovesTime)
                                  .arg(say.plural(Text::PluralMoves, std::llround(s.averageWonMoves)),
                                       say.duration(s.averageWonMs)));
    rows.add("daily", say(Text::StatsDaily), say(s.dailyWon ? Text::StatsDailyWon : Text::StatsDailyNotWon));
    rows.add("dailyStreak", say(Text::StatsDailyStreak), say.plural(Text::PluralDays, s.dailyStreak));

    bool headed = false;
    for (const record::GradeFigures& g : s.byGrade) {
        if (g.grade < 0 || g.grade >= static_cast<int>(std::size(kGrades)) || g.played == 0) continue;
        if (!std::exchange(headed, true)) rows.line("byGrade", say(Text::StatsByGrade), true);
        const QByteArray name = "grade" + QByteArray::number(g.grade);
        rows.add(name.constData(), say(kGrades[g.grade]), say.wonOf({g.played, g.won}, Text::PluralGames));
    }

    if (s.recent.empty()) return;
    std::vector<bool> won;
    for (const record::Result r : s.recent) won.push_back(r == record::Result::Won);
    WinRates rates(won);
    static constexpr Text kTrends[] = {Text::TrendFalling, Text::TrendSteady, Text::TrendRising};
    const QString sentence =
        say(Text::ChartSays)
            .arg(say.plural(Text::PluralLastGames, rates.lastGames),
                 say(Text::StatsPercent).arg(rates.lastPercent), say(kTrends[rates.trend + 1]));
    QLabel* heading = rows.line("chartSays", sentence, true);
    auto* chart = new ResultsChart(std::move(rates), nullptr);
    chart->setAccessibleName(sentence);
    heading->setBuddy(chart);
    rows.widget(chart);
}

}  // namespace

StatisticsWindow::StatisticsWindow(Language lang, StatisticsSource source, Prompts& prompts, QWidget* parent)
    : QDialog(parent), lang_(lang), source_(std::move(source)), prompts_(prompts) {
    setObjectName(QStringLiteral("statistics"));
    setWindowTitle(text(Text::StatsTitle, lang));
    layout_ = new QVBoxLayout(this);

    auto* buttons = new QHBoxLayout;
    reset_ = new QPushButton(text(Text::StatsReset, lang), this);
    reset_->setObjectName(QStringLiteral("reset"));
    export_ = new QPushButton(text(Text::StatsExport, lang), this);
    export_->setObjectName(QStringLiteral("export"));
    auto* close = new QPushButton(text(Text::StatsClose, lang), this);
    close->setObjectName(QStringLiteral("close"));
    close->setDefault(true);
    buttons->addWidget(reset_);
    buttons->addWidget(export_);
    buttons->addStretch(1);
    buttons->addWidget(close);
    layout_->addLayout(buttons);
    connect(reset_, &QPushButton::clicked, this, &StatisticsWindow::askReset);
    connect(export_, &QPushButton::clicked, this, &StatisticsWindow::exportGames);
    connect(close, &QPushButton::clicked, this, &QDialog::reject);

    refresh();
    close->setFocus();
}

void StatisticsWindow::refresh() {
    delete figures_;
    figures_ = new QWidget(this);
    layout_->insertWidget(0, figures_);
    Rows rows(figures_);
    const Words say(lang_);
    const std::optional<record::Summary> summary = source_.summary ? source_.summary() : std::nullopt;
    reset_->setEnabled(summary.has_value());
    export_->setEnabled(summary.has_value());
    if (!summary) rows.line("message", say(Text::StatsNoRecord));
    else if (summary->all.played == 0) rows.line("message", say(Text::StatsEmpty));
    else showFigures(rows, *summary, say);
}

void StatisticsWindow::askReset() {
    const QString title = text(Text::Zagol, lang_);
    if (prompts_.message(this, text(Text::StatsResetAsk, lang_), title, Prompts::Buttons::YesNo,
                         Prompts::Icon::Question) != Prompts::Answer::Yes)
        return;
    if (!source_.reset || !source_.reset())
        prompts_.message(this, text(Text::StatsResetFailed, lang_), title, Prompts::Buttons::Ok, Prompts::Icon::None);
    refresh();
}

void StatisticsWindow::exportGames() {
    const QString suggested =
        QDir(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation)).filePath(QStringLiteral("vorn-games.csv"));
    const QString file =
        prompts_.saveFileName(this, text(Text::StatsExportTitle, lang_), suggested, text(Text::StatsExportFilter, lang_));
    if (file.isEmpty()) return;
    if (!source_.exportTo || !source_.exportTo(std::filesystem::path(QFile::encodeName(file).toStdString())))
        prompts_.message(this, text(Text::FileError, lang_).arg(QDir::toNativeSeparators(file)), text(Text::Zagol, lang_),
                         Prompts::Buttons::Ok, Prompts::Icon::None);
}

}  // namespace vorn::shell
