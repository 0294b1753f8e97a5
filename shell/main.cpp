// Vorn: the program. It plays in the folder it is started from; ini.txt there
// remembers the language. The desktop menu starts it through a launcher that
// first changes into the game's own data folder (packaging/vorn-launcher.in).
#include <QApplication>
#include <QSocketNotifier>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <unistd.h>

#include "board/deal_number.h"
#include "solver/daily_deal.h"
#include "record/record.h"
#include "app_icon.h"
#include "game_style.h"
#include "shell/window/form2.h"
#include "prompts.h"
#include "windowing.h"

namespace {

constexpr const char* kHelp =
    "usage: vorn [--help | --version | --deal N | --daily [YYYY-MM-DD] | --export-games FILE]\n"
    "Vorn, a patience card game for one player.\n"
    "  --deal N               start with deal number N (1 to 4294967295) dealt\n"
    "  --daily [YYYY-MM-DD]   start with the deal of the day (today's, in UTC) dealt\n"
    "  --export-games FILE    write every recorded game to FILE as CSV and exit\n"
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

// --export-games FILE: writes every game of the record (in the state folder)
// to FILE as CSV, with no display needed. Nothing when the option is not
// given, else the exit status: 0, or 1 after one line on stderr when there is
// no record or FILE cannot be written (2: no FILE named).
std::optional<int> exportedGames(int argc, char** argv) {
    std::optional<std::string_view> file;
    for (int i = 1; i < argc; ++i) {
        const std::string_view arg = argv[i];
        if (arg == "--export-games") file = i + 1 < argc ? std::string_view(argv[++i]) : std::string_view();
        else if (arg.substr(0, 15) == "--export-games=") file = arg.substr(15);
    }
    if (!file) return std::nullopt;
    if (file->empty()) {
        std::fputs("vorn: --export-games takes the name of the file to write\n", stderr);
        return 2;
    }
    const std::optional<std::filesystem::path> folder = vorn::record::stateFolder();
    if (!folder) {
        std::fputs("vorn: no game record: neither XDG_STATE_HOME nor HOME is an absolute folder\n", stderr);
        return 1;
    }
    vorn::record::Opened opened = vorn::record::Record::open(*folder);
    if (!opened.record) {
        std::fprintf(stderr, "vorn: no game record: %s\n", opened.detail.c_str());
        return 1;
    }
    if (opened.problem == vorn::record::Opened::Problem::MovedAside)
        std::fprintf(stderr, "vorn: the game record: %s\n", opened.detail.c_str());
    if (!opened.record->exportCsv(std::filesystem::path(*file))) {
        std::fprintf(stderr, "vorn: cannot export the games: %s\n", opened.record->errorText().c_str());
        return 1;
    }
    return 0;
}

// --deal N or --daily [DATE]: the deal to start with. A value that is no deal
// number or no date ends the program with a one-line message and status 2
// before any window opens.
struct Options {
    std::optional<vorn::DealNumber> deal;
    std::optional<vorn::Date> daily;
    bool bad = false;
};

Options readOptions(int argc, char** argv) {
    Options options;
    for (int i = 1; i < argc; ++i) {
        std::string_view arg = argv[i];
        if (arg == "--daily" || arg.substr(0, 8) == "--daily=") {
            // The date is optional: --daily alone is today's deal.
            const bool joined = arg.size() > 7;
            const bool next = !joined && i + 1 < argc && argv[i + 1][0] != '-';
            const std::string_view date = joined ? arg.substr(8) : next ? std::string_view(argv[++i]) : std::string_view();
            options.daily = !joined && !next ? std::optional(vorn::todayUtc()) : vorn::parseDate(date);
            if (!options.daily) {
                std::fprintf(stderr, "vorn: --daily takes a date written YYYY-MM-DD, not \"%.*s\"\n",
                             static_cast<int>(date.size()), date.data());
                options.bad = true;
            }
            continue;
        }
        std::optional<std::string_view> value;
        if (arg == "--deal") {
            value = i + 1 < argc ? std::string_view(argv[++i]) : std::string_view();
        } else if (arg.substr(0, 7) == "--deal=") {
            value = arg.substr(7);
        }
        if (!value) continue;
        options.deal = vorn::parseDealNumber(*value);
        if (!options.deal) {
            std::fprintf(stderr, "vorn: --deal takes a deal number from 1 to 4294967295, not \"%.*s\"\n",
                         static_cast<int>(value->size()), value->data());
            options.bad = true;
        }
    }
    return options;
}

// The end of a desktop session: SIGTERM and SIGHUP, which a desktop sends at
// log-out. The handler only writes a byte into a pipe; the event loop reads it
// there and ends the game as Quit does after its question is answered Yes.
int sessionEnd[2] = {-1, -1};

extern "C" void onSessionEnd(int) {
    const int saved = errno;
    const char byte = 1;
    [[maybe_unused]] const ssize_t written = ::write(sessionEnd[1], &byte, 1);
    errno = saved;
}

// Set up at the very start, so that a signal sent while the window is still
// being made waits in the pipe. A signal ignored from the start (nohup) stays
// ignored.
void catchSessionEnd() {
    if (::pipe2(sessionEnd, O_CLOEXEC | O_NONBLOCK) != 0) return;
    struct sigaction action {};
    action.sa_handler = onSessionEnd;
    sigemptyset(&action.sa_mask);
    action.sa_flags = SA_RESTART;
    for (const int signal : {SIGTERM, SIGHUP}) {
        struct sigaction before {};
        if (::sigaction(signal, nullptr, &before) == 0 && before.sa_handler == SIG_IGN) continue;
        ::sigaction(signal, &action, nullptr);
    }
}

}  // namespace

int main(int argc, char** argv) {
    if (answeredInfoOption(argc, argv)) return std::fflush(stdout) == 0 ? 0 : 1;
    if (const std::optional<int> status = exportedGames(argc, argv)) return *status;
    const Options options = readOptions(argc, argv);
    if (options.bad) return 2;
    if (const std::string problem = vorn::shell::windowingProblem(argc, argv); !problem.empty()) {
        std::fputs(problem.c_str(), stderr);
        return 1;
    }
    catchSessionEnd();
    std::error_code error;
    const std::filesystem::path folder = std::filesystem::current_path(error);
    if (error) {
        std::fprintf(stderr, "vorn: cannot tell the current folder: %s\n", error.message().c_str());
        return 1;
    }

    QApplication app(argc, argv);
    QApplication::setStyle(new vorn::shell::GameStyle);
    QApplication::setApplicationName(QStringLiteral("vorn"));
    QApplication::setApplicationVersion(QStringLiteral(VORN_VERSION));
    QApplication::setDesktopFileName(QStringLiteral("org.vorn.vorn"));
    QApplication::setWindowIcon(vorn::shell::gameIcon());

    vorn::shell::QtPrompts prompts;
    vorn::ClockDeals deals;
    vorn::shell::Form2 form(folder, prompts, deals);
    if (options.deal) form.dealNumbered(*options.deal);
    if (options.daily) form.dealDaily(*options.daily);
    if (sessionEnd[0] >= 0) {
        auto* ending = new QSocketNotifier(sessionEnd[0], QSocketNotifier::Read, &form);
        QObject::connect(ending, &QSocketNotifier::activated, &form, [&form] {
            char bytes[16];
            while (::read(sessionEnd[0], bytes, sizeof bytes) > 0) {
            }
            form.endSession();
        });
    }
    form.show();
    return QApplication::exec();
}
