// Which windowing Qt will try and whether it can work, without starting Qt.
#include "windowing.h"

#include <QLibraryInfo>
#include <QSettings>
#include <QString>
#include <cstdlib>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <vector>

namespace vorn::shell {

namespace {

namespace fs = std::filesystem;

std::string environment(const char* name) {
    const char* value = std::getenv(name);
    return value ? value : "";
}

std::vector<std::string> split(std::string_view text, char separator) {
    std::vector<std::string> parts;
    for (;;) {
        const auto end = text.find(separator);
        if (!text.substr(0, end).empty()) parts.emplace_back(text.substr(0, end));
        if (end == std::string_view::npos) return parts;
        text.remove_prefix(end + 1);
    }
}

// What Qt reads from the command line: -platform NAME and -platformpluginpath
// FOLDER, each also with two dashes.
std::string argument(int argc, char** argv, std::string_view option) {
    std::string value;
    for (int i = 1; i + 1 < argc; ++i) {
        std::string_view arg = argv[i];
        if (arg.starts_with("--")) arg.remove_prefix(1);
        if (arg == option) value = argv[++i];
    }
    return value;
}

fs::path programFolder() {
    std::error_code error;
    const fs::path program = fs::read_symlink("/proc/self/exe", error);
    return error ? fs::path() : program.parent_path();
}

// Qt's folder of plug-ins: from a qt.conf beside the program when there is one
// (its Prefix is the program's folder unless it says otherwise, its Plugins lie
// below the Prefix), else the folder Qt was installed with.
fs::path pluginsFolder(const fs::path& programDir) {
    for (const char* name : {"qt6.conf", "qt.conf"}) {
        const fs::path conf = programDir / name;
        std::error_code error;
        if (programDir.empty() || !fs::exists(conf, error)) continue;
        QSettings settings(QString::fromStdString(conf.string()), QSettings::IniFormat);
        settings.beginGroup(QStringLiteral("Paths"));
        const fs::path prefix = programDir / settings.value(QStringLiteral("Prefix"), QStringLiteral(".")).toString().toStdString();
        return prefix / settings.value(QStringLiteral("Plugins"), QStringLiteral("plugins")).toString().toStdString();
    }
    return QLibraryInfo::path(QLibraryInfo::PluginsPath).toStdString();
}

// Whether a Wayland plug-in lies where Qt looks for platform plug-ins: in the
// folder of -platformpluginpath or QT_QPA_PLATFORM_PLUGIN_PATH, and in
// platforms/ of its plug-in folder, of each folder of QT_PLUGIN_PATH and of the
// program's own folder.
bool haveWaylandPlugin(int argc, char** argv) {
    std::string direct = argument(argc, argv, "-platformpluginpath");
    if (direct.empty()) direct = environment("QT_QPA_PLATFORM_PLUGIN_PATH");
    const fs::path programDir = programFolder();
    std::vector<fs::path> folders;
    if (!direct.empty()) folders.emplace_back(direct);
    for (const fs::path& base : {pluginsFolder(programDir), programDir}) folders.push_back(base / "platforms");
    for (const std::string& base : split(environment("QT_PLUGIN_PATH"), ':')) folders.push_back(fs::path(base) / "platforms");
    for (const fs::path& folder : folders) {
        std::error_code error;
        for (fs::directory_iterator it(folder, error), end; !error && it != end; it.increment(error)) {
            if (it->path().filename().string().starts_with("libqwayland")) return true;
        }
    }
    return false;
}

}  // namespace

std::string windowingProblem(int argc, char** argv) {
    std::string named = argument(argc, argv, "-platform");
    if (named.empty()) named = environment("QT_QPA_PLATFORM");
    const bool x11 = !environment("DISPLAY").empty();
    const bool wayland = !environment("WAYLAND_DISPLAY").empty();
    if (named.empty() && !x11 && !wayland) {
        return "vorn: no graphical display found (neither DISPLAY nor WAYLAND_DISPLAY is set); "
               "start the game from a desktop session\n";
    }
    if (named.empty()) named = wayland || environment("XDG_SESSION_TYPE") == "wayland" ? "wayland;xcb" : "xcb";

    // The first plug-in that can work is the one Qt ends up with.
    std::vector<std::string> reasons;
    for (const std::string& entry : split(named, ';')) {
        const std::string name = entry.substr(0, entry.find(':'));
        if (name == "xcb") {
            if (x11) return {};
            reasons.emplace_back("no X display is set (DISPLAY)");
        } else if (name.starts_with("wayland")) {
            if (haveWaylandPlugin(argc, argv)) return {};
            reasons.emplace_back("Qt's Wayland plug-in is not installed (Debian package qt6-wayland)");
        } else {
            return {};
        }
    }
    if (reasons.empty()) return {};
    std::string line = "vorn: no window can be opened: " + reasons.front();
    for (std::size_t i = 1; i < reasons.size(); ++i) line += " and " + reasons[i];
    return line + "\n";
}

}  // namespace vorn::shell
