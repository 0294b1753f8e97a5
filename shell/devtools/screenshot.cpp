// vorn-screenshot: draws the game's window into a PNG file, for the README and
// for looking at the card art. Not installed.
//
//   vorn-screenshot <file.png> [scene] [--russian] [--dark]
//   scenes: start   the window as it opens, before New game
//           deal    after a seeded New game (the default)
//           play    after the deal, with a few cards played and one selected
//           form3   the Russian about window       form4  the English one
//           form5   the load dialog, one stored deal shown
//           help    the help window
//   --dark draws it under a dark desktop palette.
//   --zoom=P shows the table at P % (a step of the Table size menu);
//   --window=WxH lets the table scale with a window of W x H pixels;
//   --maximized shows the window maximised (on a desktop that maximises:
//   a Wayland compositor, or an X server with a window manager).
// The window runs in a scratch folder with a fixed seed; no file of yours is touched.
#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QElapsedTimer>
#include <QPalette>
#include <QStandardPaths>
#include <QPixmap>
#include <QPushButton>
#include <QTemporaryDir>
#include <cstdio>
#include <fstream>
#include <string>

#include "board/random.h"
#include "dark_palette.h"
#include "shell/choices.h"
#include "shell/dialogs/about_window.h"
#include "shell/dialogs/form5.h"
#include "shell/table/board_view.h"
#include "shell/table/card_image.h"
#include "shell/window/form2.h"
#include "shell/dialogs/help_window.h"
#include "shell/game.h"

namespace {

using namespace vorn;
using namespace vorn::shell;

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


QPixmap grabShown(QWidget& window) {
    window.show();
    QApplication::processEvents();
    return window.grab();
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 2 || argc > 8) {
        std::fputs("usage: vorn-screenshot <file.png> [start|deal|play|verdict|form3|form4|form5|help] [--russian] [--dark]"
                   " [--zoom=P] [--window=WxH] [--maximized]\n",
                   stderr);
        return 2;
    }
    QApplication app(argc, argv);
    QStandardPaths::setTestModeEnabled(true);  // the game's settings stay as the player left them
    choices().clear();                         // and those of the last picture are forgotten
    std::string scene = "deal";
    bool russian = false, maximized = false;
    for (int i = 2; i < argc; ++i) {
        const std::string arg = argv[i];
        if (arg == "--russian") russian = true;
        else if (arg == "--dark") QApplication::setPalette(darkPalette());
        else if (arg.rfind("--zoom=", 0) == 0) choices().setValue("tableZoom", std::stod(arg.substr(7)) / 100);
        else if (arg.rfind("--window=", 0) == 0) {
            const QStringList size = QString::fromStdString(arg.substr(9)).split(QLatin1Char('x'));
            choices().setValue("scaleWithWindow", true);
            choices().setValue("windowSize", QSize(size.value(0).toInt(), size.value(1).toInt()));
        }
        else if (arg == "--maximized") maximized = true;
        else scene = arg;
    }

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
        return save(grabShown(about), argv[1]) ? 0 : 1;
    }
    if (scene == "form5") {
        std::ofstream(path / "save.txt", std::ios::binary)
            << " 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20, 21, 22, 23, 24, 25, 26, 27, 28,"
               " 29, 30, 31, 32, 33, 34, 35, 36, 37, 38, 39, 40, 41, 42, 43, 44, 45, 46, 47, 48, first, \r\n";
        Form5 load(path, prompts, &form);
        load.findChild<QPushButton*>(QStringLiteral("Command1"))->click();  // Next: the stored deal's name
        return save(grabShown(load), argv[1]) ? 0 : 1;
    }
    if (scene == "help") {
        HelpWindow* help = HelpWindow::showTopic(form.helpFile(), 1010);
        const bool ok = save(grabShown(*help), argv[1]);
        help->close();
        return ok ? 0 : 1;
    }
    if (scene != "start" && scene != "deal" && scene != "play" && scene != "verdict") {
        std::fprintf(stderr, "vorn-screenshot: unknown scene %s\n", scene.c_str());
        return 2;
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
    return save(grabShown(form), argv[1]) ? 0 : 1;
}
