// The settings reader: whatever bytes ini.txt holds, the game is in English if
// and only if the first line (up to the first CR or LF) is exactly "1".
#include <fcntl.h>
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>

#include "fuzz_check.h"
#include "store/settings.h"

namespace {

// One scratch folder per fuzzing process, removed when the process exits. It
// lies in memory (/dev/shm) where there is one: a disk turns every input into
// a slow truncate.
std::filesystem::path scratchParent() {
    std::error_code ignored;
    if (std::filesystem::is_directory("/dev/shm", ignored)) return "/dev/shm";
    return std::filesystem::temp_directory_path();
}

const std::filesystem::path& scratchFolder() {
    static const std::filesystem::path folder = [] {
        std::string pattern = (scratchParent() / "vorn-fuzz-ini-XXXXXX").string();
        FUZZ_EXPECT(::mkdtemp(pattern.data()) != nullptr);
        return std::filesystem::path(pattern);
    }();
    static const bool cleanup = [] {
        std::atexit([] {
            std::error_code ignored;
            std::filesystem::remove_all(scratchFolder(), ignored);
        });
        return true;
    }();
    (void)cleanup;
    return folder;
}

void writeIni(const std::filesystem::path& file, std::string_view bytes) {
    const int fd = ::open(file.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
    FUZZ_EXPECT(fd >= 0);
    FUZZ_EXPECT(::write(fd, bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size()));
    FUZZ_EXPECT(::close(fd) == 0);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const vorn::store::Settings settings(scratchFolder());
    writeIni(settings.path(), bytes);

    const std::string_view firstLine = bytes.substr(0, bytes.find_first_of("\r\n"));
    FUZZ_EXPECT(settings.readEnglish() == (firstLine == "1"));
    return 0;
}
