// The statistics window opened over a record of 10,000 games (the goal: under
// 100 ms): from the making of the window, which reads the record's summary,
// until its chart has been drawn on the screen, in Russian and in English. The
// window is closed again, untimed, between two openings. Reports the median,
// p99 and worst opening, in ms, and the very first opening of the program
// (fonts and styles not yet loaded) as first_ms.
//
//   QT_QPA_PLATFORM=offscreen build/bench/bench_statistics_window
//   xvfb-run -a build/bench/bench_statistics_window    (with an X server's part)
#include <QApplication>
#include <memory>
#include <utility>

#include "filled_record.h"
#include "shell/dialogs/results_chart.h"
#include "shell/dialogs/statistics_window.h"
#include "shell/prompts.h"

namespace {

using namespace vorn::bench;
using namespace vorn::shell;

// Notes that a widget has been painted.
class PaintSeen final : public QObject {
public:
    bool seen = false;

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint) seen = true;
        return false;
    }
};

void BM_StatisticsWindowOpens(benchmark::State& state) {
    const Language lang = state.range(0) == 0 ? Language::Russian : Language::English;
    Record record = filled().open();
    const std::string today = utcDate(Clock::now());
    const StatisticsSource source{[&] { return record.summary(today, WinRates::kWanted); }, [] { return false; },
                                  [](const std::filesystem::path&) { return false; }};
    SilentPrompts prompts;
    std::unique_ptr<StatisticsWindow> window;
    const auto closed = [&] {
        window.reset();
        QApplication::processEvents();
    };
    const auto open = [&] {
        window = std::make_unique<StatisticsWindow>(lang, source, prompts);
        PaintSeen painted;
        window->findChild<QWidget*>(QStringLiteral("chart"))->installEventFilter(&painted);
        window->show();
        while (!painted.seen) QApplication::processEvents(QEventLoop::WaitForMoreEvents);
        return std::string();
    };
    static bool cold = true;  // the program's first window of all, made before the iterations
    if (std::exchange(cold, false)) {
        const auto start = Steady::now();
        open();
        state.counters["first_ms"] = std::chrono::duration<double, std::milli>(Steady::now() - start).count();
        closed();
    }
    timeEach(state, closed, open);
    closed();
}
BENCHMARK(BM_StatisticsWindowOpens)->Arg(0)->Arg(1)->Iterations(50)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    QApplication app(argc, argv);
    filled();  // the record is made before any timing
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
