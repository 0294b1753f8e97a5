// What the store tests share: a fresh folder per test, files byte for byte, a
// layout string as a deal writes it, and a way to act as an ordinary user.
#pragma once

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace vorn::store::testing {

// A new empty folder, removed with its content when the test ends.
class TempFolder {
public:
    TempFolder() {
        std::string pattern = (std::filesystem::temp_directory_path() / "vorn-store-XXXXXX").string();
        if (::mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("mkdtemp failed");
        path_ = pattern;
        std::filesystem::permissions(path_, std::filesystem::perms::all);  // an ordinary user may write too
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;
    ~TempFolder() {
        std::error_code ignored;
        std::filesystem::permissions(path_, std::filesystem::perms::owner_all, ignored);
        std::filesystem::remove_all(path_, ignored);
    }
    const std::filesystem::path& path() const { return path_; }
    std::filesystem::path operator/(std::string_view name) const { return path_ / name; }

private:
    std::filesystem::path path_;
};

inline std::string readBytes(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

inline void writeBytes(const std::filesystem::path& file, std::string_view bytes) {
    std::ofstream out(file, std::ios::binary | std::ios::trunc);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

// The names in a folder, sorted and joined by spaces.
inline std::string listing(const std::filesystem::path& folder) {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    std::string joined;
    for (const auto& n : names) joined += (joined.empty() ? "" : " ") + n;
    return joined;
}

// A layout string as a deal writes it: 48 values " n" joined by ",", 182 characters.
inline std::string dealtLayout(int step = 7) {
    std::string text;
    for (int i = 0; i < 48; ++i) text += (i ? ", " : " ") + std::to_string((i * step) % 48 + 1);
    return text;
}

// Runs `checks` in a child process as the user nobody, as the game runs for a
// player whose folder is read-only (root would write there all the same). The
// checks answer what went wrong, or nothing.
inline ::testing::AssertionResult asOrdinaryUser(const std::function<std::string()>& checks) {
    const pid_t child = ::fork();
    if (child == 0) {
        if (::getuid() == 0 && (::setgid(65534) != 0 || ::setuid(65534) != 0)) ::_exit(3);
        const std::string problem = checks();
        if (!problem.empty()) std::fputs(problem.c_str(), stderr);
        ::_exit(problem.empty() ? 0 : 1);
    }
    int status = 0;
    if (child < 0 || ::waitpid(child, &status, 0) != child) return ::testing::AssertionFailure() << "no child process";
    if (WIFEXITED(status) && WEXITSTATUS(status) == 0) return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << "the checks failed as an ordinary user (status " << status << ")";
}

}  // namespace vorn::store::testing
