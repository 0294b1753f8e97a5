// vorn-screenshot: draws the game's window into a PNG file, for the README and
// for looking at the card art. Not installed.
//
//   vorn-screenshot <file.png> [scene] [--russian] [--dark]
//   vorn-screenshot --help
// (kUsage below lists the scenes). The window runs in a scratch folder with a
// fixed seed; no file of yours is touched.
#include <optional>

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QElapsedTimer>
#include <QMenu>
#include <QMenuBar>
#include <QPalette>
#include <QStandardPaths>
#include <QPixmap>
#include <QPushButton>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <initializer_list>
#include <stdexcept>
#include <string>

#include "board/random.h"
#include "dark_palette.h"
#include "shell/choices.h"
#include "shell/dialogs/about_window.h"
#include "shell/dialogs/form5.h"
#include "shell/game_style.h"
#include "shell/table/board_view.h"
#include "shell/table/card_image.h"
#include "shell/window/form2.h"
#include "shell/dialogs/help_window.h"
#include "shell/dialogs/results_chart.h"
#include "shell/dialogs/statistics_window.h"
#include "shell/game.h"

namespace {

using namespace vorn;
using namespace vorn::shell;

constexpr const char* kUsage =
    "usage: vorn-screenshot <file.png> [scene] [--russian] [--dark] [--zoom=P] [--window=WxH] [--maximized]\n"
    "Draws the game's window into a PNG file, dealt with a fixed seed in a scratch folder.\n"
    "scenes: start       the window as it opens, before New game\n"
    "        deal        after a seeded New game (the default)\n"
    "        play        after the deal, with a few cards played and one selected\n"
    "        verdict     as play, with the verdict's mark shown\n"
    "        form3       the Russian about window; form4 the English one\n"
    "        form5       the load dialog, one stored deal shown\n"
    "        help        the help window at How to play; help-<topic> at another page (help-1050)\n"
    "        statistics  the statistics window over a record of 70 made-up games\n"
    "        menu        the Game menu opened after the deal, Messages checked\n"
    "  --russian  Russian texts (English otherwise)\n"
    "  --dark     under a dark desktop palette\n"
    "  --zoom=P   the table at P % (a step of the Table size menu)\n"
    "  --window=WxH  the table scaling with a window of W x H pixels\n"
    "  --maximized   the window maximised (where the desktop maximises: a Wayland\n"
    "                compositor, or an X server with a window manager)\n";

constexpr std::initializer_list<const char*> kScenes = {"start", "deal",  "play", "verdict",    "form3",
                                                        "form4", "form5", "help", "statistics", "menu"};

int usageError(const std::string& problem) {
    std::fprintf(stderr, "vorn-screenshot: %s (see vorn-screenshot --help)\n", problem.c_str());
    return 2;
}

void click(Form2& form, int suit, int rank) { emit form.boardView()->card(suit, rank)->clicked(); }
const Game& gameOf(const Form2& form) { return *form.findChild<Game*>(QStringLiteral("game")); }

// A few moves a player could make first, found by trying clicks the way a
// player would: select a card, click a card of its suit one rank away; a refused
// selection is dropped again. Then the first card that can be selected is.
void playAFewCards(Form2& form, int wanted) {
    int moves = 0;
    for (int pass = 0; pass < 3 && moves < wanted; ++pass)
        for (int suit = 1; suit <= kSuits && moves < wanted; ++suit)
            for (int rank = 2; rank <= kRanks && moves < wanted; ++rank)
                for (int target : {rank - 1, rank + 1}) {
                    if (target > kRanks || moves >= wanted) continue;
                    const size_t before = gameOf(form).history().undoCount();
                    click(form, suit, rank);
                    if (!gameOf(form).selected()) continue;
                    click(form, suit, target);
                    if (gameOf(form).selected()) click(form, suit, rank);
                    if (gameOf(form).history().undoCount() > before) ++moves;
                }
    for (int suit = 1; suit <= kSuits && !gameOf(form).selected(); ++suit)
        for (int rank = 2; rank <= kRanks && !gameOf(form).selected(); ++rank) click(form, suit, rank);
}

bool save(const QPixmap& picture, const char* file) {
    if (picture.isNull() || !picture.save(QString::fromLocal8Bit(file), "PNG")) {
        std::fprintf(stderr, "vorn-screenshot: cannot write %s\n", file);
        return false;
    }
    return true;
}


// 70 games in a record in folder, won more often as they go on, some with
// help, some of deals proven lost, graded, a few deals of the day.
record::Record madeUpRecord(const std::filesystem::path& folder) {
    record::Opened opened = record::Record::open(folder);
    if (!opened.record) throw std::runtime_error(opened.detail);
    record::Record& r = *opened.record;
    const auto now = record::Clock::now();
    for (int n = 0; n < 70; ++n) {
        record::Beginning b;
        b.deal = static_cast<std::uint32_t>(1000 + n * 37);
        b.layout = "x";
        b.verdict = n % 6 == 5 ? record::Verdict::Lost : record::Verdict::Winnable;
        const bool daily = n >= 66;
        if (daily) {
            b.start = record::Start::Daily;
            b.dailyDate = record::utcDate(now - std::chrono::hours(24 * (69 - n)));
        }
        const record::GameId id = *r.begin(b, now);
        r.update(id, {"", 70 + n % 30, n % 4, n % 7 == 0, 0, 0, 150000 + 3000 * n});
        const bool won = daily || (b.verdict == record::Verdict::Winnable && (n * 7) % 10 < 3 + n / 12);
        r.end(id, won ? record::Result::Won : b.verdict == record::Verdict::Lost ? record::Result::Lost
                                                                                : record::Result::GivenUp,
              150000 + 3000 * n, now);
        r.setGrade(id, n, n % 5, 1);
    }
    return std::move(*opened.record);
}

QPixmap grabShown(QWidget& window) {
    window.show();
    QApplication::processEvents();
    return window.grab();
}

}  // namespace

