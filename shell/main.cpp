// Vorn: the program. It plays in the folder it is started from; ini.txt there
// remembers the language. The desktop menu starts it through a launcher that
// first changes into the game's own data folder (packaging/vorn-launcher.in).
#include <QApplication>
#include <QProxyStyle>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <system_error>

#include "board/random.h"
#include "app_icon.h"
#include "shell/window/form2.h"
#include "prompts.h"

namespace {

constexpr const char* kHelp =
    "usage: vorn [--help | --version]\n"
    "Vorn, a patience card game for one player.\n"
    "Started from a shell it keeps its files (ini.txt, save.txt, save1.txt,\n"
    "load.txt) in the current folder; started from the desktop menu, in\n"
    "${XDG_DATA_HOME:-~/.local/share}/vorn. Other arguments are ignored.\n"
    "See the manual page vorn(6).\n";

// --help and --version answer on stdout and need no display; any other argument
// changes nothing. Returns true when one of them was answered.
bool answeredInfoOption(int argc, char** argv) {
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], "--help") == 0) {
            std::fputs(kHelp, stdout);
            return true;
        }
        if (std::strcmp(argv[i], "--version") == 0) {
            std::fputs("vorn " VORN_VERSION "\n", stdout);
            return true;
        }
    }
    return false;
}

bool haveDisplay() {
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
        const char* value = std::getenv(name);
        if (value && *value) return true;
    }
    return false;
}

// The desktop's own style, less the icon of the menu bar's overflow button: the
// bar is made with that button, and loading its icon files wakes Qt's icon
// engine plug-ins, some 5 ms of start-up; the game's menus never overflow the
// bar, so the button never shows.
class GameStyle final : public QProxyStyle {
public:
    QIcon standardIcon(StandardPixmap icon, const QStyleOption* option, const QWidget* widget) const override {
        if (icon == SP_ToolBarHorizontalExtensionButton || icon == SP_ToolBarVerticalExtensionButton) return {};
        return QProxyStyle::standardIcon(icon, option, widget);
    }
};

}  // namespace

int main(int argc, char** argv) {
    if (answeredInfoOption(argc, argv)) return std::fflush(stdout) == 0 ? 0 : 1;
    if (!haveDisplay()) {
        std::fputs("vorn: no graphical display found (neither DISPLAY nor WAYLAND_DISPLAY is set); "
                   "start the game from a desktop session\n",
                   stderr);
        return 1;
    }
    std::error_code error;
    const std::filesystem::path folder = std::filesystem::current_path(error);
    if (error) {
        std::fprintf(stderr, "vorn: cannot tell the current folder: %s\n", error.message().c_str());
        return 1;
    }

    QApplication app(argc, argv);
    QApplication::setStyle(new GameStyle);
    QApplication::setApplicationName(QStringLiteral("vorn"));
    QApplication::setApplicationVersion(QStringLiteral(VORN_VERSION));
    QApplication::setDesktopFileName(QStringLiteral("org.vorn.vorn"));
    QApplication::setWindowIcon(vorn::shell::gameIcon());

    vorn::shell::QtPrompts prompts;
    vorn::ClockRandom random;
    vorn::shell::Form2 form(folder, prompts, random);
    form.show();
    return QApplication::exec();
}
