// Small POSIX helpers shared by the settings file and the layout store: every
// access opens the file, does one thing, and closes it again. Nothing here
// throws; a failure comes back as a message naming the file and the reason.
#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace vorn::store {

// "<path>: <what> failed: <reason from the system>", built from errno.
std::string ioError(const std::filesystem::path& file, std::string_view what, int err);

// How write-type accesses open their file.
enum class WriteMode { Replace, Append };

// Writes bytes to file (created if missing). Replace empties the file first,
// Append adds to its end and, when the existing file does not end with a line
// end, writes CR LF before any new bytes so that they start a line of their own.
// With sync the bytes are on disk when this returns. Returns the error message,
// or nothing on success.
std::optional<std::string> writeFile(const std::filesystem::path& file, std::string_view bytes,
                                     WriteMode mode, bool sync);

// Reads at most limit bytes from the start of a regular file. Anything else (a
// missing file, a directory, a pipe, a read error) gives nothing.
std::optional<std::string> readPrefix(const std::filesystem::path& file, std::size_t limit);

// Removes file; a file that is already gone counts as removed.
std::optional<std::string> removeFile(const std::filesystem::path& file);

}  // namespace vorn::store
