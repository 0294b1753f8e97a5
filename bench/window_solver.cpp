// Hint, Winnable deals only and the verdict's mark as the player meets them: the
// time from the menu item or the move to the answer on the table, in the real
// main window with its solver threads, measured over many deals.
//
//   vorn-window-solver [deals] [winnable-deals] [positions]   defaults: 20000, 1000, 20000
//
// Hint: for each seed 1..deals the window deals that seed's layout (the layout
// `vorn-solve --deals N --seed 1` solves as deal number seed) with New game, then
// Hint is chosen and the clock runs until the answer is shown (marks blink or a
// message is said). Winnable deals only: with the item checked, New game is
// chosen again and again and the clock runs until the winnable layout is dealt.
// The verdict's mark: with "Show whether the deal can be won" checked, random
// play goes through `positions` positions: moves clicked on the card images,
// Undo now and then, New game when a deal runs out of moves or has had its
// share. For each the clock runs from the click (or menu item) until the mark
// shows the new position's verdict; the time the click itself takes on the
// user-interface thread is reported too: the window never waits for the solver.
// The game record in force holds 10,000 games, so a move's handling includes
// writing it to a record of that size, and New game's ending one game and
// beginning the next. Winnable deals of each grade: New game with a grade
// chosen, timed until the deal of that grade is dealt.
// Run it under QT_QPA_PLATFORM=offscreen. Settings go to Qt's test folder, the
// record to a scratch one.
#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QMenuBar>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <random>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "bench/filled_record.h"
#include "board/random.h"
#include "board/reachables.h"
#include "shell/game.h"
#include "shell/prompts.h"
#include "shell/game.h"
#include "shell/table/board_view.h"
#include "shell/table/card_image.h"
#include "shell/table/pile_image.h"
#include "shell/window/form2.h"

