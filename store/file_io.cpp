#include "store/file_io.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

namespace vorn::store {
namespace {

// Closes the descriptor when the access ends, whichever way it ends.
class Fd {
public:
    explicit Fd(int fd) : fd_(fd) {}
    Fd(const Fd&) = delete;
    Fd& operator=(const Fd&) = delete;
    ~Fd() {
        if (fd_ >= 0) ::close(fd_);
    }
    int get() const { return fd_; }
    bool ok() const { return fd_ >= 0; }
    // Closes now and reports the result (a late write error can surface here).
    int close() {
        const int result = ::close(fd_);
        fd_ = -1;
        return result;
    }

private:
    int fd_;
};

bool writeAll(int fd, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t n = ::write(fd, bytes.data(), bytes.size());
        if (n < 0) {
            if (errno == EINTR) continue;
            return false;
        }
        bytes.remove_prefix(static_cast<std::size_t>(n));
    }
    return true;
}

// Does the regular file behind fd end with CR or LF (or hold nothing at all)?
bool endsWithLineEnd(int fd, off_t size) {
    if (size == 0) return true;
    char last = 0;
    return ::pread(fd, &last, 1, size - 1) != 1 || last == '\n' || last == '\r';
}

// A new directory entry is only durable once its folder is synced too; this is
// a best effort on top of the file's own fsync.
void syncFolder(const std::filesystem::path& file) {
    const std::filesystem::path folder = file.has_parent_path() ? file.parent_path() : ".";
    Fd dir(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (dir.ok()) ::fsync(dir.get());
}

}  // namespace

std::string ioError(const std::filesystem::path& file, std::string_view what, int err) {
    std::string text = file.string();
    text += ": ";
    text += what;
    text += " failed: ";
    text += std::strerror(err);
    return text;
}

std::optional<std::string> writeFile(const std::filesystem::path& file, std::string_view bytes,
                                     WriteMode mode, bool sync) {
    const bool append = mode == WriteMode::Append;
    // O_NONBLOCK keeps a pipe planted under the file's name from hanging the game.
    const int flags = O_CREAT | O_CLOEXEC | O_NOCTTY | O_NONBLOCK |
                      (append ? O_RDWR | O_APPEND : O_WRONLY | O_TRUNC);
    const char* opening = append ? "opening for appending" : "opening for writing";
    Fd fd(::open(file.c_str(), flags, 0644));
    if (!fd.ok()) return ioError(file, opening, errno);

    struct stat st {};
    if (::fstat(fd.get(), &st) != 0) return ioError(file, opening, errno);
    if (!S_ISREG(st.st_mode)) return file.string() + ": " + opening + " failed: not a regular file";

    std::string buffer;
    // A file whose last line has no line end (cut short, or edited by hand) would
    // glue the new bytes to that line: for save.txt two records in one unreadable
    // line, and the older one lost to the load dialog. So the new bytes start a
    // line of their own; nothing already in the file is changed.
    if (append && !bytes.empty() && !endsWithLineEnd(fd.get(), st.st_size)) buffer = "\r\n";
    buffer.append(bytes);
    // One write call: an appended record lands in one piece.
    if (!writeAll(fd.get(), buffer)) return ioError(file, "writing", errno);
    if (sync) {
        if (::fsync(fd.get()) != 0) return ioError(file, "syncing to disk", errno);
    }
    if (fd.close() != 0) return ioError(file, "closing", errno);
    if (sync) syncFolder(file);
    return std::nullopt;
}

std::optional<std::string> readPrefix(const std::filesystem::path& file, std::size_t limit) {
    Fd fd(::open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK));
    if (!fd.ok()) return std::nullopt;
    struct stat st {};
    if (::fstat(fd.get(), &st) != 0 || !S_ISREG(st.st_mode)) return std::nullopt;

    std::string bytes;
    bytes.resize(std::min(limit, static_cast<std::size_t>(st.st_size)));
    std::size_t filled = 0;
    // The size may have changed since fstat: read until the end or the limit.
    while (filled < limit) {
        if (filled == bytes.size()) bytes.resize(std::min(limit, bytes.size() * 2 + 4096));
        const ssize_t n = ::read(fd.get(), bytes.data() + filled, bytes.size() - filled);
        if (n < 0) {
            if (errno == EINTR) continue;
            return std::nullopt;
        }
        if (n == 0) break;
        filled += static_cast<std::size_t>(n);
    }
    bytes.resize(filled);
    return bytes;
}

std::optional<std::string> removeFile(const std::filesystem::path& file) {
    if (::unlink(file.c_str()) == 0 || errno == ENOENT) return std::nullopt;
    return ioError(file, "deleting", errno);
}

}  // namespace vorn::store