int main(int argc, char** argv) {
    // The arguments are read before Qt starts, so --help needs no display.
    std::string file;
    std::string scene;
    bool russian = false;
    bool dark = false;
    bool maximized = false;
    std::optional<double> zoom;
    std::optional<QSize> window;
    for (int i = 1; i < argc; ++i) {
        const std::string arg = argv[i];
        if (arg == "--help" || arg == "-h") {
            std::fputs(kUsage, stdout);
            return 0;
        }
        if (arg == "--russian") russian = true;
        else if (arg == "--dark") dark = true;
        else if (arg == "--maximized") maximized = true;
        else if (arg.starts_with("--zoom=")) zoom = std::atof(arg.c_str() + 7) / 100;
        else if (arg.starts_with("--window=")) {
            const QStringList size = QString::fromStdString(arg.substr(9)).split(QLatin1Char('x'));
            window = QSize(size.value(0).toInt(), size.value(1).toInt());
        }
        else if (arg.starts_with('-')) return usageError("unknown option " + arg);
        else if (file.empty()) file = arg;
        else if (scene.empty()) scene = arg;
        else return usageError("too many arguments: " + arg);
    }
    if (file.empty()) return usageError("no picture file named");
    if (scene.empty()) scene = "deal";
    const bool helpPage = scene.starts_with("help-") && scene.size() > 5 &&
                          std::all_of(scene.begin() + 5, scene.end(), [](char c) { return c >= '0' && c <= '9'; });
    if (!helpPage && std::none_of(kScenes.begin(), kScenes.end(), [&](const char* known) { return scene == known; }))
        return usageError("unknown scene " + scene);

    QApplication app(argc, argv);
    QApplication::setStyle(new GameStyle);  // as the game has it
    QStandardPaths::setTestModeEnabled(true);  // the game's settings stay as the player left them
    choices().clear();                         // and those of the last picture are forgotten
    if (zoom) choices().setValue("tableZoom", *zoom);
    if (window) {
        choices().setValue("scaleWithWindow", true);
        choices().setValue("windowSize", *window);
    }
    if (dark) QApplication::setPalette(darkPalette());

    QTemporaryDir folder;
    if (!folder.isValid()) {
        std::fputs("vorn-screenshot: cannot make a scratch folder\n", stderr);
        return 1;
    }
    const std::filesystem::path path = folder.path().toStdString();
    std::ofstream(path / "ini.txt", std::ios::binary) << (russian ? "2\r\n" : "1\r\n");

    SilentPrompts prompts;
    struct OneDeal final : DealSource {
        DealNumber draw() override { return 20240611; }
    } deals;
    Form2 form(path, prompts, deals);

    if (scene == "form3" || scene == "form4") {
        AboutWindow about(scene == "form3" ? Language::Russian : Language::English, &form);
        return save(grabShown(about), file.c_str()) ? 0 : 1;
    }
    if (scene == "form5") {
        std::ofstream(path / "save.txt", std::ios::binary)
            << " 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20, 21, 22, 23, 24, 25, 26, 27, 28,"
               " 29, 30, 31, 32, 33, 34, 35, 36, 37, 38, 39, 40, 41, 42, 43, 44, 45, 46, 47, 48, first, \r\n";
        Form5 load(path, prompts, &form);
        load.findChild<QPushButton*>(QStringLiteral("Command1"))->click();  // Next: the stored deal's name
        return save(grabShown(load), file.c_str()) ? 0 : 1;
    }
    if (scene.starts_with("help")) {
        const int topic = helpPage ? std::atoi(scene.c_str() + 5) : 1010;
        HelpWindow* help = HelpWindow::showTopic(form.helpFile(), topic);
        const bool ok = save(grabShown(*help), file.c_str());
        help->close();
        return ok ? 0 : 1;
    }
    if (scene == "statistics") {
        record::Record games = madeUpRecord(path / "state");
        const std::string today = record::utcDate(record::Clock::now());
        StatisticsWindow statistics(russian ? Language::Russian : Language::English,
                                    {[&] { return games.summary(today, WinRates::kWanted); }, {}, {}}, prompts, &form);
        return save(grabShown(statistics), file.c_str()) ? 0 : 1;
    }
    if (scene != "start") form.findChild<QAction*>(QStringLiteral("ig1"))->trigger();
    if (scene == "play" || scene == "verdict") playAFewCards(form, 6);
    if (scene == "verdict") {  // the verdict's mark on, its answer waited for
        form.findChild<QAction*>(QStringLiteral("showVerdict"))->setChecked(true);
        QElapsedTimer waited;
        waited.start();
        while (waited.elapsed() < 500) QApplication::processEvents(QEventLoop::AllEvents, 50);
    }
    if (maximized) {
        form.showMaximized();
        QElapsedTimer waited;
        waited.start();
        while (waited.elapsed() < 1000) QApplication::processEvents(QEventLoop::AllEvents, 50);
    }
    if (scene == "menu") {  // a ticked and unticked check boxes and the language's mark
        form.findChild<QAction*>(QStringLiteral("ig4"))->setChecked(true);
        QMenu* menu = form.findChild<QMenu*>(QStringLiteral("igra"));
        grabShown(form);
        menu->popup(form.mapToGlobal(QPoint(0, form.menuBar()->height())));
        return save(grabShown(*menu), file.c_str()) ? 0 : 1;
    }
    return save(grabShown(form), file.c_str()) ? 0 : 1;
}