namespace {

using Clock = std::chrono::steady_clock;

// Deals deal number 1, then 2, and so on: the layouts of vorn-solve's seeds.
class SeedByDeal final : public vorn::DealSource {
public:
    vorn::DealNumber seed = 1;
    vorn::DealNumber draw() override { return seed++; }
};

double ms(Clock::duration d) { return std::chrono::duration<double, std::milli>(d).count(); }

void report(const char* what, std::vector<double> times) {
    std::sort(times.begin(), times.end());
    auto at = [&](double q) { return times[std::min(times.size() - 1, static_cast<size_t>(q * times.size()))]; };
    const long slow = std::count_if(times.begin(), times.end(), [](double t) { return t > 1000.0 / 60; });
    std::printf("%s: %zu times, median %.2f ms, p90 %.2f ms, p99 %.2f ms, max %.2f ms, over one frame (16.7 ms) %ld\n",
                what, times.size(), at(0.5), at(0.9), at(0.99), times.back(), slow);
}

// The moves the clicks allow in a position: pairs of things a click reaches.
std::vector<std::pair<vorn::Hit, vorn::Hit>> movesOf(const vorn::Board& board) {
    std::vector<std::pair<vorn::Hit, vorn::Hit>> moves;
    const std::vector<vorn::Reachable> things = vorn::reachables(board);
    for (const vorn::Reachable& first : things) {
        vorn::Board selected = board;
        selected.clearSelection();
        selected.click(first.hit);
        if (!selected.hasSelection()) continue;
        for (const vorn::Reachable& second : things) {
            vorn::Board played = selected;
            if (played.click(second.hit).moved) moves.emplace_back(first.hit, second.hit);
        }
    }
    return moves;
}

// Random play with the mark shown: see the top of the file.
void markAlongRandomPlay(vorn::shell::Form2& form, long positions) {
    auto* game = form.findChild<vorn::shell::Game*>(QStringLiteral("game"));
    form.findChild<QAction*>(QStringLiteral("showVerdict"))->setChecked(true);
    auto* mark = form.findChild<QLabel*>(QStringLiteral("verdictMark"));
    auto* view = form.boardView();
    auto press = [&](const vorn::Hit& hit) {
        if (hit.kind == vorn::Hit::Kind::Card) emit view->card(hit.card.suit, hit.card.rank)->clicked();
        else emit view->pile(hit.pile)->clicked();
    };
    std::mt19937_64 chance(1);
    std::vector<double> toMark, handler, dealing;
    long moves = 0, undos = 0, deals = 0, inDeal = 0;
    while (static_cast<long>(toMark.size()) < positions) {
        const auto moveList = movesOf(game->board());
        const bool deal = !game->dealt() || moveList.empty() || inDeal >= 60;
        const bool undo = !deal && game->history().canUndo() && chance() % 10 == 0;
        if (game->selected()) press({vorn::Hit::Kind::Card, game->board().karta1, 0});
        const auto start = Clock::now();
        if (deal) {
            form.findChild<QAction*>(QStringLiteral("ig1"))->trigger();
            ++deals;
            inDeal = 0;
        } else if (undo) {
            form.findChild<QAction*>(QStringLiteral("undo"))->trigger();
            ++undos;
        } else {
            const auto& [first, second] = moveList[chance() % moveList.size()];
            press(first);
            press(second);
            ++moves;
        }
        (deal ? dealing : handler).push_back(ms(Clock::now() - start));
        ++inDeal;
        // The mark shows the verdict once the game has it: it follows at once.
        while (game->judgement() == vorn::shell::Judgement::Thinking)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        toMark.push_back(ms(Clock::now() - start));
        if (!mark || mark->text().isEmpty()) {
            std::fprintf(stderr, "vorn-window-solver: the mark shows nothing\n");
            return;
        }
    }
    std::printf("random play: %ld moves, %ld undos, %ld deals\n", moves, undos, deals);
    report("Verdict's mark, from the move to the new verdict", toMark);
    report("A move's or Undo's own handling on the user-interface thread", handler);
    report("New game's own handling (the deal and save1.txt written to disk)", dealing);
}

}  // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QStandardPaths::setTestModeEnabled(true);  // the player's settings stay as they are
    const long deals = argc > 1 ? std::atol(argv[1]) : 20000;
    const long winnableDeals = argc > 2 ? std::atol(argv[2]) : 1000;
    const long positions = argc > 3 ? std::atol(argv[3]) : 20000;
    QTemporaryDir folder;
    QTemporaryDir state;  // the XDG state folder, with a record of 10,000 games
    qputenv("XDG_STATE_HOME", state.path().toUtf8());
    vorn::bench::Filled games(std::filesystem::path(state.path().toStdString()) / "vorn");
    vorn::shell::SilentPrompts prompts;  // boxes answered at once: only the solver and the window take time
    SeedByDeal random;
    vorn::shell::Form2 form(folder.path().toStdString(), prompts, random);
    form.show();
    auto* game = form.findChild<vorn::shell::Game*>(QStringLiteral("game"));
    auto action = [&](const char* name) { return form.findChild<QAction*>(QString::fromLatin1(name)); };
    if (!game || !action("ig1") || !action("hint") || !action("winnable")) {
        std::fprintf(stderr, "vorn-window-solver: the window has no solver menu\n");
        return 1;
    }

    std::vector<double> hints;
    for (long seed = 1; seed <= deals; ++seed) {
        random.seed = static_cast<vorn::DealNumber>(seed);
        action("ig1")->trigger();
        QCoreApplication::processEvents();  // the deal's repaint is not the hint's time
        const auto start = Clock::now();
        action("hint")->trigger();
        while (game->busy()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        hints.push_back(ms(Clock::now() - start));
    }
    report("Hint", hints);

    std::vector<double> winnable;
    long tried = 0;
    random.seed = static_cast<vorn::DealNumber>(deals + 1);
    action("winnable")->setChecked(true);
    for (long i = 0; i < winnableDeals; ++i) {
        const auto start = Clock::now();
        action("ig1")->trigger();
        while (game->searching()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        QCoreApplication::processEvents();  // and shown
        winnable.push_back(ms(Clock::now() - start));
        tried += game->attempts();
    }
    report("Winnable deals only, New game", winnable);
    std::printf("layouts tried per winnable deal: %.2f\n", winnableDeals ? double(tried) / winnableDeals : 0.0);

    // Of one grade: a tenth as many deals each.
    for (const char* grade : {"gradeAny", "gradeEasy", "gradeMedium", "gradeHard", "gradeVeryHard", "gradeExpert"}) {
        action(grade)->trigger();
        std::vector<double> graded;
        for (long i = 0; i < std::max(1L, winnableDeals / 10); ++i) {
            const auto start = Clock::now();
            action("ig1")->trigger();
            while (game->searching()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
            QCoreApplication::processEvents();
            graded.push_back(ms(Clock::now() - start));
        }
        report((std::string("Winnable deals only, New game, ") + grade).c_str(), graded);
    }
    action("gradeAny")->trigger();

    action("winnable")->setChecked(false);
    markAlongRandomPlay(form, positions);
    return 0;
}
