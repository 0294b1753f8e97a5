// Hint and Winnable deals only as the player meets them: the time from the menu
// item to the answer on the table, in the real main window with its solver
// thread, measured over many deals.
//
//   vorn-window-solver [deals] [winnable-deals]    defaults: 20000 and 1000
//
// Hint: for each seed 1..deals the window deals that seed's layout (the layout
// `vorn-solve --deals N --seed 1` solves as deal number seed) with New game, then
// Hint is chosen and the clock runs until the answer is shown (marks blink or a
// message is said). Winnable deals only: with the item checked, New game is
// chosen again and again and the clock runs until the winnable layout is dealt.
// Run it under QT_QPA_PLATFORM=offscreen.
#include <QAction>
#include <QApplication>
#include <QTemporaryDir>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include "board/random.h"
#include "shell/prompts.h"
#include "shell/solver/solver_menu.h"
#include "shell/solver/winnable_dealer.h"
#include "shell/window/form2.h"

namespace {

using Clock = std::chrono::steady_clock;

// Deals the layout of one seed, as vorn-solve's seeded deals do, and the next
// seed's at the next deal.
class SeedByDeal final : public vorn::Random {
public:
    uint64_t seed = 1;
    void reseed() override { engine_ = vorn::SeededRandom(seed++); }
    double next() override { return engine_.next(); }

private:
    vorn::SeededRandom engine_{1};
};

double ms(Clock::duration d) { return std::chrono::duration<double, std::milli>(d).count(); }

void report(const char* what, std::vector<double> times) {
    std::sort(times.begin(), times.end());
    auto at = [&](double q) { return times[std::min(times.size() - 1, static_cast<size_t>(q * times.size()))]; };
    const long slow = std::count_if(times.begin(), times.end(), [](double t) { return t > 1000.0 / 60; });
    std::printf("%s: %zu times, median %.2f ms, p90 %.2f ms, p99 %.2f ms, max %.2f ms, over one frame (16.7 ms) %ld\n",
                what, times.size(), at(0.5), at(0.9), at(0.99), times.back(), slow);
}

}  // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    const long deals = argc > 1 ? std::atol(argv[1]) : 20000;
    const long winnableDeals = argc > 2 ? std::atol(argv[2]) : 1000;
    QTemporaryDir folder;
    vorn::shell::SilentPrompts prompts;  // boxes answered at once: only the solver and the window take time
    SeedByDeal random;
    vorn::shell::Form2 form(folder.path().toStdString(), prompts, random);
    form.show();
    auto* menu = form.findChild<vorn::shell::SolverMenu*>(QStringLiteral("solverMenu"));
    auto action = [&](const char* name) { return form.findChild<QAction*>(QString::fromLatin1(name)); };
    if (!menu || !action("ig1") || !action("hint") || !action("winnable")) {
        std::fprintf(stderr, "vorn-window-solver: the window has no solver menu\n");
        return 1;
    }

    std::vector<double> hints;
    for (long seed = 1; seed <= deals; ++seed) {
        random.seed = static_cast<uint64_t>(seed);
        action("ig1")->trigger();
        QCoreApplication::processEvents();  // the deal's repaint is not the hint's time
        const auto start = Clock::now();
        action("hint")->trigger();
        while (menu->searching()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        hints.push_back(ms(Clock::now() - start));
    }
    report("Hint", hints);

    std::vector<double> winnable;
    long tried = 0;
    random.seed = static_cast<uint64_t>(deals + 1);
    action("winnable")->setChecked(true);
    for (long i = 0; i < winnableDeals; ++i) {
        const auto start = Clock::now();
        action("ig1")->trigger();
        while (menu->dealer().dealing()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        QCoreApplication::processEvents();  // and shown
        winnable.push_back(ms(Clock::now() - start));
        tried += menu->dealer().attempts();
    }
    report("Winnable deals only, New game", winnable);
    std::printf("layouts tried per winnable deal: %.2f\n", winnableDeals ? double(tried) / winnableDeals : 0.0);
    return 0;
}
