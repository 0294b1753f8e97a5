#include "store/settings.h"

#include <string_view>

#include "store/file_io.h"

namespace vorn::store {
namespace {

// Only the first line matters, and only whether it is exactly "1"; a few bytes
// decide that, however long the line or the file is.
constexpr std::size_t kPrefix = 64;

}  // namespace

bool Settings::readEnglish() const {
    const auto bytes = readPrefix(path(), kPrefix);
    if (!bytes) return false;
    const std::string_view text(*bytes);
    const std::string_view firstLine = text.substr(0, text.find_first_of("\r\n"));
    return firstLine == "1";
}

bool Settings::write(bool english) {
    if (auto problem = writeFile(path(), english ? "1\r\n" : "2\r\n", WriteMode::Replace, false)) {
        error_ = std::move(*problem);
        return false;
    }
    error_.clear();
    return true;
}

}  // namespace vorn::store
